// Command lines of every form, and the two ways of finding a track's digits.
#include "app/command_line.h"

#include <gtest/gtest.h>

#include "base/app_directory.h"
#include "resources/ids.h"

TEST(CommandLine, MediaFilesSetModeAndDirectory) {
    const struct {
        const char* text;
        int mode;  // 0: not taken as a media file
        const char* directory;
        const char* name;
    } cases[] = {
        {"C:\\SOUNDS\\DING.WAV", IDC_MODE_WAVE, "C:\\SOUNDS\\", "DING.WAV"},
        {"c:/music/a.b/song.mid", IDC_MODE_MIDI, "c:/music/a.b/", "song.mid"},
        {"song.rmi", IDC_MODE_MIDI, "s", "ong.rmi"},
        {"c:\\dir.mov\\file", IDC_MODE_VIDEO, "c:\\dir.mov\\", "file"},
        {"c:\\x.wa", 0, "", ""},
        {"\\\\//", 0, "", ""},
        {".", 0, "", ""},
        {"", 0, "", ""},
        {"\xff\xfe.wav", IDC_MODE_WAVE, "\xff", "\xfe.wav"},
    };
    for (const auto& c : cases) {
        const CommandLineRequest request = ParseCommandLine(c.text);
        EXPECT_EQ(request.mediaFile, c.mode != 0) << c.text;
        EXPECT_EQ(request.mode, c.mode) << c.text;
        EXPECT_EQ(request.directory, c.directory) << c.text;
        EXPECT_EQ(request.fileName, c.name) << c.text;
    }
}

TEST(CommandLine, TrackDigitsStandBeforeTheExtensionAndAtAFixedPlace) {
    const struct {
        const char* text;
        bool asksForDisc;
        int firstStart;
        int forwarded;
    } cases[] = {
        {"-play D:\\Track07.cda", true, 7, 7},
        {"-PLAY D:\\TRACK12.CDA", true, 12, 12},
        {"/P", true, 1, 1},
        {"-play D:\\Discs\\Track05.cda", true, 5, 0},  // the two places part on longer paths
        {"-play D:\\Track7x.cda", true, 7, 7},
        {"-play D:\\Trackx7.cda", true, 0, 0},
        {"-p123", true, 0, 0},
        {"-p1234", true, 0, 0},
        {"p", false, 0, 0},
    };
    for (const auto& c : cases) {
        const CommandLineRequest request = ParseCommandLine(c.text);
        EXPECT_EQ(request.playDisc, c.asksForDisc) << c.text;
        EXPECT_EQ(request.track, c.firstStart) << c.text;
        uint16_t track = 0;
        EXPECT_EQ(ForwardedTrack(c.text, track), c.asksForDisc) << c.text;
        EXPECT_EQ(track, c.forwarded) << c.text;
    }
}

TEST(CommandLine, OverlongTextsAreCut) {
    const CommandLineRequest request =
        ParseCommandLine(std::string(40000, 'a') + "\\" + std::string(40000, 'b') + ".wav");
    EXPECT_EQ(request.directory, std::string(259, 'a'));
    EXPECT_EQ(request.fileName, std::string(259, 'b'));
}

TEST(AppDirectory, TwelveCharactersAreCutWhateverTheyAre) {
    EXPECT_EQ(DirectoryOfExecutable("c:\\tarnwell\\TARNWELL.EXE"), "c:\\tarnwell\\");
    EXPECT_EQ(DirectoryOfExecutable("c:\\tarnwell\\TW.EXE"), "c:\\tar");
    EXPECT_EQ(DirectoryOfExecutable("TARNWELL.EXE"), "");
    EXPECT_EQ(DirectoryOfExecutable("x"), "");
}
