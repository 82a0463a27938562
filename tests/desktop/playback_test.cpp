// Playing, as seen and heard from outside: the queue, its counters, pause, seeks, repeat, errors.
#include <windows.h>

#include <mmsystem.h>

#include "tests/desktop/desktop_test.h"

using PlaybackTest = DesktopTest;

TEST_F(PlaybackTest, QueuePlaysEveryFileAndCountsDown) {
    AddMedia("a.wav", WaveFile(1200));
    AddMedia("b.wav", WaveFile(900));
    AddMedia("c.wav", WaveFile(1005));
    AddMedia("not selected.wav", WaveFile(300));
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    EXPECT_EQ(Shown(IDC_LIST_COUNT), "4 Wave Files:");
    ASSERT_NO_FATAL_FAILURE(Play({"a.wav", "b.wav", "c.wav"}));

    const char* const steps[][3] = {{"a.wav", "2", "1.200 Seconds"},
                                    {"b.wav", "1", "900 Milliseconds"},
                                    {"c.wav", "0", "1.005 Seconds"}};
    const int ranges[] = {1000, 900, 1000};
    for (int i = 0; i < 3; ++i) {
        const auto& [name, left, length] = steps[i];
        ASSERT_TRUE(WaitForShown(IDC_FILE_NAME, name));
        EXPECT_EQ(Shown(IDC_SELECTED_COUNT), "3");
        EXPECT_EQ(Shown(IDC_FILES_LEFT), left);
        EXPECT_EQ(Shown(IDC_LENGTH), length);
        EXPECT_EQ(Shown(IDC_STATUS), "Playing");
        EXPECT_EQ(ScrollMaximum(player), ranges[i]);
        EXPECT_TRUE(WaitForSound());
    }
    ASSERT_TRUE(WaitForShown(IDC_STATUS, "Ready"));
    EXPECT_EQ(Shown(IDC_POSITION), "1.005 Seconds");
    EXPECT_EQ(ScrollPosition(player), 1000);
    EXPECT_TRUE(WaitForSilence());
}

TEST_F(PlaybackTest, MoreFilesThanTheQueueHolds) {
    const std::string file = WaveFile(2000);
    for (int i = 0; i < 1100; ++i)
        AddMedia(std::to_string(i) + ".wav", file);
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    EXPECT_EQ(Shown(IDC_LIST_COUNT), "1100 Wave Files:");
    SelectAll(List(), true);
    Command(player.window, IDC_PLAY);
    ASSERT_TRUE(WaitForShown(IDC_FILE_NAME, "0.wav"));
    EXPECT_EQ(Shown(IDC_SELECTED_COUNT), "1100");
    EXPECT_EQ(Shown(IDC_FILES_LEFT), "1023");
}

TEST_F(PlaybackTest, PausedFileIsSilentAndStaysWhereItIs) {
    AddMedia("long.wav", WaveFile(20000));
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    ASSERT_NO_FATAL_FAILURE(Play({"long.wav"}));
    ASSERT_TRUE(WaitForSound());
    for (int resumeButton : {IDC_PAUSE, IDC_PLAY}) {
        ASSERT_TRUE(WaitUntil([&] { return ReadOutMs(Shown(IDC_POSITION)) > 0; }));
        Command(player.window, IDC_PAUSE);
        ASSERT_TRUE(WaitForShown(IDC_STATUS, "Paused"));
        ASSERT_TRUE(WaitForSilence());
        const int paused = ReadOutMs(Shown(IDC_POSITION));
        EXPECT_FALSE(WaitUntil([&] { return ReadOutMs(Shown(IDC_POSITION)) != paused; }, 600));

        Command(player.window, resumeButton);
        ASSERT_TRUE(WaitForShown(IDC_STATUS, "Playing"));
        EXPECT_TRUE(WaitForSound());
        EXPECT_TRUE(WaitUntil([&] { return ReadOutMs(Shown(IDC_POSITION)) > paused; }));
        EXPECT_LT(ReadOutMs(Shown(IDC_POSITION)), paused + 5000) << "started over or jumped";
        EXPECT_EQ(Shown(IDC_FILE_NAME), "long.wav");
    }
}

TEST_F(PlaybackTest, PauseDoesNotOutliveItsFile) {
    AddMedia("a.wav", WaveFile(20000));
    AddMedia("b.wav", WaveFile(20000));
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    ASSERT_NO_FATAL_FAILURE(Play({"a.wav"}));
    ASSERT_TRUE(WaitForShown(IDC_FILE_NAME, "a.wav"));
    Command(player.window, IDC_PAUSE);
    ASSERT_TRUE(WaitForShown(IDC_STATUS, "Paused"));
    Command(player.window, IDC_MODE_MIDI);
    Command(player.window, IDC_MODE_WAVE);
    ASSERT_TRUE(WaitForShown(IDC_STATUS, "Ready"));
    ASSERT_NO_FATAL_FAILURE(Play({"b.wav"}));
    EXPECT_TRUE(WaitForShown(IDC_FILE_NAME, "b.wav"));
    EXPECT_TRUE(WaitForSound());
}

// The messages of one drag, as the bar sends them.
static void DragThumb(const Program& player, int position) {
    Scroll(player, SB_THUMBTRACK, position);
    Scroll(player, SB_THUMBPOSITION, position);
    Scroll(player, SB_ENDSCROLL);
}

TEST_F(PlaybackTest, SeeksMoveBothReadOutAndDevice) {
    AddMedia("long.wav", WaveFile(40000));  // 40 ms to the scroll unit
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    Scroll(player, SB_PAGERIGHT);
    Scroll(player, SB_ENDSCROLL);
    EXPECT_EQ(Shown(IDC_STATUS), "Ready") << "a seek without a file";

    ASSERT_NO_FATAL_FAILURE(Play({"long.wav"}));
    ASSERT_TRUE(WaitForShown(IDC_FILE_NAME, "long.wav"));
    Command(player.window, IDC_PAUSE);
    ASSERT_TRUE(WaitForShown(IDC_STATUS, "Paused"));
    DragThumb(player, 500);
    EXPECT_EQ(ReadOutMs(Shown(IDC_POSITION)), 20000);
    EXPECT_EQ(ScrollPosition(player), 500);
    EXPECT_EQ(Shown(IDC_STATUS), "Paused");

    const struct {
        int code;
        int position;
    } steps[] = {{SB_PAGERIGHT, 510}, {SB_LINERIGHT, 511}, {SB_LINELEFT, 510}, {SB_PAGELEFT, 500}};
    for (const auto& step : steps) {
        Scroll(player, step.code);
        Scroll(player, SB_ENDSCROLL);
        EXPECT_EQ(ScrollPosition(player), step.position);
        EXPECT_EQ(ReadOutMs(Shown(IDC_POSITION)), step.position * 40);
    }
    EXPECT_TRUE(WaitForSilence());

    // Beyond both ends.
    for (int i = 0; i < 52; ++i)
        Scroll(player, SB_PAGELEFT);
    EXPECT_EQ(ScrollPosition(player), 0);
    DragThumb(player, 990);
    for (int i = 0; i < 3; ++i)
        Scroll(player, SB_PAGERIGHT);
    Scroll(player, SB_ENDSCROLL);
    EXPECT_EQ(ScrollPosition(player), 1000);
    EXPECT_EQ(ReadOutMs(Shown(IDC_POSITION)), 40000);

    DragThumb(player, 500);
    Command(player.window, IDC_PAUSE);
    EXPECT_TRUE(WaitUntil([&] { return ReadOutMs(Shown(IDC_POSITION)) > 20000; }))
        << "did not play on from where it was sought to";
    EXPECT_TRUE(WaitForSound());
    DragThumb(player, 975);
    EXPECT_EQ(Shown(IDC_STATUS), "Playing");
    EXPECT_TRUE(WaitForShown(IDC_STATUS, "Ready"));
    EXPECT_EQ(ReadOutMs(Shown(IDC_POSITION)), 40000);
}

TEST_F(PlaybackTest, ThumbFollowsTheMouse) {
    AddMedia("long.wav", WaveFile(40000));
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    ASSERT_NO_FATAL_FAILURE(Play({"long.wav"}));
    ASSERT_TRUE(WaitForShown(IDC_FILE_NAME, "long.wav"));
    RECT bar = {};
    GetWindowRect(Control(player.window, IDC_SCROLL), &bar);
    const int arrow = GetSystemMetrics(SM_CXHSCROLL);
    const LONG middle = (bar.top + bar.bottom) / 2;
    HoldMouse({bar.left + arrow + 5, middle});
    ASSERT_TRUE(WaitUntil([&] {
        MoveMouse({(bar.left + bar.right) / 2, middle});
        const int dragged = ReadOutMs(Shown(IDC_POSITION));
        return dragged > 16000 && dragged < 24000;
    }));
    ReleaseMouse();
    // The read-outs go on, so the drag has ended.
    const int released = ReadOutMs(Shown(IDC_POSITION));
    EXPECT_TRUE(WaitUntil([&] { return ReadOutMs(Shown(IDC_POSITION)) > released + 300; }));
    EXPECT_LT(ReadOutMs(Shown(IDC_POSITION)), 28000);

    // An arrow: one unit for a short press.
    const int before = ScrollPosition(player);
    ClickMouse({bar.right - arrow / 2, middle});
    EXPECT_TRUE(WaitUntil([&] { return ScrollPosition(player) > before; }));
    EXPECT_EQ(Shown(IDC_STATUS), "Playing");
}

TEST_F(PlaybackTest, RecreationLeavesTheThumbToTheUser) {
    AddMedia("a.wav", WaveFile(1500));
    PutSetting(player, "ScrollBar", "Recreation");
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    ASSERT_NO_FATAL_FAILURE(Play({"a.wav"}));
    ASSERT_TRUE(WaitUntil([&] { return ReadOutMs(Shown(IDC_POSITION)) > 500; }));
    EXPECT_EQ(ScrollPosition(player), 0);
    ASSERT_TRUE(WaitForShown(IDC_STATUS, "Ready"));
    EXPECT_EQ(ScrollPosition(player), 0);
    EXPECT_EQ(Shown(IDC_POSITION), "1.500 Seconds");
}

TEST_F(PlaybackTest, RepeatStartsTheQueueOver) {
    AddMedia("a.wav", WaveFile(700));
    AddMedia("b.wav", WaveFile(700));
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    Command(player.window, IDC_REPEAT);
    ASSERT_NO_FATAL_FAILURE(Play({"a.wav", "b.wav"}));
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(WaitForShown(IDC_FILE_NAME, "a.wav"));
        EXPECT_EQ(Shown(IDC_FILES_LEFT), "1");
        ASSERT_TRUE(WaitForShown(IDC_FILE_NAME, "b.wav"));
        EXPECT_EQ(Shown(IDC_FILES_LEFT), "0");
    }
    Command(player.window, IDC_REPEAT);
    EXPECT_TRUE(WaitForShown(IDC_STATUS, "Ready"));
    EXPECT_EQ(Shown(IDC_FILE_NAME), "b.wav");
}

TEST_F(PlaybackTest, StopBlanksTheDisplay) {
    AddMedia("long.wav", WaveFile(20000));
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    ASSERT_NO_FATAL_FAILURE(Play({"long.wav"}));
    ASSERT_TRUE(WaitForSound());
    Command(player.window, IDC_STOP);
    ASSERT_TRUE(WaitForShown(IDC_STATUS, "Ready"));
    for (int field : {IDC_POSITION, IDC_POSITION_UNIT, IDC_LENGTH, IDC_FILE_NAME}) {
        EXPECT_EQ(Shown(field), "") << field;
    }
    EXPECT_EQ(Shown(IDC_SELECTED_COUNT), "0");
    EXPECT_EQ(ScrollMaximum(player), 0);
    EXPECT_TRUE(WaitForSilence());
}

TEST_F(PlaybackTest, ModeChangeStopsButTheSameModeDoesNot) {
    AddMedia("long.wav", WaveFile(20000));
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    ASSERT_NO_FATAL_FAILURE(Play({"long.wav"}));
    ASSERT_TRUE(WaitForSound());
    Command(player.window, IDC_MODE_WAVE);
    EXPECT_FALSE(WaitForShown(IDC_STATUS, "Ready", 500));
    Command(player.window, IDC_MODE_MIDI);
    ASSERT_TRUE(WaitForShown(IDC_STATUS, "Ready"));
    EXPECT_TRUE(WaitForSilence());
}

TEST_F(PlaybackTest, RefusedFileIsReportedAndTheNextPlayWorks) {
    AddMedia("a.wav", WaveFile(600));
    AddMedia("broken.wav", "RIFF and then nothing that makes sense");
    AddMedia("c.wav", WaveFile(600));
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    Command(player.window, IDC_REPEAT);
    ASSERT_NO_FATAL_FAILURE(Play({"a.wav", "broken.wav", "c.wav"}));
    HWND box = WaitForPopup(player);
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(Title(box), "Tarnwell Message!");
    char platformText[256] = "";
    mciGetErrorStringA(MCIERR_INVALID_FILE, platformText, sizeof platformText);
    EXPECT_EQ(Text(box, IDC_MESSAGE_TEXT), platformText);

    // Behind the box nothing goes on and nothing can be pressed.
    Command(player.window, IDC_MODE_MIDI);
    Command(player.window, IDC_EXIT);
    PostMessageA(player.window, WM_SYSCOMMAND, SC_CLOSE, 0);
    EXPECT_FALSE(WaitForShown(IDC_LIST_COUNT, "0 Midi Files:", 500));
    EXPECT_EQ(ExitCode(player, 0), -1);

    Command(box, IDC_OK);
    ASSERT_TRUE(WaitForNoPopup(player));
    EXPECT_TRUE(WaitForShown(IDC_STATUS, "Ready"));
    EXPECT_EQ(Shown(IDC_FILE_NAME), "");
    EXPECT_EQ(Shown(IDC_LENGTH), "");
    EXPECT_EQ(WaitForPopup(player, 500), nullptr) << "one failure, two boxes";

    // Repeat has been switched off with it: this queue ends.
    ASSERT_NO_FATAL_FAILURE(Play({"c.wav"}));
    EXPECT_TRUE(WaitForShown(IDC_FILE_NAME, "c.wav"));
    EXPECT_TRUE(WaitForSound());
    EXPECT_TRUE(WaitForShown(IDC_STATUS, "Ready"));
}

TEST_F(PlaybackTest, MissingFileAndNoFile) {
    AddMedia("gone.wav", WaveFile(600));
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    Command(player.window, IDC_PLAY);
    EXPECT_EQ(WaitForPopup(player, 300), nullptr);
    EXPECT_EQ(Shown(IDC_STATUS), "Ready");
    DeleteFileA((MediaDirectory() + "gone.wav").c_str());
    ASSERT_NO_FATAL_FAILURE(Play({"gone.wav"}));
    HWND box = WaitForPopup(player);
    ASSERT_NE(box, nullptr);
    char platformText[256] = "";
    mciGetErrorStringA(MCIERR_FILE_NOT_FOUND, platformText, sizeof platformText);
    EXPECT_EQ(Text(box, IDC_MESSAGE_TEXT), platformText);
    SetForegroundWindow(box);
    PressKey(VK_RETURN);
    EXPECT_TRUE(WaitForNoPopup(player));
}

TEST_F(PlaybackTest, DirectoryFieldRefillsTheListUnderARunningQueue) {
    AddMedia("a.wav", WaveFile(1000));
    AddMedia("b.wav", WaveFile(1000));
    const std::string other = player.directory + "other\\";
    CreateDirectoryA(other.c_str(), nullptr);
    WriteFileBytes(other + "elsewhere.wav", WaveFile(300));
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    ASSERT_NO_FATAL_FAILURE(Play({"a.wav", "b.wav"}));
    ASSERT_TRUE(WaitForShown(IDC_FILE_NAME, "a.wav"));
    SendMessageA(Control(player.window, IDC_DIRECTORY), WM_SETTEXT, 0,
                 reinterpret_cast<LPARAM>(other.c_str()));
    Command(player.window, IDC_DIRECTORY, EN_KILLFOCUS);
    ASSERT_TRUE(WaitForShown(IDC_LIST_COUNT, "1 Wave Files:"));
    EXPECT_EQ(ListTexts(List()), std::vector<std::string>{"elsewhere.wav"});
    EXPECT_TRUE(WaitForShown(IDC_FILE_NAME, "b.wav"));
    EXPECT_TRUE(WaitForShown(IDC_STATUS, "Ready"));
}

TEST_F(PlaybackTest, MinimisedWindowPlaysOnWithoutDrawingThePosition) {
    AddMedia("a.wav", WaveFile(1500));
    AddMedia("b.wav", WaveFile(5000));
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    ASSERT_NO_FATAL_FAILURE(Play({"a.wav", "b.wav"}));
    ASSERT_TRUE(WaitForShown(IDC_FILE_NAME, "a.wav"));
    ShowWindow(player.window, SW_MINIMIZE);
    ASSERT_TRUE(WaitForShown(IDC_FILE_NAME, "b.wav"));
    EXPECT_FALSE(WaitUntil([&] { return Shown(IDC_POSITION) != "0 Milliseconds"; }, 1000));
    ShowWindow(player.window, SW_RESTORE);
    EXPECT_TRUE(WaitUntil([&] { return ReadOutMs(Shown(IDC_POSITION)) > 0; }));
}

TEST_F(PlaybackTest, DoubleClickOnAFilePlaysIt) {
    AddMedia("a.wav", WaveFile(3000));
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    RECT list = {};
    GetWindowRect(List(), &list);
    ClickMouse({list.left + 10, list.top + 10});
    ClickMouse({list.left + 10, list.top + 10});
    EXPECT_TRUE(WaitForShown(IDC_FILE_NAME, "a.wav"));
}

// A mapper of the prefix's own takes the place of a device.
static bool HasMidiMapper() {
    char order[16] = "";
    DWORD size = sizeof order;
    return RegGetValueA(HKEY_CURRENT_USER, "Software\\Wine\\DllOverrides", "midimap", RRF_RT_REG_SZ,
                        nullptr, order, &size) == ERROR_SUCCESS;
}

TEST_F(PlaybackTest, MidiIsListedByItsFilterHeardAndEnds) {
    AddMedia("a.mid", MidiFile(1500));
    AddMedia("b.rmi", MidiFile(700));
    PutSetting(player, "MidiListBox", "Rmi");
    ASSERT_NO_FATAL_FAILURE(StartIn("midi"));
    EXPECT_EQ(ListTexts(List()), std::vector<std::string>{"b.rmi"});
    PutSetting(player, "MidiListBox", "Both");
    ASSERT_NO_FATAL_FAILURE(StartIn("midi"));
    ASSERT_NO_FATAL_FAILURE(Play({"a.mid", "b.rmi"}));
    ASSERT_TRUE(WaitForShown(IDC_FILE_NAME, "a.mid"));
    EXPECT_EQ(Shown(IDC_LENGTH), "1.500 Seconds");
    if (midiOutGetNumDevs() == 0 && !HasMidiMapper()) {
        GTEST_SKIP() << "no MIDI device: nothing is heard and no file ends";
    }
    EXPECT_TRUE(WaitUntil([] { return SoundLevel(100) > 100; }));
    EXPECT_TRUE(WaitForShown(IDC_FILE_NAME, "b.rmi"));
    EXPECT_EQ(Shown(IDC_FILES_LEFT), "0");
    EXPECT_TRUE(WaitForShown(IDC_STATUS, "Ready"));
    EXPECT_TRUE(WaitForSilence());
}
