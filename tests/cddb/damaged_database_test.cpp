// Databases that another hand, a bad disk or an ended program has changed.
#include <gtest/gtest.h>

#include "cddb/database_changes.h"
#include "cddb/database_file.h"
#include "cddb/database_format.h"
#include "cddb/database_recovery.h"
#include "cddb/disc_lookup.h"
#include "memory_files.h"
#include "sample_discs.h"

static std::string Database() {
    return FileBytes(DiskAfterEnd(), kDatabaseName);
}

static void StartOn(const std::string& database) {
    StartOnDisk({{kDatabaseName, database}});
}

static std::vector<Disc> ThreeDiscs() {
    return {SampleDisc(1, 2), SampleDisc(2, 1), SampleDisc(3, 3)};
}

// Asks everything; the answers are free, but they are bounded and end.
static void AskEverything(const std::vector<Disc>& discs) {
    const size_t title = 255 + 3 + 255;
    for (uint32_t index = 0; index <= discs.size(); ++index) {
        const uint32_t start = FindEntryOffset(index);
        EXPECT_LE(ReadArtist(start).size() + ReadDiscName(start).size(), 510u);
        EXPECT_LE(ReadTrackName(start, 2).size(), 255u);
        EntryFields fields;
        LoadEntryFields(start, &fields);
        LoadEntryDisc(start);
        EXPECT_LE(DatabaseDisc.trackCount, kMaxTracks);
    }
    for (const Disc& disc : discs) {
        CopyDiscToc(disc.toc);
        EXPECT_LE(DiscTitleText().size(), title);
        EXPECT_LE(TrackNameText(disc.toc.trackCount).size(), 255u);
    }
}

TEST(DamagedDatabase, EveryByteChanged) {
    UseMemoryFiles();
    const std::vector<Disc> discs = ThreeDiscs();
    const std::vector<uint32_t> starts = EntryStarts(discs);
    const std::string image = DatabaseImage(discs);
    int refused = 0;
    int repaired = 0;
    for (size_t at = 0; at < image.size(); ++at) {
        for (const int change : {1, 2, 0x10, 0x80, 0xFF}) {
            SCOPED_TRACE("byte " + std::to_string(at) + " xor " + std::to_string(change));
            std::string damaged = image;
            damaged[at] = static_cast<char>(damaged[at] ^ change);
            StartOn(damaged);
            AskEverything(discs);
            ASSERT_EQ(Database(), damaged);

            // Recovery cuts nothing off, and what it changes is the damage.
            const RecoveryResult recovery = RecoverDatabase();
            repaired += recovery == RecoveryResult::repaired;
            ASSERT_EQ(Database(), recovery == RecoveryResult::repaired ? image : damaged);

            // A change is refused, or every other disc that was whole is still there.
            StartOn(damaged);
            const DatabaseResult result = DeleteEntry(starts[1]);
            const std::string left = Database();
            if (result != DatabaseResult::ok) {
                ++refused;
                ASSERT_EQ(left, damaged);
                continue;
            }
            const std::string expected = DatabaseImage({discs[0], discs[2]});
            ASSERT_EQ(left.size(), expected.size());
            size_t differing = 0;
            for (size_t i = 0; i < left.size(); ++i)
                differing += left[i] != expected[i];
            ASSERT_LE(differing, 2u);
        }
    }
    EXPECT_GT(refused, 0);
    EXPECT_GT(repaired, 0);
}

TEST(DamagedDatabase, EveryLengthOfTheFile) {
    UseMemoryFiles();
    const std::vector<Disc> discs = ThreeDiscs();
    const std::string image = DatabaseImage(discs);
    const std::vector<Disc> before(discs.begin(), discs.end() - 1);
    const std::string imageBefore = DatabaseImage(before);
    for (size_t size = 0; size < image.size(); ++size) {
        SCOPED_TRACE(size);
        StartOn(image.substr(0, size));
        AskEverything(discs);
        // Counted discs whose end is missing are left for the user to see: no append does this.
        const RecoveryResult recovery = RecoverDatabase();
        if (size < kHeaderBytes) {
            EXPECT_EQ(Database(), DatabaseImage({}));
        } else if (recovery == RecoveryResult::damaged) {
            EXPECT_EQ(Database(), image.substr(0, size));
        } else {
            EXPECT_EQ(recovery, RecoveryResult::repaired);
            EXPECT_EQ(Database().size(), size);
        }
        // An append that was ended here is taken back.
        if (size < imageBefore.size()) continue;
        std::string uncounted = image.substr(0, size);
        uncounted[kCountOffset] = 2;
        for (const size_t zerosFrom : {size, imageBefore.size()}) {
            std::string ended = uncounted;
            std::fill(ended.begin() + static_cast<ptrdiff_t>(zerosFrom), ended.end(), '\0');
            StartOn(ended);
            RecoverDatabase();
            EXPECT_EQ(Database(), imageBefore);
        }
    }
    // Whole, but not counted; or with its pointers still to come.
    std::string uncounted = image;
    uncounted[kCountOffset] = 2;
    StartOn(uncounted);
    EXPECT_EQ(RecoverDatabase(), RecoveryResult::repaired);
    EXPECT_EQ(Database(), image);
    uncounted.replace(EntryStarts(discs)[2], 6, 6, '\0');
    StartOn(uncounted);
    EXPECT_EQ(RecoverDatabase(), RecoveryResult::repaired);
    EXPECT_EQ(Database(), image);
}

TEST(DamagedDatabase, ChainsAndCountsThatLie) {
    UseMemoryFiles();
    const std::vector<Disc> discs = ThreeDiscs();
    const std::vector<uint32_t> starts = EntryStarts(discs);
    const std::string image = DatabaseImage(discs);
    const auto damage = [&](size_t offset, std::initializer_list<int> bytes) {
        std::string damaged = image;
        for (const int byte : bytes)
            damaged[offset++] = static_cast<char>(byte);
        return damaged;
    };
    const struct {
        const char* what;
        std::string bytes;
    } cases[] = {
        {"next points to itself", damage(starts[1], {static_cast<int>(starts[1]), 0, 0, 0})},
        {"next points back", damage(starts[1], {8, 0, 0, 0})},
        {"next points to 0", damage(starts[1], {0, 0, 0, 0})},
        {"next points far beyond", damage(starts[1], {0xFF, 0xFF, 0xFF, 0xFF})},
        {"size 0", damage(starts[2] + 4, {0, 0})},
        {"size too large", damage(starts[2] + 4, {0xFF, 0xFF})},
        {"count too high", damage(kCountOffset, {0xFF, 0xFF})},
        {"255 tracks", damage(starts[2] + kTrackCountOffset, {255})},
        {"name of 255 bytes", damage(starts[2] + kTracksOffset, {255})},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        StartOn(each.bytes);
        AskEverything(discs);
        EXPECT_EQ(Database(), each.bytes);
        // What follows the damage cannot be put in order, so it is not touched.
        if (std::string(each.what).starts_with("size")) {
            EXPECT_EQ(DeleteEntry(starts[0]), DatabaseResult::damaged);
            EXPECT_EQ(Database(), each.bytes);
        }
    }
    for (const uint32_t noEntry : {0u, 7u, starts[1] + 1, starts[3], 0xFFFFFFFFu}) {
        StartOn(image);
        EXPECT_EQ(DeleteEntry(noEntry), DatabaseResult::damaged);
        EXPECT_EQ(Database(), image);
        EXPECT_EQ(ReadArtist(0xFFFFFFFFu) + ReadTrackName(0xFFFFFFFFu, 1), "");
    }
    // A circle wider than the window, walked as often as the count says, would read on for long.
    const std::vector<Disc> wide = {SampleDisc(1, 90), SampleDisc(2, 90), SampleDisc(3, 90)};
    std::string circle = DatabaseImage(wide);
    circle.replace(EntryStarts(wide)[2], 4, std::string("\x08\0\0\0", 4));
    circle.replace(kCountOffset, 2, "\xFF\xFF");
    StartOn(circle);
    CopyDiscToc(SampleDisc(9, 3).toc);
    EXPECT_FALSE(FindDisc(DatabaseDisc.totalSeconds, DatabaseDisc.trackCount));
    EXPECT_EQ(FindEntryOffset(60000), 0u);
    EXPECT_LT(CallsMade(), 50);

    // Up to three stray bytes stand in nobody's way.
    StartOn(image + "abc");
    EXPECT_EQ(DeleteEntry(starts[2]), DatabaseResult::ok);
    EXPECT_EQ(Database(), DatabaseImage({discs[0], discs[1]}) + "abc");
}

// What no ended append leaves may be discs.
TEST(DamagedDatabase, WhatRecoveryDoesNotCutOff) {
    UseMemoryFiles();
    const std::vector<Disc> discs = ThreeDiscs();
    const std::string image = DatabaseImage(discs);
    std::string zerosInFront = image;
    zerosInFront.replace(0, 20, 20, '\0');
    std::string oneCounted = image;
    oneCounted[kCountOffset] = 1;
    oneCounted[EntryStarts(discs)[1] + kTrackCountOffset] = 99;
    const std::string longRest = image + std::string(kMaxEntryBytes + 1, '\0');
    for (const std::string& damaged : {zerosInFront, oneCounted, longRest}) {
        StartOn(damaged);
        EXPECT_EQ(RecoverDatabase(), RecoveryResult::damaged);
        EXPECT_EQ(Database(), damaged);
    }
    // A new disc could not be reached behind it.
    EXPECT_EQ(AppendEntry({}), DatabaseResult::damaged);
    EXPECT_EQ(Database(), longRest);
}

TEST(DamagedDatabase, TrackCountsBeyondTheLimits) {
    UseMemoryFiles();
    // 120 tracks without names, put together by hand.
    Disc disc = SampleDisc(1, 99);
    for (std::string& name : disc.fields.trackNames)
        name.clear();
    std::string image = DatabaseImage({disc});
    image[kHeaderBytes + kTrackCountOffset] = 120;
    image.insert(kHeaderBytes + kTracksOffset + 99 * 3, 21 * 3, '\0');
    StartOn(image);
    EntryFields fields;
    ASSERT_TRUE(LoadEntryFields(kHeaderBytes, &fields));
    EXPECT_EQ(fields.artist, "Artist 1");
    ASSERT_TRUE(LoadEntryDisc(kHeaderBytes));
    EXPECT_EQ(DatabaseDisc.trackCount, 99);
    EXPECT_EQ(DatabaseDisc.lengthSeconds[98], disc.toc.lengthSeconds[98]);

    Disc empty = SampleDisc(1, 0);
    StartOn(DatabaseImage({empty}));
    ASSERT_TRUE(LoadEntryDisc(kHeaderBytes));
    EXPECT_EQ(DatabaseDisc.trackCount, 0);
    EXPECT_EQ(DatabaseDisc.lengthSeconds[98], 0);
    EXPECT_EQ(ReadArtist(kHeaderBytes), "Artist 1");
}

TEST(DamagedDatabase, WhatComesBackAtStart) {
    UseMemoryFiles();
    const std::string older = DatabaseImage({SampleDisc(1, 2)});
    const std::string newer = DatabaseImage({SampleDisc(1, 2), SampleDisc(2, 2)});
    const std::string unfinished = newer.substr(0, newer.size() - 1);
    const struct {
        std::string database, rewritten, backup;
        RecoveryResult result;
        std::string found;
    } cases[] = {
        {kNoSuchFile, newer, older, RecoveryResult::restored, newer},
        {kNoSuchFile, unfinished, older, RecoveryResult::restored, older},
        {kNoSuchFile, kNoSuchFile, older, RecoveryResult::restored, older},
        {kNoSuchFile, newer, kNoSuchFile, RecoveryResult::nothingToDo, kNoSuchFile},
        {kNoSuchFile, kNoSuchFile, kNoSuchFile, RecoveryResult::nothingToDo, kNoSuchFile},
        {older, newer, kNoSuchFile, RecoveryResult::nothingToDo, older},
        {older, newer, newer, RecoveryResult::nothingToDo, older},
    };
    for (const auto& each : cases) {
        MemorySnapshot disk;
        for (const auto& [name, bytes] :
             {std::pair(kDatabaseName, each.database), std::pair(kNewDatabaseName, each.rewritten),
              std::pair(kBackupName, each.backup)}) {
            if (bytes != kNoSuchFile) disk[name] = bytes;
        }
        StartOnDisk(disk);
        EXPECT_EQ(RecoverDatabase(), each.result);
        EXPECT_EQ(Database(), each.found);
    }
}
