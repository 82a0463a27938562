// The thread fills whatever buffer is free and waits for the next one.
#include "demo/device/wave_output.h"

#include <windows.h>

#include <mmsystem.h>

#include <algorithm>
#include <utility>
#include <vector>

static constexpr int kBuffers = 6;

struct WaveBuffer {
    WAVEHDR header = {};
    std::vector<int16_t> samples;
};

struct WaveOutput {
    OutputForm form = {};
    FillWave fill;
    bool isOver = false;
    HWAVEOUT wave = nullptr;
    HANDLE bufferDone = nullptr;
    HANDLE stop = nullptr;
    HANDLE thread = nullptr;
    WaveBuffer buffers[kBuffers];
};

static bool OpenWave(WaveOutput& output) {
    WAVEFORMATEX format = {};
    format.wFormatTag = WAVE_FORMAT_PCM;
    format.nChannels = static_cast<WORD>(output.form.channels);
    format.nSamplesPerSec = output.form.sampleRate;
    format.wBitsPerSample = 16;
    format.nBlockAlign = static_cast<WORD>(2 * output.form.channels);
    format.nAvgBytesPerSec = output.form.sampleRate * format.nBlockAlign;
    const auto callback = reinterpret_cast<DWORD_PTR>(output.bufferDone);
    if (waveOutOpen(&output.wave, WAVE_MAPPER, &format, callback, 0, CALLBACK_EVENT) != 0)
        return false;
    for (WaveBuffer& buffer : output.buffers) {
        buffer.samples.resize(size_t{output.form.bufferFrames} * output.form.channels);
        buffer.header.lpData = reinterpret_cast<char*>(buffer.samples.data());
        buffer.header.dwBufferLength = static_cast<DWORD>(2 * buffer.samples.size());
        waveOutPrepareHeader(output.wave, &buffer.header, sizeof buffer.header);
        buffer.header.dwFlags |= WHDR_DONE;
    }
    return true;
}

static void CloseWave(WaveOutput& output) {
    waveOutReset(output.wave);
    for (WaveBuffer& buffer : output.buffers)
        waveOutUnprepareHeader(output.wave, &buffer.header, sizeof buffer.header);
    waveOutClose(output.wave);
}

static void WriteBuffer(WaveOutput& output, WaveBuffer& buffer) {
    const uint32_t frames = output.fill(buffer.samples.data());
    output.isOver = frames == 0;
    if (output.isOver) return;
    buffer.header.dwBufferLength = frames * output.form.channels * 2;
    buffer.header.dwFlags &= ~static_cast<DWORD>(WHDR_DONE);
    waveOutWrite(output.wave, &buffer.header, sizeof buffer.header);
}

static bool IsBufferFree(const WaveBuffer& buffer) {
    return (buffer.header.dwFlags & WHDR_DONE) != 0;
}

static DWORD WINAPI RunOutput(void* parameter) {
    WaveOutput& output = *static_cast<WaveOutput*>(parameter);
    if (!OpenWave(output)) return 0;
    const HANDLE events[] = {output.stop, output.bufferDone};
    int next = 0;
    for (;;) {
        while (!output.isOver && IsBufferFree(output.buffers[next])) {
            WriteBuffer(output, output.buffers[next]);
            next = (next + 1) % kBuffers;
        }
        const bool isDrained = std::all_of(output.buffers, output.buffers + kBuffers, IsBufferFree);
        if (isDrained || WaitForMultipleObjects(2, events, FALSE, INFINITE) == WAIT_OBJECT_0) break;
    }
    CloseWave(output);
    return 0;
}

WaveOutput* StartWaveOutput(const OutputForm& form, FillWave fill) {
    auto* output = new WaveOutput;
    output->form = form;
    output->fill = std::move(fill);
    output->bufferDone = CreateEventA(nullptr, FALSE, FALSE, nullptr);
    output->stop = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    output->thread = CreateThread(nullptr, 0, RunOutput, output, 0, nullptr);
    return output;
}

void StopWaveOutput(WaveOutput* output) {
    if (!output) return;
    if (output->thread) {
        SetEvent(output->stop);
        WaitForSingleObject(output->thread, INFINITE);
        CloseHandle(output->thread);
    }
    CloseHandle(output->bufferDone);
    CloseHandle(output->stop);
    delete output;
}
