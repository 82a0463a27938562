// What a search finds: the scan rule, the order of the fields, codes, where it starts, and what is
// left of it in a damaged file.
#include "database/database_search.h"

#include <gmock/gmock.h>

#include "database/database_file.h"
#include "database/database_format.h"
#include "memory_files.h"
#include "sample_discs.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

TEST(TextContains, DoesNotGoBackBehindAPartialMatch) {
    struct Case {
        const char* field;
        const char* text;
        bool found;
    };
    for (const Case& c : {Case{"xab", "ab", true}, Case{"aab", "ab", false},
                          Case{"aaab", "aab", false}, Case{"xaab", "ab", false},
                          Case{"aabab", "ab", true}, Case{"ab", "ab", true}, Case{"a", "ab", false},
                          Case{"", "a", false}, Case{"a", "", false}, Case{"", "", false}}) {
        EXPECT_EQ(TextContains(c.field, c.text), c.found) << c.field << " / " << c.text;
    }
}

static void LowerAscii(std::string& text) {
    for (char& c : text) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
    }
}

// Each field holds a word of its own and the word "all".
static Disc WordDisc() {
    Disc disc = SampleDisc(1, 3);
    disc.fields.trackNames[0] = "";
    disc.fields.trackNames[1] = "Second all";
    disc.fields.trackNames[2] = "Third all";
    disc.fields.artist = "Artist all";
    disc.fields.discName = "Name all";
    disc.fields.category = "Kind all";
    disc.fields.label = "Maker all";
    disc.fields.notes = "Long\r\nall";
    disc.fields.yearReleased = "1970 all";
    return disc;
}

class SearchTest : public testing::Test {
protected:
    void SetUp() override { UseMemoryFiles(); }

    static void StartOn(const std::vector<Disc>& discs) {
        StartOnDisk({{kDatabaseName, DatabaseImage(discs)}});
    }
    // Entry and field of each result.
    static std::vector<std::pair<int, int>> Find(const SearchQuery& query, uint32_t first = 0) {
        std::vector<std::pair<int, int>> found;
        for (const SearchHit& hit : SearchDatabase(query, first, [](uint32_t, uint32_t) {}))
            found.emplace_back(hit.entryIndex, hit.field);
        return found;
    }
};

TEST_F(SearchTest, TheFirstEnabledFieldCounts) {
    StartOn({WordDisc()});
    SearchQuery query;
    query.text = "all";
    bool SearchFields::*const flags[] = {&SearchFields::track,       &SearchFields::artist,
                                         &SearchFields::discName,    &SearchFields::category,
                                         &SearchFields::label,       &SearchFields::notes,
                                         &SearchFields::yearReleased};
    const int fields[] = {1, 100, 101, 102, 103, 104, 115};
    for (size_t i = 0; i < std::size(flags); ++i) {
        EXPECT_THAT(Find(query), ElementsAre(Pair(0, fields[i])));
        query.fields.*flags[i] = false;
    }
    EXPECT_THAT(Find(query), IsEmpty());
}

TEST_F(SearchTest, CaseCountsUnlessItIsLowered) {
    StartOn({WordDisc()});
    SearchQuery query;
    query.text = "third";
    EXPECT_THAT(Find(query), IsEmpty());
    query.lowerCase = LowerAscii;
    EXPECT_THAT(Find(query), ElementsAre(Pair(0, 2)));
}

TEST_F(SearchTest, CodesMatchOnlyInTheirGroup) {
    std::vector<Disc> discs(5, SampleDisc(1, 2));
    for (uint8_t i = 0; i < 5; ++i) {
        discs[i].fields.recordingCode = i;  // the last one stands for no button
        discs[i].fields.discType = static_cast<uint8_t>(3 - i % 4);
        discs[i].fields.discSize = i;
    }
    StartOn(discs);
    SearchQuery query;
    for (const auto& [code, entries] : std::vector<std::pair<int, std::vector<int>>>{
             {105, {0}}, {108, {3}}, {109, {3}}, {112, {0, 4}}, {113, {0}}, {114, {1, 2, 3, 4}}}) {
        query.code = code;
        std::vector<std::pair<int, int>> expected;
        for (const int entry : entries)
            expected.emplace_back(entry, code);
        EXPECT_EQ(Find(query), expected) << code;
    }
}

TEST_F(SearchTest, StartsWhereItIsToldAndTellsHowFarItIs) {
    StartOn({WordDisc(), SampleDisc(2, 1), WordDisc()});
    SearchQuery query;
    query.text = "Artist all";
    EXPECT_THAT(Find(query, 1), ElementsAre(Pair(2, 100)));
    EXPECT_THAT(Find(query, 3), IsEmpty());
    EXPECT_THAT(Find(query, 70000), IsEmpty());
    std::vector<uint32_t> steps;
    const auto hits = SearchDatabase(query, 0, [&](uint32_t number, uint32_t entryCount) {
        steps.push_back(number * 10 + entryCount);
    });
    EXPECT_THAT(steps, ElementsAre(13, 23, 33));
    ASSERT_EQ(hits.size(), 2u);
    EXPECT_EQ(hits[1].title, "Artist all - Name all");
}

TEST_F(SearchTest, OnlyNinetyNineTracksAreSearchedAndDamageEndsTheWalk) {
    // A count that no writer makes: what follows is read as tracks for as long as the file lasts.
    std::string image = DatabaseImage({WordDisc(), WordDisc()});
    image[kHeaderBytes + kTrackCountOffset] = static_cast<char>(0xFF);
    StartOnDisk({{kDatabaseName, image}});
    SearchQuery query;
    query.text = "Maker all";
    for (const auto& [entry, field] : Find(query))
        EXPECT_TRUE(field < 99 || field >= 100) << entry;
    // The chain leads back to its beginning.
    image = DatabaseImage({WordDisc(), WordDisc()});
    PutU32(reinterpret_cast<uint8_t*>(image.data()) + kHeaderBytes, kHeaderBytes);
    StartOnDisk({{kDatabaseName, image}});
    EXPECT_THAT(Find(query), ElementsAre(Pair(0, 103)));
    StartOnDisk({});
    EXPECT_THAT(Find(query), IsEmpty());
    EXPECT_EQ(OpenHandles(), 0);
}

TEST_F(SearchTest, NumberedEntriesAndTotals) {
    std::vector<Disc> discs = {SampleDisc(1, 2), SampleDisc(2, 99), LargestDisc()};
    discs[0].toc.totalSeconds = 65535;
    discs[1].toc.totalSeconds = 24526;  // the stored totals count, whatever the tracks add up to
    discs[2].toc.totalSeconds = 0;
    StartOn(discs);
    NumberedEntry entry;
    for (uint32_t i = 0; i < discs.size(); ++i) {
        ASSERT_EQ(LoadNumberedEntry(i, entry), DatabaseResult::kOk);
        EXPECT_TRUE(entry.disc == discs[i].toc && entry.fields == discs[i].fields) << i;
        EXPECT_EQ(entry.start, EntryStarts(discs)[i]);
    }
    EXPECT_EQ(LoadNumberedEntry(3, entry), DatabaseResult::kDamaged);
    DatabaseTotals totals = SumDatabase();
    EXPECT_EQ(totals.entries, 3);
    EXPECT_EQ(totals.tracks, 200u);
    EXPECT_EQ(totals.seconds, 90061u);
    // An entry whose size is wrong is read all the same.
    std::string image = DatabaseImage(discs);
    PutU16(reinterpret_cast<uint8_t*>(image.data()) + EntryStarts(discs)[2] + kEntrySizeOffset, 9);
    StartOnDisk({{kDatabaseName, image}});
    EXPECT_EQ(LoadNumberedEntry(2, entry), DatabaseResult::kOk);
    EXPECT_TRUE(entry.fields == discs[2].fields);
    // What lies before the damage is counted.
    image.resize(EntryStarts(discs)[2] + kDiscKeyOffset);
    StartOnDisk({{kDatabaseName, image}});
    totals = SumDatabase();
    EXPECT_EQ(totals.tracks, 101u);
    EXPECT_EQ(LoadNumberedEntry(2, entry), DatabaseResult::kDamaged);
    StartOnDisk({});
    EXPECT_EQ(LoadNumberedEntry(0, entry), DatabaseResult::kCannotOpen);
    EXPECT_EQ(SumDatabase().entries, 0);
}
