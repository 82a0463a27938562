// The sorter: the order it makes, byte for byte, and the files it must not touch.
#include "database/database_sort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <numeric>

#include "base/app_directory.h"
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

static std::string Database() {
    return FileBytes(DiskAfterEnd(), kDatabaseName);
}

static int ByBytes(const char* first, const char* second) {
    return std::strcmp(first, second);
}

static void Ignore(const char*) {}

TEST(DatabaseSort, AwkwardArtistsByteForByte) {
    UseMemoryFiles();
    const std::vector<Disc> discs = DiscsBy({"m", "a", "z", "b", "y", "A", "m", ""});
    StartOnDisk({{kDatabaseName, DatabaseImage(discs)}});
    std::vector<std::string> lines;
    EXPECT_EQ(SortDatabase(ByBytes, [&](const char* line) { lines.push_back(line); }),
              DatabaseResult::kOk);
    std::vector<Disc> sorted;
    for (const int i : {7, 5, 1, 3, 0, 6, 4, 2})
        sorted.push_back(discs[static_cast<size_t>(i)]);
    EXPECT_EQ(DiskAfterEnd(), MemorySnapshot({{kDatabaseName, DatabaseImage(sorted)}}));
    for (const char* line : {"Loading artist names into memory.", "7 of 8", "Writing: z"})
        EXPECT_EQ(std::count(lines.begin(), lines.end(), line), 1) << line;
}

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
        ASSERT_EQ(OrderByArtist(artists, ByBytes, Ignore, order), DatabaseResult::kOk);
        ASSERT_EQ(order, expected);
    }
}

TEST(DatabaseSort, WhatIsNotSorted) {
    UseMemoryFiles();
    for (const std::vector<Disc>& discs : {DiscsBy({}), DiscsBy({"a"})}) {
        const std::string image = DatabaseImage(discs);
        StartOnDisk({{kDatabaseName, image}, {kNewDatabaseName, std::string(99, 'x')}});
        EXPECT_EQ(SortDatabase(ByBytes, Ignore), DatabaseResult::kOk);
        EXPECT_EQ(DiskAfterEnd(),
                  MemorySnapshot({{kDatabaseName, image}, {kNewDatabaseName, image.substr(0, 8)}}));
    }
    // Too few or too many counted, and an entry that is not whole. Nothing may be left out.
    const std::string image = DatabaseImage(DiscsBy({"c", "b", "a"}));
    const size_t second = EntryStarts(DiscsBy({"c"}))[1];
    for (const size_t at : {second, second + kEntrySizeOffset, second + kTrackCountOffset}) {
        std::string damaged = image;
        ++damaged[at];
        StartOnDisk({{kDatabaseName, damaged}});
        EXPECT_EQ(SortDatabase(ByBytes, Ignore), DatabaseResult::kDamaged);
        EXPECT_EQ(DiskAfterEnd(), MemorySnapshot({{kDatabaseName, damaged}}));
    }
    // An entry that an ended append has not counted yet is put in order with the others.
    std::string uncounted = image;
    --uncounted[kCountOffset];
    StartOnDisk({{kDatabaseName, uncounted}});
    EXPECT_EQ(SortDatabase(ByBytes, Ignore), DatabaseResult::kOk);
    EXPECT_EQ(Database().size(), image.size());
}

TEST(DatabaseSort, MemoryRefusedAtEveryAllocation) {
    UseMemoryFiles();
    AppDirectory = "a directory whose name has a block of memory to itself/";
    const std::string path = AppDirectory + kDatabaseName;
    const std::string image = DatabaseImage(DiscsBy({"a longer name than fits inside", "b", "a"}));
    DatabaseResult result = DatabaseResult::kNoMemory;
    int refused = 0;
    for (int allocations = 0; result != DatabaseResult::kOk; ++allocations) {
        StartOnDisk({{path, image}});
        allocationsLeft = allocations;
        result = SortDatabase(ByBytes, Ignore);
        allocationsLeft = -1;
        if (result == DatabaseResult::kOk) break;
        ++refused;
        ASSERT_EQ(result, DatabaseResult::kNoMemory);
        ASSERT_EQ(FileBytes(DiskAfterEnd(), path), image);
        ASSERT_EQ(OpenHandles(), 0);
    }
    EXPECT_NE(FileBytes(DiskAfterEnd(), path), image);
    EXPECT_GT(refused, 10);
}
