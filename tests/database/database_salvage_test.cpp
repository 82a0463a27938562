// Damaged databases rebuilt: which discs come back, and how.
#include "database/database_salvage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

#include "database/database_changes.h"
#include "database/database_file.h"
#include "database/database_format.h"
#include "database/database_walk.h"
#include "database/disc_lookup.h"
#include "memory_files.h"
#include "sample_discs.h"

static const std::vector<Disc> kDiscs = {SampleDisc(1, 2), SampleDisc(2, 1), SampleDisc(3, 3),
                                         SampleDisc(4, 1), SampleDisc(5, 2)};
static const std::vector<uint32_t> kStarts = EntryStarts(kDiscs);
static const std::string kImage = DatabaseImage(kDiscs);

static std::string Rebuilt(const std::string& damaged) {
    StartOnDisk({{kDatabaseName, damaged}});
    EXPECT_EQ(RebuildDatabase(), DatabaseResult::kOk);
    const MemorySnapshot disk = DiskAfterEnd();
    EXPECT_EQ(FileBytes(disk, kDamagedName), damaged);
    EXPECT_EQ(disk.size(), 2u);
    return FileBytes(disk, kDatabaseName);
}

// The discs of a database that keeps every rule, each as the bytes between its pointers.
static std::vector<std::string> DiscsIn(const std::string& database) {
    StartOnDisk({{"f", database}});
    ScopedFile file;
    DatabaseCheck check;
    FileCalls.open("f", FileMode::kReadShared, file.handle);
    EXPECT_TRUE(CheckDatabase(file.handle, check) && IsIntact(check));
    std::vector<std::string> discs;
    for (size_t at = kHeaderBytes; at < database.size();) {
        const auto* entry = reinterpret_cast<const uint8_t*>(database.data()) + at;
        const size_t sizeBytes = GetU32(entry) - at;
        discs.push_back(
            database.substr(at + kDiscKeyOffset, sizeBytes - kDiscKeyOffset - kTrailerBytes));
        at += sizeBytes;
    }
    return discs;
}

TEST(DatabaseSalvage, OneDamagedPointerLosesNothing) {
    UseMemoryFiles();
    int cases = 0;
    for (size_t disc = 0; disc < kDiscs.size(); ++disc) {
        const struct {
            size_t offset, sizeBytes;
        } fields[] = {{kCountOffset, 2},
                      {kStarts[disc], 4},
                      {kStarts[disc] + kEntrySizeOffset, 2},
                      {kStarts[disc + 1] - kTrailerBytes, 4}};
        for (const auto& field : fields) {
            for (const std::string& bytes :
                 {std::string(4, '\0'), std::string(4, '\xFF'), std::string("\x08\0\0\0", 4),
                  kImage.substr(kStarts[1], 4), kImage.substr(kStarts[3] + 1, 4)}) {
                std::string damaged = kImage;
                damaged.replace(field.offset, field.sizeBytes, bytes, 0, field.sizeBytes);
                ASSERT_EQ(Rebuilt(damaged), kImage) << "disc " << disc << " at " << field.offset;
                ++cases;
            }
        }
    }
    std::printf("salvage: %d damaged pointers and counts, 0 discs lost\n", cases);
}

TEST(DatabaseSalvage, OneDamagedByteConcernsOneDisc) {
    UseMemoryFiles();
    const std::vector<std::string> whole = DiscsIn(kImage);
    int lost = 0;
    for (size_t at = 0; at < kImage.size(); ++at) {
        for (const int change : {1, 2, 0x10, 0x80, 0xFF}) {
            SCOPED_TRACE("byte " + std::to_string(at) + " xor " + std::to_string(change));
            std::string damaged = kImage;
            damaged[at] = static_cast<char>(damaged[at] ^ change);
            const std::vector<std::string> found = DiscsIn(Rebuilt(damaged));
            ASSERT_EQ(found.size(), whole.size());
            int differing = 0;
            for (size_t i = 0; i < whole.size(); ++i)
                differing += found[i] != whole[i];
            ASSERT_LE(differing, 1);
            lost += differing;
        }
    }
    std::printf("salvage: %zu damaged bytes, %d discs differ, never two\n", 5 * kImage.size(),
                lost);
}

TEST(DatabaseSalvage, EveryWholeDiscBeforeTheEnd) {
    UseMemoryFiles();
    for (size_t size = kHeaderBytes; size <= kImage.size(); ++size) {
        std::vector<Disc> discs = kDiscs;
        while (kStarts[discs.size()] > size)
            discs.pop_back();
        ASSERT_EQ(Rebuilt(kImage.substr(0, size)), DatabaseImage(discs)) << size;
    }
}

// A stretch of the file overwritten, whatever lies in it, costs the discs it touches and no others.
TEST(DatabaseSalvage, BehindAStretchOfRubbishTheDiscsGoOn) {
    UseMemoryFiles();
    for (const char rubbish : {'\0', '\x7F', '\xFF'}) {
        for (size_t disc = 0; disc < kDiscs.size(); ++disc) {
            std::string damaged = kImage;
            std::vector<Disc> left = kDiscs;
            const size_t last = std::min(disc + 1, kDiscs.size() - 1);
            left.erase(left.begin() + static_cast<std::ptrdiff_t>(disc),
                       left.begin() + static_cast<std::ptrdiff_t>(last + 1));
            std::fill(damaged.begin() + kStarts[disc], damaged.begin() + kStarts[last + 1] - 2,
                      rubbish);
            ASSERT_EQ(Rebuilt(damaged), DatabaseImage(left)) << disc;
        }
    }
}

TEST(DatabaseSalvage, AfterwardsTheDatabaseCanBeChangedAgain) {
    UseMemoryFiles();
    std::string damaged = kImage;
    damaged[kStarts[2] + 1] ^= 0x10;
    const MemorySnapshot disk = {{kDatabaseName, damaged},
                                 {kDamagedName, "older"},
                                 {std::string(kDamagedName) + "1", "oldest"}};
    StartOnDisk(disk);
    bool known = false;
    CopyDiscToc(SampleDisc(6, 2).toc);
    EXPECT_EQ(SaveDisc(SampleDisc(6, 2).fields, known), DatabaseResult::kDamaged);
    EXPECT_EQ(DiskAfterEnd(), disk);
    EXPECT_EQ(RebuildDatabase(), DatabaseResult::kOk);
    EXPECT_EQ(SaveDisc(SampleDisc(6, 2).fields, known), DatabaseResult::kOk);
    std::vector<Disc> more = kDiscs;
    more.push_back(SampleDisc(6, 2));
    EXPECT_EQ(DiskAfterEnd(), MemorySnapshot({{kDatabaseName, DatabaseImage(more)},
                                              {kDamagedName, damaged},
                                              {std::string(kDamagedName) + "1", "oldest"},
                                              {std::string(kDamagedName) + "2", "older"}}));
}
