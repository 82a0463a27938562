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
    for (size_t i = 0; i < discs.size(); ++i) {
        text += CsvLines(form, discs[i], static_cast<int>(i) + 1, WesternPage());
    }
    return text;
}

static std::string AsJson(const std::vector<Disc>& discs) {
    std::string text = JsonStart();
    for (const Disc& disc : discs) {
        if (&disc != &discs.front()) text += JsonBetween();
        text += JsonDisc(disc, WesternPage());
    }
    return text + JsonEnd();
}

TEST(TextForms, ExportedDiscsComeBackExactly) {
    const std::vector<Disc> discs = ManyDiscs();
    ImportLog csv;
    ImportLog json;
    SourceFault fault;
    EXPECT_TRUE(ReadCsv(AsCsv(discs, CsvForm::kTracks), WesternPage(), csv.Sink(), fault));
    EXPECT_TRUE(ReadJson(AsJson(discs), WesternPage(), json.Sink(), fault)) << fault.what;
    for (const ImportLog& log : {csv, json}) {
        EXPECT_TRUE(log.discs == discs);
        EXPECT_THAT(log.warnings, IsEmpty());
        EXPECT_THAT(log.refusals, IsEmpty());
    }
}

TEST(TextForms, OneLineADiscIsRefusedWithTheFormThatIsNeeded) {
    ImportLog log;
    SourceFault fault;
    EXPECT_FALSE(ReadCsv(AsCsv(ManyDiscs(), CsvForm::kDiscs), WesternPage(), log.Sink(), fault));
    EXPECT_THAT(fault.what, HasSubstr("--tracks"));
    EXPECT_THAT(log.discs, IsEmpty());
}

TEST(TextForms, ColumnsStandInAnyOrderAndTextsMayBeMissing) {
    ImportLog log;
    SourceFault fault;
    ASSERT_TRUE(
        ReadCsv("\xEF\xBB\xBFseconds,artist,track,track name\n60,A,1,x\n61,A,2,y\n\n"
                "70,B,1,z\n",
                WesternPage(), log.Sink(), fault));
    ASSERT_EQ(log.discs.size(), 2u);
    EXPECT_EQ(log.discs[0].toc.totalSeconds, 121);
    EXPECT_EQ(log.discs[0].fields.trackNames[1], "y");
    EXPECT_EQ(log.discs[1].fields.artist, "B");
}

// Every field is looked for where its column stands in the header line, so a line may never have
// fewer fields than that.
TEST(TextForms, AColumnStandsOnceUnlessItHasNoName) {
    ImportLog log;
    SourceFault fault;
    EXPECT_FALSE(ReadCsv("track,seconds,notes,seconds,artist\n1,60,n,60,A\n", WesternPage(),
                         log.Sink(), fault));
    EXPECT_THAT(fault.what, HasSubstr("\"seconds\""));
    EXPECT_FALSE(ReadCsv("track,seconds,,,artist\n1,60,,A\n", WesternPage(), log.Sink(), fault));
    EXPECT_EQ(fault.where, "line 2");
    ASSERT_TRUE(ReadCsv("track,seconds,,,artist\n1,60,,,A\n", WesternPage(), log.Sink(), fault));
    EXPECT_EQ(log.discs.at(0).fields.artist, "A");
}

TEST(TextForms, CsvFaultsAreFoundByLineAndColumn) {
    const struct {
        const char* lines;
        const char* where;
    } cases[] = {
        {"1,6\n1,\"d\n\ne", "line 3, column 3"},  // never closed
        {"\"1\n2\",\"c", "line 3, column 4"},
        {"1,\"6\"0\n", "line 2, column 6"},  // behind the closing quote
        {"1,6\"0\n", "line 2, column 4"},    // inside a plain field
    };
    for (const auto& item : cases) {
        ImportLog log;
        SourceFault fault;
        const std::string text = std::string("track,seconds\r\n") + item.lines;
        EXPECT_FALSE(ReadCsv(text, WesternPage(), log.Sink(), fault)) << item.lines;
        EXPECT_EQ(fault.where, item.where) << item.lines;
    }
}

TEST(TextForms, AWrongDiscIsRefusedAndTheOthersAreTaken) {
    const struct {
        const char* lines;
        const char* why;
    } cases[] = {
        {"1,2,60,,\n", "line 2: track 1"},
        {"1,1,65536,,\n", "seconds"},
        {"1,1,-1,,\n", "seconds"},
        {"1,1,60,DDDD,\n", "recording"},
        {"1,1,60,,\n1,3,60,,\n", "line 3: track 2"},
    };
    for (const auto& item : cases) {
        ImportLog log;
        SourceFault fault;
        const std::string text =
            std::string("disc,track,seconds,recording,notes\n") + item.lines + "2,1,99,DDD,good\n";
        ASSERT_TRUE(ReadCsv(text, WesternPage(), log.Sink(), fault)) << item.lines;
        EXPECT_THAT(log.refusals, ElementsAre(HasSubstr(item.why))) << item.lines;
        ASSERT_EQ(log.discs.size(), 1u) << item.lines;
        EXPECT_EQ(log.discs[0].fields.notes, "good");
    }
}

TEST(TextForms, JsonFaultsAreFoundAndWrongDiscsRefused) {
    const auto document = [](const std::string& discs) {
        return "{\"version\": 1, \"discs\": [" + discs + "]}";
    };
    const std::string good = R"({"artist": "x", "tracks": [{"name": "n", "seconds": 5}]})";
    for (const std::string& broken :
         {std::string(), std::string("[]"), std::string("{\"version\": 2, \"discs\": []}"),
          document(good + ",1e99999"), document(good + ",\n  {\"artist\": }"),
          document(good).substr(0, 40)}) {
        ImportLog log;
        SourceFault fault;
        EXPECT_FALSE(ReadJson(broken, WesternPage(), log.Sink(), fault)) << broken;
        EXPECT_THAT(log.discs, IsEmpty()) << broken;
        EXPECT_FALSE(fault.what.empty());
    }
    for (const char* wrong :
         {R"({"tracks": []})", "7", R"({"artist": 7, "tracks": [{"name": "n", "seconds": 5}]})",
          R"({"tracks": [{"name": "n", "seconds": 65536}]})", R"({"tracks": [5]})",
          R"({"type": "LP", "tracks": [{"name": "n", "seconds": 5}]})",
          R"({"totalSeconds": -1, "tracks": [{"name": "n", "seconds": 5}]})"}) {
        ImportLog log;
        SourceFault fault;
        EXPECT_TRUE(
            ReadJson(document(std::string(wrong) + "," + good), WesternPage(), log.Sink(), fault))
            << wrong << fault.what;
        EXPECT_EQ(log.discs.size(), 1u) << wrong;
        EXPECT_EQ(log.refusals.size(), 1u) << wrong;
    }
}

TEST(TextForms, WhatDoesNotFitIsToldAndNeverSilent) {
    ImportLog log;
    SourceFault fault;
    const std::string text =
        "artist,notes,track,seconds\n\u4E2D,\"" + std::string(300, 'n') + "\",1,60\n";
    ASSERT_TRUE(ReadCsv(text, WesternPage(), log.Sink(), fault));
    EXPECT_THAT(log.warnings,
                ElementsAre(HasSubstr("artist: 1 character"), HasSubstr("notes: cut at 254")));
    EXPECT_EQ(log.discs[0].fields.artist, "?");
    EXPECT_EQ(log.discs[0].fields.notes.size(), 254u);
}
