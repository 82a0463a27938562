// Discs as comma-separated values and as JSON: what is exported comes back exactly, and a faulty
// source changes nothing.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "companion/disc_csv.h"
#include "companion/disc_json.h"
#include "tests/companion/import_log.h"
#include "tests/database/sample_discs.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

static std::vector<Disc> ManyDiscs() {
    std::mt19937 random(20);
    std::vector<Disc> discs = {LargestDisc(), SampleDisc(1, 1), SampleDisc(1, 1)};
    while (discs.size() < 60)
        discs.push_back(RandomDisc(random));
    Disc& awkward = discs[1];
    awkward.fields.artist = "a,\"b\"\t\x80\x81\xFF\x01 ";
    awkward.fields.notes = "one\r\n\r\n two\n";
    awkward.fields.label = "\r";
    awkward.fields.category = "\"";
    awkward.fields.recordingCode = 7;
    awkward.toc.totalSeconds = 9;  // what a damaged entry may say
    return discs;
}

static std::string AsCsv(const std::vector<Disc>& discs, CsvForm form) {
    std::string text = CsvHeader(form);
    for (size_t i = 0; i < discs.size(); ++i)
        text += CsvLines(form, discs[i], static_cast<int>(i) + 1, WesternPage());
    return text;
}

static std::string AsJson(const std::vector<Disc>& discs) {
    std::string text;
    for (const Disc& disc : discs)
        text += (text.empty() ? JsonStart() : JsonBetween()) + JsonDisc(disc, WesternPage());
    return text + JsonEnd();
}

TEST(TextForms, ExportedDiscsComeBackExactly) {
    const std::vector<Disc> discs = ManyDiscs();
    for (const ImportLog& log :
         {Import(ReadCsv, AsCsv(discs, CsvForm::kTracks)), Import(ReadJson, AsJson(discs))}) {
        EXPECT_TRUE(log.taken && log.discs == discs) << log.fault.what;
        EXPECT_THAT(log.warnings, ElementsAre(HasSubstr(": total seconds: 9,")));
        EXPECT_THAT(log.refusals, IsEmpty());
    }
}

TEST(TextForms, ColumnsStandInAnyOrderAndTextsMayBeMissing) {
    const ImportLog log = Import(ReadCsv,
                                 "\xEF\xBB\xBFseconds,artist,track,,,track name\n60,A,1,,,x\n"
                                 "61,A,2,,,y\n\n70,B,1,,,z\n");
    ASSERT_EQ(log.discs.size(), 2u) << log.fault.what;
    EXPECT_EQ(log.discs[0].toc.totalSeconds, 121);
    EXPECT_EQ(log.discs[0].fields.trackNames[1], "y");
    EXPECT_EQ(log.discs[1].fields.artist, "B");
}

TEST(TextForms, CsvFaultsAreFoundByTheirPlace) {
    const std::string header = "track,seconds\r\n";
    const struct {
        std::string text;
        const char *where, *what;
    } cases[] = {
        {"", "line 1", "empty"},
        {header + "1,6\n1,\"d\n\ne", "line 3, column 3", ""},  // never closed
        {header + "\"1\n2\",\"c", "line 3, column 4", ""},
        {header + "1,\"6\"0\n", "line 2, column 6", ""},  // behind the closing quote
        {header + "1,6\"0\n", "line 2, column 4", ""},    // inside a plain field
        {"track,seconds,notes,seconds\n1,60,n,60\n", "line 1", "\"seconds\""},
        // Every field is looked for where its column stands in the header line, so no line may have
        // fewer fields.
        {"track,seconds,,,artist\n1,60,,A\n", "line 2", ""},
        {AsCsv(ManyDiscs(), CsvForm::kDiscs), "line 1", "--tracks"},
    };
    for (const auto& item : cases) {
        const ImportLog log = Import(ReadCsv, item.text);
        EXPECT_FALSE(log.taken) << item.text;
        EXPECT_EQ(log.fault.where, item.where) << item.text;
        EXPECT_THAT(log.fault.what, HasSubstr(item.what));
        EXPECT_THAT(log.discs, IsEmpty());
    }
}

TEST(TextForms, AWrongDiscIsRefusedAndTheOthersAreTaken) {
    const std::pair<std::string, const char*> csvCases[] = {
        {"1,2,60,,,\n", "line 2: track 1"},
        {"1,1,65536,,,\n", "line 2: seconds"},
        {"1,1,-1,,,\n", "line 2: seconds"},
        {"1,1,60,,,65536\n", "line 2: total seconds"},
        {"1,1,60,DDDD,,\n", "line 2: recording"},
        {"1,1,60,,,\n1,3,60,,,\n", "line 2: line 3: track 2"},
    };
    for (const auto& [lines, why] : csvCases) {
        const std::string text = "disc,track,seconds,recording,notes,total seconds\n" + lines;
        const ImportLog log = Import(ReadCsv, text + "2,1,99,DDD,good,\n");
        EXPECT_THAT(log.refusals, ElementsAre(StartsWith(why))) << lines;
        ASSERT_EQ(log.discs.size(), 1u) << lines;
        EXPECT_EQ(log.discs[0].fields.notes, "good");
    }
    const std::string start = R"({"version": 1, "discs": [)";
    const std::string good = R"({"artist": "x", "tracks": [{"name": "n", "seconds": 5}]})";
    const std::string deep = std::string(20000, '[') + std::string(20000, ']');
    for (const std::string wrong :
         {R"({"tracks": []})", "7", deep.c_str(),
          R"({"artist": 7, "tracks": [{"name": "n", "seconds": 5}]})",
          R"({"tracks": [{"name": "n", "seconds": 65536}]})", R"({"tracks": [5]})",
          R"({"type": "LP", "tracks": [{"name": "n", "seconds": 5}]})",
          R"({"totalSeconds": -1, "tracks": [{"name": "n", "seconds": 5}]})"}) {
        // What stands under other names is no disc.
        const ImportLog log = Import(ReadJson, start + wrong + "," + good + R"(], "old": [)" +
                                                   good + R"(], "by": {"program": {}}})");
        EXPECT_TRUE(log.taken) << log.fault.what;
        EXPECT_EQ(log.discs.size(), 1u) << wrong.substr(0, 80);
        EXPECT_THAT(log.refusals, ElementsAre(StartsWith("disc 1: "))) << wrong.substr(0, 80);
    }
    for (const std::string& broken :
         {std::string(), std::string("[]"), std::string(R"({"version": 2, "discs": []})"),
          start + good + ",1e99999]}", start + good + ",\n  {\"artist\": }]}",
          (start + good).substr(0, 40)}) {
        const ImportLog log = Import(ReadJson, broken);
        EXPECT_FALSE(log.taken || log.fault.what.empty()) << broken;
        EXPECT_THAT(log.discs, IsEmpty()) << broken;
    }
}

TEST(TextForms, WhatDoesNotFitIsToldAndNeverSilent) {
    const ImportLog log = Import(
        ReadCsv, "artist,notes,track,seconds\n\u4E2D,\"" + std::string(300, 'n') + "\",1,60\n");
    ASSERT_TRUE(log.taken);
    EXPECT_THAT(log.warnings,
                ElementsAre(HasSubstr("artist: 1 character"), HasSubstr("notes: cut at 254")));
    EXPECT_EQ(log.discs[0].fields.artist, "?");
    EXPECT_EQ(log.discs[0].fields.notes.size(), 254u);
}
