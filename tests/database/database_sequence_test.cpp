// A long random life of a database beside a plain list of discs.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "database/database_changes.h"
#include "database/database_file.h"
#include "database/database_format.h"
#include "database/database_sort.h"
#include "database/disc_lookup.h"
#include "memory_files.h"
#include "sample_discs.h"

// Everything the readers say about one disc of the list.
static void ExpectReadable(const std::vector<Disc>& discs, size_t index) {
    const Disc& disc = discs[index];
    const std::vector<uint32_t> starts = EntryStarts(discs);
    ASSERT_EQ(FindEntryOffset(static_cast<uint32_t>(index)), starts[index]);
    EntryFields fields;
    ASSERT_TRUE(LoadEntryFields(starts[index], fields));
    EXPECT_TRUE(fields == disc.fields);
    ASSERT_TRUE(LoadEntryDisc(starts[index]));
    EXPECT_TRUE(DatabaseDisc == disc.toc);
    EXPECT_EQ(ReadArtist(starts[index]), disc.fields.artist);
    EXPECT_EQ(ReadDiscName(starts[index]), disc.fields.discName);

    const auto first = std::find_if(discs.begin(), discs.end(),
                                    [&](const Disc& each) { return each.toc == disc.toc; });
    EXPECT_TRUE(FindDisc(disc.toc.totalSeconds, disc.toc.trackCount));
    EXPECT_EQ(FoundEntryOffset, starts[static_cast<size_t>(first - discs.begin())]);
    EXPECT_EQ(DiscTitleText(), first->fields.artist + " - " + first->fields.discName);
    EXPECT_EQ(TrackNameText(disc.toc.trackCount),
              first->fields.trackNames[disc.toc.trackCount - 1]);
}

TEST(DatabaseSequence, StaysEqualToTheList) {
    std::mt19937 random(20);
    UseMemoryFiles();
    EnsureDatabase();
    std::vector<Disc> discs;
    for (int step = 0; step < 800; ++step) {
        SCOPED_TRACE(step);
        const uint32_t kind = random() % 16;
        const Disc fresh = RandomDisc(random);
        const size_t index = discs.empty() ? 0 : random() % discs.size();
        const uint32_t start = EntryStarts(discs)[index];
        CopyDiscToc(fresh.toc);
        DatabaseResult result = DatabaseResult::kOk;
        if (discs.size() < 2 || (kind < 7 && discs.size() < 40)) {
            result = AppendEntry(fresh.fields);
            discs.push_back(fresh);
        } else if (kind < 10) {
            result = DeleteEntry(start);
            discs.erase(discs.begin() + static_cast<ptrdiff_t>(index));
        } else if (kind < 12) {
            result = ReplaceEntry(start, fresh.fields);
            discs[index] = fresh;
        } else if (kind < 15) {
            result = ReplaceEntryAtEnd(start, fresh.fields);
            discs.erase(discs.begin() + static_cast<ptrdiff_t>(index));
            discs.push_back(fresh);
        } else {
            result = SortDatabase(std::strcmp, [](const char*) {});
            std::stable_sort(discs.begin(), discs.end(), [](const Disc& a, const Disc& b) {
                return std::strcmp(a.fields.artist.c_str(), b.fields.artist.c_str()) < 0;
            });
        }
        ASSERT_EQ(result, DatabaseResult::kOk);
        ASSERT_EQ(DiskAfterEnd(), MemorySnapshot({{kDatabaseName, DatabaseImage(discs)}}));
        ASSERT_EQ(DatabaseEntryCount(), discs.size());
        if (!discs.empty()) ExpectReadable(discs, random() % discs.size());
        if (HasFailure()) return;
    }
}

TEST(DatabaseSequence, TheLastCountIsTheLimit) {
    UseMemoryFiles();
    std::string image = DatabaseImage(std::vector<Disc>(kMaxEntries - 1, SampleDisc(1, 1)));
    StartOnDisk({{kDatabaseName, image}});
    CopyDiscToc(SampleDisc(2, 1).toc);
    EXPECT_EQ(AppendEntry({}), DatabaseResult::kOk);
    EXPECT_EQ(DatabaseEntryCount(), kMaxEntries);
    image = FileBytes(DiskAfterEnd(), kDatabaseName);
    EXPECT_EQ(AppendEntry({}), DatabaseResult::kFull);
    EXPECT_EQ(FileBytes(DiskAfterEnd(), kDatabaseName), image);

    // A full database can still be edited.
    EXPECT_EQ(ReplaceEntryAtEnd(kHeaderBytes, {}), DatabaseResult::kOk);
    EXPECT_EQ(DatabaseEntryCount(), kMaxEntries);
    EXPECT_EQ(FindEntryOffset(kMaxEntries), 0u);
    EXPECT_NE(FindEntryOffset(kMaxEntries - 1), 0u);
}
