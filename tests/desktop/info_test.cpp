// The file information of the real program, on the platform's own driver: what this answers is not
// what a stand-in does.
#include "tests/desktop/desktop_test.h"

using InfoTest = DesktopTest;

// A quarter past three in the morning, of universal time.
static void SetChanged(const std::string& path) {
    const SYSTEMTIME time = {2001, 7, 0, 4, 3, 15, 20, 0};
    FILETIME changed;
    SystemTimeToFileTime(&time, &changed);
    HANDLE file =
        CreateFileA(path.c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    SetFileTime(file, nullptr, nullptr, &changed);
    CloseHandle(file);
}

TEST_F(InfoTest, AWaveFileAsThePlatformKnowsIt) {
    const char* const name = "a alaw.wav";
    AddMedia(name, PackWave({6, 1, 8000, 8}, std::string(40000, '\0')));
    SetChanged(MediaDirectory() + name);
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    Play({name});
    ASSERT_TRUE(WaitForShown(IDC_STATUS, "Playing"));
    Open(IDC_INFO, {name});
    HWND dialog = Dialog("Wave File Information");
    EXPECT_EQ(Shown(IDC_STATUS), "Ready");
    for (const auto& [id, text] : {std::pair{IDC_WAVE_INFO_DATE, "7-4-2001 9:15PM"},
                                   {IDC_WAVE_INFO_SIZE, "40046 bytes "},
                                   {IDC_WAVE_INFO_FORMAT, "8000 Hz, 8 Bit"},
                                   {IDC_WAVE_INFO_CHANNELS, "Mono"},
                                   {IDC_WAVE_INFO_LENGTH, "5.000 Seconds"}})
        EXPECT_EQ(Text(dialog, id), text);
    PressKeyIn(dialog, VK_RETURN);
    ASSERT_TRUE(WaitForNoPopup(player));
    EXPECT_TRUE(DeleteFileA((MediaDirectory() + name).c_str())) << "is held";
}
