// CUE sheets: what is understood, what is refused and at which line.
#include "demo/drive/cue_sheet.h"

#include <gtest/gtest.h>

TEST(CueSheet, TracksOfOneFileEndWhereTheNextBegins) {
    CueSheet sheet;
    int line = 0;
    ASSERT_TRUE(
        ParseCueSheet("\xEF\xBB\xBFREM GENRE none\r\nPERFORMER \"Somebody\"\r\n"
                      "FILE \"one file.wav\" WAVE\r\n"
                      "  TRACK 01 AUDIO\r\n    TITLE \"First\"\r\n    INDEX 01 00:00:00\r\n"
                      "  TRACK 02 AUDIO\r\n    INDEX 00 00:09:00\r\n    INDEX 01 00:10:37\r\n"
                      "file other.wav wave\r\n  track 3 audio\r\n    index 01 00:01:00",
                      sheet, line))
        << line;
    ASSERT_EQ(sheet.files.size(), 2U);
    EXPECT_EQ(sheet.files[0].name, "one file.wav");
    EXPECT_EQ(sheet.files[1].name, "other.wav");
    sheet.files[0].sectors = 1000;
    sheet.files[1].sectors = 50;
    const DiscLayout disc = LayOutDisc(sheet);
    ASSERT_EQ(disc.tracks.size(), 3U);
    const uint32_t expected[][2] = {{0, 787}, {787, 213}, {1000, 0}};  // the last begins too late
    for (size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(disc.tracks[i].startSector, expected[i][0]);
        EXPECT_EQ(disc.tracks[i].sectors, expected[i][1]);
    }
}

TEST(CueSheet, FaultsAreFoundAtTheirLineAndLeaveTheSheetAlone) {
    const std::string track = "FILE a.wav WAVE\nTRACK 01 AUDIO\nINDEX 01 00:00:00\n";
    const struct {
        std::string text;
        int line;
    } cases[] = {
        {"", 0},
        {"TRACK 01 AUDIO\nINDEX 01 00:00:00\n", 0},  // no file
        {"FILE a.wav WAVE\nTRACK 01 AUDIO\n", 0},    // no beginning
        {"FILE\n" + track, 1},
        {"FILE \"\" WAVE\n", 1},
        {"TRACK 02 AUDIO\n", 1},
        {"TRACK 1x AUDIO\n", 1},
        {"TRACK 99999999999 AUDIO\n", 1},
        {"INDEX 01 00:00:00\n", 1},
        {track + "INDEX 01 00:60:00\n", 4},
        {track + "INDEX 01 00:00:75\n", 4},
        {track + "INDEX 01 00:00\n", 4},
        {track + "INDEX 01 -1:00:00\n", 4},
        {track + "INDEX 01 4001:00:00\n", 4},
        {track + "INDEX 01 00:10:00\nTRACK 02 AUDIO\nINDEX 01 00:05:00\n", 6},
        {track + "TRACK 02 AUDIO\nTRACK 03 AUDIO\n", 5},
        {track + "REM LENGTH soon\n", 4},
        {track + "REM TONE 20001\n", 4},
        {std::string(kMaxCueBytes + 1, '\n'), 0},
    };
    for (const auto& c : cases) {
        CueSheet sheet;
        sheet.files.push_back({"untouched", 7});
        int line = -1;
        EXPECT_FALSE(ParseCueSheet(c.text, sheet, line)) << c.text.substr(0, 200);
        EXPECT_EQ(line, c.line) << c.text.substr(0, 200);
        EXPECT_EQ(sheet.files.size(), 1U);
    }
}
