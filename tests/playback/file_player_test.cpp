// What the file players send to the device, in which order, and what is left after any of it
// failed.
#include "playback/file_player.h"

#include <gtest/gtest.h>

#include "app/program_state.h"
#include "app/settings.h"
#include "playback/media_device.h"
#include "playback/play_queue.h"
#include "playback/player_timers.h"
#include "resources/ids.h"
#include "tests/stand_ins.h"
#include "ui/dialog_helpers.h"

using Log = std::vector<std::string>;

class FilePlayerTest : public testing::Test {
protected:
    void SetUp() override {
        UseStandIns();
        OpenTestWindow(IDC_MODE_WAVE, {"a.wav", "b.wav", "c.wav", "skip.mid"});
        TheMci.status[MCI_STATUS_LENGTH] = 2000;
        TheMci.status[MCI_STATUS_MODE] = MCI_MODE_PLAY;
    }
    void TearDown() override { CloseTestWindow(); }

    static HWND List() { return GetDlgItem(MainWindow, IDC_FILE_LIST); }
    static void Select(int first, int last) {
        for (int i = first; i <= last; ++i)
            SendMessageA(List(), LB_SETSEL, TRUE, i);
    }
    static void Command(int id) {
        SendMessageA(MainWindow, WM_COMMAND, static_cast<WPARAM>(id), 0);
    }
    static std::string Text(int id) { return ControlText(MainWindow, id); }
    static Log TakeLog() { return std::exchange(TheMci.log, {}); }
    static Log OpeningOf(const char* name) {
        return {"OPEN " + AppDirectory() + name + " wait", "SET format 0 wait",
                "STATUS length wait", "SEEK start wait", "PLAY"};
    }
    static const std::string& AppDirectory() { return WaveFilesPath; }
    static void Tick() { SendMessageA(MainWindow, WM_TIMER, ID_POSITION_TIMER, 0); }
    static void Scroll(int code, int thumb = 0) {
        SendMessageA(MainWindow, WM_HSCROLL, MAKEWPARAM(code, thumb),
                     reinterpret_cast<LPARAM>(GetDlgItem(MainWindow, IDC_SCROLL)));
    }
};

TEST_F(FilePlayerTest, PlaysTheSelectionFileByFile) {
    Select(0, 1);
    Command(IDC_PLAY);
    EXPECT_EQ(TakeLog(), OpeningOf("a.wav"));
    EXPECT_EQ(Text(IDC_SELECTED_COUNT), "2");
    EXPECT_EQ(Text(IDC_FILES_LEFT), "1");
    EXPECT_EQ(Text(IDC_FILE_NAME), "a.wav");
    EXPECT_EQ(Text(IDC_STATUS), "Playing");
    EXPECT_EQ(Text(IDC_LENGTH), "2.000 Seconds");
    EXPECT_TRUE(IsPositionTimerRunning());

    TheMci.status[MCI_STATUS_POSITION] = 1500;
    Tick();
    EXPECT_EQ(TakeLog(), (Log{"STATUS mode wait", "STATUS position wait"}));
    EXPECT_EQ(Text(IDC_POSITION), "1.500 Seconds");
    EXPECT_EQ(SendDlgItemMessageA(MainWindow, IDC_SCROLL, SBM_GETPOS, 0, 0), 750);

    TheMci.status[MCI_STATUS_MODE] = MCI_MODE_STOP;
    Tick();
    Log expected = {"STATUS mode wait", "CLOSE wait"};
    for (const std::string& line : OpeningOf("b.wav"))
        expected.push_back(line);
    expected.push_back("STATUS position wait");
    EXPECT_EQ(TakeLog(), expected);
    EXPECT_EQ(Text(IDC_FILES_LEFT), "0");

    Tick();  // the last file has ended; it stays open at its end
    EXPECT_EQ(TakeLog(), Log{"STATUS mode wait"});
    EXPECT_EQ(Text(IDC_POSITION), "2.000 Seconds");
    EXPECT_EQ(SendDlgItemMessageA(MainWindow, IDC_SCROLL, SBM_GETPOS, 0, 0), 1000);
    EXPECT_EQ(Text(IDC_STATUS), "Ready");
    EXPECT_FALSE(IsPositionTimerRunning());
    EXPECT_TRUE(MediaDevice.open);
}

TEST_F(FilePlayerTest, AnyFailingCommandOfAnOpeningGivesOneBoxAndAClosedDevice) {
    for (int n = 0; n < 5; ++n) {
        SetUp();
        PlayQueue.repeat = true;
        Select(0, 2);
        TheMci.failingCall = n;
        Command(IDC_PLAY);
        Log expected = OpeningOf("a.wav");
        expected.resize(static_cast<size_t>(n) + 1);
        if (n > 0) expected.insert(expected.end(), {"STOP wait", "CLOSE wait"});
        EXPECT_EQ(TakeLog(), expected) << n;
        EXPECT_EQ(TheBoxes.shown, Log{"error 262"}) << n;
        EXPECT_FALSE(MediaDevice.open);
        EXPECT_FALSE(PlayQueue.repeat);
        EXPECT_FALSE(IsPositionTimerRunning());
        EXPECT_EQ(PlayQueue.filesLeft, 3u) << "the counters stay as they were";
        EXPECT_EQ(Text(IDC_STATUS), "Ready");
        for (int id : {IDC_FILE_NAME, IDC_LENGTH, IDC_POSITION, IDC_POSITION_UNIT}) {
            EXPECT_EQ(Text(id), "") << id;
        }
        TheMci.failingCall = -1;
        Command(IDC_PLAY);
        EXPECT_EQ(TakeLog(), OpeningOf("a.wav")) << "the next Play works";
    }
}

TEST_F(FilePlayerTest, AFailingTickEndsTheQueueWithOneBox) {
    Select(0, 1);
    Command(IDC_PLAY);
    TheMci.failingCall = TheMci.calls;
    Tick();
    EXPECT_EQ(TheBoxes.shown, Log{"error 262"});
    EXPECT_FALSE(MediaDevice.open);
    EXPECT_FALSE(IsPositionTimerRunning());
    TakeLog();
    Tick();
    EXPECT_EQ(TakeLog(), Log{}) << "a late tick opens nothing";
}

TEST_F(FilePlayerTest, PauseAndResume) {
    Command(IDC_PAUSE);
    EXPECT_EQ(TakeLog(), Log{}) << "nothing is open";
    Select(0, 0);
    Command(IDC_PLAY);
    TakeLog();
    Command(IDC_PAUSE);
    EXPECT_EQ(TakeLog(), (Log{"STATUS mode wait", "PAUSE"}));
    EXPECT_EQ(Text(IDC_STATUS), "Paused");
    EXPECT_FALSE(IsPositionTimerRunning());
    Scroll(SB_PAGERIGHT);
    EXPECT_EQ(TakeLog(), Log{"PLAY from 20 to 20"}) << "moves and stays still";
    EXPECT_EQ(Text(IDC_STATUS), "Paused");
    Command(IDC_PLAY);
    EXPECT_EQ(TakeLog(), Log{"PLAY"});
    EXPECT_TRUE(IsPositionTimerRunning());

    TheMci.status[MCI_STATUS_MODE] = MCI_MODE_STOP;
    Command(IDC_PAUSE);
    EXPECT_EQ(TakeLog(), Log{"STATUS mode wait"}) << "no pause for a stopped device";
    EXPECT_EQ(Text(IDC_STATUS), "Paused");
}

TEST_F(FilePlayerTest, APauseDoesNotOutliveItsDevice) {
    Select(0, 1);
    Command(IDC_PLAY);
    Command(IDC_PAUSE);
    Command(IDC_MODE_MIDI);
    Command(IDC_MODE_WAVE);
    EXPECT_EQ(Text(IDC_FILES_LEFT), "0") << "nor does its queue";
    EXPECT_EQ(Text(IDC_LIST_COUNT), "3 Wave Files:");
    Select(1, 1);
    TakeLog();
    Command(IDC_PLAY);
    EXPECT_EQ(TakeLog(), OpeningOf("b.wav"));
}

TEST_F(FilePlayerTest, ScrollingSeeksAndAnIdleScrollBarRevivesNothing) {
    Select(0, 2);
    Command(IDC_PLAY);
    TakeLog();
    Scroll(SB_LINERIGHT);
    EXPECT_EQ(TakeLog(), Log{"PLAY from 2"});
    Scroll(SB_THUMBTRACK, 500);
    EXPECT_EQ(Text(IDC_POSITION), "1.000 Seconds");
    Tick();
    EXPECT_EQ(Text(IDC_POSITION), "1.000 Seconds") << "the read-out stays with the dragged thumb";
    Scroll(SB_THUMBPOSITION, 500);
    EXPECT_FALSE(MediaDevice.dragging);
    TakeLog();

    TheMci.failingCall = TheMci.calls;
    Tick();  // the queue breaks with files left
    TakeLog();
    Scroll(SB_LINERIGHT);
    Scroll(SB_ENDSCROLL);
    EXPECT_EQ(TakeLog(), Log{});
    EXPECT_FALSE(IsPositionTimerRunning());
    EXPECT_FALSE(MediaDevice.dragging);
    EXPECT_EQ(Text(IDC_STATUS), "Ready");
}

TEST_F(FilePlayerTest, RepeatStartsTheQueueOver) {
    Command(IDC_REPEAT);
    Select(1, 1);
    Command(IDC_PLAY);
    TakeLog();
    TheMci.status[MCI_STATUS_MODE] = MCI_MODE_STOP;
    Tick();
    EXPECT_EQ(TakeLog(), Log{"STATUS mode wait"});
    Tick();
    Log log = TakeLog();
    ASSERT_GT(log.size(), 2u);
    EXPECT_EQ(log[1], "CLOSE wait") << "closed and opened each time";
    EXPECT_EQ(log[2], OpeningOf("b.wav")[0]);
}

TEST_F(FilePlayerTest, MoreFilesThanTheQueueTakes) {
    for (int i = 0; i < 1100; ++i) {
        const std::string name = "x" + std::to_string(i) + ".wav";
        SendMessageA(List(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
    }
    SendMessageA(List(), LB_SETSEL, TRUE, -1);
    Command(IDC_PLAY);
    EXPECT_EQ(Text(IDC_SELECTED_COUNT), "1103");
    EXPECT_EQ(PlayQueue.filesLeft, 1023u);
    // A list filled anew under the playing queue changes nothing of it.
    SendMessageA(List(), LB_RESETCONTENT, 0, 0);
    TheMci.status[MCI_STATUS_MODE] = MCI_MODE_STOP;
    TakeLog();
    Tick();
    EXPECT_EQ(TakeLog()[2], OpeningOf("b.wav")[0]);
}

TEST_F(FilePlayerTest, WhileABoxIsOpenTheWindowBehindItIsDeaf) {
    Select(0, 0);
    TheMci.failingCall = 0;
    TheBoxes.whileOpen = [] {
        Command(IDC_PLAY);
        Command(IDC_MODE_MIDI);
        SendMessageA(MainWindow, WM_CLOSE, 0, 0);
        Scroll(SB_LINERIGHT);
    };
    Command(IDC_PLAY);
    EXPECT_EQ(TakeLog(), Log{OpeningOf("a.wav")[0]});
    EXPECT_EQ(PlayMode, IDC_MODE_WAVE);
    EXPECT_TRUE(IsWindow(MainWindow));
}

TEST_F(FilePlayerTest, TheQueueThatEndsTheProgramStaysOnAfterAnError) {
    Select(0, 0);
    MediaDevice.playAndExit = true;
    TheMci.failingCall = 0;
    Command(IDC_PLAY);
    EXPECT_FALSE(MediaDevice.playAndExit);

    TheMci.failingCall = -1;
    MediaDevice.playAndExit = true;
    Command(IDC_PLAY);
    EXPECT_TRUE(MediaDevice.playAndExit) << "Play itself keeps the request";
    TheMci.status[MCI_STATUS_MODE] = MCI_MODE_STOP;
    EXPECT_EQ(PositionTick(), TickResult::kEndProgram);
    Command(IDC_STOP);
    EXPECT_FALSE(MediaDevice.playAndExit);
}

TEST_F(FilePlayerTest, LeavingTheDirectoryFieldKeepsWhatWasSelected) {
    Select(1, 2);
    SetFocus(GetDlgItem(MainWindow, IDC_DIRECTORY));
    Command(IDOK);
    EXPECT_EQ(SendMessageA(List(), LB_GETSEL, 1, 0), 1);
    EXPECT_EQ(SendMessageA(List(), LB_GETSELCOUNT, 0, 0), 2);

    const std::string before = WaveFilesPath;
    SetDlgItemTextA(MainWindow, IDC_DIRECTORY, "c://nowhere");
    Command(IDOK);
    EXPECT_TRUE(TheBoxes.shown.empty()) << "the box waits for the click to end";
    PumpMessages();
    EXPECT_EQ(TheBoxes.shown, Log{"Invalid path!"});
    EXPECT_EQ(WaveFilesPath, before);
    EXPECT_EQ(SendMessageA(List(), LB_GETSELCOUNT, 0, 0), 2);

    SetDlgItemTextA(MainWindow, IDC_DIRECTORY, "c:/windows");
    Command(IDOK);
    EXPECT_EQ(WaveFilesPath, "c:\\windows\\");
    EXPECT_EQ(Text(IDC_LIST_COUNT), "0 Wave Files:");
}
