// The sorter: the order it makes, byte for byte, and the files it must not touch.
#include "database/database_sort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <new>
#include <numeric>

#include "base/app_directory.h"
#include "database/database_export.h"
#include "database/database_format.h"
#include "memory_files.h"
#include "sample_discs.h"

// Allocations until one is refused; none is while it is negative.
static int allocationsLeft = -1;

void* operator new(size_t sizeBytes, const std::nothrow_t&) noexcept {
    if (allocationsLeft == 0 && !InFileCall()) return nullptr;
    if (allocationsLeft > 0 && !InFileCall()) --allocationsLeft;
    return std::malloc(sizeBytes);
}
void* operator new(size_t sizeBytes) {
    if (void* memory = operator new(sizeBytes, std::nothrow)) return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, size_t) noexcept {
    std::free(memory);
}

static std::vector<Disc> DiscsBy(const std::vector<std::string>& artists) {
    std::vector<Disc> discs;
    for (const std::string& artist : artists) {
        discs.push_back(SampleDisc(static_cast<int>(discs.size()), 1 + discs.size() % 5));
        discs.back().fields.artist = artist;
    }
    return discs;
}

static void Ignore(const char*) {}

// Any number of entries, and a comparison that is of no use.
TEST(DatabaseSort, EveryEntryOnceInAStableOrder) {
    for (uint32_t count = 0; count < 140; ++count) {
        ArtistList artists;
        for (uint32_t i = 0; i < count; ++i) {
            artists.nameOffsets.push_back(static_cast<uint32_t>(artists.names.size()));
            artists.names += static_cast<char>('a' + i * i % 7);
            artists.names += '\0';
        }
        std::vector<uint32_t> expected(count);
        std::iota(expected.begin(), expected.end(), 0u);
        std::vector<uint32_t> order;
        const CompareTexts smaller = [](const char*, const char*) { return -1; };
        ASSERT_EQ(OrderByArtist(artists, smaller, Ignore, order), DatabaseResult::kOk);
        ASSERT_TRUE(
            std::is_permutation(order.begin(), order.end(), expected.begin(), expected.end()));
        std::stable_sort(expected.begin(), expected.end(), [&](uint32_t a, uint32_t b) {
            return artists.names[artists.nameOffsets[a]] < artists.names[artists.nameOffsets[b]];
        });
        ASSERT_EQ(OrderByArtist(artists, std::strcmp, Ignore, order), DatabaseResult::kOk);
        ASSERT_EQ(order, expected);
    }
}

TEST(DatabaseSort, WhatIsSortedWhatIsNotAndWhatIsTold) {
    UseMemoryFiles();
    for (const std::vector<Disc>& discs : {DiscsBy({}), DiscsBy({"a"})}) {
        MemorySnapshot disk = DiskWith(DatabaseImage(discs));
        disk[kNewDatabaseName] = std::string(99, 'x');
        StartOnDisk(disk);
        EXPECT_EQ(SortDatabase(std::strcmp, Ignore), DatabaseResult::kOk);
        disk[kNewDatabaseName] = disk[kDatabaseName].substr(0, 8);
        EXPECT_EQ(DiskAfterEnd(), disk);
    }
    // Too few or too many counted, and an entry that is not whole. Nothing may be left out.
    const std::vector<Disc> discs = DiscsBy({"c", "b", "a"});
    const std::string image = DatabaseImage(discs);
    const size_t second = EntryStarts(discs)[1];
    for (const size_t at : {second, second + kEntrySizeOffset, second + kTrackCountOffset}) {
        std::string damaged = image;
        ++damaged[at];
        StartOn(damaged);
        EXPECT_EQ(SortDatabase(std::strcmp, Ignore), DatabaseResult::kDamaged);
        EXPECT_EQ(DiskAfterEnd(), DiskWith(damaged));
    }
    // An entry that an ended append has not counted yet is put in order with the others.
    std::string uncounted = image;
    --uncounted[kCountOffset];
    StartOn(uncounted);
    std::vector<std::string> lines;
    EXPECT_EQ(SortDatabase(std::strcmp, [&](const char* line) { lines.push_back(line); }),
              DatabaseResult::kOk);
    EXPECT_EQ(DiskAfterEnd(), DiskWith(DatabaseImage({discs[2], discs[1], discs[0]})));
    for (const char* line : {"Loading artist names into memory.", "2 of 3", "Writing: c"})
        EXPECT_EQ(std::count(lines.begin(), lines.end(), line), 1) << line;
}

TEST(DatabaseSort, MemoryRefusedAtEveryAllocation) {
    UseMemoryFiles();
    AppDirectory = "a directory whose name has a block of memory to itself/";
    const std::string path = AppDirectory + kDatabaseName;
    const std::string exported = "the text that an export has just created";
    const MemorySnapshot disk = {
        {path, DatabaseImage(DiscsBy({"a longer name than fits inside", "b", "a"}))},
        {exported, ""}};
    const std::function<DatabaseResult()> runs[] = {
        [] { return SortDatabase(std::strcmp, Ignore); },
        [&] {
            ScopedFile file;
            FileCalls.open(exported.c_str(), FileMode::kReadWrite, file.handle);
            return ExportDatabase(file.handle, {{true}, ExportForm::kPlain, std::strcmp}, Ignore);
        }};
    const auto isChanged = [&](const MemorySnapshot& after) {
        return after.at(path) != disk.at(path) || !after.at(exported).empty();
    };
    for (const auto& run : runs) {
        int refused = 0;
        for (;; ++refused) {
            StartOnDisk(disk);
            allocationsLeft = refused;
            const DatabaseResult result = run();
            allocationsLeft = -1;
            if (result == DatabaseResult::kOk) break;
            ASSERT_EQ(result, DatabaseResult::kNoMemory);
            ASSERT_FALSE(isChanged(DiskAfterEnd()));
            ASSERT_EQ(OpenHandles(), 0);
        }
        EXPECT_TRUE(isChanged(DiskAfterEnd()));
        EXPECT_GT(refused, 10);
    }
}
