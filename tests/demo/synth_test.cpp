// The synthesizer: right pitch, notes that end, sound within bounds whatever is sent.
#include "demo/synth/synth.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

static constexpr int kRate = 22050;

static std::vector<float> Render(Synth& synth, int frames) {
    std::vector<float> samples(static_cast<size_t>(2 * frames));
    RenderSynth(synth, samples.data(), frames);
    return samples;
}

static float Loudest(const std::vector<float>& samples) {
    const auto [lowest, highest] = std::ranges::minmax(samples);
    return std::max(-lowest, highest);
}

// The strength of one frequency in the left channel.
static double Strength(const std::vector<float>& samples, double hertz) {
    double real = 0, imaginary = 0;
    for (size_t i = 0; i < samples.size(); i += 2) {
        const double angle = 6.283185307179586 * hertz * static_cast<double>(i / 2) / kRate;
        real += static_cast<double>(samples[i]) * std::cos(angle);
        imaginary += static_cast<double>(samples[i]) * std::sin(angle);
    }
    return std::hypot(real, imaginary) / static_cast<double>(samples.size() / 2);
}

static uint32_t Message(uint32_t status, uint32_t first, uint32_t second) {
    return status | first << 8 | second << 16;
}

TEST(Synth, NotesSoundAtTheirPitchAndFollowTheBend) {
    Synth synth;
    ResetSynth(synth, kRate);
    PlayMidiMessage(synth, Message(0xC0, 73, 0));
    PlayMidiMessage(synth, Message(0x90, 69, 100));
    const auto plain = Render(synth, kRate / 2);
    EXPECT_GT(Strength(plain, 440), 10 * Strength(plain, 493.88));
    PlayMidiMessage(synth, Message(0xE0, 127, 127));
    Render(synth, kRate / 2);
    const auto bent = Render(synth, kRate / 2);
    EXPECT_GT(Strength(bent, 493.88), 10 * Strength(bent, 440)) << "two semitones up";
}

TEST(Synth, EveryNoteEndsInSilence) {
    for (const uint32_t program : {0U, 8U, 16U, 24U, 32U, 40U, 56U, 72U, 80U}) {
        Synth synth;
        ResetSynth(synth, kRate);
        PlayMidiMessage(synth, Message(0xC3, program, 0));
        PlayMidiMessage(synth, Message(0x93, 60, 127));
        PlayMidiMessage(synth, Message(0x99, 38, 127));
        EXPECT_GT(Loudest(Render(synth, kRate)), 0.05F) << program;
        PlayMidiMessage(synth, Message(0x93, 60, 0));  // velocity 0 ends a note
        Render(synth, 3 * kRate);
        ASSERT_EQ(ToSample16(Loudest(Render(synth, 1000))), 0) << program;
    }
}

TEST(Synth, AnyMessagesStayWithinBounds) {
    Synth synth;
    ResetSynth(synth, 8000);
    uint32_t state = 1;
    for (int i = 0; i < 20000; ++i) {
        state = state * 1664525U + 1013904223U;
        PlayMidiMessage(synth, state);
        if (i % 50 == 0) ASSERT_LE(Loudest(Render(synth, 64)), 1.0F);
    }
    ReleaseAllNotes(synth);
    for (int i = 0; i < 10; ++i)
        Render(synth, 8000);
    EXPECT_LT(Loudest(Render(synth, 1000)), 0.001F);
}
