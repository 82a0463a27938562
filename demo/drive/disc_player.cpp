// A ring of wave buffers of a few sectors each.
#include "demo/drive/disc_player.h"

#include <windows.h>

#include <mmsystem.h>

#include <algorithm>

static constexpr uint32_t kBufferSectors = 5;  // 67 ms
static constexpr int kBuffers = 6;

struct DiscBuffer {
    WAVEHDR header;
    int16_t samples[kBufferSectors][2 * kSectorFrames];
};

struct DiscSound {
    std::shared_ptr<const Disc> disc;
    uint32_t sector = 0;
    uint32_t endSector = 0;
    OpenTrackFile file;
    HWAVEOUT wave = nullptr;
    HANDLE bufferDone = nullptr;
    HANDLE stop = nullptr;
    HANDLE thread = nullptr;
    DiscBuffer buffers[kBuffers];
};

static DiscSound* Sound = nullptr;
static volatile LONG IsMuted = 0;

static bool OpenWave(DiscSound& sound) {
    WAVEFORMATEX format = {};
    format.wFormatTag = WAVE_FORMAT_PCM;
    format.nChannels = 2;
    format.nSamplesPerSec = kDiscSampleRate;
    format.wBitsPerSample = 16;
    format.nBlockAlign = 4;
    format.nAvgBytesPerSec = kDiscSampleRate * 4;
    const auto callback = reinterpret_cast<DWORD_PTR>(sound.bufferDone);
    if (waveOutOpen(&sound.wave, WAVE_MAPPER, &format, callback, 0, CALLBACK_EVENT) != 0)
        return false;
    for (DiscBuffer& buffer : sound.buffers) {
        buffer.header = {};
        buffer.header.lpData = reinterpret_cast<char*>(buffer.samples);
        buffer.header.dwBufferLength = sizeof buffer.samples;
        waveOutPrepareHeader(sound.wave, &buffer.header, sizeof buffer.header);
        buffer.header.dwFlags |= WHDR_DONE;
    }
    return true;
}

static void CloseWave(DiscSound& sound) {
    waveOutReset(sound.wave);
    for (DiscBuffer& buffer : sound.buffers)
        waveOutUnprepareHeader(sound.wave, &buffer.header, sizeof buffer.header);
    waveOutClose(sound.wave);
}

static void WriteBuffer(DiscSound& sound, DiscBuffer& buffer) {
    const uint32_t count = std::min(kBufferSectors, sound.endSector - sound.sector);
    for (uint32_t i = 0; i < count; ++i)
        ReadDiscSector(*sound.disc, sound.file, sound.sector++, buffer.samples[i]);
    buffer.header.dwBufferLength = count * sizeof buffer.samples[0];
    if (IsMuted != 0) ZeroMemory(buffer.samples, sizeof buffer.samples);
    buffer.header.dwFlags &= ~static_cast<DWORD>(WHDR_DONE);
    waveOutWrite(sound.wave, &buffer.header, sizeof buffer.header);
}

static bool IsBufferFree(const DiscBuffer& buffer) {
    return (buffer.header.dwFlags & WHDR_DONE) != 0;
}

static DWORD WINAPI RunSound(void* parameter) {
    DiscSound& sound = *static_cast<DiscSound*>(parameter);
    if (!OpenWave(sound)) return 0;
    const HANDLE events[] = {sound.stop, sound.bufferDone};
    int next = 0;
    for (;;) {
        while (sound.sector < sound.endSector && IsBufferFree(sound.buffers[next])) {
            WriteBuffer(sound, sound.buffers[next]);
            next = (next + 1) % kBuffers;
        }
        const bool isDrained = std::all_of(sound.buffers, sound.buffers + kBuffers, IsBufferFree);
        if (isDrained || WaitForMultipleObjects(2, events, FALSE, INFINITE) == WAIT_OBJECT_0) break;
    }
    CloseWave(sound);
    return 0;
}

void StartDiscSound(std::shared_ptr<const Disc> disc, uint32_t fromSector, uint32_t toSector) {
    StopDiscSound();
    if (fromSector >= toSector) return;
    auto* sound = new DiscSound;
    sound->disc = std::move(disc);
    sound->sector = fromSector;
    sound->endSector = toSector;
    sound->bufferDone = CreateEventA(nullptr, FALSE, FALSE, nullptr);
    sound->stop = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    sound->thread = CreateThread(nullptr, 0, RunSound, sound, 0, nullptr);
    Sound = sound;
}

void StopDiscSound() {
    DiscSound* sound = Sound;
    if (!sound) return;
    Sound = nullptr;
    if (sound->thread) {
        SetEvent(sound->stop);
        WaitForSingleObject(sound->thread, INFINITE);
        CloseHandle(sound->thread);
    }
    CloseHandle(sound->bufferDone);
    CloseHandle(sound->stop);
    delete sound;
}

void MuteDiscSound(bool muted) {
    InterlockedExchange(&IsMuted, muted ? 1 : 0);
}
