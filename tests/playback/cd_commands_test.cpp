// The CD player's buttons and scroll bar: which commands reach the drive, and what becomes of a
// sequence of them when one fails.
#include "playback/cd_commands.h"

#include <functional>

#include "playback/media_device.h"
#include "playback/play_queue.h"
#include "playback/player_timers.h"
#include "tests/playback/cd_player_fixture.h"

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

using CdCommandsTest = CdPlayerTest;

// Every command of every sequence fails once. A mark in front of a command says what that does: "!"
// ends the sequence, "~" is not told to the user; otherwise it is told once and the sequence goes
// on.
TEST_F(CdCommandsTest, EachFailureIsToldAtMostOnceAndSequencesGoOn) {
    const auto asItIs = [](HWND) {};
    const auto playing = [](HWND) { TickPlaying(1, 3); };
    const auto removed = [](HWND) { TickWithoutDisc(); };
    const auto inserted = [](HWND) {
        TickWithoutDisc();
        InsertDisc({60});
    };
    const auto paused = [](HWND window) {
        TickPlaying(1, 3);
        OnCdPause(window);
    };
    const struct {
        const char* name;
        std::function<void(HWND)> prepare;
        std::function<void(HWND)> act;
        Log commands;
    } cases[] = {
        {"open",
         CloseCdPlayer,
         OpenCdPlayer,
         {"!~open", "format 10", "can eject", "!~present", "~length", "!tracks", "~length 1",
          "~length 2"}},
        {"new disc",
         inserted,
         CdStatusTick,
         {"!mode", "!present", "~length", "!tracks", "~length 1"}},
        {"enter mode", asItIs, ShowCdPlayer, {"!mode", "present", "~tracks", "~length"}},
        {"tick", playing, CdStatusTick, {"!mode", "present", "~position"}},
        {"play", asItIs, [](HWND) { OnCdPlay(MainWindow, 2); }, {"play 2 0:00.00"}},
        {"pause", playing, OnCdPause, {"!mode", "pause"}},
        {"resume", paused, OnCdPause, {"play"}},
        {"stop", paused, OnCdStop, {"play", "stop"}},
        {"skip back", playing, OnSkipBack, {"!position", "play 1 0:00.00"}},
        {"skip forward", playing, OnSkipForward, {"play 2 0:00.00"}},
        {"eject", playing, OnEject, {"stop", "~door open"}},
        {"load", removed, OnEject, {"~door closed"}},
        {"seek",
         playing,
         [](HWND) { OnCdScroll(MainWindow, SB_PAGERIGHT, 0); },
         {"!mode", "!mode", "play 1 0:11.30"}},
        {"close", playing, CloseCdPlayer, {"~mode", "stop", "close"}},
    };
    for (const auto& c : cases) {
        Log commands;
        for (const std::string& marked : c.commands) {
            commands.push_back(marked.substr(marked.find_first_not_of("!~")));
        }
        for (int n = -1; n < static_cast<int>(commands.size()); ++n) {
            SCOPED_TRACE(c.name + (" " + std::to_string(n)));
            Start({60, 60});
            c.prepare(MainWindow);
            TakeLog();
            TheBoxes.shown.clear();
            FailCall(n, commands[std::max(n, 0)] == "open" ? MCIERR_CANNOT_LOAD_DRIVER
                                                           : MCIERR_HARDWARE);
            c.act(MainWindow);
            const std::string mark = n < 0 ? "~" : c.commands[n];
            EXPECT_EQ(TheBoxes.shown.size(), mark.find('~') == std::string::npos ? 1u : 0u);
            const bool ends = mark.find('!') != std::string::npos;
            const auto end = ends ? commands.begin() + n + 1 : commands.end();
            EXPECT_EQ(TakeLog(), Log(commands.begin(), end));
            FailCall(-1);
            // A failing status query is told again after one that succeeds.
            CdStatusTick(MainWindow);
        }
    }
}

TEST_F(CdCommandsTest, PausedDiscReportsStopAndResumesWhateverTheTrack) {
    Start({100, 200});
    OnTrackButton(MainWindow, IDC_TRACK_FIRST + 1);
    FailCall(1);  // the drive refuses the pause
    OnCdPause(MainWindow);
    CdStatusTick(MainWindow);
    ExpectShown({{IDC_CD_STATUS, "Playing"}});
    OnCdPause(MainWindow);
    CdStatusTick(MainWindow);
    ExpectShown({{IDC_CD_STATUS, "Paused"}, {IDC_TRACK_NUMBER, "2"}});
    TakeLog();
    OnCdPlay(MainWindow, 1);
    OnCdPause(MainWindow);
    EXPECT_THAT(TakeLog(), ElementsAre("play", "mode", "pause"));
    OnTrackButton(MainWindow, IDC_TRACK_FIRST + 1);
    EXPECT_FALSE(CdPlayer.paused);
    OnCdPause(MainWindow);
    OnCdStop(MainWindow);
    CdStatusTick(MainWindow);
    ExpectShown({{IDC_CD_STATUS, "Ready"}});
    EXPECT_TRUE(IsTrackHighlighted(IDC_TRACK_FIRST));
    Drive.mode = MCI_MODE_STOP;
    OnCdPause(MainWindow);
    EXPECT_FALSE(CdPlayer.paused) << "a disc that does not play is not paused";
    OnCdPlay(MainWindow, 2);
    OnCdPause(MainWindow);
    TickIn(MCI_MODE_PLAY);  // another program sets the disc going
    EXPECT_FALSE(CdPlayer.paused);
}

TEST_F(CdCommandsTest, ATrackThatDoesNotPlayChangesNothing) {
    Start({100, 200, 300});
    const auto expectSecondTrack = [] {
        EXPECT_EQ(CdPlayer.currentTrack, 2);
        EXPECT_TRUE(IsTrackHighlighted(IDC_TRACK_FIRST + 1));
    };
    OnCdPlay(MainWindow, 2);
    for (const bool paused : {false, true}) {
        if (paused) OnCdPause(MainWindow);
        FailCall(0);
        TheBoxes.whileOpen = expectSecondTrack;
        OnTrackButton(MainWindow, IDC_TRACK_FIRST + 2);
        expectSecondTrack();
        EXPECT_EQ(CdPlayer.paused, paused);
        ExpectShown({{IDC_TRACK_NUMBER, "2"}, {IDC_SCROLL_RIGHT, "3:20"}});
        EXPECT_EQ(Range(), 200);
    }
    EXPECT_EQ(TheBoxes.shown.size(), 2u);

    // Skip back knows a track that no tick has seen.
    TickPlaying(2, 1);
    SetPlaying(3, 1);
    OnSkipBack(MainWindow);
    EXPECT_EQ(TakeLog().back(), "play 2 0:00.00");
    EXPECT_EQ(Thumb(), 0);
    OnCdPlay(MainWindow, 100);
    EXPECT_EQ(TakeLog().back(), "play 2 0:00.00") << "no track has that number";
}

TEST_F(CdCommandsTest, ScrollBarSeeksOnReleaseAndNeverSticks) {
    Start({100, 60});
    OnCdScroll(MainWindow, SB_THUMBTRACK, 30);
    OnCdScroll(MainWindow, SB_THUMBPOSITION, 30);
    EXPECT_THAT(TakeLog(), ElementsAre("mode")) << "a disc that does not play is not moved";

    TickPlaying(1, 10);
    TakeLog();
    OnCdScroll(MainWindow, SB_THUMBTRACK, 75);
    ExpectShown({{IDC_TIME, "1:15"}, {IDC_TOTAL_REMAINING, "1:25"}});
    CdStatusTick(MainWindow);
    ExpectShown({{IDC_TIME, "1:15"}});
    OnCdScroll(MainWindow, SB_THUMBPOSITION, 75);
    OnCdScroll(MainWindow, SB_ENDSCROLL, 0);
    EXPECT_THAT(TakeLog(),
                ElementsAre("mode", "mode", "present", "position", "mode", "play 1 1:15.30"));
    EXPECT_EQ(Thumb(), 75);

    // Keys: no button of the mouse is down, so no end of scroll will follow.
    const std::pair<int, const char*> keys[] = {{SB_PAGERIGHT, "1:23.30"}, {SB_LINELEFT, "1:22.30"},
                                                {SB_PAGELEFT, "1:14.30"},  {SB_RIGHT, "1:40.30"},
                                                {SB_LINERIGHT, "1:40.30"}, {SB_LEFT, "0:00.30"},
                                                {SB_LINELEFT, "0:00.30"}};
    for (const auto& [key, place] : keys) {
        OnCdScroll(MainWindow, key, 0);
        EXPECT_THAT(TakeLog(), ElementsAre("mode", "mode", std::string("play 1 ") + place));
    }
    HoldKey(VK_LBUTTON, [] { OnCdScroll(MainWindow, SB_PAGERIGHT, 0); });
    EXPECT_EQ(Thumb(), 8);
    EXPECT_THAT(TakeLog(), ElementsAre("mode")) << "an arrow held by the mouse";
    OnCdScroll(MainWindow, SB_ENDSCROLL, 0);
    EXPECT_EQ(TakeLog().back(), "play 1 0:08.30");

    OnCdScroll(MainWindow, SB_THUMBTRACK, 50);
    Drive.mode = MCI_MODE_STOP;  // the disc ends under the thumb
    OnCdScroll(MainWindow, SB_THUMBPOSITION, 50);
    TickPlaying(2, 5);
    ExpectShown({{IDC_TIME, "0:05"}});

    // Whether the disc's last second holds the place, only the drive knows.
    for (const auto& [lastFrame, reached] : {std::pair{30u, 60}, std::pair{29u, 59}}) {
        Drive.lastFrame = lastFrame;
        OnCdScroll(MainWindow, SB_RIGHT, 0);
        EXPECT_EQ(Thumb(), reached);
        EXPECT_EQ(MCI_TMSF_SECOND(Drive.position), reached % 60);
    }
    EXPECT_THAT(TheBoxes.shown, IsEmpty());
}

TEST_F(CdCommandsTest, CommandsWithoutADeviceAskForOne) {
    const Log asked = {"? Could not open CD device when starting Tarnwell. Try it again?"};
    const Log stillNone = {
        asked[0], "Still can't open CD device. Make sure there is a disc in your CD-ROM drive."};
    DiscToc disc;
    const std::function<void()> commands[] = {
        [] { OnCdPlay(MainWindow, 0); },   [] { OnCdPause(MainWindow); },
        [] { OnCdStop(MainWindow); },      [] { OnSkipBack(MainWindow); },
        [] { OnSkipForward(MainWindow); }, [&] { EXPECT_FALSE(PrepareEntry(MainWindow, disc)); }};
    InstallFakeDrive({60});
    Drive.openError = MCIERR_CANNOT_LOAD_DRIVER;
    OnCdScroll(MainWindow, SB_LINERIGHT, 0);
    EXPECT_THAT(TakeLog(), IsEmpty());
    for (const bool yes : {false, true}) {
        for (const auto& command : commands) {
            TheBoxes = {};
            TheBoxes.answerOk = yes;
            command();
            EXPECT_EQ(TheBoxes.shown, yes ? stillNone : asked);
        }
    }
    Drive.openError = 0;
    RemoveDisc();
    TheBoxes = {};
    EXPECT_FALSE(PrepareEntry(MainWindow, disc));
    EXPECT_EQ(TheBoxes.shown, stillNone) << "open, but without a disc";
    CloseCdPlayer(MainWindow);

    InsertDisc({60});
    OnSkipForward(MainWindow);
    EXPECT_EQ(TakeLog().back(), "play 1 0:00.00");
    EXPECT_TRUE(IsShown(IDC_TRACK_FIRST));
    EXPECT_TRUE(PrepareEntry(MainWindow, disc));
    EXPECT_EQ(disc.totalSeconds, 60);

    CloseCdPlayer(MainWindow);
    DriverAvailable.cdAudio = false;
    TheBoxes = {};
    commands[0]();
    EXPECT_THAT(TheBoxes.shown, ElementsAre("No MCI CD audio driver installed!"));
}

// Another program asks for a track of a disc that no tick has seen: just put in, or swapped.
TEST_F(CdCommandsTest, RequestsLookAtTheDriveFirst) {
    for (const bool behindDialog : {false, true}) {
        SCOPED_TRACE(behindDialog);
        Start({100, 200});
        TickWithoutDisc();
        InsertDisc({70, 80, 90});
        OnCdPlayRequest(MainWindow, 3, behindDialog);
        EXPECT_THAT(TakeLog(), Contains("play 3 0:00.00"));
        ExpectShown({{IDC_TRACK_LENGTH, "1:30"}});
        InsertDisc({50, 40});
        OnCdPlayRequest(MainWindow, 0, behindDialog);
        EXPECT_THAT(TakeLog(), Contains("play 1 0:00.00"));
        ExpectShown({{IDC_TRACK_LENGTH, "0:50"}});
        CloseCdPlayer(MainWindow);
        TheBoxes = {};
        OnCdPlayRequest(MainWindow, 1, behindDialog);
        EXPECT_EQ(TheBoxes.shown.empty(), behindDialog) << "no question over a dialog";
    }
}

// The file's sound, its read-outs and its scroll bar go on, also when the drive fails.
TEST_F(CdCommandsTest, RequestsBehindADialogLeaveAPlayingFileAlone) {
    for (const int failing : {0, 4, -1}) {
        SCOPED_TRACE(failing);
        InstallFakeDrive({100, 200});
        OpenTestWindow(IDC_MODE_WAVE, {"a.wav"});
        PlayFiles(0, 0);
        PlayQueue.repeat = true;
        SetPositionThumb(MainWindow, 640);
        TickPlaying(1, 5);
        InsertDisc({70, 80, 90});
        Drive.mode = MCI_MODE_PLAY;  // exchanged and set going since the last look
        FailCall(failing);
        TakeLog();
        OnCdPlayRequest(MainWindow, 3, true);
        EXPECT_THAT(TakeLog(), Contains("play 3 0:00.00"));
        EXPECT_TRUE(MediaDevice.open && IsPositionTimerRunning(MainWindow) && PlayQueue.repeat);
        ExpectShown({{IDC_STATUS, "Playing"}, {IDC_FILE_NAME, "a.wav"}});
        EXPECT_EQ(Range(), 1000);
        EXPECT_EQ(Thumb(), 640);
        EXPECT_FALSE(IsShown(IDC_TRACK_FIRST));
    }
    EXPECT_EQ(CdPlayer.toc.trackCount, 3);
    Command(IDC_MODE_CDPLAYER);
    ExpectShown({{IDC_TRACK_NUMBER, "3"}});
    EXPECT_EQ(Range(), 90);
}
