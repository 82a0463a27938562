// A ring of short wave buffers, refilled as the device returns them.
#include "demo/midi_mapper/wave_engine.h"

#include <windows.h>

#include <mmsystem.h>

#include "demo/synth/synth.h"

static constexpr int kSampleRate = 44100;
static constexpr int kBufferFrames = 1103;  // 25 ms
static constexpr int kBuffers = 6;
static constexpr int kFadeBuffers = 4;

struct WaveBuffer {
    WAVEHDR header;
    int16_t samples[2 * kBufferFrames];
};

struct Engine {
    CRITICAL_SECTION lock;  // guards synth
    Synth synth;
    HWAVEOUT wave = nullptr;
    HANDLE bufferDone = nullptr;
    HANDLE thread = nullptr;
    HANDLE stop = nullptr;
    WaveBuffer buffers[kBuffers];
};

static Engine* RunningEngine = nullptr;

// gain falls from 1 to 0 over the fade at the end; gainStep is what each frame takes away.
static void FillBuffer(Engine& engine, WaveBuffer& buffer, float& gain, float gainStep) {
    float frames[2 * kBufferFrames];
    EnterCriticalSection(&engine.lock);
    RenderSynth(engine.synth, frames, kBufferFrames);
    LeaveCriticalSection(&engine.lock);
    for (int i = 0; i < kBufferFrames; ++i) {
        buffer.samples[2 * i] = ToSample16(frames[2 * i] * gain);
        buffer.samples[2 * i + 1] = ToSample16(frames[2 * i + 1] * gain);
        gain = gain > gainStep ? gain - gainStep : 0;
    }
    waveOutWrite(engine.wave, &buffer.header, sizeof buffer.header);
}

static bool OpenWave(Engine& engine) {
    WAVEFORMATEX format = {};
    format.wFormatTag = WAVE_FORMAT_PCM;
    format.nChannels = 2;
    format.nSamplesPerSec = kSampleRate;
    format.wBitsPerSample = 16;
    format.nBlockAlign = 4;
    format.nAvgBytesPerSec = kSampleRate * 4;
    engine.bufferDone = CreateEventA(nullptr, FALSE, FALSE, nullptr);
    engine.stop = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    const auto callback = reinterpret_cast<DWORD_PTR>(engine.bufferDone);
    if (waveOutOpen(&engine.wave, WAVE_MAPPER, &format, callback, 0, CALLBACK_EVENT) != 0) {
        engine.wave = nullptr;
        return false;
    }
    for (WaveBuffer& buffer : engine.buffers) {
        buffer.header = {};
        buffer.header.lpData = reinterpret_cast<char*>(buffer.samples);
        buffer.header.dwBufferLength = sizeof buffer.samples;
        waveOutPrepareHeader(engine.wave, &buffer.header, sizeof buffer.header);
    }
    return true;
}

static void FreeEngine(Engine* engine) {
    if (engine->wave) {
        waveOutReset(engine->wave);
        for (WaveBuffer& buffer : engine->buffers)
            waveOutUnprepareHeader(engine->wave, &buffer.header, sizeof buffer.header);
        waveOutClose(engine->wave);
    }
    if (engine->thread) CloseHandle(engine->thread);
    if (engine->bufferDone) CloseHandle(engine->bufferDone);
    if (engine->stop) CloseHandle(engine->stop);
    DeleteCriticalSection(&engine->lock);
    delete engine;
}

static bool WaitForBuffer(const Engine& engine, const WaveBuffer& buffer, DWORD deadlineMs) {
    while ((buffer.header.dwFlags & WHDR_DONE) == 0) {
        if (WaitForSingleObject(engine.bufferDone, deadlineMs) == WAIT_TIMEOUT) return false;
    }
    return true;
}

// Plays until it is told to stop and the fade has been heard, then frees the engine. A wave device
// that takes no more buffers is given up after two seconds.
static DWORD WINAPI RunEngine(void* parameter) {
    auto* engine = static_cast<Engine*>(parameter);
    const float fadeStep = 1.0F / (kFadeBuffers * kBufferFrames);
    float gain = 1;
    int next = 0;
    int fadeLeft = kFadeBuffers;
    for (WaveBuffer& buffer : engine->buffers)
        FillBuffer(*engine, buffer, gain, 0);
    while (fadeLeft > 0 && WaitForBuffer(*engine, engine->buffers[next], 2000)) {
        const bool isStopping = WaitForSingleObject(engine->stop, 0) == WAIT_OBJECT_0;
        if (isStopping) --fadeLeft;
        FillBuffer(*engine, engine->buffers[next], gain, isStopping ? fadeStep : 0);
        next = (next + 1) % kBuffers;
    }
    WaitForSingleObject(engine->stop, INFINITE);
    for (const WaveBuffer& buffer : engine->buffers)
        WaitForBuffer(*engine, buffer, 500);
    FreeEngine(engine);
    return 0;
}

bool StartEngine() {
    if (RunningEngine) return false;
    auto* engine = new Engine;
    InitializeCriticalSection(&engine->lock);
    ResetSynth(engine->synth, kSampleRate);
    if (OpenWave(*engine)) engine->thread = CreateThread(nullptr, 0, RunEngine, engine, 0, nullptr);
    if (!engine->thread) {
        FreeEngine(engine);
        return false;
    }
    SetThreadPriority(engine->thread, THREAD_PRIORITY_HIGHEST);
    RunningEngine = engine;
    return true;
}

void SendToEngine(uint32_t message) {
    Engine* engine = RunningEngine;
    if (!engine) return;
    EnterCriticalSection(&engine->lock);
    PlayMidiMessage(engine->synth, message);
    LeaveCriticalSection(&engine->lock);
}

void QuietEngine() {
    Engine* engine = RunningEngine;
    if (!engine) return;
    EnterCriticalSection(&engine->lock);
    ReleaseAllNotes(engine->synth);
    LeaveCriticalSection(&engine->lock);
}

void StopEngine() {
    if (RunningEngine) SetEvent(RunningEngine->stop);
    RunningEngine = nullptr;
}
