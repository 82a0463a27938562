// The demo's media: whole pieces, the promised lengths, files that hang together.
#include <gtest/gtest.h>

#include <cmath>

#include "database/database_file.h"
#include "database/database_format.h"
#include "database/database_recovery.h"
#include "database/disc_lookup.h"
#include "demo/media/catalogue_maker.h"
#include "demo/media/disc_maker.h"
#include "demo/media/wave_maker.h"
#include "tests/database/memory_files.h"

static uint32_t Little(const Bytes& bytes, size_t at, int count) {
    uint32_t value = 0;
    for (int i = count - 1; i >= 0; --i)
        value = value << 8 | bytes.at(at + static_cast<size_t>(i));
    return value;
}

static double LastNoteEnds(const Piece& piece) {
    double beat = 0;
    for (const Note& note : piece.notes)
        beat = std::max(beat, note.beat + note.beats);
    return beat * 60 / piece.beatsPerMinute;
}

TEST(DemoMedia, NoPieceIsCutBeforeItsLastNoteEnds) {
    for (const DemoDisc& disc : DemoDiscs()) {
        for (const DiscTrack& track : disc.tracks) {
            const double silent =
                TrackSectors(track) / 75.0 - LastNoteEnds(ComposePiece(track.sketch));
            EXPECT_TRUE(silent >= 0 && silent <= 3) << track.sketch.title;
        }
    }
}

TEST(DemoMedia, WavesHaveTheirLengthAndAreHeard) {
    bool has1005 = false;
    for (const WaveSketch& wave : WaveSketches()) {
        EXPECT_LE(LastNoteEnds(ComposePiece(wave.sketch)), wave.milliseconds / 1000.0);
        const auto frames = static_cast<size_t>(wave.sampleRate) * wave.milliseconds / 1000;
        const auto samples = RenderPiece(ComposePiece(wave.sketch), wave.sampleRate, frames);
        const Bytes file = PackWave(samples, {wave.sampleRate, wave.channels, wave.bitsPerSample});
        const uint32_t bytesPerSecond = Little(file, 28, 4);
        const uint32_t dataBytes = Little(file, 40, 4);
        EXPECT_EQ(uint64_t{dataBytes} * 1000 / bytesPerSecond, wave.milliseconds) << wave.fileName;
        EXPECT_EQ(file.size(), 44 + dataBytes + dataBytes % 2);
        EXPECT_EQ(Little(file, 4, 4) + 8, file.size());
        has1005 = has1005 || wave.milliseconds == 1005;
        double sum = 0;
        for (const int16_t sample : samples)
            sum += static_cast<double>(sample) * sample;
        EXPECT_GT(std::sqrt(sum / static_cast<double>(samples.size())), 2000) << wave.fileName;
        EXPECT_NEAR(samples.back(), 0, 30) << wave.fileName << " ends with a click";
    }
    EXPECT_TRUE(has1005);
}

TEST(DemoMedia, CatalogueIsWholeAndKnowsTheFirstDisc) {
    const DemoDisc& known = DemoDiscs().front();
    const Bytes file = PackCatalogue(known);
    const std::string bytes(file.begin(), file.end());
    UseMemoryFiles();
    StartOnDisk({{kDatabaseName, bytes}});
    EXPECT_EQ(RecoverDatabase(), RecoveryResult::kNothingToDo);
    EXPECT_EQ(FindEntryOffset(DatabaseEntryCount()), 0U) << "more entries than are counted";
    for (int i = 0; i < DatabaseEntryCount(); ++i) {
        const uint32_t start = FindEntryOffset(static_cast<uint32_t>(i));
        ASSERT_TRUE(LoadEntryDisc(start)) << i;
        EXPECT_NE(ReadArtist(start) + ReadDiscName(start), "") << i;
    }
    DiscToc toc;
    for (const DiscTrack& track : known.tracks) {
        const auto seconds = static_cast<uint16_t>(TrackSectors(track) / 75);
        toc.lengthSeconds[toc.trackCount++] = seconds;
        toc.totalSeconds = static_cast<uint16_t>(toc.totalSeconds + seconds);
    }
    CopyDiscToc(toc);
    EXPECT_TRUE(FindDisc(toc.totalSeconds, toc.trackCount));
}
