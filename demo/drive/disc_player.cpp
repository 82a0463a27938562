// Hands the wave output a few sectors at a time.
#include "demo/drive/disc_player.h"

#include <algorithm>
#include <atomic>

#include "demo/device/wave_output.h"

static constexpr uint32_t kBufferSectors = 5;  // 67 ms

static WaveOutput* Sound = nullptr;
static std::atomic<bool> IsMuted = false;

void StartDiscSound(std::shared_ptr<const Disc> disc, uint32_t fromSector, uint32_t toSector) {
    StopDiscSound();
    if (fromSector >= toSector) return;
    const auto file = std::make_shared<OpenTrackFile>();
    uint32_t sector = fromSector;
    const auto fill = [disc, file, sector, toSector](int16_t* frames) mutable {
        const uint32_t count = std::min(kBufferSectors, toSector - sector);
        for (uint32_t i = 0; i < count; ++i) {
            int16_t samples[2 * kSectorFrames];
            ReadDiscSector(*disc, *file, sector++, samples);
            if (IsMuted) std::fill(std::begin(samples), std::end(samples), int16_t{0});
            frames = std::copy(std::begin(samples), std::end(samples), frames);
        }
        return count * kSectorFrames;
    };
    Sound = StartWaveOutput({kDiscSampleRate, 2, kBufferSectors * kSectorFrames}, fill);
}

void StopDiscSound() {
    StopWaveOutput(Sound);
    Sound = nullptr;
}

void MuteDiscSound(bool muted) {
    IsMuted = muted;
}
