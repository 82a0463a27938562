// The database file byte by byte, as another program would read it, and a long random life of it
// beside a plain list of discs.
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

static std::string Appended(const Disc& disc) {
    StartOn(DatabaseImage({}));
    CopyDiscToc(disc.toc);
    EXPECT_EQ(AppendEntry(disc.fields), DatabaseResult::kOk);
    return Database();
}

TEST(DatabaseBytes, EmptyFileAndFirstEntry) {
    UseMemoryFiles();
    CopyDiscToc(SampleDisc(1, 2).toc);
    EXPECT_EQ(AppendEntry({}), DatabaseResult::kCannotOpen);
    EnsureDatabase();
    EXPECT_EQ(DiskAfterEnd(), DiskWith(std::string("\xFFQMR\0\n\0\0", 8)));

    Disc disc;
    disc.toc = {2, 0x0203, {0x0102, 0x0101}};
    disc.fields = {{"One"}, "A\xE4", "D", "", "", "x\r\ny", "'84", 2, 3, 0};
    EXPECT_EQ(Appended(disc),
              std::string("\xFFQMR\0\n\1\0\x33\0\0\0\x27\0\3\2\2\1\2\3One\2\1\0\1\1\2A\xE4\1D\0\0\4"
                          "x\r\ny\2\3\0\3'84\x08\0\0\0",
                          51));

    // Texts too long are cut, and a zero byte ends them.
    disc = SampleDisc(1, 1);
    disc.fields.artist.assign(300, 'a');
    disc.fields.label = std::string("ab\0cd", 5);
    const std::string cut = Appended(disc);
    disc.fields.artist.resize(254);
    disc.fields.label = "ab";
    EXPECT_EQ(cut, DatabaseImage({disc}));
}

// A record that held the largest disc before is the same as a new one, also where the bytes end.
TEST(DatabaseBytes, NothingOfTheDiscBeforeIsLeft) {
    const Disc disc = SampleDisc(1, 2);
    const std::vector<uint8_t> bytes = EncodeEntry(disc.toc, disc.fields, kHeaderBytes);
    for (size_t size = 0; size <= bytes.size(); ++size) {
        Disc fresh;
        Disc used = LargestDisc();
        used.fields.recordingCode = 9;
        const DecodeResult result = DecodeEntry(bytes.data(), size, fresh.toc, fresh.fields);
        EXPECT_EQ(DecodeEntry(bytes.data(), size, used.toc, used.fields), result);
        ASSERT_TRUE(used == fresh) << size;
    }
}

// Everything the readers say about one disc of the list.
static void ExpectReadable(const std::vector<Disc>& discs, size_t index) {
    const Disc& disc = discs[index];
    const std::vector<uint32_t> starts = EntryStarts(discs);
    NumberedEntry entry;
    ASSERT_EQ(FindEntryOffset(static_cast<uint32_t>(index)), starts[index]);
    ASSERT_TRUE(LoadEntryFields(starts[index], entry.fields) && LoadEntryDisc(starts[index]));
    EXPECT_TRUE(entry.fields == disc.fields && DatabaseDisc == disc.toc);
    EXPECT_EQ(ReadArtist(starts[index]), disc.fields.artist);
    EXPECT_EQ(ReadDiscName(starts[index]), disc.fields.discName);

    const auto first = std::find_if(discs.begin(), discs.end(),
                                    [&](const Disc& each) { return each.toc == disc.toc; });
    EXPECT_TRUE(FindDisc(disc.toc.totalSeconds, disc.toc.trackCount));
    EXPECT_EQ(FoundEntryOffset, starts[static_cast<size_t>(first - discs.begin())]);
    EXPECT_EQ(DiscTitleText(), first->fields.artist + " - " + first->fields.discName);
    const int last = disc.toc.trackCount;
    EXPECT_EQ(TrackNameText(last), first->fields.trackNames[last - 1]);
}

TEST(DatabaseBytes, ALongRandomLifeStaysEqualToTheList) {
    std::mt19937 random(20);
    UseMemoryFiles();
    EnsureDatabase();
    std::vector<Disc> discs;
    for (int step = 0; step < 800 && !HasFailure(); ++step) {
        SCOPED_TRACE(step);
        const uint32_t kind = random() % 16;
        const Disc fresh = RandomDisc(random);
        const size_t index = discs.empty() ? 0 : random() % discs.size();
        const auto at = discs.begin() + static_cast<ptrdiff_t>(index);
        const uint32_t start = EntryStarts(discs)[index];
        CopyDiscToc(fresh.toc);
        DatabaseResult result = DatabaseResult::kOk;
        if (discs.size() < 2 || (kind < 7 && discs.size() < 40)) {
            result = AppendEntry(fresh.fields);
            discs.push_back(fresh);
        } else if (kind < 10) {
            result = DeleteEntry(start);
            discs.erase(at);
        } else if (kind < 12) {
            result = ReplaceEntry(start, fresh.fields);
            *at = fresh;
        } else if (kind < 15) {
            result = ReplaceEntryAtEnd(start, fresh.fields);
            discs.erase(at);
            discs.push_back(fresh);
        } else {
            result = SortDatabase(std::strcmp, [](const char*) {});
            std::stable_sort(discs.begin(), discs.end(), [](const Disc& a, const Disc& b) {
                return std::strcmp(a.fields.artist.c_str(), b.fields.artist.c_str()) < 0;
            });
        }
        ASSERT_EQ(result, DatabaseResult::kOk);
        ASSERT_EQ(DiskAfterEnd(), DiskWith(DatabaseImage(discs)));
        ASSERT_EQ(DatabaseEntryCount(), discs.size());
        ExpectReadable(discs, random() % discs.size());
    }
}

TEST(DatabaseBytes, TheLastCountIsTheLimit) {
    StartOn(DatabaseImage(std::vector<Disc>(kMaxEntries - 1, SampleDisc(1, 1))));
    CopyDiscToc(SampleDisc(2, 1).toc);
    EXPECT_EQ(AppendEntry({}), DatabaseResult::kOk);
    EXPECT_EQ(AppendEntry({}), DatabaseResult::kFull);
    // A full database can still be edited.
    EXPECT_EQ(ReplaceEntryAtEnd(kHeaderBytes, {}), DatabaseResult::kOk);
    EXPECT_EQ(DatabaseEntryCount(), kMaxEntries);
    EXPECT_EQ(FindEntryOffset(kMaxEntries), 0u);
    EXPECT_NE(FindEntryOffset(kMaxEntries - 1), 0u);
}
