// Starting, starting twice, ending, and the settings file between the two.
#include <tuple>

#include "tests/desktop/desktop_test.h"

using StartTest = DesktopTest;

enum Mode { kWave, kMidi, kVideo, kCdPlayer };

// Told from what the window shows.
static int ShownMode(const Program& player) {
    if (IsShown(player.window, IDC_CD_PLAY)) return kCdPlayer;
    const std::string label = Text(player.window, IDC_LIST_COUNT);
    if (label.ends_with(" Wave Files:")) return kWave;
    if (label.ends_with(" Midi Files:")) return kMidi;
    if (label.ends_with(" Video Files:")) return kVideo;
    return -1;
}

TEST_F(StartTest, CommandLineChoosesModeAndDirectory) {
    const struct {
        std::string arguments;
        int mode;
        std::string directory;
    } cases[] = {
        {"", kMidi, "media\\"},
        {"/Play what it may", kCdPlayer, ""},
        {"-play D:\\Track07.cda", kCdPlayer, ""},
        {"c:\\none\\DING.WAV", kWave, "c:\\none\\"},
        {"c:/none/x.y/ding.mid", kMidi, "c:/none/x.y/"},
        {"c:\\none\\a.MOV", kVideo, "c:\\none\\"},
        {"c:\\none\\FILE.TXT", kMidi, "media\\"},
        {"\"c:\\none\\quoted.wav\"", kWave, "\"c:\\none\\"},
        {std::string(15000, '\\') + "." + std::string(15000, '.'), kMidi, "media\\"},
    };
    for (const auto& line : cases) {
        SCOPED_TRACE(line.arguments.substr(0, 40));
        ASSERT_NO_FATAL_FAILURE(StartIn("midi", line.arguments));
        EXPECT_EQ(ShownMode(player), line.mode);
        if (line.directory == "media\\") {
            EXPECT_EQ(Shown(IDC_DIRECTORY), MediaDirectory());
        } else if (line.mode != kCdPlayer) {
            EXPECT_EQ(Shown(IDC_DIRECTORY), line.directory);
        }
        // Only a disc that cannot be played may be worth a word.
        if (line.mode != kCdPlayer) {
            EXPECT_EQ(WaitForPopup(player, 100), nullptr);
        }
    }
}

TEST_F(StartTest, MediaFilePlaysOnceAndEndsTheProgram) {
    AddMedia("before.wav", WaveFile(5000));
    AddMedia("Short Piece.wav", WaveFile(900));
    DeleteFileA((player.directory + "TARNWELL.INI").c_str());
    ASSERT_TRUE(StartProgram(player, MediaDirectory() + "SHORT PIECE.WAV"));
    EXPECT_TRUE(WaitForShown(IDC_FILE_NAME, "Short Piece.wav"));
    EXPECT_TRUE(WaitForSound());
    EXPECT_EQ(ExitCode(player), 0);
    EXPECT_EQ(GetSetting(player, "TarnwellMode"), "(missing)") << "settings were written";
}

TEST_F(StartTest, StopKeepsTheProgramThatWasStartedWithAFile) {
    AddMedia("a.wav", WaveFile(600));
    PutSetting(player, "SoundControls", "Off");
    PutSetting(player, "VideoOutput", "Time");
    PutSetting(player, "CDDatabaseMode", "Advanced");
    ASSERT_TRUE(StartProgram(player, MediaDirectory() + "a.wav"));
    ASSERT_TRUE(WaitForShown(IDC_STATUS, "Playing"));
    Command(player.window, IDC_STOP);
    EXPECT_TRUE(WaitForShown(IDC_STATUS, "Ready"));
    EXPECT_EQ(ExitCode(player, 1500), -1) << "ended after Stop";

    // The file was not read, so its values give way to the built-in ones.
    Command(player.window, IDC_EXIT);
    EXPECT_EQ(ExitCode(player), 0);
    const char* const written[][2] = {
        {"SoundControls", "On"},      {"VideoOutput", "Frames"},  {"ScrollBar", "Normal"},
        {"CDDatabaseMode", "Simple"}, {"TimerSpeed", "1"},        {"WaveAnimation", "On"},
        {"MidiFilesPath", "c:\\"},    {"VideoFilesPath", "c:\\"}, {"TarnwellMode", "wave"},
    };
    for (const auto& [key, value] : written)
        EXPECT_EQ(GetSetting(player, key), value) << key;
    EXPECT_EQ(GetSetting(player, "WaveFilesPath"), MediaDirectory());
    EXPECT_EQ(GetSetting(player, "SearchEntireDatabase", "SEARCH"), "TRUE");
    EXPECT_EQ(GetSetting(player, "RadioSearch", "SEARCH"), "1");
}

TEST_F(StartTest, EveryWayOutWritesTheSettings) {
    const std::function<void()> ways[] = {
        [&] { Command(player.window, IDC_EXIT); },
        [&] { PostMessageA(player.window, WM_SYSCOMMAND, SC_CLOSE, 0); },
        [&] { SetForegroundWindow(player.window), PressKey(VK_F4, VK_MENU); },
    };
    for (const auto& leave : ways) {
        PutSetting(player, "TimerSpeed", "9");
        ASSERT_NO_FATAL_FAILURE(StartIn("midi"));
        Command(player.window, IDC_MODE_WAVE);
        ASSERT_TRUE(WaitForShown(IDC_LIST_COUNT, "0 Wave Files:"));
        leave();
        EXPECT_EQ(ExitCode(player), 0);
        EXPECT_EQ(GetSetting(player, "TarnwellMode"), "wave");
        EXPECT_EQ(GetSetting(player, "TimerSpeed"), "5");
    }
}

TEST_F(StartTest, SettingsAreDecodedByTheirLettersAndWrittenBackWhole) {
    // Section, key, what stands in the file, what the program writes back.
    const std::tuple<const char*, const char*, const char*, const char*> values[] = {
        {"MAIN", "SoundControls", "ON", "Off"},
        {"MAIN", "VideoOutput", "Fast", "Frames"},
        {"MAIN", "ScrollBar", "recreation", "Normal"},
        {"MAIN", "MidiListBox", "Rmi", "Rmi"},
        {"MAIN", "VideoListBox", "X", "Both"},
        {"MAIN", "TimerSpeed", "4", "4"},
        {"MAIN", "WaveAnimation", "on", "On"},
        {"MAIN", "MidiAnimation", "n", "Off"},
        {"MAIN", "VideoAnimation", "", "Off"},
        {"MAIN", "CDAnimation", "Anything", "On"},
        {"MAIN", "EntryFieldColorization", "On", "On"},
        {"MAIN", "CDDatabaseMode", "simple", "Advanced"},
        {"SEARCH", "SearchTrack", "FALSE", "FALSE"},
        {"SEARCH", "SearchNotes", "false", "TRUE"},
        {"SEARCH", "CaseSensitive", "T", "TRUE"},
        {"SEARCH", "SearchEntireDatabase", "yes", "FALSE"},
        {"SEARCH", "RadioSearch", "9", "9"},
        {"SEARCH", "StringMatch", "a = b; c", "a = b; c"},
    };
    for (const auto& [section, key, stored, written] : values) {
        PutSetting(player, key, stored, section);
    }
    // Not one of the reader's keys: it must survive.
    PutSetting(player, "WavEditorPath", "c:\\edit\\");
    ASSERT_NO_FATAL_FAILURE(StartIn("Wave"));
    EXPECT_EQ(ShownMode(player), kCdPlayer);
    Command(player.window, IDC_EXIT);
    EXPECT_EQ(ExitCode(player), 0);
    for (const auto& [section, key, stored, written] : values) {
        EXPECT_EQ(GetSetting(player, key, section), written) << key;
    }
    EXPECT_EQ(GetSetting(player, "TarnwellMode"), "cdplayer");
    EXPECT_EQ(GetSetting(player, "WavEditorPath"), "c:\\edit\\");
}

TEST_F(StartTest, GarbageInTheSettingsFileFallsBack) {
    std::string garbage = "[MAIN\n=\n[MAIN]\nTarnwellMode=" + std::string(70000, 'w') + "\n";
    for (int i = 0; i < 2000; ++i)
        garbage += static_cast<char>(i * 7);
    garbage += "\nTimerSpeed=\nWaveFilesPath=" + std::string(5000, 'p') + "\n";
    WriteFileBytes(player.directory + "TARNWELL.INI", garbage);
    ASSERT_TRUE(StartProgram(player));
    EXPECT_NE(ShownMode(player), -1);
    Command(player.window, IDC_EXIT);
    EXPECT_EQ(ExitCode(player), 0);
}

TEST_F(StartTest, SecondStartHandsOverAndEnds) {
    AddMedia("long.wav", WaveFile(20000));
    const struct {
        const char* arguments;
        int mode;
    } cases[] = {
        {"", kWave},
        {"c:\\none\\other.mid", kWave},
        {"-play D:\\Track07.cda", kCdPlayer},
    };
    for (const auto& second : cases) {
        SCOPED_TRACE(second.arguments);
        ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
        ASSERT_NO_FATAL_FAILURE(Play({"long.wav"}));
        ASSERT_TRUE(WaitForShown(IDC_STATUS, "Playing"));
        ShowWindow(player.window, SW_MINIMIZE);
        ASSERT_TRUE(WaitUntil([&] { return IsIconic(player.window) != FALSE; }));
        EXPECT_EQ(RunSecondInstance(player, second.arguments), 0);
        EXPECT_TRUE(WaitUntil([&] { return !IsIconic(player.window); })) << "not restored";
        EXPECT_TRUE(WaitUntil([&] { return ShownMode(player) == second.mode; }));
        if (second.mode == kWave) {
            EXPECT_EQ(Shown(IDC_STATUS), "Playing");
        }
        EXPECT_EQ(ExitCode(player, 0), -1);
    }
}

TEST_F(StartTest, FolderWindowOfTheSameNameIsNotTakenForTheProgram) {
    WNDCLASSA folderClass = {};
    folderClass.lpfnWndProc = DefWindowProcA;
    folderClass.hInstance = GetModuleHandleA(nullptr);
    folderClass.lpszClassName = "CabinetWClass";
    RegisterClassA(&folderClass);
    HWND folder = CreateWindowA("CabinetWClass", "Tarnwell 1.1", WS_OVERLAPPEDWINDOW, 0, 0, 100,
                                100, nullptr, nullptr, folderClass.hInstance, nullptr);
    ASSERT_NE(folder, nullptr);
    EXPECT_TRUE(StartProgram(player)) << "gave way to a folder window";
    EXPECT_EQ(RunSecondInstance(player, ""), 0);
    DestroyWindow(folder);
}
