// From notes to samples to files.
#include "demo/media/wave_maker.h"

#include <algorithm>
#include <cmath>

#include "demo/synth/synth.h"

struct TimedMessage {
    size_t frame;
    bool isNoteOff;
    uint32_t message;
};

static std::vector<TimedMessage> MessagesOfPiece(const Piece& piece, int sampleRate) {
    const double framesPerBeat = sampleRate * 60.0 / piece.beatsPerMinute;
    std::vector<TimedMessage> messages;
    for (const Note& note : piece.notes) {
        const auto start = static_cast<size_t>(note.beat * framesPerBeat);
        const auto end = static_cast<size_t>((note.beat + note.beats) * framesPerBeat);
        const uint32_t key = static_cast<uint32_t>(note.key) << 8;
        const uint32_t velocity = static_cast<uint32_t>(note.velocity) << 16;
        messages.push_back({start, false, 0x90U | note.channel | key | velocity});
        messages.push_back({end, true, 0x80U | note.channel | key});
    }
    // At the same moment a note ends before the next one begins.
    std::stable_sort(messages.begin(), messages.end(), [](const auto& a, const auto& b) {
        return a.frame != b.frame ? a.frame < b.frame : a.isNoteOff && !b.isNoteOff;
    });
    return messages;
}

static void SetUpChannels(Synth& synth, const Piece& piece) {
    static const uint32_t kPan[3] = {64, 40, 70};
    for (uint32_t channel = 0; channel < 3; ++channel) {
        PlayMidiMessage(synth,
                        0xC0U | channel | static_cast<uint32_t>(piece.programs[channel]) << 8);
        PlayMidiMessage(synth, 0xB0U | channel | 10U << 8 | kPan[channel] << 16);
    }
}

static std::vector<int16_t> FinishSamples(std::vector<float>& frames, int sampleRate) {
    float peak = 0.01F;
    for (const float sample : frames)
        peak = std::max(peak, std::fabs(sample));
    const size_t frameCount = frames.size() / 2;
    const size_t fade = std::min(frameCount, static_cast<size_t>(sampleRate) * 60 / 1000);
    std::vector<int16_t> samples(frames.size());
    for (size_t i = 0; i < frames.size(); ++i) {
        const size_t left = frameCount - i / 2;
        const float share =
            left < fade ? static_cast<float>(left) / static_cast<float>(fade) : 1.0F;
        samples[i] = ToSample16(frames[i] * share * 0.9F / peak);
    }
    return samples;
}

std::vector<int16_t> RenderPiece(const Piece& piece, int sampleRate, size_t frameCount) {
    Synth synth;
    ResetSynth(synth, sampleRate);
    SetUpChannels(synth, piece);
    std::vector<float> frames(2 * frameCount);
    size_t done = 0;
    const auto renderTo = [&](size_t frame) {
        while (done < frame) {
            const size_t step = std::min<size_t>(frame - done, 512);
            RenderSynth(synth, frames.data() + 2 * done, static_cast<int>(step));
            done += step;
        }
    };
    for (const TimedMessage& timed : MessagesOfPiece(piece, sampleRate)) {
        renderTo(std::min(timed.frame, frameCount));
        PlayMidiMessage(synth, timed.message);
    }
    renderTo(frameCount);
    return FinishSamples(frames, sampleRate);
}

Bytes PackWave(const std::vector<int16_t>& stereo, const WaveForm& form) {
    const auto channels = static_cast<uint32_t>(form.channels);
    const auto bytesPerSample = static_cast<uint32_t>(form.bitsPerSample) / 8;
    const auto rate = static_cast<uint32_t>(form.sampleRate);
    const auto frameCount = static_cast<uint32_t>(stereo.size() / 2);
    const uint32_t dataBytes = frameCount * channels * bytesPerSample;
    Bytes file;
    PutText(file, "RIFF");
    PutLittle32(file, 36 + dataBytes + (dataBytes & 1));
    PutText(file, "WAVEfmt ");
    PutLittle32(file, 16);
    PutLittle16(file, 1);
    PutLittle16(file, channels);
    PutLittle32(file, rate);
    PutLittle32(file, rate * channels * bytesPerSample);
    PutLittle16(file, channels * bytesPerSample);
    PutLittle16(file, bytesPerSample * 8);
    PutText(file, "data");
    PutLittle32(file, dataBytes);
    for (size_t frame = 0; frame < frameCount; ++frame) {
        for (size_t channel = 0; channel < channels; ++channel) {
            const int left = stereo[2 * frame];
            const int right = stereo[2 * frame + 1];
            const int sample = channels == 1 ? (left + right) / 2 : channel == 0 ? left : right;
            if (bytesPerSample == 1)
                file.push_back(static_cast<uint8_t>((sample >> 8) + 128));
            else
                PutLittle16(file, static_cast<uint32_t>(sample));
        }
    }
    if (dataBytes % 2 != 0) file.push_back(0);
    return file;
}
