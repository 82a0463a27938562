// Text files of disc databases and track lists: awkward ones give the disc they mean or a reason.
#include "companion/xmcd.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "companion/player_ini.h"
#include "tests/companion/import_log.h"
#include "tests/database/sample_discs.h"

using testing::ElementsAre;
using testing::HasSubstr;

static std::string File(const std::string& offsets, const std::string& length,
                        const std::string& keys) {
    return "# xmcd\n#\n# Track frame offsets:\n" + offsets + "#\n# Disc length: " + length +
           "\n#\n" + keys;
}

TEST(Xmcd, ExportedDiscsKeepTheirTocAndTexts) {
    std::mt19937 random(21);
    for (int i = 0; i < 60; ++i) {
        Disc disc = i == 0 ? LargestDisc() : RandomDisc(random);
        // A track without a length would start where the next one does.
        for (int t = 0; t < disc.toc.trackCount; ++t)
            disc.toc.lengthSeconds[t] |= 1;
        disc.toc.totalSeconds = SumOfLengths(disc.toc);
        if (i > 0) {
            disc.fields.artist = "A\\n B";
            disc.fields.discName = "C / D\tE";
            disc.fields.category = "Folk";
            disc.fields.yearReleased = "1994";
            disc.fields.notes = "one\r\ntwo \\ three" + std::string(200, '\\');
            disc.fields.trackNames[0] = std::string(254, '\xE9');
        }
        const std::string text = XmcdText(disc, WesternPage());
        for (size_t at = 0, end; (end = text.find('\n', at)) != std::string::npos; at = end + 1)
            ASSERT_LE(end - at, 255u);
        const ImportLog log = Import(ReadXmcd, text);
        ASSERT_EQ(log.discs.size(), 1u) << log.fault.what;
        EXPECT_EQ(log.discs[0].toc, disc.toc) << i;
        const EntryFields& read = log.discs[0].fields;
        EXPECT_EQ(read.artist, disc.fields.artist);
        EXPECT_EQ(read.discName, disc.fields.discName);
        EXPECT_EQ(read.category, disc.fields.category);
        EXPECT_EQ(read.yearReleased, disc.fields.yearReleased);
        EXPECT_EQ(read.notes, disc.fields.notes);
        EXPECT_EQ(read.trackNames[0], disc.fields.trackNames[0]);
    }
}

TEST(Xmcd, AwkwardFilesGiveTheDiscTheyMean) {
    const std::string offsets = "#\t150\n#  10000 \r\n";
    const struct {
        const char *keys, *artist, *name, *firstTrack;
    } cases[] = {
        {"DTITLE=Artist / Title\nTTITLE0=One\n", "Artist", "Title", "One"},
        {"DTITLE=Both\n", "Both", "Both", ""},
        {"DTITLE=A / B / C\n", "A", "B / C", ""},
        {"DTITLE=Long ar\nDTITLE=tist / Ti\nDTITLE=tle\nTTITLE0=On\nTTITLE0=e\n", "Long artist",
         "Title", "One"},
        {"DTITLE=Caf\xE9 / \xDCmlaut\nTTITLE0=x\\ty\n", "Caf\xE9", "\xDCmlaut", "x\ty"},
        {"DTITLE=Caf\xC3\xA9 / \xE2\x82\xAC\r\nTTITLE0= z \r\n", "Caf\xE9", "\x80", "z"},
        {"garbage\n=nothing\nTTITLE7=beyond\nTTITLE=x\nDTITLE=A / B", "A", "B", ""},
    };
    for (const auto& item : cases) {
        const ImportLog log =
            Import(ReadXmcd, "\xEF\xBB\xBF" + File(offsets, "200 seconds", item.keys));
        ASSERT_EQ(log.discs.size(), 1u) << item.keys << log.fault.what;
        const Disc& disc = log.discs[0];
        EXPECT_EQ(disc.fields.artist, item.artist) << item.keys;
        EXPECT_EQ(disc.fields.discName, item.name) << item.keys;
        EXPECT_EQ(disc.fields.trackNames[0], item.firstTrack) << item.keys;
        EXPECT_EQ(disc.toc.trackCount, 2);
        EXPECT_EQ(disc.toc.lengthSeconds[0], (10000 - 150) / 75);
        EXPECT_EQ(disc.toc.lengthSeconds[1], (200 * 75 - 10000) / 75);
        EXPECT_EQ(disc.toc.totalSeconds, 131 + 66);
    }
}

TEST(Xmcd, WrongTablesOfContentsAreRefusedWithTheirPlace) {
    const std::pair<std::string, const char*> cases[] = {
        {"", "line 1"},
        {"xmcd", "line 1"},
        {File("", "200 seconds", ""), ""},
        {File("#\t150\n#\t150\n", "200", ""), "line 5, column 3"},
        {File("#\t150\n#\t4294967500\n", "200", ""), "line 5, column 3"},
        {File("#\t150\n", "none", ""), "line 6, column 15"},
        {File("#\t15000\n", "200 seconds", ""), ""},
        {File("#\t15001\n", "200 seconds", ""), "line 6, column 1"},
        {"# xmcd\n# Track frame offsets:\n# 150\n", ""},
    };
    for (const auto& [text, where] : cases) {
        const ImportLog log = Import(ReadXmcd, text);
        // An offset just at the end is a track without a length.
        EXPECT_EQ(log.taken, text.find("15000") != std::string::npos) << text;
        if (!log.taken) EXPECT_THAT(log.fault.where, HasSubstr(where)) << text;
    }
}

TEST(PlayerIni, SectionsNeedTheirLengths) {
    SectionLengths lengths;
    SourceFault fault;
    ASSERT_TRUE(ReadSectionLengths("# mine\n\na1b2 3:07 187\nC3 0:01\n", lengths, fault));
    ImportLog log;
    ReadPlayerIni(
        "[A1B2]\r\nartist=Caf\xE9\r\ntitle=T\r\nnumtracks=2\r\n0=One\r\n1=Two\r\n"
        "[c3]\nnumtracks=2\n[D4]\nnumtracks=1\n",
        WesternPage(), lengths, log.Sink());
    ASSERT_EQ(log.discs.size(), 1u);
    EXPECT_EQ(log.discs[0].fields.artist + log.discs[0].fields.discName, "Caf\xE9T");
    EXPECT_EQ(log.discs[0].fields.trackNames[1], "Two");
    EXPECT_EQ(log.discs[0].toc.totalSeconds, 374);
    EXPECT_THAT(log.refusals, ElementsAre(HasSubstr("line 7, [c3]"), HasSubstr("--lengths")));

    for (const char* wrong : {"A 1:00\nB 1:60\n", "A 1\nB 1092:16\n"}) {
        EXPECT_FALSE(ReadSectionLengths(wrong, lengths, fault)) << wrong;
        EXPECT_EQ(fault.where, "line 2, column 3");
    }
}
