// Databases that another hand, a bad disk or an ended program has changed: what is refused, what
// recovery puts right, and which discs a rebuild brings back.
#include <gtest/gtest.h>

#include <algorithm>

#include "database/database_changes.h"
#include "database/database_file.h"
#include "database/database_format.h"
#include "database/database_recovery.h"
#include "database/database_salvage.h"
#include "database/database_walk.h"
#include "database/disc_lookup.h"
#include "memory_files.h"
#include "sample_discs.h"

static const std::vector<Disc> kDiscs = {SampleDisc(1, 2), SampleDisc(2, 1), SampleDisc(3, 3),
                                         SampleDisc(4, 1), SampleDisc(5, 2)};
static const std::vector<uint32_t> kStarts = EntryStarts(kDiscs);
static const std::string kImage = DatabaseImage(kDiscs);
static const std::string kWithoutLast = DatabaseImage({kDiscs.begin(), kDiscs.end() - 1});

static std::string Changed(size_t offset, const std::string& bytes) {
    return std::string(kImage).replace(offset, bytes.size(), bytes);
}

// The damaged file is kept, and files kept earlier are numbered.
static std::string Rebuilt(const std::string& damaged) {
    const std::string kept = kDamagedName;
    UseMemoryFiles();
    StartOnDisk({{kDatabaseName, damaged}, {kept, "older"}, {kept + "1", "oldest"}});
    EXPECT_EQ(RebuildDatabase(), DatabaseResult::kOk);
    const std::string rebuilt = Database();
    const MemorySnapshot after = {
        {kDatabaseName, rebuilt}, {kept, damaged}, {kept + "1", "oldest"}, {kept + "2", "older"}};
    EXPECT_EQ(DiskAfterEnd(), after);
    return rebuilt;
}

// The discs of a database that keeps every rule, each as the bytes between its pointers.
static std::vector<std::string> DiscsIn(const std::string& database) {
    StartOn(database);
    ScopedFile file;
    DatabaseCheck check;
    EXPECT_TRUE(OpenDatabaseToRead(file) && CheckDatabase(file.handle, check) && IsIntact(check));
    std::vector<std::string> discs;
    for (size_t at = kHeaderBytes; at < database.size();) {
        const size_t next = GetU32(reinterpret_cast<const uint8_t*>(database.data()) + at);
        const size_t from = at + kDiscKeyOffset;
        discs.push_back(database.substr(from, next - from - kTrailerBytes));
        at = next;
    }
    return discs;
}

template <typename List>
static size_t Differing(const List& some, const List& others) {
    if (some.size() != others.size()) return SIZE_MAX;
    size_t differing = 0;
    for (size_t i = 0; i < some.size(); ++i)
        differing += some[i] != others[i];
    return differing;
}

TEST(DamagedDatabase, OneDamagedByteConcernsOneDisc) {
    const std::string withoutSecond = DatabaseImage({kDiscs[0], kDiscs[2], kDiscs[3], kDiscs[4]});
    const std::vector<std::string> whole = DiscsIn(kImage);
    size_t refused = 0, repaired = 0, disc = 0;
    for (size_t at = 0; at < kImage.size(); ++at) {
        if (at == kStarts[disc + 1]) ++disc;
        // What else the file says gives the count, the mark and each of the pointers again.
        const bool losesNothing =
            at < kStarts[disc] + kDiscKeyOffset || at >= kStarts[disc + 1] - kTrailerBytes;
        for (const int change : {1, 2, 0x10, 0x80, 0xFF}) {
            SCOPED_TRACE("byte " + std::to_string(at) + " xor " + std::to_string(change));
            std::string damaged = kImage;
            damaged[at] = static_cast<char>(damaged[at] ^ change);
            // Recovery cuts nothing off, and what it changes is the damage.
            StartOn(damaged);
            const bool mended = RecoverDatabase() == RecoveryResult::kRepaired;
            repaired += mended;
            ASSERT_EQ(Database(), mended ? kImage : damaged);
            // A change is refused, or every other disc that was whole is still there. Two of an
            // entry's pointers are enough to delete it.
            StartOn(damaged);
            const bool deleted = DeleteEntry(kStarts[1]) == DatabaseResult::kOk;
            refused += !deleted;
            ASSERT_LE(Differing(Database(), deleted ? withoutSecond : damaged), deleted ? 2u : 0u);
            ASSERT_TRUE(deleted || disc != 1 || !losesNothing);
            ASSERT_LE(Differing(DiscsIn(Rebuilt(damaged)), whole), losesNothing ? 0u : 1u);
        }
    }
    EXPECT_GT(refused, 0u);
    EXPECT_GT(repaired, 0u);
}

TEST(DamagedDatabase, EveryLengthOfTheFile) {
    for (size_t size = 0; size < kImage.size(); ++size) {
        SCOPED_TRACE(size);
        const std::string cut = kImage.substr(0, size);
        std::vector<Disc> discs = kDiscs;
        while (!discs.empty() && kStarts[discs.size()] > size)
            discs.pop_back();
        // Counted discs whose end is missing are left for the user to see: no append does this.
        StartOn(cut);
        RecoverDatabase();
        EXPECT_EQ(Database(), size > kStarts[discs.size()] ? cut : DatabaseImage(discs));
        if (size >= kHeaderBytes) {
            ASSERT_EQ(Rebuilt(cut), DatabaseImage(discs));
        }
        // An append that was ended here is taken back.
        if (size < kWithoutLast.size()) continue;
        for (const size_t zerosFrom : {size, kWithoutLast.size()}) {
            std::string ended = cut;
            ended[kCountOffset] = 4;
            std::fill(ended.begin() + static_cast<ptrdiff_t>(zerosFrom), ended.end(), '\0');
            StartOn(ended);
            RecoverDatabase();
            EXPECT_EQ(Database(), kWithoutLast);
        }
    }
    const auto expectRepaired = [](size_t zerosFrom, size_t zerosTo, const std::string& found) {
        std::string uncounted = Changed(kCountOffset, "\x04");
        StartOn(uncounted.replace(zerosFrom, zerosTo - zerosFrom, zerosTo - zerosFrom, '\0'));
        EXPECT_EQ(RecoverDatabase(), RecoveryResult::kRepaired);
        EXPECT_EQ(Database(), found);
    };
    // The pointers and the file's length reached the disk, the rest did not.
    for (size_t from = kStarts[4] + kDiscKeyOffset; from < kImage.size() - 4; ++from)
        expectRepaired(from, kImage.size(), kWithoutLast);
    // Whole, but not counted; or with its pointers still to come.
    for (const uint32_t pointers : {0u, 6u})
        expectRepaired(kStarts[4], kStarts[4] + pointers, kImage);
}

TEST(DamagedDatabase, NothingIsAddedWhereItCouldNotBeFound) {
    const std::string cases[] = {
        Changed(kStarts[1], std::string("\x08\0\0\0", 4)),  // back
        Changed(kStarts[1], "\xFF\xFF\xFF\xFF"),            // far beyond
        Changed(kStarts[4], std::string(20, '\0')),         // no entry at all
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
    for (const uint32_t noEntry : {0u, 7u, kStarts[1] + 1, kStarts[5], UINT32_MAX}) {
        StartOn(kImage);
        EXPECT_EQ(DeleteEntry(noEntry), DatabaseResult::kDamaged) << noEntry;
    }
    // Up to three stray bytes stand in nobody's way.
    StartOn(kImage + "abc");
    EXPECT_EQ(DeleteEntry(kStarts[4]), DatabaseResult::kOk);
    EXPECT_EQ(Database(), kWithoutLast + "abc");

    // A circle wider than the window, walked as often as the count says, would read on for long.
    const std::vector<Disc> wide = {SampleDisc(1, 90), SampleDisc(2, 90), SampleDisc(3, 90)};
    std::string circle = DatabaseImage(wide);
    circle.replace(EntryStarts(wide)[2], 4, std::string("\x08\0\0\0", 4));
    StartOn(circle.replace(kCountOffset, 2, "\xFF\xFF"));
    CopyDiscToc(SampleDisc(9, 3).toc);
    EXPECT_EQ(FindEntryOffset(60000) + (DiscTitleText().empty() ? 0u : 1u), 0u);
    EXPECT_EQ(SumDatabase().tracks, 270u);
    EXPECT_LT(CallsMade(), 50);
}

TEST(DamagedDatabase, TrackCountsBeyondTheLimits) {
    // 120 tracks without names, put together by hand.
    Disc disc = SampleDisc(1, 99);
    std::fill_n(disc.fields.trackNames, 99, "");
    std::string image = DatabaseImage({disc});
    image[kHeaderBytes + kTrackCountOffset] = 120;
    image.insert(kHeaderBytes + kTracksOffset + 99 * 3, 21 * 3, '\0');
    const Disc none = SampleDisc(1, 0);
    for (const auto& [bytes, expected] : {std::pair(image, disc), {DatabaseImage({none}), none}}) {
        StartOn(bytes);
        EntryFields fields;
        ASSERT_TRUE(LoadEntryFields(kHeaderBytes, fields) && LoadEntryDisc(kHeaderBytes));
        EXPECT_TRUE(fields == expected.fields && DatabaseDisc == expected.toc);
        EXPECT_EQ(ReadArtist(kHeaderBytes), "Artist 1");
    }
}

TEST(DamagedDatabase, WhatComesBackAtStart) {
    UseMemoryFiles();
    const std::string older = DatabaseImage({kDiscs[0]});
    const std::string unfinished = kImage.substr(0, kImage.size() - 1);
    const std::string uncounted = Changed(kCountOffset, "\x04");
    const std::string damaged = Changed(kStarts[1], "\xFF\xFF\xFF\xFF");
    const std::string& none = kNoSuchFile;
    using enum RecoveryResult;
    const struct {
        std::string database, rewritten, backup;
        RecoveryResult result;
        std::string found;
    } cases[] = {
        {none, kImage, older, kRestored, kImage},
        {none, unfinished, older, kRestored, older},
        {none, none, older, kRestored, older},
        {none, kImage, none, kNothingToDo, none},
        {none, none, none, kNothingToDo, none},
        {older, kImage, none, kNothingToDo, older},
        {older, kImage, kImage, kNothingToDo, older},
        {DatabaseImage({}), none, older, kNothingToDo, DatabaseImage({})},
        {uncounted, none, older, kRepaired, kImage},
        {damaged, none, older, kDamaged, damaged},
        // What is shorter than a header counts as missing, also beside a new file alone.
        {"\xFFQM", none, older, kRestored, older},
        {"", kImage, older, kRestored, kImage},
        {"", unfinished, older, kRestored, older},
        {"", kImage, none, kRestored, kImage},
        {"", kImage, "", kRestored, kImage},
        {"", unfinished, none, kRepaired, DatabaseImage({})},
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
        EXPECT_EQ(DiskAfterEnd().count(kBackupName), each.result == kDamaged) << &each - cases;
    }
}

// A stretch of the file overwritten, whatever lies in it, costs the discs it touches and no others.
TEST(DatabaseSalvage, BehindAStretchOfRubbishTheDiscsGoOn) {
    for (const char rubbish : {'\0', '\x7F', '\xFF'}) {
        for (size_t disc = 0; disc < kDiscs.size(); ++disc) {
            std::vector<Disc> left = kDiscs;
            const size_t end = std::min(disc + 2, kDiscs.size());
            left.erase(left.begin() + static_cast<ptrdiff_t>(disc),
                       left.begin() + static_cast<ptrdiff_t>(end));
            const std::string stretch(kStarts[end] - 2 - kStarts[disc], rubbish);
            ASSERT_EQ(Rebuilt(Changed(kStarts[disc], stretch)), DatabaseImage(left)) << disc;
        }
    }
}
