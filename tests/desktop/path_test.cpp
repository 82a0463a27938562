// Browse and the drive search in the real program, used by mouse and by keyboard.
#include <gmock/gmock.h>

#include <algorithm>

#include "tests/desktop/desktop_test.h"
#include "tests/scratch_drive.h"

using testing::ElementsAre;

class PathTest : public DesktopTest {
protected:
    void MakeMediaDirectory(const std::string& name) {
        CreateDirectoryA((MediaDirectory() + name).c_str(), nullptr);
    }
    // The dialog of this title in front, null when it does not come.
    HWND Dialog(const std::string& title) {
        HWND dialog = nullptr;
        WaitUntil([&] {
            dialog = WaitForPopup(player, 0);
            if (dialog == nullptr || Title(dialog) == title) return dialog != nullptr;
            dialog = nullptr;
            return false;
        });
        if (dialog != nullptr) SetForegroundWindow(dialog);
        return dialog;
    }
    HWND Browse() {
        Command(player.window, IDC_BROWSE);
        return Dialog("Wave File Path Setup");
    }
    void ExpectFiles(const std::vector<std::string>& names) {
        EXPECT_TRUE(WaitUntil([&] { return ListTexts(List()) == names; }));
    }
};

static void DoubleClickEntry(HWND list, const std::string& text) {
    const std::vector<std::string> texts = ListTexts(list);
    const auto index = std::find(texts.begin(), texts.end(), text) - texts.begin();
    ASSERT_LT(index, std::ssize(texts)) << text;
    const auto height = static_cast<LONG>(SendMessageA(list, LB_GETITEMHEIGHT, 0, 0));
    POINT at = {height, static_cast<LONG>(index) * height + height / 2};
    ClientToScreen(list, &at);
    ClickMouse(at);
    ClickMouse(at);
}

TEST_F(PathTest, BrowseByMouseAndKeyboardClosedInEveryWay) {
    AddMedia("a.wav", WaveFile(20000));
    MakeMediaDirectory("below");
    AddMedia("below\\b.wav", WaveFile(100));
    AddMedia("below\\c.wav", WaveFile(100));
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    ASSERT_NO_FATAL_FAILURE(Play({"a.wav"}));
    ASSERT_TRUE(WaitForShown(IDC_STATUS, "Playing"));

    ClickMouse(CentreOf(Control(player.window, IDC_BROWSE)));
    HWND dialog = Dialog("Wave File Path Setup");
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(Shown(IDC_STATUS), "Stopped!");
    EXPECT_EQ(Shown(IDC_FILE_NAME), "Stopped!");
    EXPECT_EQ(Shown(IDC_FILES_LEFT), "0");
    EXPECT_EQ(Text(dialog, IDC_PATH_ANSWER), "Yes");
    DoubleClickEntry(Control(dialog, IDC_PATH_DIRECTORIES), "[below]");
    EXPECT_TRUE(WaitForText(dialog, IDC_PATH_LOCATION, MediaDirectory() + "below\\"));
    ExpectFiles({"b.wav", "c.wav"});
    EXPECT_EQ(Shown(IDC_LIST_COUNT), "1 Wave Files:");
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(WaitForNoPopup(player));
    ExpectFiles({"a.wav"});

    for (int way = 0; way < 2; ++way) {
        dialog = Browse();
        ASSERT_NE(dialog, nullptr);
        DoubleClickEntry(Control(dialog, IDC_PATH_DIRECTORIES), "c:\\");
        EXPECT_TRUE(WaitForText(dialog, IDC_PATH_ANSWER, "No"));
        if (way == 0) {
            ClickMouse(CentreOf(Control(dialog, IDC_CANCEL)));
        } else {
            PostMessageA(dialog, WM_SYSCOMMAND, SC_CLOSE, 0);
        }
        EXPECT_TRUE(WaitForNoPopup(player));
        ExpectFiles({"a.wav"});
        EXPECT_EQ(Shown(IDC_DIRECTORY), MediaDirectory());
    }

    dialog = Browse();
    ASSERT_NE(dialog, nullptr);
    PressKey(VK_DOWN);
    PressKey(VK_RIGHT);
    EXPECT_TRUE(WaitForText(dialog, IDC_PATH_LOCATION, MediaDirectory() + "below\\"));
    PressKey(VK_RETURN);
    EXPECT_TRUE(WaitForNoPopup(player));
    EXPECT_TRUE(WaitForShown(IDC_LIST_COUNT, "2 Wave Files:"));
    EXPECT_EQ(Shown(IDC_DIRECTORY), MediaDirectory() + "below\\");
    Command(player.window, IDC_EXIT);
    EXPECT_EQ(ExitCode(player), 0);
    EXPECT_EQ(GetSetting(player, "WaveFilesPath"), MediaDirectory() + "below\\");
}

TEST_F(PathTest, SearchOfADriveWithALinkThatLeadsBack) {
    for (const char* name : {"drive", "drive\\one", "drive\\one\\two"})
        MakeMediaDirectory(name);
    AddMedia("drive\\one\\two\\a.wav", WaveFile(100));
    AddMedia("drive\\one\\b.wav", WaveFile(100));
    AddMedia("drive\\one\\c.wav", WaveFile(100));
    if (!MakeScratchDrive(MediaDirectory() + "drive") ||
        !MakeLink(MediaDirectory() + "drive\\one\\two\\", "loop", "../..")) {
        GTEST_SKIP() << "no drive and no link can be made here";
    }
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    HWND path = Browse();
    ASSERT_NE(path, nullptr);
    DoubleClickEntry(Control(path, IDC_PATH_DRIVES), "[-t-]");
    ASSERT_TRUE(WaitForText(path, IDC_PATH_LOCATION, "t:\\"));

    PressKey('S', VK_MENU);
    HWND search = Dialog("Search for Wave files on drive T:");
    ASSERT_NE(search, nullptr);
    EXPECT_FALSE(IsWindowEnabled(path));
    ClickMouse(CentreOf(Control(search, IDC_DRIVE_SEARCH_START)));
    ASSERT_TRUE(WaitForText(search, IDC_DRIVE_SEARCH_DETAIL, "Done!"));
    HWND results = Control(search, IDC_DRIVE_SEARCH_RESULTS);
    EXPECT_THAT(ListTexts(results), ElementsAre("t:\\one\\", "t:\\one\\two\\"));
    EXPECT_EQ(Text(search, IDC_DRIVE_SEARCH_FILES), "3");
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(WaitUntil([&] { return !IsWindow(search); }));
    EXPECT_EQ(Text(path, IDC_PATH_LOCATION), "t:\\");

    // What was found is still there, and one of it is taken.
    ClickMouse(CentreOf(Control(path, IDC_PATH_SEARCH)));
    search = Dialog("Search for Wave files on drive T:");
    ASSERT_NE(search, nullptr);
    DoubleClickEntry(Control(search, IDC_DRIVE_SEARCH_RESULTS), "t:\\one\\");
    EXPECT_TRUE(WaitForText(path, IDC_PATH_LOCATION, "t:\\one\\"));
    EXPECT_TRUE(WaitForText(path, IDC_PATH_ANSWER, "Yes"));
    ClickMouse(CentreOf(Control(path, IDC_OK)));
    EXPECT_TRUE(WaitForNoPopup(player));
    EXPECT_TRUE(WaitForShown(IDC_DIRECTORY, "t:\\one\\"));
    ExpectFiles({"b.wav", "c.wav"});
    RemoveScratchDrive();
}
