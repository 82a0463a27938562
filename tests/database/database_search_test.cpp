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
    const std::tuple<const char*, const char*, bool> cases[] = {
        {"xab", "ab", true},    {"ab", "ab", true}, {"aabab", "ab", true}, {"xaab", "ab", false},
        {"aaab", "aab", false}, {"a", "ab", false}, {"a", "", false},      {"", "", false}};
    for (const auto& [field, text, found] : cases)
        EXPECT_EQ(TextContains(field, text), found) << field << " / " << text;
}

static void LowerLatin(std::string& text) {
    for (char& c : text) {
        const bool isUpper = (c >= 'A' && c <= 'Z') || (c >= '\xC0' && c <= '\xDE' && c != '\xD7');
        if (isUpper) c = static_cast<char>(c + ('a' - 'A'));
    }
}

// Entry and field of each result.
static std::vector<std::pair<int, int>> Find(const SearchQuery& query, uint32_t first = 0) {
    std::vector<std::pair<int, int>> found;
    for (const SearchHit& hit : SearchDatabase(query, first, [](uint32_t, uint32_t) {}))
        found.emplace_back(hit.entryIndex, hit.field);
    return found;
}

static const struct {
    bool SearchFields::*searched;
    std::string EntryFields::*text;
    int field;
} kTexts[] = {{&SearchFields::artist, &EntryFields::artist, 100},
              {&SearchFields::discName, &EntryFields::discName, 101},
              {&SearchFields::category, &EntryFields::category, 102},
              {&SearchFields::label, &EntryFields::label, 103},
              {&SearchFields::notes, &EntryFields::notes, 104},
              {&SearchFields::yearReleased, &EntryFields::yearReleased, 115}};

// The plainest search there is, of one disc.
static int FirstMatch(const Disc& disc, const SearchQuery& query) {
    const auto holds = [&](std::string text) {
        if (query.lowerCase) query.lowerCase(text);
        return TextContains(text, query.text);
    };
    for (int track = 0; query.fields.track && track < disc.toc.trackCount; ++track) {
        if (holds(disc.fields.trackNames[track])) return track;
    }
    for (const auto& [searched, text, field] : kTexts) {
        if (query.fields.*searched && holds(disc.fields.*text)) return field;
    }
    return kNoMatch;
}

// Also where entries that cannot match are passed over by their bytes.
TEST(Search, TheFirstEnabledFieldThatHoldsTheTextCounts) {
    std::mt19937 random(7);
    std::vector<Disc> discs;
    for (int i = 0; i < 100; ++i)
        discs.push_back(RandomDisc(random));
    StartOn(DatabaseImage(discs));
    size_t hits = 0;
    for (int round = 0; round < 200; ++round) {
        const std::string& notes = discs[random() % discs.size()].fields.notes;
        SearchQuery query;
        query.text = notes.substr(notes.empty() ? 0 : random() % notes.size(), 1 + random() % 9);
        if (round % 2) query.lowerCase = LowerLatin;
        if (round % 2) LowerLatin(query.text);
        query.fields.track = random() % 4 > 0;
        for (const auto& each : kTexts)
            query.fields.*each.searched = random() % 4 > 0;
        std::vector<std::pair<int, int>> expected;
        for (size_t i = 0; i < discs.size(); ++i) {
            const int field = FirstMatch(discs[i], query);
            if (field != kNoMatch) expected.emplace_back(i, field);
        }
        ASSERT_EQ(Find(query), expected) << round;
        hits += expected.size();
    }
    EXPECT_GT(hits, 200u);
}

TEST(Search, CodesMatchOnlyInTheirGroup) {
    std::vector<Disc> discs(5, SampleDisc(1, 2));
    for (uint8_t i = 0; i < 5; ++i) {
        discs[i].fields.recordingCode = i;  // 4 and more stand for no button
        discs[i].fields.discType = static_cast<uint8_t>(i + 1);
        discs[i].fields.discSize = i;
    }
    StartOn(DatabaseImage(discs));
    const std::pair<int, std::vector<int>> cases[] = {{105, {0}}, {108, {3}}, {109, {}},
                                                      {110, {0}}, {113, {0}}, {114, {1, 2, 3, 4}}};
    for (const auto& [code, entries] : cases) {
        SearchQuery query;
        query.code = code;
        std::vector<std::pair<int, int>> expected;
        for (const int entry : entries)
            expected.emplace_back(entry, code);
        EXPECT_EQ(Find(query), expected) << code;
    }
}

TEST(Search, StartsWhereItIsToldAndTellsHowFarItIs) {
    StartOn(DatabaseImage({SampleDisc(1, 1), SampleDisc(2, 1), SampleDisc(1, 1)}));
    const SearchQuery query = {.text = "Artist 1", .fields = {}};
    EXPECT_THAT(Find(query, 3), IsEmpty());
    EXPECT_THAT(Find(query, 70000), IsEmpty());
    std::vector<uint32_t> steps;
    const auto hits = SearchDatabase(
        query, 1, [&](uint32_t number, uint32_t count) { steps.push_back(number * 10 + count); });
    EXPECT_THAT(steps, ElementsAre(23, 33));
    ASSERT_EQ(hits.size(), 1u);
    EXPECT_EQ(hits[0].title, "Artist 1 - Disc 1");
}

TEST(Search, OnlyNinetyNineTracksAreSearchedAndDamageEndsTheWalk) {
    const SearchQuery query = {.text = "Label", .fields = {}};
    // The name of a hundredth track, put in by hand.
    Disc disc = SampleDisc(1, 99);
    std::fill_n(disc.fields.trackNames, 99, "");
    std::string hundred = DatabaseImage({disc});
    ++hundred[kHeaderBytes + kTrackCountOffset];
    hundred.insert(kHeaderBytes + kTracksOffset + 99 * 3, "\5Label--");
    // The chain leads back to its beginning.
    std::string circle = DatabaseImage({SampleDisc(1, 3), SampleDisc(1, 3)});
    circle.replace(kHeaderBytes, 4, std::string("\x08\0\0\0", 4));
    for (const std::string& damaged : {hundred, circle}) {
        StartOn(damaged);
        EXPECT_THAT(Find(query), ElementsAre(Pair(0, 103)));
    }
    StartOnDisk({});
    EXPECT_THAT(Find(query), IsEmpty());
}

TEST(DatabaseWalk, AnEntryByItsNumberAndWhatLiesBeforeTheDamage) {
    const std::vector<Disc> discs = {SampleDisc(1, 2), LargestDisc()};
    const uint32_t start = EntryStarts(discs)[1];
    std::string image = DatabaseImage(discs);
    image[start + kEntrySizeOffset] = 9;  // an entry whose size is wrong is read all the same
    StartOn(image);
    NumberedEntry entry;
    EXPECT_EQ(LoadNumberedEntry(2, entry), DatabaseResult::kDamaged);
    EXPECT_EQ(LoadNumberedEntry(1, entry), DatabaseResult::kOk);
    EXPECT_TRUE(entry.disc == discs[1].toc && entry.fields == discs[1].fields);
    EXPECT_EQ(entry.start, start);
    StartOn(image.substr(0, start + kDiscKeyOffset));
    EXPECT_EQ(LoadNumberedEntry(1, entry), DatabaseResult::kDamaged);
    EXPECT_EQ(SumDatabase().tracks, 2u);
    // A damaged pointer leads to a text that reads like an entry.
    Disc quoting = SampleDisc(1, 1);
    quoting.fields.notes = DatabaseImage({SampleDisc(1, 1)}).substr(kHeaderBytes);
    image = DatabaseImage({quoting, discs[0]});
    image[kHeaderBytes] = static_cast<char>(image.find(quoting.fields.notes));
    StartOn(image);
    EXPECT_EQ(LoadNumberedEntry(1, entry), DatabaseResult::kDamaged);
    StartOnDisk({});
    EXPECT_EQ(LoadNumberedEntry(0, entry), DatabaseResult::kCannotOpen);
}
