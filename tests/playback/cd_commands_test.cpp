// The CD player's buttons and scroll bar: which commands reach the drive, and what becomes of a
// sequence of them when one fails.
#include "playback/cd_player.h"

#include <functional>

#include "app/program_state.h"
#include "playback/cd_device.h"
#include "playback/cd_player_state.h"
#include "playback/media_device.h"
#include "resources/ids.h"
#include "tests/playback/cd_player_fixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

using CdCommandsTest = CdPlayerTest;

// Every command of every sequence fails once. A mark in front of a command says what that does: "!"
// ends the sequence, "~" is not told to the user; otherwise it is told once and the sequence goes
// on.
TEST_F(CdCommandsTest, EachFailureIsToldAtMostOnceAndSequencesGoOn) {
    const auto playing = [] {
        SetPlaying(1, 3);
        CdStatusTick();
    };
    const auto removed = [] {
        RemoveDisc();
        CdStatusTick();
    };
    const auto paused = [] { CdPlayer.paused = true; };
    const struct {
        const char* name;
        std::function<void()> prepare;
        std::function<void()> act;
        std::vector<std::string> commands;
    } cases[] = {
        {"open",
         CloseCdPlayer,
         OpenCdPlayer,
         {"!~open", "format 10", "can eject", "!~present", "!tracks", "~length", "~length 1",
          "~length 2"}},
        {"new disc",
         [&] {
             removed();
             InsertDisc({60});
         },
         CdStatusTick,
         {"!mode", "!present", "!tracks", "~length", "~length 1"}},
        {"enter mode", [] {}, ShowCdPlayer, {"!mode", "present", "~tracks", "~length"}},
        {"tick", playing, CdStatusTick, {"!mode", "present", "~position"}},
        {"play", [] {}, [] { OnCdPlay(2); }, {"play 2 0:00.00"}},
        {"pause", playing, OnCdPause, {"!mode", "pause"}},
        {"resume", paused, OnCdPause, {"play"}},
        {"stop", paused, OnCdStop, {"play", "stop"}},
        {"skip back", playing, OnSkipBack, {"!position", "play 1 0:00.00"}},
        {"skip forward", playing, OnSkipForward, {"play 2 0:00.00"}},
        {"eject", playing, OnEject, {"stop", "~door open"}},
        {"load", removed, OnEject, {"~door closed"}},
        {"seek",
         playing,
         [] {
             OnCdScroll(SB_THUMBTRACK, 9);
             OnCdScroll(SB_THUMBPOSITION, 9);
         },
         {"!mode", "!mode", "play 1 0:09.30"}},
        {"close", playing, CloseCdPlayer, {"~mode", "stop", "close"}},
    };
    for (const auto& c : cases) {
        std::vector<std::string> commands;
        for (const std::string& marked : c.commands) {
            commands.push_back(marked.substr(marked.find_first_not_of("!~")));
        }
        for (int n = -1; n < static_cast<int>(commands.size()); ++n) {
            SCOPED_TRACE(c.name + (" " + std::to_string(n)));
            CdPlayer = {};
            Start({60, 60});
            c.prepare();
            TakeLog();
            Messages.clear();
            Drive.failAt = n;
            Drive.failure =
                commands[std::max(n, 0)] == "open" ? MCIERR_CANNOT_LOAD_DRIVER : MCIERR_HARDWARE;
            c.act();
            const std::string mark = n < 0 ? "~" : c.commands[n];
            EXPECT_EQ(Messages.size(), mark.find('~') == std::string::npos ? 1u : 0u);
            const bool ends = mark.find('!') != std::string::npos;
            const auto end = ends ? commands.begin() + n + 1 : commands.end();
            EXPECT_EQ(TakeLog(), std::vector<std::string>(commands.begin(), end));
            Drive.failAt = -1;
            CdStatusTick();
            CloseCdPlayer();
        }
    }
}

TEST_F(CdCommandsTest, PausedDiscReportsStopAndResumesWhateverTheTrack) {
    Start({100, 200});
    OnTrackButton(IDC_TRACK_FIRST + 1);
    OnCdPause();
    CdStatusTick();
    ExpectShown({{IDC_CD_STATUS, "Paused"}, {IDC_TRACK_NUMBER, "2"}});
    TakeLog();
    OnCdPlay(1);
    EXPECT_THAT(TakeLog(), ElementsAre("play"));
    Drive.mode = MCI_MODE_STOP;
    OnCdPause();
    EXPECT_FALSE(CdPlayer.paused) << "a disc that does not play is not paused";
}

TEST_F(CdCommandsTest, ScrollBarSeeksOnReleaseAndNeverSticks) {
    Start({100, 60});
    OnCdScroll(SB_THUMBTRACK, 30);
    OnCdScroll(SB_THUMBPOSITION, 30);
    EXPECT_THAT(TakeLog(), ElementsAre("mode")) << "a disc that does not play is not moved";

    SetPlaying(1, 10);
    CdStatusTick();
    TakeLog();
    OnCdScroll(SB_THUMBTRACK, 75);
    ExpectShown({{IDC_TIME, "1:15"}, {IDC_TOTAL_REMAINING, "1:25"}});
    CdStatusTick();
    ExpectShown({{IDC_TIME, "1:15"}});
    OnCdScroll(SB_THUMBPOSITION, 75);
    OnCdScroll(SB_ENDSCROLL, 0);
    EXPECT_THAT(TakeLog(),
                ElementsAre("mode", "mode", "present", "position", "mode", "play 1 1:15.30"));
    EXPECT_EQ(Thumb(), 75);

    // Keys: no button of the mouse is down, so no end of scroll will follow.
    OnCdScroll(SB_PAGERIGHT, 0);
    EXPECT_THAT(TakeLog(), ElementsAre("mode", "mode", "play 1 1:23.30"));
    for (int i = 0; i < 5; ++i)
        OnCdScroll(SB_PAGERIGHT, 0);
    EXPECT_EQ(Thumb(), 100);
    EXPECT_EQ(TakeLog().back(), "play 1 1:40.30");
    OnCdScroll(SB_THUMBTRACK, 0);
    OnCdScroll(SB_THUMBPOSITION, 0);
    EXPECT_EQ(TakeLog().back(), "play 1 0:00.30");

    OnCdScroll(SB_THUMBTRACK, 50);
    Drive.mode = MCI_MODE_STOP;  // the disc ends under the thumb
    OnCdScroll(SB_THUMBPOSITION, 50);
    SetPlaying(2, 5);
    CdStatusTick();
    ExpectShown({{IDC_TIME, "0:05"}});
}

TEST_F(CdCommandsTest, CommandsWithoutADeviceAskForOne) {
    InstallFakeDrive({60});
    Drive.openError = MCIERR_CANNOT_LOAD_DRIVER;
    OpenCdPlayer();
    ShowCdPlayer();
    Consent = false;
    for (auto command : {OnCdPause, OnCdStop, OnSkipBack, OnSkipForward, OnEntry})
        command();
    OnCdPlay(0);
    EXPECT_EQ(Questions.size(), 6u);
    EXPECT_EQ(Questions[0], "Could not open CD device when starting Tarnwell. Try it again?");
    EXPECT_THAT(Messages, IsEmpty());

    const char* const kStill =
        "Still can't open CD device. Make sure there is a disc in your CD-ROM drive.";
    Consent = true;
    OnCdPlay(0);
    EXPECT_THAT(Messages, ElementsAre(kStill));
    Drive.openError = 0;
    RemoveDisc();
    OnEntry();
    EXPECT_THAT(Messages, ElementsAre(kStill, kStill)) << "open, but without a disc";
    CloseCdPlayer();

    InsertDisc({60});
    TakeLog();
    OnSkipForward();
    EXPECT_EQ(TakeLog().back(), "play 1 0:00.00");
    EXPECT_TRUE(IsShown(IDC_TRACK_FIRST));

    CloseCdPlayer();
    DriverAvailable.cdAudio = false;
    Messages.clear();
    OnCdPlay(0);
    EXPECT_THAT(Messages, ElementsAre("No MCI CD audio driver installed!"));
}

TEST_F(CdCommandsTest, RequestsUnderADialogOfAFileModeTouchNoControl) {
    Start({100, 200});
    PlayMode = IDC_MODE_WAVE;
    SetScrollRange(GetDlgItem(MainWindow, IDC_SCROLL), SB_CTL, 0, 1000, FALSE);
    SetScrollPos(GetDlgItem(MainWindow, IDC_SCROLL), SB_CTL, 640, FALSE);
    ShowWindow(GetDlgItem(MainWindow, IDC_TRACK_FIRST), SW_HIDE);
    InsertDisc({70, 80, 90});
    OnCdPlayBehindDialog(3);
    EXPECT_EQ(TakeLog().back(), "play 3 0:00.00");
    EXPECT_EQ(PlayerDiscToc().trackCount, 3);
    EXPECT_EQ(Range(), 1000);
    EXPECT_EQ(Thumb(), 640);
    EXPECT_FALSE(IsShown(IDC_TRACK_FIRST));

    PlayMode = IDC_MODE_CDPLAYER;
    ShowCdPlayer();
    ExpectShown({{IDC_TRACK_NUMBER, "3"}});
    OnCdPlayBehindDialog(1);
    CdStatusTick();
    ExpectShown({{IDC_TRACK_NUMBER, "1"}});
    EXPECT_EQ(Range(), 70);
}
