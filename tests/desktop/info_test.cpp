// The file information dialogs of the real program, on the platform's own drivers: what these
// answer is not what a stand-in does.
#include <map>

#include "demo/media/film_maker.h"
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

TEST_F(InfoTest, EveryKindOfFileAsThePlatformKnowsIt) {
    const auto draw = [](int) { return Bytes(6 * 4 * 3, uint8_t{90}); };
    const Bytes film = PackFilm({6, 4, 70000, 24}, draw, {}, 22050);
    const struct {
        int mode;
        const char* name;
        std::string bytes;
        const char* title;
        std::map<int, std::string> fields;
    } cases[] = {
        {IDC_MODE_WAVE,
         "a alaw.wav",
         PackWave({6, 1, 8000, 8}, std::string(40000, '\0')),
         "Wave File Information",
         {{IDC_WAVE_INFO_DATE, "7-4-2001 9:15PM"},
          {IDC_WAVE_INFO_SIZE, "40046 bytes "},
          {IDC_WAVE_INFO_FORMAT, "8000 Hz, 8 Bit"},
          {IDC_WAVE_INFO_CHANNELS, "Mono"},
          {IDC_WAVE_INFO_LENGTH, "5.000 Seconds"}}},
        {IDC_MODE_VIDEO,
         "long.MOV",
         std::string(film.begin(), film.end()),
         "Video File Information",
         {{IDC_VIDEO_INFO_FRAMES, "70000"},
          {IDC_VIDEO_INFO_RATE, "24.000"},
          {IDC_VIDEO_INFO_LENGTH, "48:36.666 Minutes"},
          {IDC_VIDEO_INFO_PICTURE, "6 x 4 Pixels"}}},
    };
    for (const auto& one : cases)
        AddMedia(one.name, one.bytes);
    SetChanged(MediaDirectory() + "a alaw.wav");
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    Play({"a alaw.wav"});
    ASSERT_TRUE(WaitForShown(IDC_STATUS, "Playing"));
    for (const auto& one : cases) {
        SCOPED_TRACE(one.name);
        Command(player.window, one.mode);
        ASSERT_TRUE(Settle(player));
        Open(IDC_INFO, {one.name});
        HWND dialog = Dialog(one.title);
        EXPECT_EQ(Shown(IDC_STATUS), "Ready");
        for (const auto& [id, text] : one.fields)
            EXPECT_EQ(Text(dialog, id), text);
        PressKeyIn(dialog, VK_RETURN);
        ASSERT_TRUE(WaitForNoPopup(player));
    }
    EXPECT_TRUE(DeleteFileA((MediaDirectory() + "a alaw.wav").c_str())) << "is held";
}
