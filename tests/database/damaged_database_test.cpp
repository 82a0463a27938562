// Databases that another hand, a bad disk or an ended program has changed.
#include <gtest/gtest.h>

#include "database/database_changes.h"
#include "database/database_file.h"
#include "database/database_format.h"
#include "database/database_recovery.h"
#include "database/disc_lookup.h"
#include "memory_files.h"
#include "sample_discs.h"

static const std::vector<Disc> kDiscs = {SampleDisc(1, 2), SampleDisc(2, 1), SampleDisc(3, 3)};
static const std::vector<uint32_t> kStarts = EntryStarts(kDiscs);
static const std::string kImage = DatabaseImage(kDiscs);

static std::string Database() {
    return FileBytes(DiskAfterEnd(), kDatabaseName);
}

static void StartOn(const std::string& database) {
    UseMemoryFiles();
    StartOnDisk({{kDatabaseName, database}});
}

TEST(DamagedDatabase, EveryByteChanged) {
    int refused = 0;
    int repaired = 0;
    const std::string expected = DatabaseImage({kDiscs[0], kDiscs[2]});
    for (size_t at = 0; at < kImage.size(); ++at) {
        for (const int change : {1, 2, 0x10, 0x80, 0xFF}) {
            SCOPED_TRACE("byte " + std::to_string(at) + " xor " + std::to_string(change));
            std::string damaged = kImage;
            damaged[at] = static_cast<char>(damaged[at] ^ change);
            // Recovery cuts nothing off, and what it changes is the damage.
            StartOn(damaged);
            const bool mended = RecoverDatabase() == RecoveryResult::kRepaired;
            repaired += mended;
            ASSERT_EQ(Database(), mended ? kImage : damaged);
            // A change is refused, or every other disc that was whole is still there.
            StartOn(damaged);
            if (DeleteEntry(kStarts[1]) != DatabaseResult::kOk) {
                ++refused;
                ASSERT_EQ(Database(), damaged);
                continue;
            }
            const std::string left = Database();
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
    const std::string before = DatabaseImage({kDiscs[0], kDiscs[1]});
    for (size_t size = 0; size < kImage.size(); ++size) {
        SCOPED_TRACE(size);
        const std::string cut = kImage.substr(0, size);
        StartOn(cut);
        // Counted discs whose end is missing are left for the user to see: no append does this.
        if (RecoverDatabase() == RecoveryResult::kDamaged) {
            EXPECT_EQ(Database(), cut);
        } else {
            EXPECT_EQ(Database().size(), std::max<size_t>(size, kHeaderBytes));
        }
        // An append that was ended here is taken back.
        if (size < before.size()) continue;
        for (const size_t zerosFrom : {size, before.size()}) {
            std::string ended = cut;
            ended[kCountOffset] = 2;
            std::fill(ended.begin() + static_cast<ptrdiff_t>(zerosFrom), ended.end(), '\0');
            StartOn(ended);
            RecoverDatabase();
            EXPECT_EQ(Database(), before);
        }
    }
    std::string uncounted = kImage;
    uncounted[kCountOffset] = 2;
    // The pointers and the file's length reached the disk, the rest did not.
    for (size_t zerosFrom = before.size() + kDiscKeyOffset; zerosFrom < kImage.size() - 4;
         ++zerosFrom) {
        StartOn(std::string(uncounted).replace(zerosFrom, std::string::npos,
                                               kImage.size() - zerosFrom, '\0'));
        EXPECT_EQ(RecoverDatabase(), RecoveryResult::kRepaired);
        EXPECT_EQ(Database(), before);
    }
    // Whole, but not counted; or with its pointers still to come.
    for (int pointers : {0, 6}) {
        const size_t count = static_cast<size_t>(pointers);
        StartOn(std::string(uncounted).replace(kStarts[2], count, count, '\0'));
        EXPECT_EQ(RecoverDatabase(), RecoveryResult::kRepaired);
        EXPECT_EQ(Database(), kImage);
    }
}

static std::string Changed(size_t offset, const std::string& bytes) {
    return std::string(kImage).replace(offset, bytes.size(), bytes);
}

TEST(DamagedDatabase, NothingIsAddedWhereItCouldNotBeFound) {
    const std::string cases[] = {
        Changed(kStarts[1], std::string("\x08\0\0\0", 4)),  // back
        Changed(kStarts[1], "\xFF\xFF\xFF\xFF"),            // far beyond
        Changed(kStarts[2], std::string(20, '\0')),         // no entry at all
        kImage + std::string(kMaxEntryBytes + 1, '\0'),     // what no append leaves
        Changed(kStarts[1] + kTrackCountOffset, "\x63").replace(kCountOffset, 1, "\x01"),
        Changed(0, std::string(20, '\0')),
    };
    for (const std::string& damaged : cases) {
        SCOPED_TRACE(&damaged - cases);
        StartOn(damaged);
        EXPECT_EQ(RecoverDatabase(), RecoveryResult::kDamaged);
        CopyDiscToc(SampleDisc(9, 1).toc);
        EXPECT_EQ(RepairDatabase(), DatabaseResult::kDamaged);
        EXPECT_EQ(AppendEntry({}), DatabaseResult::kDamaged);
        EXPECT_EQ(ReplaceEntryAtEnd(kHeaderBytes, {}), DatabaseResult::kDamaged);
        EXPECT_EQ(Database(), damaged);
    }
}

TEST(DamagedDatabase, WhatIsNoEntryIsNotTaken) {
    // What follows the damage cannot be put in order, so it is not touched.
    for (const std::string& size : {std::string("\0\0", 2), std::string("\xFF\xFF")}) {
        const std::string damaged = Changed(kStarts[2] + kEntrySizeOffset, size);
        StartOn(damaged);
        EXPECT_EQ(DeleteEntry(kStarts[0]), DatabaseResult::kDamaged);
        EXPECT_EQ(Database(), damaged);
    }
    for (const uint32_t noEntry : {0u, 7u, kStarts[1] + 1, kStarts[3], 0xFFFFFFFFu}) {
        StartOn(kImage);
        EXPECT_EQ(DeleteEntry(noEntry), DatabaseResult::kDamaged);
        EXPECT_EQ(Database(), kImage);
    }
    // Up to three stray bytes stand in nobody's way.
    StartOn(kImage + "abc");
    EXPECT_EQ(DeleteEntry(kStarts[2]), DatabaseResult::kOk);
    EXPECT_EQ(Database(), DatabaseImage({kDiscs[0], kDiscs[1]}) + "abc");

    // A circle wider than the window, walked as often as the count says, would read on for long.
    const std::vector<Disc> wide = {SampleDisc(1, 90), SampleDisc(2, 90), SampleDisc(3, 90)};
    std::string circle = DatabaseImage(wide);
    circle.replace(EntryStarts(wide)[2], 4, std::string("\x08\0\0\0", 4));
    circle.replace(kCountOffset, 2, "\xFF\xFF");
    StartOn(circle);
    CopyDiscToc(SampleDisc(9, 3).toc);
    EXPECT_EQ(FindEntryOffset(60000) + (DiscTitleText().empty() ? 0u : 1u), 0u);
    EXPECT_LT(CallsMade(), 50);
}

TEST(DamagedDatabase, TrackCountsBeyondTheLimits) {
    // 120 tracks without names, put together by hand.
    Disc disc = SampleDisc(1, 99);
    for (std::string& name : disc.fields.trackNames)
        name.clear();
    std::string image = DatabaseImage({disc});
    image[kHeaderBytes + kTrackCountOffset] = 120;
    image.insert(kHeaderBytes + kTracksOffset + 99 * 3, 21 * 3, '\0');
    for (const auto& [bytes, trackCount, lastSeconds] :
         {std::tuple(image, 99, int{disc.toc.lengthSeconds[98]}),
          std::tuple(DatabaseImage({SampleDisc(1, 0)}), 0, 0)}) {
        StartOn(bytes);
        EntryFields fields;
        ASSERT_TRUE(LoadEntryFields(kHeaderBytes, fields));
        EXPECT_EQ(fields.artist, "Artist 1");
        EXPECT_EQ(ReadArtist(kHeaderBytes), "Artist 1");
        ASSERT_TRUE(LoadEntryDisc(kHeaderBytes));
        EXPECT_EQ(DatabaseDisc.trackCount, trackCount);
        EXPECT_EQ(DatabaseDisc.lengthSeconds[98], lastSeconds);
    }
}

TEST(DamagedDatabase, WhatComesBackAtStart) {
    UseMemoryFiles();
    const std::string older = DatabaseImage({kDiscs[0]});
    const std::string unfinished = kImage.substr(0, kImage.size() - 1);
    const std::string uncounted = Changed(kCountOffset, "\x02");
    const std::string damaged = Changed(kStarts[1], "\xFF\xFF\xFF\xFF");
    const struct {
        std::string database, rewritten, backup;
        RecoveryResult result;
        std::string found;
    } cases[] = {
        {kNoSuchFile, kImage, older, RecoveryResult::kRestored, kImage},
        {kNoSuchFile, unfinished, older, RecoveryResult::kRestored, older},
        {kNoSuchFile, kNoSuchFile, older, RecoveryResult::kRestored, older},
        {kNoSuchFile, kImage, kNoSuchFile, RecoveryResult::kNothingToDo, kNoSuchFile},
        {kNoSuchFile, kNoSuchFile, kNoSuchFile, RecoveryResult::kNothingToDo, kNoSuchFile},
        {older, kImage, kNoSuchFile, RecoveryResult::kNothingToDo, older},
        {older, kImage, kImage, RecoveryResult::kNothingToDo, older},
        {uncounted, kNoSuchFile, older, RecoveryResult::kRepaired, kImage},
        {damaged, kNoSuchFile, older, RecoveryResult::kDamaged, damaged},
        // What is shorter than a header counts as missing, also beside a new file alone.
        {"\xFFQM", kNoSuchFile, older, RecoveryResult::kRestored, older},
        {"", kImage, older, RecoveryResult::kRestored, kImage},
        {"", unfinished, older, RecoveryResult::kRestored, older},
        {"", kImage, kNoSuchFile, RecoveryResult::kRestored, kImage},
        {"", kImage, "", RecoveryResult::kRestored, kImage},
        {"", unfinished, kNoSuchFile, RecoveryResult::kRepaired, DatabaseImage({})},
    };
    for (const auto& each : cases) {
        MemorySnapshot disk = {{kDatabaseName, each.database},
                               {kNewDatabaseName, each.rewritten},
                               {kBackupName, each.backup}};
        std::erase_if(disk, [](const auto& file) { return file.second == kNoSuchFile; });
        StartOnDisk(disk);
        EXPECT_EQ(RecoverDatabase(), each.result);
        EXPECT_EQ(Database(), each.found);
        // A backup would bring its discs back one day; beside damage they may be wanted.
        const bool backupStays = each.result == RecoveryResult::kDamaged;
        EXPECT_EQ(DiskAfterEnd().count(kBackupName), backupStays ? 1u : 0u) << &each - cases;
    }
}
