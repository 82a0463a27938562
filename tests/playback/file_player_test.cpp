// What the file players send to the device, in which order, and what is left after any of it
// failed.
#include "playback/file_player.h"

#include <fstream>
#include <functional>

#include "base/settings.h"
#include "playback/media_device.h"
#include "playback/play_queue.h"
#include "playback/play_readouts.h"
#include "playback/player_timers.h"
#include "tests/stand_ins.h"
#include "ui/boxes.h"

class FilePlayerTest : public testing::Test {
protected:
    void SetUp() override {
        UseStandIns();
        OpenTestWindow(IDC_MODE_WAVE, {"a.wav", "b.wav", "c.wav", "skip.mid"});
    }
    void TearDown() override { CloseTestWindow(); }

    static Log OpeningOf(const char* name) {
        return {"open " + WaveFilesPath + name, "format 0", "length", "seek start", "play"};
    }
    static void PlayFirst(int count) {
        PlayFiles(0, count - 1);
        TakeLog();
    }
    // Nothing is open, nothing ticks, and the window says so.
    static void ExpectIdle() {
        EXPECT_FALSE(MediaDevice.open);
        EXPECT_FALSE(IsPositionTimerRunning(MainWindow));
        EXPECT_FALSE(KillTimer(MainWindow, ID_ANIMATION_TIMER));
        EXPECT_EQ(Text(IDC_STATUS), "Ready");
    }
    static void Tick() { SendMessageA(MainWindow, WM_TIMER, ID_POSITION_TIMER, 0); }
};

TEST_F(FilePlayerTest, PlaysTheSelectionFileByFileUnderEitherScrollBar) {
    for (const bool recreation : {false, true}) {
        SCOPED_TRACE(recreation);
        Settings.recreationScroll = recreation;
        FilePlays();
        TakeLog();
        PlayFiles(0, 1);
        const Log log = TakeLog();
        EXPECT_EQ(Log(log.end() - 5, log.end()), OpeningOf("a.wav"));
        ExpectShown({{IDC_SELECTED_COUNT, "2"}, {IDC_FILES_LEFT, "1"}, {IDC_FILE_NAME, "a.wav"}});
        ExpectShown({{IDC_STATUS, "Playing"}, {IDC_LENGTH, "2.000 Seconds"}});
        EXPECT_TRUE(IsPositionTimerRunning(MainWindow));

        TheMci.status[MCI_STATUS_POSITION] = 1500;
        Tick();
        EXPECT_EQ(TakeLog(), (Log{"mode", "position"}));
        EXPECT_EQ(Text(IDC_POSITION), "1.500 Seconds");
        EXPECT_EQ(PositionThumb(MainWindow), recreation ? 0 : 750);

        FileEnds();
        Tick();
        Log expected = OpeningOf("b.wav");
        expected.insert(expected.begin(), {"mode", "close"});
        expected.push_back("position");
        EXPECT_EQ(TakeLog(), expected);
        EXPECT_EQ(Text(IDC_FILES_LEFT), "0");

        Tick();  // the last file has ended; it stays open at its end
        EXPECT_EQ(TakeLog(), Log{"mode"});
        ExpectShown({{IDC_POSITION, "2.000 Seconds"}, {IDC_STATUS, "Ready"}});
        EXPECT_EQ(PositionThumb(MainWindow), recreation ? 0 : 1000);
        EXPECT_FALSE(IsPositionTimerRunning(MainWindow));
        EXPECT_TRUE(MediaDevice.open);
    }
}

// A whole afternoon with two files, once undisturbed and once for every command that can fail.
TEST_F(FilePlayerTest, WhicheverCommandFailsTheUserReadsItOnceAndNothingIsLeftRunning) {
    const std::function<void()> steps[] = {
        [] { Command(IDC_PLAY); },     // opens the first
        Tick,                          // mode, position
        [] { Command(IDC_PAUSE); },    // mode, pause
        [] { Scroll(SB_PAGERIGHT); },  // seek, paused
        [] { Command(IDC_PLAY); },     // resumes
        [] { Scroll(SB_LINERIGHT); },  // seek, playing
        [] { FileEnds(), Tick(); },    // closes it, opens the second
        [] { FilePlays(), Tick(); },
        [] { FileEnds(), Tick(); },  // the end
        [] { Command(IDC_STOP); },
    };
    int commands = 0;
    for (int n = -1; n < commands || n < 0; ++n) {
        SCOPED_TRACE(n);
        TheBoxes = {};
        TheBoxes.whileOpen = ExpectIdle;
        FilePlays();
        SelectFiles(0, 1);
        PlayQueue.repeat = n >= 0;
        TakeLog();
        FailCall(n);
        for (const auto& step : steps) {
            step();
            if (MediaDevice.open) continue;
            ExpectIdle();
            EXPECT_EQ(PlayQueue.repeat, n >= 0 && TheBoxes.shown.empty());
            for (int id : {IDC_FILE_NAME, IDC_LENGTH, IDC_POSITION, IDC_POSITION_UNIT})
                EXPECT_EQ(Text(id), "") << id;
            const size_t sent = TheMci.log.size();
            Tick();
            EXPECT_EQ(TheMci.log.size(), sent) << "a late tick opens nothing";
        }
        const Log log = TakeLog();
        if (n < 0) commands = static_cast<int>(log.size());
        const bool silent = n < 0 || log[n] == "position" || log[n] == "stop" || n == commands - 1;
        EXPECT_EQ(TheBoxes.shown, silent ? Log{} : Log{"error 262"});
    }
    EXPECT_GT(commands, 0);
}

TEST_F(FilePlayerTest, APauseKeepsItsPlaceAndDoesNotOutliveItsDevice) {
    Command(IDC_PAUSE);
    Command(IDC_PLAY);
    Scroll(SB_PAGERIGHT);
    EXPECT_EQ(TakeLog(), Log{}) << "nothing is open, nothing selected";
    ExpectIdle();
    PlayFirst(2);
    Command(IDC_PAUSE);
    EXPECT_FALSE(IsPositionTimerRunning(MainWindow));
    Scroll(SB_PAGERIGHT);
    EXPECT_EQ(TakeLog(), (Log{"mode", "pause", "play from 20 to 20"})) << "moves, stays still";
    Command(IDC_PLAY);
    EXPECT_EQ(TakeLog(), Log{"play"});
    EXPECT_TRUE(IsPositionTimerRunning(MainWindow));

    FileEnds();
    Command(IDC_PAUSE);
    Command(IDC_MODE_WAVE);
    EXPECT_EQ(TakeLog(), Log{"mode"}) << "no pause for a stopped device, no change of mode";
    EXPECT_EQ(Text(IDC_STATUS), "Paused");
    Command(IDC_MODE_MIDI);
    ExpectIdle();
    Command(IDC_MODE_WAVE);
    ExpectShown({{IDC_FILES_LEFT, "0"}, {IDC_LIST_COUNT, "3 Wave Files:"}});
    TakeLog();
    PlayFiles(1, 1);
    EXPECT_EQ(TakeLog(), OpeningOf("b.wav"));
}

TEST_F(FilePlayerTest, ScrollingSeeksAndAnIdleScrollBarRevivesNothing) {
    PlayFirst(3);
    HoldKey(VK_LBUTTON, [] { Scroll(SB_LINERIGHT); });
    EXPECT_EQ(TakeLog(), Log{"play from 2"});
    EXPECT_TRUE(MediaDevice.dragging);
    Scroll(SB_ENDSCROLL);
    EXPECT_FALSE(MediaDevice.dragging);
    Scroll(SB_LINELEFT);
    EXPECT_FALSE(MediaDevice.dragging) << "a key has no end of its own";
    Scroll(SB_THUMBTRACK, 500);
    EXPECT_EQ(Text(IDC_POSITION), "1.000 Seconds");
    Scroll(SB_THUMBPOSITION, 500);
    EXPECT_EQ(PositionThumb(MainWindow), 500);
    FailCall(0);
    Tick();  // the queue breaks with files left
    TakeLog();
    Scroll(SB_LINERIGHT);
    Scroll(SB_ENDSCROLL);
    EXPECT_EQ(TakeLog(), Log{});
    EXPECT_FALSE(MediaDevice.dragging);
    ExpectIdle();
}

TEST_F(FilePlayerTest, RepeatStartsTheQueueOver) {
    Command(IDC_REPEAT);
    Command(IDC_REPEAT, BN_DOUBLECLICKED);  // how a quick second click arrives
    EXPECT_FALSE(PlayQueue.repeat);
    Command(IDC_REPEAT);
    PlayFiles(1, 2);
    FileEnds();
    Tick();
    EXPECT_EQ(Text(IDC_FILE_NAME), "c.wav");
    TakeLog();
    Tick();
    Tick();
    EXPECT_EQ(Text(IDC_FILES_LEFT), "1");
    Log log = TakeLog();
    log.resize(4);
    EXPECT_EQ(log, (Log{"mode", "mode", "close", OpeningOf("b.wav")[0]})) << "opened each time";
}

TEST_F(FilePlayerTest, WhileABoxIsOpenTheWindowBehindItIsDeaf) {
    FailCall(0);
    TheBoxes.whileOpen = [] {
        Command(IDC_PLAY);
        Command(IDC_MODE_MIDI);
        SendMessageA(MainWindow, WM_CLOSE, 0, 0);
        Scroll(SB_LINERIGHT);
    };
    PlayFiles(0, 0);
    EXPECT_EQ(TakeLog(), Log{OpeningOf("a.wav")[0]});
    EXPECT_TRUE(PlayMode == IDC_MODE_WAVE && IsWindow(MainWindow));
}

TEST_F(FilePlayerTest, ARequestToEndWithTheQueueGoesWithItsErrorAndItsStop) {
    MediaDevice.playAndExit = true;
    FailCall(0);
    PlayFiles(0, 0);
    EXPECT_FALSE(MediaDevice.playAndExit);
    // The opening of a second round: mode, close, open.
    MediaDevice.playAndExit = true;
    PlayFiles(0, 0);
    EXPECT_TRUE(MediaDevice.playAndExit) << "Play itself keeps the request";
    PlayQueue.repeat = true;
    FileEnds();
    Tick();
    FailCall(2);
    Tick();
    ExpectIdle();
    EXPECT_FALSE(MediaDevice.playAndExit);
    MediaDevice.playAndExit = true;
    Command(IDC_STOP);
    EXPECT_FALSE(MediaDevice.playAndExit);
}

TEST_F(FilePlayerTest, AThumbHeldAtTheEndHoldsTheFile) {
    for (const int files : {1, 2}) {
        Command(IDC_STOP);
        PlayFirst(files);
        Scroll(SB_THUMBTRACK, 1000);
        FileEnds();
        TakeLog();
        Tick();
        Scroll(SB_THUMBTRACK, 999);
        EXPECT_EQ(TakeLog(), Log{"play from 1998"});
        EXPECT_EQ(Text(IDC_FILE_NAME), "a.wav");
        Scroll(SB_THUMBPOSITION, 1000);
        Tick();
        EXPECT_EQ(Text(IDC_FILE_NAME), files == 2 ? "b.wav" : "a.wav");
        EXPECT_EQ(Text(IDC_STATUS), files == 2 ? "Playing" : "Ready");
        FilePlays();
    }
}

TEST_F(FilePlayerTest, WhatCannotPlayIsToldInWordsThatFit) {
    FailCall(0, kErrorWithoutText);
    PlayFiles(0, 0);
    // Its player in the platform would take the program with it: it is not opened.
    const char wave[] = "RIFF\x24\0\0\0WAVEfmt \x10\0\0\0\x55\0\1\0\x22\x56\0\0\0\0\0\0\1\0\0";
    std::ofstream(WaveFilesPath + "a.wav", std::ios::binary).write(wave, sizeof wave);
    PlayFiles(0, 0);
    DriverAvailable.wave = false;
    PlayQueue.repeat = true;
    PlayFiles(1, 1);
    EXPECT_FALSE(PlayQueue.repeat);
    ExpectIdle();
    EXPECT_EQ(TakeLog(), Log{OpeningOf("a.wav")[0]});
    ShowMessage(std::string(300, 'x'));
    EXPECT_EQ(TheBoxes.shown, (Log{"error " + std::to_string(MCIERR_INTERNAL),
                                   "error " + std::to_string(MCIERR_INVALID_FILE),
                                   "No MCI Sound driver installed. Can't play file!",
                                   std::string(kMessageTextSize - 1, 'x')}));
}

TEST_F(FilePlayerTest, AQueueThatEndsTheProgramWaitsForAnOpenBox) {
    PlayFirst(1);
    MediaDevice.playAndExit = true;
    FileEnds();
    TheBoxes.whileOpen = Tick;
    ShowMessage("box");
    ASSERT_NE(MainWindow, nullptr);
    EXPECT_EQ(TakeLog(), Log{"mode"});
    Tick();
    EXPECT_EQ(MainWindow, nullptr);
    EXPECT_EQ(TakeLog(), (Log{"mode", "stop", "close"}));
    MSG message;
    EXPECT_TRUE(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}
