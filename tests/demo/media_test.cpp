// The demo's media: whole pieces, the promised lengths, files that hang together.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <sstream>

#include "database/database_file.h"
#include "database/database_format.h"
#include "database/database_recovery.h"
#include "database/disc_lookup.h"
#include "demo/drive/wave_source.h"
#include "demo/media/catalogue_maker.h"
#include "demo/media/disc_maker.h"
#include "demo/media/wave_maker.h"
#include "tests/database/memory_files.h"

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
    for (const WaveSketch& wave : WaveSketches()) {
        SCOPED_TRACE(wave.fileName);
        const Piece piece = ComposePiece(wave.sketch);
        EXPECT_LE(LastNoteEnds(piece), wave.milliseconds / 1000.0);
        const auto frames = static_cast<size_t>(wave.sampleRate) * wave.milliseconds / 1000;
        const auto samples = RenderPiece(piece, wave.sampleRate, frames);
        const Bytes file = PackWave(samples, {wave.sampleRate, wave.channels, wave.bitsPerSample});
        uint32_t riffBytes = 0;
        std::memcpy(&riffBytes, &file[4], sizeof riffBytes);
        EXPECT_EQ(riffBytes + 8, file.size());
        std::istringstream stream(std::string(file.begin(), file.end()));
        WaveSource source;
        ASSERT_TRUE(ReadWaveHeader(stream, source));
        EXPECT_EQ(source.frameCount, frames);
        double sum = 0;
        for (const int16_t sample : samples)
            sum += static_cast<double>(sample) * sample;
        EXPECT_GT(std::sqrt(sum / static_cast<double>(samples.size())), 2000);
        EXPECT_NEAR(samples.back(), 0, 30) << "ends with a click";
    }
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
