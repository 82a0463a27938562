// Starting, starting twice, ending, and the settings file between the two.
#include <set>
#include <tuple>

#include "tests/database/sample_discs.h"
#include "tests/desktop/desktop_test.h"
#include "tests/desktop/screen.h"

using StartTest = DesktopTest;

TEST_F(StartTest, MediaFilePlaysOnceAndEndsTheProgram) {
    AddMedia("before.wav", WaveFile(5000));
    AddMedia("Short Piece.wav", WaveFile(900));
    PutSetting(player, "SoundControls", "Off");
    PutSetting(player, "CaseSensitive", "TRUE", "SEARCH");
    for (const bool stopped : {false, true}) {
        ASSERT_TRUE(StartProgram(player, MediaDirectory() + "SHORT PIECE.WAV"));
        EXPECT_TRUE(WaitForShown(IDC_FILE_NAME, "Short Piece.wav"));
        if (stopped) {
            Command(player.window, IDC_STOP);
            EXPECT_EQ(ExitCode(player, 1500), -1) << "ended after Stop";
            Command(player.window, IDC_EXIT);
        } else {
            EXPECT_TRUE(WaitForSound());
        }
        EXPECT_EQ(ExitCode(player), 0);
        EXPECT_EQ(GetSetting(player, "TarnwellMode"), stopped ? "wave" : "(missing)");
    }
    // The file was not read, so its values give way to the built-in ones.
    EXPECT_EQ(GetSetting(player, "SoundControls"), "On");
    EXPECT_EQ(GetSetting(player, "WaveFilesPath"), MediaDirectory());
    EXPECT_EQ(GetSetting(player, "CaseSensitive", "SEARCH"), "FALSE");
}

TEST_F(StartTest, LogOffAndTheCloseBoxWriteTheSettings) {
    for (const bool logOff : {true, false}) {
        PutSetting(player, "TimerSpeed", "9");
        ASSERT_NO_FATAL_FAILURE(StartIn("midi"));
        Command(player.window, IDC_MODE_WAVE);
        PostMessageA(player.window, WM_ENDSESSION, FALSE, 0);
        ASSERT_TRUE(Settle(player));
        EXPECT_EQ(GetSetting(player, "TarnwellMode"), "midi") << "the session goes on";
        if (logOff) {
            PostMessageA(player.window, WM_ENDSESSION, TRUE, 0);
            ASSERT_TRUE(Settle(player));
        } else {
            PressKeyIn(player.window, VK_F4, VK_MENU);
            ASSERT_EQ(ExitCode(player), 0);
        }
        EXPECT_EQ(GetSetting(player, "TarnwellMode"), "wave");
        EXPECT_EQ(GetSetting(player, "TimerSpeed"), "5");
    }
}

TEST_F(StartTest, SettingsAreDecodedByTheirLettersAndWrittenBackWhole) {
    // Section, key, what stands in the file, what the program writes back.
    const std::tuple<const char*, const char*, const char*, const char*> values[] = {
        {"MAIN", "VideoOutput", "Fast", "Frames"},
        {"MAIN", "ScrollBar", "recreation", "Normal"},
        {"MAIN", "MidiListBox", "Rmi", "Rmi"},
        {"MAIN", "VideoListBox", "X", "Both"},
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
    for (const auto& [section, key, stored, written] : values)
        PutSetting(player, key, stored, section);
    // Not one of the reader's keys: it must survive.
    PutSetting(player, "WavEditorPath", "c:\\edit\\");
    ASSERT_NO_FATAL_FAILURE(StartIn("Wave"));
    EXPECT_TRUE(IsShown(player.window, IDC_CD_PLAY));
    Command(player.window, IDC_EXIT);
    EXPECT_EQ(ExitCode(player), 0);
    for (const auto& [section, key, stored, written] : values)
        EXPECT_EQ(GetSetting(player, key, section), written) << key;
    EXPECT_EQ(GetSetting(player, "TarnwellMode"), "cdplayer");
    EXPECT_EQ(GetSetting(player, "WavEditorPath"), "c:\\edit\\");
}

TEST_F(StartTest, GarbageInTheSettingsAndAnEndedRewriteAreMetAtTheStart) {
    std::string garbage = "[MAIN\n=\n[MAIN]\nTarnwellMode=" + std::string(70000, 'w') + "\n";
    for (int i = 0; i < 2000; ++i)
        garbage += static_cast<char>(i * 7);
    garbage += "\nTimerSpeed=\nWaveFilesPath=" + std::string(5000, 'p') + "\n";
    WriteFileBytes(player.directory + "TARNWELL.INI", garbage);
    // Without a disc nothing looks into the catalogue.
    const std::string catalogue = DatabaseImage({SampleDisc(1, 2)});
    WriteFileBytes(player.directory + "tarnwell.dbk", "the old one");
    WriteFileBytes(player.directory + "tarnwell.new", catalogue);
    ASSERT_TRUE(StartProgram(player));
    EXPECT_EQ(FileBytes(player.directory + "tarnwell.dat"), catalogue);
    Command(player.window, IDC_EXIT);
    EXPECT_EQ(ExitCode(player), 0);
}

TEST_F(StartTest, SecondStartHandsOverToItsOwnKindAndEnds) {
    // Windows of its name that are not its own: a folder's, and one of another spelling.
    WNDCLASSA folder = {};
    folder.lpfnWndProc = DefWindowProcA;
    folder.lpszClassName = "CabinetWClass";
    RegisterClassA(&folder);
    for (const auto& [kind, name] :
         {std::pair{"CabinetWClass", "Tarnwell 1.1"}, {"STATIC", "TARNWELL 1.1"}})
        ASSERT_NE(CreateWindowA(kind, name, WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr, nullptr,
                                nullptr, nullptr),
                  nullptr);
    AddMedia("long.wav", WaveFile(20000));
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    Play({"long.wav"});
    ASSERT_TRUE(WaitForShown(IDC_STATUS, "Playing"));
    for (const char* arguments : {"", "c:\\none\\other.mid", "-play D:\\Track07.cda"}) {
        SCOPED_TRACE(arguments);
        EXPECT_FALSE(IsShown(player.window, IDC_CD_PLAY));
        EXPECT_EQ(Shown(IDC_STATUS), "Playing");
        ShowWindow(player.window, SW_MINIMIZE);
        ASSERT_TRUE(WaitUntil([&] { return IsIconic(player.window) != FALSE; }));
        EXPECT_EQ(RunSecondInstance(player, arguments), 0);
        EXPECT_TRUE(WaitUntil([&] { return !IsIconic(player.window); })) << "not restored";
    }
    EXPECT_TRUE(WaitUntil([&] { return IsShown(player.window, IDC_CD_PLAY); }));
}

TEST_F(StartTest, SettingsHaveTheirEffect) {
    const std::string directory = MediaDirectory() + "a directory of more than 29 characters\\";
    CreateDirectoryA(directory.c_str(), nullptr);
    WriteFileBytes(directory + "long.wav", WaveFile(20000));
    PutSetting(player, "WaveFilesPath", directory.c_str());
    for (const bool on : {true, false}) {
        SCOPED_TRACE(on);
        PutSetting(player, "TimerSpeed", on ? "1" : "5");
        for (const char* key : {"SoundControls", "EntryFieldColorization"})
            PutSetting(player, key, on ? "On" : "Off");
        ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
        EXPECT_EQ(Shown(IDC_DIRECTORY), directory);
        const DWORD ground = GetSysColor(on ? COLOR_BTNFACE : COLOR_WINDOW);
        const uint32_t color = RGB(GetBValue(ground), GetGValue(ground), GetRValue(ground));
        const auto isColored = [color](HWND field) {
            return WaitUntil([&] {
                const Picture shown = Photograph(field);
                return shown.At(shown.width * 3 / 4, shown.height * 3 / 4) == color;
            });
        };
        EXPECT_TRUE(isColored(List()));
        Open(IDC_RENAME, {"long.wav"});
        HWND rename = DialogThatShows(IDC_RENAME_NAME, "long.wav");
        EXPECT_TRUE(isColored(Control(rename, IDC_RENAME_NAME)));
        PressKeyIn(rename, VK_ESCAPE);
        ASSERT_TRUE(WaitForNoPopup(player));

        ASSERT_TRUE(WaitUntil([] { return AudibleMs(1000) == 0; }));
        Command(player.window, IDC_STOP);
        const bool clicked = WaitUntil([] { return AudibleMs(1000) > 20; }, 1000);
        EXPECT_EQ(clicked, on);
        Play({"long.wav"});
        ASSERT_TRUE(WaitUntil([&] { return ReadOutMs(Shown(IDC_POSITION)) > 0; }));
        std::set<std::string> readOuts;
        WaitUntil([&] { return readOuts.insert(Shown(IDC_POSITION)), false; }, 3000);
        // The device itself moves three times a second.
        EXPECT_EQ(readOuts.size() > 5, on) << readOuts.size();
        Command(player.window, IDC_STOP);
        ASSERT_TRUE(!clicked || WaitUntil([] { return AudibleMs(1500) == 0; }));
        Command(player.window, IDC_EXIT);
        ASSERT_EQ(ExitCode(player), 0);
        EXPECT_TRUE(!clicked || WaitUntil([] { return AudibleMs(1500) > 400; }, 1000))
            << "the last sound is cut off";
    }
}

TEST_F(StartTest, F1OpensTheManualFromTheWindowAndFromABox) {
    const std::string copy = player.directory + "shown";
    // In the place of a browser, the system's shell makes a copy of what it is to show.
    const std::string browser = "cmd.exe /c copy \"%1\" \"" + copy + "\"";
    RegSetValueA(HKEY_CLASSES_ROOT, ".htm", REG_SZ, "copied", 0);
    RegSetValueA(HKEY_CLASSES_ROOT, "copied\\shell\\open\\command", REG_SZ, browser.c_str(), 0);
    const auto isShown = [&] { return DeleteFileA(copy.c_str()) != FALSE; };
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    PressKey(VK_F1);
    ASSERT_TRUE(Settle(player));
    EXPECT_EQ(WaitForPopup(player, 100), nullptr) << "there is no manual";
    WriteFileBytes(player.directory + "MANUAL.HTM", "<p>F1");
    PressKey(VK_F1);
    EXPECT_TRUE(WaitUntil(isShown));
    Command(player.window, IDC_ABOUT);
    PressKeyIn(Dialog("About Tarnwell 1.1"), VK_F1);
    EXPECT_TRUE(WaitUntil(isShown));
}
