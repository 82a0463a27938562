// What the tests of the real program share.
#include "tests/desktop/desktop_test.h"

#include <cmath>
#include <cstdio>
#include <sstream>

#include "tests/desktop/screen.h"

void DesktopTest::SetUp() {
    ASSERT_TRUE(PrepareProgram(player)) << "TARNWELL_EXE names no program";
    ASSERT_NE(GetFileAttributesA("c:\\windows\\system32\\vdrive.dll"), INVALID_FILE_ATTRIBUTES)
        << "the release is not built, whose demo devices these desktops have";
    PutSetting(player, "TimerSpeed", "1");
    // No pointer in any picture.
    MoveMouse({0, 0});
    for (const char* key : {"WaveFilesPath", "MidiFilesPath", "VideoFilesPath"}) {
        PutSetting(player, key, MediaDirectory().c_str());
    }
    SetEnvironmentVariableA("TARNWELL_DRIVE_TRAY", (player.directory + "tray.txt").c_str());
}

void DesktopTest::TearDown() {
    ReleaseMouse();
    EndProgram(player);
}

void DesktopTest::AddMedia(const std::string& name, const std::string& bytes) {
    WriteFileBytes(MediaDirectory() + name, bytes);
}

void DesktopTest::SwitchAnimations(const char* value) {
    for (const char* key : {"WaveAnimation", "MidiAnimation", "VideoAnimation", "CDAnimation"})
        PutSetting(player, key, value);
}

void DesktopTest::StartIn(const char* mode, const std::string& arguments) {
    PutSetting(player, "TarnwellMode", mode);
    ASSERT_TRUE(StartProgram(player, arguments)) << "no main window";
}

void DesktopTest::Open(int command, const std::vector<std::string>& names) {
    SelectAll(List(), false);
    for (const std::string& name : names)
        EXPECT_TRUE(Select(List(), name)) << name;
    Command(player.window, command);
}

static HWND WaitForDialog(const Program& player, const std::string& what,
                          const std::function<bool(HWND)>& isIt) {
    HWND dialog = nullptr;
    EXPECT_TRUE(WaitUntil([&] {
        dialog = WaitForPopup(player, 0);
        return dialog != nullptr && IsWindowEnabled(dialog) && isIt(dialog);
    })) << what;
    return dialog;
}

HWND DesktopTest::Dialog(const std::string& title) {
    HWND dialog = WaitForDialog(player, title, [&](HWND one) { return Title(one) == title; });
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        const LONG style = GetWindowLongA(child, GWL_STYLE);
        const bool picture = ClassOf(child) == "Button" && IsWindowVisible(child) &&
                             (style & WS_TABSTOP) && (style & BS_TYPEMASK) == BS_OWNERDRAW;
        EXPECT_TRUE(!picture || WaitForPicture(child)) << title << ": " << Title(child);
    }
    return dialog;
}

HWND DesktopTest::DialogThatShows(int id, const std::string& text) {
    return WaitForDialog(player, text, [&](HWND dialog) { return Text(dialog, id) == text; });
}

void DesktopTest::ExpectMessage(const std::string& text) {
    HWND box = DialogThatShows(IDC_MESSAGE_TEXT, text);
    Command(box, IDC_OK);
    EXPECT_TRUE(WaitUntil([&] { return !IsWindow(box); }));
}

void DesktopTest::InsertDisc(const std::vector<int>& trackSeconds) {
    std::ostringstream sheet;
    for (size_t i = 0; i < trackSeconds.size(); ++i) {
        const int seconds = std::abs(trackSeconds[i]);
        sheet << "TRACK " << i + 1 << (trackSeconds[i] < 0 ? " MODE1/2352" : " AUDIO\nREM TONE 441")
              << "\nREM LENGTH " << seconds / 60 << ":" << seconds % 60 << ":00\n";
    }
    static int count = 0;
    const std::string name = std::to_string(++count) + ".cue";
    WriteFileBytes(player.directory + name, sheet.str());
    WriteFileBytes(player.directory + "tray.txt", trackSeconds.empty() ? "" : name + "\n");
}

int ReadOutMs(const std::string& text) {
    double value = 0;
    char unit = '\0';
    if (sscanf(text.c_str(), "%lf %c", &value, &unit) != 2) return -1;
    return static_cast<int>(std::lround(unit == 'S' ? value * 1000 : value));
}

// The tests' own tone has 5,657.
constexpr double kAudible = 500;

bool WaitForSound() {
    return WaitUntil([] { return SoundLevel(100) > kAudible; });
}

bool WaitForSilence() {
    return WaitUntil([] { return SoundLevel(500) < 1; });
}
