// What the tests of the real program share.
#include "tests/desktop/desktop_test.h"

#include <cmath>
#include <cstdio>

void DesktopTest::SetUp() {
    ASSERT_TRUE(PrepareProgram(player)) << "TARNWELL_EXE names no program";
    PutSetting(player, "TimerSpeed", "1");
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

void DesktopTest::StartIn(const char* mode, const std::string& arguments) {
    PutSetting(player, "TarnwellMode", mode);
    ASSERT_TRUE(StartProgram(player, arguments)) << "no main window";
}

void DesktopTest::Play(const std::vector<std::string>& names) {
    SelectAll(List(), false);
    for (const std::string& name : names)
        ASSERT_TRUE(Select(List(), name)) << name;
    Command(player.window, IDC_PLAY);
}

static bool HasSystemFile(const std::string& name) {
    return GetFileAttributesA(("c:\\windows\\system32\\" + name).c_str()) !=
           INVALID_FILE_ATTRIBUTES;
}

bool DesktopTest::HasVirtualDrive() {
    return HasSystemFile("vdrive.dll");
}

bool DesktopTest::HasVirtualProjector() {
    return HasSystemFile("vfilm.dll");
}

void DesktopTest::InsertSheet(const std::string& name, const std::string& cueSheet) {
    WriteFileBytes(player.directory + name + ".cue", cueSheet);
    WriteFileBytes(player.directory + "tray.txt", name + ".cue\n");
}

void DesktopTest::RemoveDisc() {
    WriteFileBytes(player.directory + "tray.txt", "");
}

int ReadOutMs(const std::string& text) {
    double value = 0;
    char unit[16] = "";
    if (sscanf(text.c_str(), "%lf %15s", &value, unit) != 2) return -1;
    if (unit == std::string("Seconds")) return static_cast<int>(std::lround(value * 1000));
    return unit == std::string("Milliseconds") ? static_cast<int>(value) : -1;
}

// The tests' own tone has 5,657.
constexpr double kAudible = 500;

bool WaitForSound() {
    return WaitUntil([] { return SoundLevel(100) > kAudible; });
}

bool WaitForSilence() {
    return WaitUntil([] { return SoundLevel(500) < 1; });
}
