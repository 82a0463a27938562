// Browse in the real program, used by mouse and by keyboard; the rest of the path dialog and the
// drive search are tested without the program around them.
#include "tests/desktop/desktop_test.h"

using PathTest = DesktopTest;

TEST_F(PathTest, BrowseByMouseAndKeyboard) {
    const std::string below = MediaDirectory() + "below\\";
    CreateDirectoryA(below.c_str(), nullptr);
    AddMedia("a.wav", WaveFile(20000));
    WriteFileBytes(below + "b.wav", WaveFile(100));
    WriteFileBytes(below + "c.wav", WaveFile(100));
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    Play({"a.wav"});
    ASSERT_TRUE(WaitForShown(IDC_STATUS, "Playing"));
    const auto lists = [&](const std::vector<std::string>& names) {
        return WaitUntil([&] { return ListTexts(List()) == names; });
    };
    const auto browse = [&] {
        ClickMouse(CentreOf(Control(player.window, IDC_BROWSE)));
        HWND dialog = Dialog("Wave File Path Setup");
        SetForegroundWindow(dialog);
        return dialog;
    };

    HWND dialog = browse();
    EXPECT_EQ(Shown(IDC_STATUS), "Stopped!");
    EXPECT_EQ(Shown(IDC_FILE_NAME), "Stopped!");
    HWND list = Control(dialog, IDC_PATH_DIRECTORIES);
    const auto height = static_cast<LONG>(SendMessageA(list, LB_GETITEMHEIGHT, 0, 0));
    POINT last = {height, static_cast<LONG>(ListTexts(list).size()) * height - height / 2};
    ClientToScreen(list, &last);
    ClickMouse(last);
    ClickMouse(last);
    EXPECT_TRUE(WaitForText(dialog, IDC_PATH_LOCATION, below));
    EXPECT_TRUE(lists({"b.wav", "c.wav"}));
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(WaitForNoPopup(player));
    EXPECT_TRUE(lists({"a.wav"}));

    dialog = browse();
    PressKey(VK_DOWN);
    PressKey(VK_RIGHT);
    EXPECT_TRUE(WaitForText(dialog, IDC_PATH_LOCATION, below));
    PressKey(VK_RETURN);
    EXPECT_TRUE(WaitForNoPopup(player));
    EXPECT_TRUE(WaitForShown(IDC_LIST_COUNT, "2 Wave Files:"));
    EXPECT_EQ(Shown(IDC_DIRECTORY), below);
    // Ended while the user moves the window, in a loop of the platform's own.
    PostMessageA(player.window, WM_SYSCOMMAND, SC_MOVE, 0);
    Command(player.window, IDC_EXIT);
    EXPECT_EQ(ExitCode(player), 0);
    EXPECT_EQ(GetSetting(player, "WaveFilesPath"), below);
}
