// What a search finds: the scan rule, the order of the fields, codes, where it starts, and what is
// left of it in a damaged file.
#include "database/database_search.h"

#include <gmock/gmock.h>

#include <algorithm>

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

// Beside the plainest search there is: entries that cannot match are passed over by their bytes.
TEST_F(SearchTest, WhatIsPassedOverHoldsNoMatch) {
    std::mt19937 random(7);
    std::vector<Disc> discs;
    for (int i = 0; i < 300; ++i)
        discs.push_back(RandomDisc(random));
    StartOn(discs);
    int hits = 0;
    for (int round = 0; round < 400; ++round) {
        const std::string& notes = discs[random() % discs.size()].fields.notes;
        SearchQuery query;
        query.text = notes.substr(notes.empty() ? 0 : random() % notes.size(), 1 + random() % 9);
        if (round % 2) query.lowerCase = LowerAscii;
        if (round % 2) LowerAscii(query.text);
        std::vector<std::pair<int, int>> expected;
        for (size_t i = 0; i < discs.size(); ++i) {
            const EntryFields& fields = discs[i].fields;
            std::vector<std::pair<int, std::string>> texts;
            for (int track = 0; track < discs[i].toc.trackCount; ++track)
                texts.emplace_back(track, fields.trackNames[track]);
            const std::string* others[] = {&fields.artist, &fields.discName, &fields.category,
                                           &fields.label, &fields.notes};
            for (int field = 0; field < 5; ++field)
                texts.emplace_back(kFieldArtist + field, *others[field]);
            texts.emplace_back(kFieldYearReleased, fields.yearReleased);
            const auto found = std::find_if(texts.begin(), texts.end(), [&](auto& text) {
                if (query.lowerCase) LowerAscii(text.second);
                return TextContains(text.second, query.text);
            });
            if (found != texts.end()) expected.emplace_back(static_cast<int>(i), found->first);
        }
        ASSERT_EQ(Find(query), expected) << round;
        hits += static_cast<int>(expected.size());
    }
    EXPECT_GT(hits, 400);
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
    EXPECT_THAT(Find(query, 3), IsEmpty());
    EXPECT_THAT(Find(query, 70000), IsEmpty());
    std::vector<uint32_t> steps;
    const auto hits = SearchDatabase(query, 1, [&](uint32_t number, uint32_t entryCount) {
        steps.push_back(number * 10 + entryCount);
    });
    EXPECT_THAT(steps, ElementsAre(23, 33));
    ASSERT_EQ(hits.size(), 1u);
    EXPECT_EQ(hits[0].title, "Artist all - Name all");
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
    EXPECT_TRUE(entry.disc == discs[2].toc && entry.fields == discs[2].fields);
    EXPECT_EQ(entry.start, EntryStarts(discs)[2]);
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
