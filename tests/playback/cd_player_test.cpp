// The CD player against a drive that answers as it is told: which commands reach it, what the
// window shows, and what becomes of both when a command fails or the disc changes.
#include "playback/cd_player.h"

#include <gmock/gmock.h>

#include <functional>

#include "app/app_directory.h"
#include "app/program_state.h"
#include "cddb/database_changes.h"
#include "cddb/disc_lookup.h"
#include "playback/cd_device.h"
#include "playback/cd_player_state.h"
#include "playback/media_device.h"
#include "resources/ids.h"
#include "tests/playback/fake_drive.h"
#include "ui/boxes.h"
#include "ui/dialog_helpers.h"

using testing::ElementsAre;
using testing::IsEmpty;

static std::vector<std::string> Messages;
static std::vector<std::string> Questions;
static bool Consent;

static void NoteMessage(HWND) {
    Messages.push_back(MessageText);
}
static void NoteQuestion(HWND) {
    Questions.push_back(MessageText);
    QuestionAnswer = Consent ? 0 : 1;
}

// A main window of plain controls with the real one's numbers.
static HWND CreatePlainWindow() {
    HWND window =
        CreateWindowA("STATIC", "", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    for (int id = IDC_ABOUT; id <= IDC_DIRECTORY; ++id) {
        CreateWindowA(id == IDC_SCROLL ? "SCROLLBAR" : "STATIC", "", WS_CHILD, 0, 0, 1, 1, window,
                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
    }
    return window;
}

static std::string DatabasePath() {
    return InAppDirectory("tarnwell.dat");
}

class CdPlayerTest : public testing::Test {
protected:
    void SetUp() override {
        char directory[MAX_PATH];
        GetTempPathA(MAX_PATH, directory);
        AppDirectory = std::string(directory) + "cd_player_test\\";
        CreateDirectoryA(AppDirectory.c_str(), nullptr);
        DeleteFileA(DatabasePath().c_str());
        Boxes = {NoteMessage, NoteQuestion};
        Messages.clear();
        Questions.clear();
        Consent = true;
        CdPlayer = {};
        DriverAvailable.cdAudio = true;
        MainWindow = CreatePlainWindow();
        PlayMode = IDC_MODE_CDPLAYER;
    }
    void TearDown() override {
        Drive.failAt = -1;
        CloseCdPlayer();
        DestroyWindow(MainWindow);
        MainWindow = nullptr;
        DeleteFileA(DatabasePath().c_str());
    }

    // A drive with this disc, open, as cdplayer mode shows it.
    void Start(std::vector<DWORD> trackSeconds) {
        InstallFakeDrive(std::move(trackSeconds));
        OpenCdPlayer();
        ShowCdPlayer();
        TakeLog();
    }
    std::string Shown(int id) { return ControlText(MainWindow, id); }
    bool IsShown(int id) {
        return (GetWindowLongA(GetDlgItem(MainWindow, id), GWL_STYLE) & WS_VISIBLE) != 0;
    }
    int Thumb() { return GetScrollPos(GetDlgItem(MainWindow, IDC_SCROLL), SB_CTL); }
    int Range() {
        int low = 0;
        int high = 0;
        GetScrollRange(GetDlgItem(MainWindow, IDC_SCROLL), SB_CTL, &low, &high);
        return high;
    }
    void Catalogue(const std::string& artist, const std::string& disc) {
        EntryFields fields;
        fields.artist = artist;
        fields.discName = disc;
        for (int i = 0; i < kMaxTracks; ++i)
            fields.trackNames[i] = disc + " " + char('a' + i % 26);
        CopyDiscToc(PlayerDiscToc());
        FindDisc(0, 0);
        ASSERT_EQ(AppendEntry(fields), DatabaseResult::ok);
    }
};

TEST_F(CdPlayerTest, OpeningReadsTheDisc) {
    InstallFakeDrive({100, 200});
    OpenCdPlayer();
    EXPECT_THAT(TakeLog(), ElementsAre("open", "format 10", "can eject", "present", "tracks",
                                       "length", "length 1", "length 2"));
    ShowCdPlayer();
    EXPECT_THAT(TakeLog(), ElementsAre("mode", "present", "tracks", "length"))
        << "the lengths are not read again";
    EXPECT_EQ(Shown(IDC_CD_STATUS), "Ready");
    EXPECT_EQ(Shown(IDC_TOTAL_TRACKS), "2");
    EXPECT_EQ(Shown(IDC_DISC_LENGTH), "5:00");
    EXPECT_EQ(Shown(IDC_ENTRY_LABEL), "Add Entry");
    EXPECT_TRUE(IsShown(IDC_EJECT));
    EXPECT_TRUE(IsShown(IDC_TRACK_FIRST + 1));
    EXPECT_FALSE(IsShown(IDC_TRACK_FIRST + 2));
    CloseCdPlayer();
    EXPECT_THAT(TakeLog(), ElementsAre("mode", "close"));
    EXPECT_THAT(Messages, IsEmpty());
}

TEST_F(CdPlayerTest, EmptyAndMissingDrivesAreSilentAtStart) {
    InstallFakeDrive({});
    RemoveDisc();
    OpenCdPlayer();
    ShowCdPlayer();
    EXPECT_EQ(Shown(IDC_CD_STATUS), "Empty");
    EXPECT_EQ(Shown(IDC_EJECT_LABEL), "Load");
    CloseCdPlayer();

    for (MCIERROR error : {MCIERR_CANNOT_LOAD_DRIVER, MCIERR_CANNOT_LOAD_DRIVER + (7 << 16)}) {
        Drive.openError = error;
        OpenCdPlayer();
        CdStatusTick();
        EXPECT_FALSE(IsCdOpen());
    }
    EXPECT_THAT(Messages, IsEmpty());
    Drive.openError = MCIERR_HARDWARE;
    OpenCdPlayer();
    EXPECT_THAT(Messages, ElementsAre("error 262"));
}

// Every command of every sequence fails once. A mark in front of a command says what that does: "!"
// ends the sequence, "~" is not told to the user; otherwise it is told once and the sequence goes
// on.
TEST_F(CdPlayerTest, EachFailureIsToldAtMostOnceAndSequencesGoOn) {
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

TEST_F(CdPlayerTest, FailingStatusQueriesAreToldOnceUntilOneSucceeds) {
    Start({60});
    const auto failingTick = [](int n) {
        TakeLog();
        Drive.failAt = n;
        CdStatusTick();
        Drive.failAt = -1;
    };
    for (int query : {0, 1}) {
        Messages.clear();
        for (int tick = 0; tick < 3; ++tick)
            failingTick(query);
        EXPECT_EQ(Messages.size(), 1u);
        CdStatusTick();
        failingTick(query);
        EXPECT_EQ(Messages.size(), 2u);
        CdStatusTick();
    }
}

TEST_F(CdPlayerTest, ReadoutsFollowThePlayingTrack) {
    Start({100, 200, 300});
    Catalogue("Artist", "Disc");
    OnCdPlay(0);
    EXPECT_THAT(TakeLog(), ElementsAre("play 1 0:00.00"));
    EXPECT_EQ(Shown(IDC_DISC_TITLE), "Artist - Disc");
    EXPECT_EQ(Shown(IDC_TRACK_TITLE), "Disc a");
    EXPECT_EQ(Range(), 100);

    SetPlaying(3, 65);
    CdStatusTick();
    EXPECT_EQ(Shown(IDC_CD_STATUS), "Playing");
    EXPECT_EQ(Shown(IDC_TRACK_NUMBER), "3");
    EXPECT_EQ(Shown(IDC_TRACK_TITLE), "Disc c");
    EXPECT_EQ(Shown(IDC_TIME), "1:05");
    EXPECT_EQ(Shown(IDC_REMAINING), "3:55");
    EXPECT_EQ(Shown(IDC_TOTAL_PLAYING), "6:05");
    EXPECT_EQ(Shown(IDC_TOTAL_REMAINING), "3:55");
    EXPECT_EQ(Shown(IDC_TRACK_LENGTH), "5:00");
    EXPECT_EQ(Shown(IDC_SCROLL_RIGHT), "5:00");
    EXPECT_EQ(Shown(IDC_DISC_LENGTH), "10:00");
    EXPECT_EQ(Range(), 300);
    EXPECT_EQ(Thumb(), 65);
    EXPECT_TRUE(IsTrackHighlighted(IDC_TRACK_FIRST + 2));

    // While the drive seeks, the state is "Ready" and blank; then everything comes back.
    Drive.mode = MCI_MODE_SEEK;
    CdStatusTick();
    EXPECT_EQ(Shown(IDC_TRACK_NUMBER), "");
    SetPlaying(3, 70);
    CdStatusTick();
    EXPECT_EQ(Shown(IDC_TRACK_NUMBER), "3");
    EXPECT_EQ(Shown(IDC_DISC_TITLE), "Artist - Disc");
    EXPECT_EQ(Shown(IDC_TRACK_TITLE), "Disc c");

    OnCdStop();
    CdStatusTick();
    for (int id : {IDC_TRACK_NUMBER, IDC_TIME, IDC_TOTAL_REMAINING, IDC_DISC_TITLE, IDC_TRACK_TITLE,
                   IDC_SCROLL_RIGHT}) {
        EXPECT_EQ(Shown(id), "") << id;
    }
    EXPECT_EQ(Thumb(), 0);
    EXPECT_EQ(CdPlayer.currentTrack, 1);
    RefreshDiscTitles();
    EXPECT_EQ(Shown(IDC_TRACK_TITLE), "Disc a");
    EXPECT_EQ(Shown(IDC_ENTRY_LABEL), "Edit Entry");
}

TEST_F(CdPlayerTest, PausedDiscReportsStopAndResumes) {
    Start({100, 200});
    OnTrackButton(IDC_TRACK_FIRST + 1);
    OnCdPause();
    CdStatusTick();
    EXPECT_EQ(Shown(IDC_CD_STATUS), "Paused");
    EXPECT_EQ(Shown(IDC_TRACK_NUMBER), "2") << "a pause clears nothing";
    TakeLog();
    OnCdPlay(1);
    EXPECT_THAT(TakeLog(), ElementsAre("play")) << "a paused disc resumes, whatever the track";
    OnCdPause();
    TakeLog();
    OnCdPlay(0);
    EXPECT_THAT(TakeLog(), ElementsAre("play"));
    EXPECT_FALSE(CdPlayer.paused);

    OnCdPause();
    OnCdPause();
    EXPECT_FALSE(CdPlayer.paused);
    Drive.mode = MCI_MODE_STOP;
    OnCdPause();
    EXPECT_FALSE(CdPlayer.paused) << "a disc that does not play is not paused";
}

TEST_F(CdPlayerTest, DiscRemovedWhilePlayingLeavesNothingBehind) {
    Start({100, 200});
    OnCdPlay(2);
    CdStatusTick();
    RemoveDisc();
    CdStatusTick();
    EXPECT_EQ(Shown(IDC_CD_STATUS), "Empty");
    EXPECT_EQ(Shown(IDC_EJECT_LABEL), "Load");
    EXPECT_EQ(Shown(IDC_TIME), "");
    EXPECT_EQ(Shown(IDC_DISC_LENGTH), "");
    EXPECT_EQ(Shown(IDC_TOTAL_TRACKS), "0");
    EXPECT_FALSE(IsShown(IDC_TRACK_FIRST));
    EXPECT_FALSE(IsShown(IDC_TRACK_LABEL_FIRST));
    TakeLog();
    for (auto command : {OnCdPause, OnCdStop, OnSkipBack, OnSkipForward, OnNextPage, OnEntry}) {
        command();
    }
    OnCdPlay(1);
    OnTrackButton(IDC_TRACK_FIRST);
    EXPECT_THAT(TakeLog(), IsEmpty());

    InsertDisc({30});
    CdStatusTick();
    EXPECT_EQ(Shown(IDC_CD_STATUS), "Ready");
    EXPECT_EQ(Shown(IDC_EJECT_LABEL), "Eject");
    EXPECT_EQ(Shown(IDC_DISC_LENGTH), "0:30");
    EXPECT_TRUE(IsShown(IDC_TRACK_FIRST));
    EXPECT_FALSE(IsShown(IDC_TRACK_FIRST + 1));
}

// Between two ticks the disc has become another one, though the drive was never seen without.
TEST_F(CdPlayerTest, DiscSwappedWithinOneTickIsNoticedInEveryState) {
    const struct {
        const char* state;
        void (*prepare)();
    } cases[] = {{"ready", [] {}}, {"playing", [] { OnCdPlay(1); }}, {"paused", [] {
                                                                          OnCdPlay(1);
                                                                          OnCdPause();
                                                                      }}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.state);
        CdPlayer = {};
        Start({100, 200});
        Catalogue("Old", "Disc");
        c.prepare();
        CdStatusTick();
        InsertDisc({111, 222, 333});
        Catalogue("Old", "Disc");
        CdStatusTick();
        EXPECT_EQ(PlayerDiscToc().trackCount, 3);
        EXPECT_FALSE(CdPlayer.paused);
        EXPECT_EQ(Shown(IDC_CD_STATUS), "Ready");
        EXPECT_EQ(Shown(IDC_DISC_TITLE), "") << "the new disc is not known";
        EXPECT_EQ(Shown(IDC_ENTRY_LABEL), "Add Entry");
        EXPECT_EQ(Shown(IDC_DISC_LENGTH), "11:06");
        CdStatusTick();
        EXPECT_EQ(Shown(IDC_CD_STATUS), "Ready");
        CloseCdPlayer();
    }
}

TEST_F(CdPlayerTest, TitleOfAKnownDiscStandsFromTheMomentItComesIn) {
    Start({100, 200});
    Catalogue("Artist", "Disc");
    RemoveDisc();
    CdStatusTick();
    EXPECT_EQ(Shown(IDC_ENTRY_LABEL), "Add Entry");
    InsertDisc({100, 200});
    Drive.mode = MCI_MODE_NOT_READY;  // it spins up
    CdStatusTick();
    Drive.mode = MCI_MODE_STOP;
    CdStatusTick();
    EXPECT_EQ(Shown(IDC_DISC_TITLE), "Artist - Disc");
    EXPECT_EQ(Shown(IDC_ENTRY_LABEL), "Edit Entry");
}

TEST_F(CdPlayerTest, UnreadableWhileSpinningUpIsReadLaterWithoutABox) {
    Start({100});
    RemoveDisc();
    CdStatusTick();
    InsertDisc({100, 200});
    Drive.mode = MCI_MODE_NOT_READY;
    TakeLog();
    Drive.failAt = 2;  // number of tracks
    CdStatusTick();
    EXPECT_EQ(PlayerDiscToc().trackCount, 0);
    Drive.failAt = -1;
    Drive.mode = MCI_MODE_STOP;
    CdStatusTick();
    EXPECT_EQ(PlayerDiscToc().trackCount, 2);
    EXPECT_THAT(Messages, IsEmpty());
}

TEST_F(CdPlayerTest, DiscsOutOfTheOrdinary) {
    Start(std::vector<DWORD>(120, 15315));
    EXPECT_EQ(Shown(IDC_TOTAL_TRACKS), "99");
    EXPECT_EQ(PlayerDiscToc().totalSeconds, static_cast<uint16_t>(99 * 15315));
    for (int page = 0; page < 6; ++page)
        OnNextPage();
    EXPECT_EQ(Shown(IDC_TRACK_LABEL_FIRST), "91");
    EXPECT_TRUE(IsShown(IDC_TRACK_FIRST + 8));
    EXPECT_FALSE(IsShown(IDC_TRACK_FIRST + 9));
    TakeLog();
    OnTrackButton(IDC_TRACK_FIRST + 9);
    OnTrackButton(IDC_TRACK_FIRST + 8);
    EXPECT_THAT(TakeLog(), ElementsAre("play 99 0:00.00"));
    OnSkipForward();
    EXPECT_THAT(TakeLog(), ElementsAre("play 1 0:00.00"));
    OnNextPage();
    EXPECT_EQ(Shown(IDC_TRACK_LABEL_FIRST), "1");
    OnPreviousPage();
    EXPECT_EQ(Shown(IDC_TRACK_LABEL_FIRST), "91");

    // A data track plays as far as the drive says; its length is 0.
    CloseCdPlayer();
    CdPlayer = {};
    Start({0, 60});
    SetPlaying(1, 0);
    CdStatusTick();
    EXPECT_EQ(Shown(IDC_TRACK_LENGTH), "0:00");
    EXPECT_EQ(Range(), 0);
    OnCdScroll(SB_LINERIGHT, 0);
    EXPECT_EQ(Thumb(), 0);

    // The drive answers a track that the disc does not have.
    SetPlaying(255, 1);
    CdStatusTick();
    EXPECT_EQ(Shown(IDC_TRACK_NUMBER), "255");
    TakeLog();
    OnSkipForward();
    EXPECT_THAT(TakeLog(), ElementsAre("play 1 0:00.00"));
}

TEST_F(CdPlayerTest, FifteenTracksNeedNoPageButtons) {
    Start(std::vector<DWORD>(15, 60));
    EXPECT_FALSE(IsShown(IDC_NEXT_PAGE));
    EXPECT_TRUE(IsShown(IDC_TRACK_LAST));
    InsertDisc(std::vector<DWORD>(16, 60));
    CdStatusTick();
    EXPECT_TRUE(IsShown(IDC_NEXT_PAGE));
    EXPECT_TRUE(IsShown(IDC_PREVIOUS_PAGE_LABEL));
    OnNextPage();
    EXPECT_TRUE(IsShown(IDC_TRACK_FIRST));
    EXPECT_FALSE(IsShown(IDC_TRACK_FIRST + 1));
}

TEST_F(CdPlayerTest, SkipBackGoesByTwoSeconds) {
    Start({60, 60, 60});
    const struct {
        DWORD track, seconds;
        const char* played;
    } cases[] = {{2, 2, "play 1 0:00.00"},
                 {2, 3, "play 2 0:00.00"},
                 {1, 2, "play 3 0:00.00"},
                 {1, 3, "play 1 0:00.00"}};
    for (const auto& c : cases) {
        SetPlaying(c.track, c.seconds);
        CdStatusTick();
        TakeLog();
        OnSkipBack();
        EXPECT_THAT(TakeLog(), ElementsAre("position", c.played));
    }
}

TEST_F(CdPlayerTest, ScrollBarSeeksOnReleaseAndNeverSticks) {
    Start({100, 60});
    OnCdScroll(SB_THUMBTRACK, 30);
    OnCdScroll(SB_THUMBPOSITION, 30);
    EXPECT_THAT(TakeLog(), ElementsAre("mode")) << "a disc that does not play is not moved";

    SetPlaying(1, 10);
    CdStatusTick();
    TakeLog();
    OnCdScroll(SB_THUMBTRACK, 75);
    EXPECT_EQ(Shown(IDC_TIME), "1:15");
    EXPECT_EQ(Shown(IDC_TOTAL_REMAINING), "1:25");
    CdStatusTick();
    EXPECT_EQ(Shown(IDC_TIME), "1:15") << "the tick leaves a held thumb alone";
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
    EXPECT_EQ(Shown(IDC_TIME), "0:05");
}

TEST_F(CdPlayerTest, CommandsWithoutADeviceAskForOne) {
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

TEST_F(CdPlayerTest, ReturningToTheModeFindsThePauseOrAnotherDisc) {
    Start({100, 200});
    OnCdPlay(2);
    OnCdPause();
    ShowCdPlayer();
    EXPECT_EQ(Shown(IDC_CD_STATUS), "Paused");
    EXPECT_EQ(CdPlayer.currentTrack, 2);
    EXPECT_EQ(Range(), 0);
    OnCdPause();
    EXPECT_EQ(Range(), 200);

    OnCdPause();
    InsertDisc({50});
    ShowCdPlayer();
    EXPECT_EQ(Shown(IDC_CD_STATUS), "Ready");
    EXPECT_EQ(PlayerDiscToc().trackCount, 1);

    SetPlaying(1, 20);
    ShowCdPlayer();
    EXPECT_EQ(Shown(IDC_TIME), "0:20");
    EXPECT_EQ(Range(), 50);
}

TEST_F(CdPlayerTest, RequestsUnderADialogOfAFileModeTouchNoControl) {
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
    EXPECT_EQ(Shown(IDC_TRACK_NUMBER), "3");
    OnCdPlayBehindDialog(1);
    CdStatusTick();
    EXPECT_EQ(Shown(IDC_TRACK_NUMBER), "1");
    EXPECT_EQ(Range(), 70);
}
