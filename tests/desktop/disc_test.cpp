// The CD player and the entry dialog of the real program on the virtual drive, whose log says what
// reached it.
#include <sstream>

#include "tests/desktop/desktop_test.h"

class DiscTest : public DesktopTest {
protected:
    void SetUp() override {
        if (!HasVirtualDrive()) GTEST_SKIP() << "the virtual drive is not registered here";
        DesktopTest::SetUp();
        PutSetting(player, "SoundControls", "Off");
        SetEnvironmentVariableA("TARNWELL_DRIVE_LOG", LogPath().c_str());
    }
    void TearDown() override {
        DesktopTest::TearDown();
        SetEnvironmentVariableA("TARNWELL_DRIVE_LOG", nullptr);
    }

    std::string LogPath() { return player.directory + "drive.log"; }

    // A disc of humming tracks.
    void Insert(const std::string& name, const std::vector<int>& trackSeconds) {
        std::ostringstream sheet;
        for (size_t i = 0; i < trackSeconds.size(); ++i) {
            sheet << "TRACK " << i + 1 << " AUDIO\nREM TONE 441\nREM LENGTH "
                  << trackSeconds[i] / 60 << ":" << trackSeconds[i] % 60 << ":00\n";
        }
        InsertSheet(name, sheet.str());
    }

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
    // On a busy machine the read-out passes over a second now and then.
    bool WaitForTime(const std::string& atLeast) {
        return WaitUntil([&] { return Shown(IDC_TIME) >= atLeast; });
    }
    void Press(int id) { Command(player.window, id); }

    std::string DatabasePath() { return player.directory + "tarnwell.dat"; }

    size_t logRead = 0;
};

TEST_F(DiscTest, TracksPagesSkipsAndSeeksReachTheDrive) {
    std::vector<int> lengths(17, 20);
    lengths[16] = 100;
    Insert("seventeen", lengths);
    StartIn("cdplayer");
    ASSERT_TRUE(WaitForShown(IDC_TOTAL_TRACKS, "17"));
    EXPECT_TRUE(WaitForShown(IDC_DISC_LENGTH, "7:00"));
    EXPECT_EQ(Shown(IDC_CD_STATUS), "Ready");

    ClickMouse(CentreOf(Control(player.window, IDC_NEXT_PAGE)));
    ASSERT_TRUE(WaitForShown(IDC_TRACK_LABEL_FIRST, "16"));
    EXPECT_FALSE(IsShown(player.window, IDC_TRACK_FIRST + 2));
    Press(IDC_TRACK_FIRST + 1);
    EXPECT_TRUE(DriveGets("play flags=00000004 from=00000011 (17:00:00:00) result=0"));
    EXPECT_TRUE(WaitForShown(IDC_CD_STATUS, "Playing"));
    EXPECT_TRUE(WaitForSound());
    EXPECT_EQ(Shown(IDC_TRACK_NUMBER), "17");
    EXPECT_EQ(Shown(IDC_SCROLL_RIGHT), "1:40");

    Press(IDC_SKIP_FORWARD);
    EXPECT_TRUE(DriveGets("(01:00:00:00)"));
    Press(IDC_SKIP_BACK);
    EXPECT_TRUE(DriveGets("(17:00:00:00)")) << "from the beginning of track 1 to the last";
    ASSERT_TRUE(WaitForTime("0:03"));
    Press(IDC_SKIP_BACK);
    EXPECT_TRUE(DriveGets("(17:00:00:00)")) << "after more than two seconds the same again";

    Scroll(player, SB_THUMBTRACK, 65);
    Scroll(player, SB_THUMBPOSITION, 65);
    EXPECT_TRUE(DriveGets("(17:01:05:30)"));

    Press(IDC_CD_PAUSE);
    EXPECT_TRUE(WaitForShown(IDC_CD_STATUS, "Paused"));
    EXPECT_TRUE(WaitForSilence());
    Press(IDC_CD_PLAY);
    EXPECT_TRUE(DriveGets("play flags=00000000"));
    EXPECT_TRUE(WaitForSound());
    Press(IDC_CD_STOP);
    EXPECT_TRUE(WaitForShown(IDC_TRACK_NUMBER, ""));
    EXPECT_TRUE(WaitForSilence());

    Press(IDC_CD_PLAY);
    ASSERT_TRUE(WaitForTime("0:01"));
    Press(IDC_CD_PAUSE);
    ASSERT_TRUE(WaitForShown(IDC_CD_STATUS, "Paused"));
    logRead = DriveLog().size();
    Press(IDC_EXIT);
    ASSERT_EQ(ExitCode(player), 0);
    EXPECT_TRUE(DriveGets("stop flags", 0));
    EXPECT_TRUE(DriveGets("close flags", 0));
    EXPECT_TRUE(WaitForSilence());
}

TEST_F(DiscTest, DiscsComeAndGoAndABoxHoldsTheTicks) {
    Insert("two", {30, 40});
    StartIn("cdplayer");
    ASSERT_TRUE(WaitForShown(IDC_TOTAL_TRACKS, "2"));
    Press(IDC_TRACK_FIRST + 1);
    ASSERT_TRUE(WaitForTime("0:01"));
    Press(IDC_CD_PAUSE);
    ASSERT_TRUE(WaitForShown(IDC_CD_STATUS, "Paused"));
    Insert("four", {15, 25, 35, 45});  // swapped between two looks at the drive
    EXPECT_TRUE(WaitForShown(IDC_TOTAL_TRACKS, "4"));
    EXPECT_TRUE(WaitForShown(IDC_CD_STATUS, "Ready"));
    Press(IDC_TRACK_FIRST + 1);
    ASSERT_TRUE(WaitForTime("0:01"));
    Press(IDC_CD_PAUSE);
    ASSERT_TRUE(WaitForShown(IDC_CD_STATUS, "Paused"));
    RemoveDisc();
    EXPECT_TRUE(WaitForShown(IDC_CD_STATUS, "Empty"));
    EXPECT_TRUE(WaitForShown(IDC_TIME, ""));
    EXPECT_EQ(Shown(IDC_EJECT_LABEL), "Load");
    EXPECT_TRUE(WaitUntil([&] { return !IsShown(player.window, IDC_TRACK_FIRST); }));
    EXPECT_TRUE(WaitForSilence());

    InsertSheet("three",
                "TRACK 1 AUDIO\nREM TONE 441\nREM LENGTH 0:10:00\n"
                "TRACK 2 MODE1/2352\nREM LENGTH 0:20:00\nTRACK 3 AUDIO\nREM LENGTH 0:30:00\n");
    EXPECT_TRUE(WaitForShown(IDC_TOTAL_TRACKS, "3"));
    EXPECT_TRUE(WaitForShown(IDC_CD_STATUS, "Ready"));
    Press(IDC_CD_PLAY);
    EXPECT_TRUE(DriveGets("(01:00:00:00) result=0")) << "the pause was the other disc's";

    // While the user reads a box nothing is asked of the drive; afterwards it is watched again.
    Press(IDC_TRACK_FIRST + 1);
    HWND box = WaitForDialog(player, "Tarnwell Message!");
    ASSERT_NE(box, nullptr);
    const std::string before = DriveLog();
    EXPECT_FALSE(WaitUntil([&] { return DriveLog() != before; }, 3000)) << "ticks under the box";
    EXPECT_EQ(WaitForPopup(player, 0), box);
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
    EXPECT_TRUE(WaitForShown(IDC_EJECT_LABEL, "Eject"));
    EXPECT_EQ(WaitForPopup(player, 100), nullptr);
}

TEST_F(DiscTest, AnAddedEntryIsShownAtOnceAndAtTheNextStart) {
    Insert("two", {30, 40});
    StartIn("cdplayer");
    ASSERT_TRUE(WaitForShown(IDC_TOTAL_TRACKS, "2"));
    EXPECT_EQ(Shown(IDC_ENTRY_LABEL), "Add Entry");
    Press(IDC_TRACK_FIRST + 1);
    Press(IDC_ENTRY);
    HWND dialog = WaitForDialog(player, "Compact Disc Database");
    ASSERT_NE(dialog, nullptr);
    SetText(dialog, IDC_ENTRY_ARTIST, "Someone");
    SetText(dialog, IDC_ENTRY_NAME_FIRST + 1, "Second Track");
    const std::string database = player.directory + "tarnwell.dat";
    HANDLE lock =
        CreateFileA(database.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(lock, INVALID_HANDLE_VALUE);
    // A key of a picture button presses it, and does not only move the focus, even from there.
    FocusOn(dialog, IDC_OK);
    PressKey('O', VK_MENU);
    HWND box = WaitForDialog(player, "Tarnwell Message!");
    ASSERT_NE(box, nullptr);
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
    EXPECT_TRUE(WaitForShown(IDC_ENTRY_LABEL, "Edit Entry"));

    // What an ended save has left is met at the start, where nothing has been looked up before.
    EndProgram(player);
    ASSERT_TRUE(MoveFileA(database.c_str(), (player.directory + "tarnwell.dbk").c_str()));
    StartIn("wave");
    EXPECT_NE(FileBytes(database), "");
    Press(IDC_MODE_CDPLAYER);
    EXPECT_TRUE(WaitForShown(IDC_DISC_TITLE, "Someone - "));
}

TEST_F(DiscTest, CommandLinesPlayTheirTrack) {
    Insert("nine", std::vector<int>(9, 20));
    StartIn("wave", "-play D:\\Track07.cda");
    EXPECT_TRUE(DriveGets("(07:00:00:00) result=0"));
    EXPECT_TRUE(WaitForShown(IDC_TRACK_NUMBER, "7"));
    EXPECT_EQ(RunSecondInstance(player, "/P"), 0);
    EXPECT_TRUE(DriveGets("(01:00:00:00) result=0"));
    EXPECT_EQ(RunSecondInstance(player, "-play D:\\Track05.cda"), 0);
    EXPECT_TRUE(DriveGets("(05:00:00:00) result=0"));
    // Too short for a number: the current track.
    EXPECT_EQ(RunSecondInstance(player, "-p"), 0);
    EXPECT_TRUE(DriveGets("(05:00:00:00) result=0"));

    Press(IDC_ABOUT);
    HWND about = WaitForPopup(player);
    ASSERT_NE(about, nullptr);
    EXPECT_EQ(RunSecondInstance(player, "-play D:\\Track03.cda"), 0);
    EXPECT_TRUE(DriveGets("(03:00:00:00) result=0"));
    EXPECT_EQ(WaitForPopup(player), about) << "the open box gave way";
    Command(about, IDC_OK);
    ASSERT_TRUE(WaitForNoPopup(player));

    Press(IDC_MODE_WAVE);
    ASSERT_TRUE(WaitUntil([&] { return IsShown(player.window, IDC_FILE_LIST); }));
    EXPECT_TRUE(WaitForSound()) << "the disc plays on in the other modes";
    EXPECT_EQ(ScrollMaximum(player), 0) << "the disc's range";
    EXPECT_EQ(ScrollPosition(player), 0);
    EXPECT_EQ(RunSecondInstance(player, "/p"), 0);
    EXPECT_TRUE(DriveGets("(01:00:00:00) result=0"));
    EXPECT_TRUE(WaitUntil([&] { return IsShown(player.window, IDC_CD_PLAY); }));
}
