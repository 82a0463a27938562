// The file information dialogs of the real program, on the platform's own drivers.
#include <windows.h>

#include "demo/media/film_maker.h"
#include "tests/desktop/desktop_test.h"

using InfoTest = DesktopTest;

static void Append(std::string& bytes, uint32_t value, int count) {
    for (int i = 0; i < count; ++i)
        bytes += static_cast<char>(value >> (8 * i) & 0xff);
}

struct WaveKind {
    const char* name;
    uint32_t tag;
    uint32_t channels;
    uint32_t rate;
    uint32_t bits;
    uint32_t lengthMs;
    const char* format;
    const char* channelsText;
    const char* length;
};

static std::string Wave(const WaveKind& kind) {
    const uint32_t block = kind.channels * kind.bits / 8;
    const uint32_t data = kind.rate * kind.lengthMs / 1000 * block;
    std::string bytes = "RIFF";
    Append(bytes, 38 + data, 4);
    bytes += "WAVEfmt ";
    const uint32_t fields[][2] = {{18, 4},
                                  {kind.tag, 2},
                                  {kind.channels, 2},
                                  {kind.rate, 4},
                                  {kind.rate * block, 4},
                                  {block, 2},
                                  {kind.bits, 2},
                                  {0, 2}};
    for (const auto& [value, count] : fields)
        Append(bytes, value, static_cast<int>(count));
    bytes += "data";
    Append(bytes, data, 4);
    return bytes + std::string(data, '\0');
}

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

static void Close(HWND dialog, int way) {
    SetForegroundWindow(dialog);
    switch (way) {
        case 0:
            return PressKey(VK_RETURN);
        case 1:
            return PressKey(VK_ESCAPE);
        case 2:
            return PressKey('O', VK_MENU);
        case 3:
            return ClickMouse(CentreOf(Control(dialog, IDC_OK)));
        default:
            PostMessageA(dialog, WM_SYSCOMMAND, SC_CLOSE, 0);
    }
}

TEST_F(InfoTest, FiveKindsOfWaveFileClosedInEveryWay) {
    const WaveKind kinds[] = {
        {"a bytes.wav", 1, 1, 11025, 8, 800, "11025 Hz, 8 Bit", "Mono", "800 Milliseconds"},
        {"b words.wav", 1, 2, 44100, 16, 61500, "44100 Hz, 16 Bit", "Stereo", "1:01.500 Minutes"},
        {"c alaw.wav", 6, 1, 8000, 8, 5000, "8000 Hz, 8 Bit", "Mono", "5.000 Seconds"},
        {"d fine.wav", 1, 2, 48000, 24, 1000, "48000 Hz, 24 Bit", "Stereo", "1.000 Seconds"},
        {"e ulaw.wav", 7, 2, 22050, 8, 2000, "22050 Hz, 8 Bit", "Stereo", "2.000 Seconds"},
    };
    for (const WaveKind& kind : kinds) {
        AddMedia(kind.name, Wave(kind));
        SetChanged(MediaDirectory() + kind.name);
    }
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    ASSERT_NO_FATAL_FAILURE(Play({"b words.wav"}));
    ASSERT_TRUE(WaitForShown(IDC_STATUS, "Playing"));
    for (int way = 0; way < 5; ++way) {
        const WaveKind& kind = kinds[way];
        SelectAll(List(), false);
        ASSERT_TRUE(Select(List(), kind.name));
        Command(player.window, IDC_INFO);
        HWND dialog = WaitForPopup(player);
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(Title(dialog), "Wave File Information");
        EXPECT_EQ(Shown(IDC_STATUS), "Ready");
        EXPECT_FALSE(IsWindowEnabled(player.window));
        EXPECT_EQ(Text(dialog, IDC_WAVE_INFO_NAME), kind.name);
        EXPECT_EQ(Text(dialog, IDC_WAVE_INFO_DATE), "7-4-2001 9:15PM");
        EXPECT_EQ(Text(dialog, IDC_WAVE_INFO_SIZE), std::to_string(Wave(kind).size()) + " bytes ");
        EXPECT_EQ(Text(dialog, IDC_WAVE_INFO_FORMAT), kind.format);
        EXPECT_EQ(Text(dialog, IDC_WAVE_INFO_CHANNELS), kind.channelsText);
        EXPECT_EQ(Text(dialog, IDC_WAVE_INFO_LENGTH), kind.length);
        Close(dialog, way);
        ASSERT_TRUE(WaitForNoPopup(player)) << "way " << way;
    }
    // The files are not held: they can be played, and deleted.
    ASSERT_NO_FATAL_FAILURE(Play({"e ulaw.wav"}));
    EXPECT_TRUE(WaitForShown(IDC_FILE_NAME, "e ulaw.wav"));
    EXPECT_TRUE(DeleteFileA((MediaDirectory() + "a bytes.wav").c_str()));
}

TEST_F(InfoTest, ASeriesPassesOverABrokenFileAndEndsWithCancel) {
    for (const char* name : {"a.wav", "c.wav", "d.wav", "e.wav"})
        AddMedia(name, WaveFile(600));
    AddMedia("b.wav", "RIFF and then nothing that makes sense");
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    SelectAll(List(), true);
    Command(player.window, IDC_INFO);
    HWND dialog = WaitForPopup(player);
    ASSERT_NE(dialog, nullptr);
    EXPECT_FALSE(IsShown(dialog, IDC_OK));
    ClickMouse(CentreOf(Control(dialog, IDC_INFO_SERIES_OK)));
    ASSERT_TRUE(WaitUntil([&] { return Title(WaitForPopup(player)) == "Tarnwell Message!"; }));
    PressKey(VK_RETURN);
    ASSERT_TRUE(WaitUntil([&] {
        dialog = WaitForPopup(player);
        return Text(dialog, IDC_WAVE_INFO_NAME) == "c.wav";
    }));
    SetForegroundWindow(dialog);
    PressKey(VK_TAB);
    PressKey(VK_RETURN);  // now on Cancel
    ASSERT_TRUE(WaitForNoPopup(player));
    EXPECT_EQ(WaitForPopup(player, 700), nullptr);
}

TEST_F(InfoTest, MidiAndVideo) {
    AddMedia("a.mid", MidiFile(2500));
    ASSERT_NO_FATAL_FAILURE(StartIn("midi"));
    ASSERT_TRUE(Select(List(), "a.mid"));
    Command(player.window, IDC_INFO);
    HWND dialog = WaitForPopup(player);
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(Title(dialog), "Midi File Information");
    EXPECT_EQ(Text(dialog, IDC_MIDI_INFO_LENGTH), "2.500 Seconds");
    PressKey(VK_RETURN);
    ASSERT_TRUE(WaitForNoPopup(player));

    if (!HasVirtualProjector()) GTEST_SKIP() << "the virtual projector is not registered here";
    const auto draw = [](int) { return Bytes(6 * 4 * 3, uint8_t{90}); };
    const Bytes film = PackFilm({6, 4, 70000, 24}, draw, {}, 22050);
    AddMedia("long.MOV", std::string(film.begin(), film.end()));
    ASSERT_NO_FATAL_FAILURE(StartIn("video"));
    ASSERT_TRUE(Select(List(), "long.MOV"));
    Command(player.window, IDC_INFO);
    dialog = WaitForPopup(player);
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(Title(dialog), "Video File Information");
    EXPECT_EQ(Text(dialog, IDC_VIDEO_INFO_NAME), "long.MOV");
    EXPECT_EQ(Text(dialog, IDC_VIDEO_INFO_FRAMES), "70000");
    EXPECT_EQ(Text(dialog, IDC_VIDEO_INFO_RATE), "24.000");
    EXPECT_EQ(Text(dialog, IDC_VIDEO_INFO_LENGTH), "48:36.666 Minutes");
    EXPECT_EQ(Text(dialog, IDC_VIDEO_INFO_PICTURE), "6 x 4 Pixels");
    Close(dialog, 0);
    EXPECT_TRUE(WaitForNoPopup(player));
}
