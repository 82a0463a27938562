// The CD player and the entry dialog of the real program on the virtual drive, whose log says what
// reached it.
#include "tests/desktop/desktop_test.h"

class DiscTest : public DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        PutSetting(player, "SoundControls", "Off");
        SetEnvironmentVariableA("TARNWELL_DRIVE_LOG", LogPath().c_str());
    }

    std::string LogPath() { return player.directory + "drive.log"; }
    std::string DriveLog() { return FileBytes(LogPath()); }
    // Waits for a command in the drive's log behind those found before.
    bool DriveGets(const std::string& command, int deadlineMs = kDeadlineMs) {
        return WaitUntil(
            [&] {
                const size_t at = DriveLog().find(command, logRead);
                if (at != std::string::npos) logRead = at + command.size();
                return at != std::string::npos;
            },
            deadlineMs);
    }
    void Press(int id) { Command(player.window, id); }
    void PlayAndPause(int playButton) {
        Press(playButton);
        // On a busy machine the read-out passes over a second now and then.
        ASSERT_TRUE(WaitUntil([&] { return Shown(IDC_TIME) >= "0:01"; }));
        Press(IDC_CD_PAUSE);
        ASSERT_TRUE(WaitForShown(IDC_CD_STATUS, "Paused"));
        EXPECT_TRUE(WaitForSilence());
    }

    size_t logRead = 0;
};

TEST_F(DiscTest, TracksPagesSkipsAndSeeksReachTheDrive) {
    std::vector<int> lengths(17, 20);
    lengths[16] = 100;
    InsertDisc(lengths);
    StartIn("cdplayer");
    ASSERT_TRUE(WaitForShown(IDC_TOTAL_TRACKS, "17"));
    EXPECT_TRUE(WaitForShown(IDC_DISC_LENGTH, "7:00"));

    ClickMouse(CentreOf(Control(player.window, IDC_NEXT_PAGE)));
    ASSERT_TRUE(WaitForShown(IDC_TRACK_LABEL_FIRST, "16"));
    EXPECT_FALSE(IsShown(player.window, IDC_TRACK_FIRST + 2));
    Press(IDC_TRACK_FIRST + 1);
    EXPECT_TRUE(DriveGets("play flags=00000004 from=00000011 (17:00:00:00) result=0"));
    EXPECT_TRUE(WaitForShown(IDC_CD_STATUS, "Playing"));
    EXPECT_TRUE(WaitForSound());
    Press(IDC_SKIP_FORWARD);
    EXPECT_TRUE(DriveGets("(01:00:00:00)"));
    Press(IDC_SKIP_BACK);
    EXPECT_TRUE(DriveGets("(17:00:00:00)"));
    Scroll(player, SB_THUMBTRACK, 65);
    Scroll(player, SB_THUMBPOSITION, 65);
    EXPECT_TRUE(DriveGets("(17:01:05:30)"));
    Press(IDC_CD_STOP);
    EXPECT_TRUE(WaitForShown(IDC_TRACK_NUMBER, ""));
    EXPECT_TRUE(WaitForSilence());

    ASSERT_NO_FATAL_FAILURE(PlayAndPause(IDC_CD_PLAY));
    Press(IDC_CD_PLAY);
    EXPECT_TRUE(DriveGets("play flags=00000000"));
    EXPECT_TRUE(WaitForSound());
    Press(IDC_CD_PAUSE);
    ASSERT_TRUE(WaitForShown(IDC_CD_STATUS, "Paused"));
    Press(IDC_EXIT);
    ASSERT_EQ(ExitCode(player), 0);
    EXPECT_TRUE(DriveGets("stop flags", 0));
    EXPECT_TRUE(DriveGets("close flags", 0));
}

TEST_F(DiscTest, DiscsComeAndGoAndABoxHoldsTheTicks) {
    InsertDisc({30, 40});
    StartIn("cdplayer");
    ASSERT_TRUE(WaitForShown(IDC_TOTAL_TRACKS, "2"));
    InsertDisc({15, 25, 35, 45});  // swapped between two looks at the drive
    EXPECT_TRUE(WaitForShown(IDC_TOTAL_TRACKS, "4"));
    ASSERT_NO_FATAL_FAILURE(PlayAndPause(IDC_TRACK_FIRST + 1));
    InsertDisc({});
    EXPECT_TRUE(WaitForShown(IDC_CD_STATUS, "Empty"));
    EXPECT_TRUE(WaitForShown(IDC_EJECT_LABEL, "Load"));

    InsertDisc({10, -20, 30});
    EXPECT_TRUE(WaitForShown(IDC_TOTAL_TRACKS, "3"));
    EXPECT_TRUE(WaitForShown(IDC_CD_STATUS, "Ready"));
    Press(IDC_CD_PLAY);
    EXPECT_TRUE(DriveGets("(01:00:00:00) result=0")) << "the pause was the other disc's";

    // While the user reads a box nothing is asked of the drive; afterwards it is watched again.
    Press(IDC_TRACK_FIRST + 1);
    HWND box = Dialog("Tarnwell Message!");
    const std::string before = DriveLog();
    EXPECT_FALSE(WaitUntil([&] { return DriveLog() != before; }, 3000)) << "ticks under the box";
    logRead = before.size();
    Command(box, IDC_OK);
    ASSERT_TRUE(WaitForNoPopup(player));
    EXPECT_TRUE(DriveGets("status"));
    Press(IDC_EJECT);
    EXPECT_TRUE(DriveGets("set flags=00000100"));
    EXPECT_TRUE(WaitForShown(IDC_EJECT_LABEL, "Load"));
    Press(IDC_EJECT);
    EXPECT_TRUE(DriveGets("set flags=00000200"));
    EXPECT_TRUE(WaitForShown(IDC_TOTAL_TRACKS, "3"));
    EXPECT_EQ(WaitForPopup(player, 100), nullptr);
}

TEST_F(DiscTest, AnAddedEntryIsShownAtOnce) {
    InsertDisc({30, 40});
    StartIn("cdplayer");
    ASSERT_TRUE(WaitForShown(IDC_TOTAL_TRACKS, "2"));
    Press(IDC_TRACK_FIRST + 1);
    Press(IDC_ENTRY);
    HWND dialog = Dialog("Compact Disc Database");
    SetText(dialog, IDC_ENTRY_ARTIST, "Someone");
    SetText(dialog, IDC_ENTRY_NAME_FIRST + 1, "Second Track");
    HANDLE lock = CreateFileA((player.directory + "tarnwell.dat").c_str(), GENERIC_READ, 0, nullptr,
                              OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(lock, INVALID_HANDLE_VALUE);
    // A key of a picture button presses it, and does not only move the focus, even from there.
    FocusOn(dialog, IDC_OK);
    PressKey('O', VK_MENU);
    HWND box = Dialog("Tarnwell Message!");
    EXPECT_FALSE(IsWindowEnabled(dialog)) << "the box must hold the dialog in front";
    Command(box, IDC_OK);
    ASSERT_TRUE(WaitUntil([&] { return IsWindowEnabled(dialog) != FALSE; }));
    EXPECT_FALSE(IsWindowEnabled(player.window)) << "and not let go of the window behind it";
    CloseHandle(lock);
    // In the last name Enter saves.
    FocusOn(dialog, IDC_ENTRY_NAME_FIRST + 1);
    PressKey(VK_RETURN);
    ASSERT_TRUE(WaitForNoPopup(player));
    EXPECT_TRUE(WaitForShown(IDC_DISC_TITLE, "Someone - "));
    EXPECT_TRUE(WaitForShown(IDC_TRACK_TITLE, "Second Track"));
}

TEST_F(DiscTest, CommandLinesPlayTheirTrack) {
    InsertDisc(std::vector<int>(9, 20));
    StartIn("wave", "-play D:\\Track07.cda");
    EXPECT_TRUE(DriveGets("(07:00:00:00) result=0"));
    EXPECT_TRUE(WaitForShown(IDC_TRACK_NUMBER, "7"));
    const auto second = [&](const char* arguments, const char* place) {
        EXPECT_EQ(RunSecondInstance(player, arguments), 0);
        EXPECT_TRUE(DriveGets(place + std::string(" result=0"))) << arguments;
    };
    second("-play D:\\Track05.cda", "(05:00:00:00)");
    // Too short for a number: the current track.
    second("-p", "(05:00:00:00)");

    Press(IDC_ABOUT);
    HWND about = Dialog("About Tarnwell 1.1");
    second("-play D:\\Track03.cda", "(03:00:00:00)");
    EXPECT_TRUE(WaitUntil([&] { return GetForegroundWindow() == about; })) << "the box gave way";
    Command(about, IDC_OK);
    ASSERT_TRUE(WaitForNoPopup(player));

    Press(IDC_MODE_WAVE);
    ASSERT_TRUE(WaitUntil([&] { return IsShown(player.window, IDC_FILE_LIST); }));
    EXPECT_TRUE(WaitForSound()) << "the disc plays on in the other modes";
    EXPECT_EQ(ScrollMaximum(player), 0) << "the disc's range";
    second("/p", "(01:00:00:00)");
    EXPECT_TRUE(WaitUntil([&] { return IsShown(player.window, IDC_CD_PLAY); }));
}
