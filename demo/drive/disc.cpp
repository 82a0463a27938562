// From the sheet to samples.
#include "demo/drive/disc.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string>

static std::filesystem::path PathFromUtf8(const std::string& text) {
    return {std::u8string(text.begin(), text.end())};
}

static bool ReadSheetText(const std::filesystem::path& path, std::string& text) {
    std::ifstream file(path, std::ios::binary);
    text.resize(kMaxCueBytes + 1);
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<size_t>(file.gcount()));
    return !text.empty();
}

bool LoadDisc(const std::filesystem::path& sheetPath, Disc& disc) {
    Disc found;
    std::string text;
    int errorLine = 0;
    if (!ReadSheetText(sheetPath, text) || !ParseCueSheet(text, found.sheet, errorLine))
        return false;
    found.folder = sheetPath.parent_path();
    for (CueFile& file : found.sheet.files) {
        WaveSource source;
        std::ifstream stream(found.folder / PathFromUtf8(file.name), std::ios::binary);
        if (stream && ReadWaveHeader(stream, source)) file.sectors = WaveSectors(source);
        found.sources.push_back(source);
    }
    found.layout = LayOutDisc(found.sheet);
    disc = std::move(found);
    return true;
}

static void FillTone(uint32_t hertz, uint32_t sector, int16_t (&samples)[2 * kSectorFrames]) {
    static constexpr double kTurn = 6.283185307179586;
    static constexpr double kLevel = 6000;
    for (uint32_t i = 0; i < kSectorFrames; ++i) {
        // Whole turns are taken off first: every second begins at phase 0.
        const uint64_t frame = (uint64_t{sector} * kSectorFrames + i) % kDiscSampleRate;
        const double phase = static_cast<double>(frame * hertz % kDiscSampleRate) / kDiscSampleRate;
        const auto sample = static_cast<int16_t>(std::lround(kLevel * std::sin(kTurn * phase)));
        samples[2 * i] = sample;
        samples[2 * i + 1] = sample;
    }
}

void ReadDiscSector(const Disc& disc, OpenTrackFile& open, uint32_t sector,
                    int16_t (&samples)[2 * kSectorFrames]) {
    std::fill(std::begin(samples), std::end(samples), int16_t{0});
    const uint32_t number = TrackOfSector(disc.layout, sector);
    if (number == 0 || sector >= disc.layout.sectors) return;
    const CueTrack& track = disc.sheet.tracks[number - 1];
    const uint32_t within = sector - disc.layout.tracks[number - 1].startSector;
    if (!track.isAudio) return;
    if (track.file < 0) {
        if (track.toneHertz != 0) FillTone(track.toneHertz, within, samples);
        return;
    }
    const auto file = static_cast<size_t>(track.file);
    if (open.index != track.file) {
        open.stream = std::ifstream(disc.folder / PathFromUtf8(disc.sheet.files[file].name),
                                    std::ios::binary);
        open.index = track.file;
    }
    if (disc.sources[file].frameCount != 0)
        ReadWaveSector(open.stream, disc.sources[file], track.fileSector + within, samples);
}
