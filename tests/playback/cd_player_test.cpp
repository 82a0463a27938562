// The CD player's ticks: what the window shows as the drive plays, stops and changes its disc.
#include "playback/cd_player.h"

#include <algorithm>

#include "base/app_directory.h"
#include "database/database_changes.h"
#include "database/database_file.h"
#include "database/disc_lookup.h"
#include "playback/cd_commands.h"
#include "tests/playback/cd_player_fixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

// The disc in the drive becomes known: "Artist - Disc", its tracks "Disc a", "Disc b" ...
static void AddToCatalogue() {
    EntryFields fields;
    fields.artist = "Artist";
    fields.discName = "Disc";
    for (int i = 0; i < kMaxTracks; ++i)
        fields.trackNames[i] = std::string("Disc ") + char('a' + i % 26);
    EnsureDatabase();
    CopyDiscToc(CdPlayer.toc);
    ASSERT_EQ(AppendEntry(fields), DatabaseResult::kOk);
}

TEST_F(CdPlayerTest, EmptyAndMissingDrivesAreSilentAtStart) {
    InstallFakeDrive({});
    RemoveDisc();
    OpenCdPlayer(MainWindow);
    ShowCdPlayer(MainWindow);
    ExpectShown({{IDC_CD_STATUS, "Empty"}, {IDC_DISC_LENGTH, ""}});
    ExpectShown({{IDC_EJECT, "&Load"}, {IDC_EJECT_LABEL, "Load"}});
    CloseCdPlayer(MainWindow);
    // The high word of an error may carry a device.
    Drive.openError = MCIERR_CANNOT_LOAD_DRIVER + (7 << 16);
    OpenCdPlayer(MainWindow);
    CdStatusTick(MainWindow);
    EXPECT_THAT(TheBoxes.shown, IsEmpty());
    Drive.openError = MCIERR_HARDWARE;
    OpenCdPlayer(MainWindow);
    EXPECT_THAT(TheBoxes.shown, ElementsAre("error 262"));
}

TEST_F(CdPlayerTest, FailingStatusQueriesAreToldOnceUntilOneSucceeds) {
    Start({60});
    for (int query : {0, 1}) {
        TheBoxes = {};
        for (int failingQuery : {query, query, query, -1, query, -1}) {
            FailCall(failingQuery);
            CdStatusTick(MainWindow);
        }
        EXPECT_EQ(TheBoxes.shown, Log(2, "error 262"));
    }
}

TEST_F(CdPlayerTest, ADriveThatHidesItsTracksSaysSoOnceForEachTimeItStartsTo) {
    Start({});
    Drive.tellsTracks = false;
    for (const DWORD length : {100, 100, 60}) {
        TickWithoutDisc();
        TickWithDisc({length});
        CdStatusTick(MainWindow);
    }
    EXPECT_EQ(TheBoxes.shown.size(), 1u);
    Drive.tellsTracks = true;
    CdStatusTick(MainWindow);
    ExpectShown({{IDC_TOTAL_TRACKS, "1"}, {IDC_DISC_LENGTH, "1:00"}});
    Drive.tellsTracks = false;
    TickWithDisc({60, 60});
    EXPECT_THAT(TheBoxes.shown, ElementsAre("error 262", "error 262"));
}

TEST_F(CdPlayerTest, ReadoutsFollowThePlayingTrack) {
    Start({100, 200, 300});
    AddToCatalogue();
    EXPECT_TRUE(IsTrackHighlighted(IDC_TRACK_FIRST)) << "the one that Play plays";
    OnCdPlay(MainWindow, 0);
    ExpectShown({{IDC_DISC_TITLE, "Artist - Disc"}, {IDC_TRACK_TITLE, "Disc a"}});
    EXPECT_EQ(Range(), 100);

    ShowWindow(MainWindow, SW_SHOW);
    PumpMessages();
    TickPlaying(3, 65);
    for (const int id : {IDC_TRACK_FIRST, IDC_TRACK_FIRST + 2})
        EXPECT_TRUE(GetUpdateRect(GetDlgItem(MainWindow, id), nullptr, FALSE)) << "not repainted";
    ExpectShown({{IDC_CD_STATUS, "Playing"}, {IDC_TRACK_NUMBER, "3"}, {IDC_TRACK_TITLE, "Disc c"}});
    ExpectShown({{IDC_TIME, "1:05"}, {IDC_REMAINING, "3:55"}, {IDC_TRACK_LENGTH, "5:00"}});
    ExpectShown({{IDC_TOTAL_PLAYING, "6:05"}, {IDC_TOTAL_REMAINING, "3:55"}});
    ExpectShown({{IDC_SCROLL_RIGHT, "5:00"}, {IDC_DISC_LENGTH, "10:00"}});
    EXPECT_EQ(Range(), 300);
    EXPECT_EQ(Thumb(), 65);

    // While the drive seeks, the state is "Ready" and blank; then everything comes back.
    TickIn(MCI_MODE_SEEK);
    for (const int id : {IDC_TRACK_NUMBER, IDC_TIME, IDC_TOTAL_REMAINING, IDC_DISC_TITLE,
                         IDC_TRACK_TITLE, IDC_SCROLL_RIGHT})
        ExpectShown({{id, ""}});
    EXPECT_EQ(Thumb(), 0);
    EXPECT_TRUE(IsTrackHighlighted(IDC_TRACK_FIRST + 2)) << "it has not ended";
    TickPlaying(3, 70);
    ExpectShown({{IDC_TRACK_NUMBER, "3"}, {IDC_TRACK_TITLE, "Disc c"}});

    // Ended by itself or stopped, it begins again with its first track.
    for (const bool stopped : {false, true}) {
        if (stopped) OnCdStop(MainWindow);
        TickIn(MCI_MODE_STOP);
        ExpectShown({{IDC_TRACK_NUMBER, ""}, {IDC_DISC_TITLE, ""}});
        EXPECT_TRUE(IsTrackHighlighted(IDC_TRACK_FIRST));
        RefreshDiscTitles(MainWindow);
        ExpectShown({{IDC_TRACK_TITLE, "Disc a"}, {IDC_ENTRY_LABEL, "Edit Entry"}});
        OnCdPlay(MainWindow, 0);
        EXPECT_EQ(TakeLog().back(), "play 1 0:00.00");
        TickPlaying(2, 1);
    }
}

TEST_F(CdPlayerTest, DiscRemovedWhilePlayingLeavesNothingToCommand) {
    Start({100, 200});
    TickPlaying(2, 5);
    TickWithoutDisc();
    ExpectShown({{IDC_TIME, ""}, {IDC_DISC_LENGTH, ""}, {IDC_TOTAL_TRACKS, "0"}});
    EXPECT_FALSE(IsShown(IDC_TRACK_FIRST) || IsShown(IDC_TRACK_LABEL_FIRST));
    EXPECT_TRUE(IsTrackHighlighted(IDC_TRACK_FIRST));
    TakeLog();
    for (auto command : {OnCdPause, OnCdStop, OnSkipBack, OnSkipForward, OnNextPage})
        command(MainWindow);
    OnCdPlay(MainWindow, 1);
    OnTrackButton(MainWindow, IDC_TRACK_FIRST);
    DiscToc disc;
    EXPECT_FALSE(PrepareEntry(MainWindow, disc));
    EXPECT_THAT(TakeLog(), IsEmpty());
}

TEST_F(CdPlayerTest, TitlesStandAsSoonAsDiscAndCatalogueCanBeRead) {
    Start({100, 200});
    AddToCatalogue();
    TickWithoutDisc();
    ExpectShown({{IDC_ENTRY_LABEL, "Add Entry"}});
    InsertDisc({100, 200});
    FailCall(3);
    TickIn(MCI_MODE_NOT_READY);  // it spins up and cannot tell its tracks yet
    EXPECT_EQ(CdPlayer.toc.trackCount, 0);
    TickIn(MCI_MODE_STOP);
    EXPECT_THAT(TheBoxes.shown, IsEmpty());
    ExpectShown({{IDC_DISC_TITLE, "Artist - Disc"}, {IDC_ENTRY, "Edit &Entry"}});

    // The catalogue is held by another program.
    HANDLE held = CreateFileA(InAppDirectory("tarnwell.dat").c_str(), GENERIC_READ, 0, nullptr,
                              OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    TickPlaying(2, 0);
    ExpectShown({{IDC_DISC_TITLE, ""}, {IDC_TRACK_TITLE, ""}, {IDC_ENTRY_LABEL, "Add Entry"}});
    CloseHandle(held);
    CdStatusTick(MainWindow);
    ExpectShown({{IDC_DISC_TITLE, "Artist - Disc"}, {IDC_TRACK_TITLE, "Disc b"}});
    ExpectShown({{IDC_ENTRY_LABEL, "Edit Entry"}});

    TickWithoutDisc();
    TickWithDisc({150, 150});  // another one, as long as the known one
    ExpectShown({{IDC_DISC_TITLE, ""}, {IDC_ENTRY_LABEL, "Add Entry"}});
}

TEST_F(CdPlayerTest, DiscsOutOfTheOrdinary) {
    Start(std::vector<DWORD>(120, 15315));
    ExpectShown({{IDC_TOTAL_TRACKS, "99"}});
    EXPECT_EQ(CdPlayer.toc.totalSeconds, static_cast<uint16_t>(99 * 15315));
    OnPreviousPage(MainWindow);
    ExpectShown({{IDC_TRACK_LABEL_FIRST, "91"}, {IDC_TRACK_FIRST, "Track 91"}});
    EXPECT_TRUE(IsShown(IDC_TRACK_FIRST + 8) && IsShown(IDC_TRACK_LABEL_FIRST + 8));
    EXPECT_FALSE(IsShown(IDC_TRACK_FIRST + 9));
    OnTrackButton(MainWindow, IDC_TRACK_FIRST + 9);
    OnTrackButton(MainWindow, IDC_TRACK_FIRST + 8);
    EXPECT_THAT(TakeLog(), ElementsAre("play 99 0:00.00"));
    OnNextPage(MainWindow);
    ExpectShown({{IDC_TRACK_LABEL_FIRST, "1"}});

    // A data track has no length, and a disc without tracks nothing to name; a drive may answer a
    // track that the disc does not have.
    Start({0, 60});
    TickPlaying(1, 0);
    ExpectShown({{IDC_TRACK_LENGTH, "0:00"}});
    OnCdScroll(MainWindow, SB_LINERIGHT, 0);
    EXPECT_EQ(Thumb(), 0);
    TickPlaying(255, 1);
    ExpectShown({{IDC_TRACK_NUMBER, "255"}});
    OnSkipForward(MainWindow);
    EXPECT_EQ(TakeLog().back(), "play 1 0:00.00");
    TickWithDisc({});
    DiscToc disc;
    EXPECT_FALSE(PrepareEntry(MainWindow, disc));
}

TEST_F(CdPlayerTest, ReturningToTheModeFindsThePauseOrAnotherDisc) {
    Start({100, 200});
    OnCdPlay(MainWindow, 2);
    OnCdPause(MainWindow);
    ShowCdPlayer(MainWindow);
    ExpectShown({{IDC_CD_STATUS, "Paused"}});
    EXPECT_EQ(CdPlayer.currentTrack, 2);
    EXPECT_EQ(Range(), 0);
    OnCdPause(MainWindow);
    EXPECT_EQ(Range(), 200);
    OnCdPause(MainWindow);
    InsertDisc({50});
    ShowCdPlayer(MainWindow);
    ExpectShown({{IDC_CD_STATUS, "Ready"}});
    EXPECT_EQ(CdPlayer.toc.trackCount, 1);

    SetPlaying(1, 20);
    ShowCdPlayer(MainWindow);
    ExpectShown({{IDC_TIME, "0:20"}});
    EXPECT_EQ(Range(), 50);
}

// By its lengths a disc is known; one that the drive holds back is asked for again, though not for
// ever, and the pause survives it.
TEST_F(CdPlayerTest, MissingTrackLengthsAreReadAgainAFewTimes) {
    Start({100, 200});
    AddToCatalogue();
    TickWithoutDisc();
    FailCall(5);  // the length of track 2
    TickWithDisc({100, 200});
    ExpectShown({{IDC_DISC_LENGTH, "1:40"}, {IDC_ENTRY_LABEL, "Add Entry"}});
    CdStatusTick(MainWindow);
    ExpectShown({{IDC_DISC_LENGTH, "5:00"}, {IDC_ENTRY_LABEL, "Edit Entry"}});

    Drive.tellsLengths = false;
    TickWithDisc({100, 200, 300});
    TakeLog();
    OnCdPlay(MainWindow, 1);
    OnCdPause(MainWindow);
    for (int tick = 0; tick < 9; ++tick)
        CdStatusTick(MainWindow);
    const Log log = TakeLog();
    EXPECT_EQ(std::count(log.begin(), log.end(), "length 3"), 2);
    EXPECT_EQ(std::count(log.begin(), log.end(), "length"), 9) << "swaps are looked for";
    ExpectShown({{IDC_CD_STATUS, "Paused"}});
}

TEST_F(CdPlayerTest, TheFocusStaysAmongTheButtonsOfTheMode) {
    const auto focused = [] { return GetDlgCtrlID(GetFocus()); };
    const auto focus = [](int id) { SetFocus(GetDlgItem(MainWindow, id)); };
    Start(std::vector<DWORD>(17, 60));
    focus(IDC_TRACK_LAST);
    OnNextPage(MainWindow);
    EXPECT_EQ(focused(), IDC_NEXT_PAGE);
    TickWithDisc({60});
    EXPECT_EQ(focused(), IDC_CD_PLAY);
    Command(IDC_MODE_WAVE);
    EXPECT_EQ(focused(), IDC_PLAY);
    focus(IDC_MODE_MIDI);
    Command(IDC_MODE_MIDI);
    EXPECT_EQ(focused(), IDC_MODE_MIDI);
    focus(IDC_FILE_LIST);
    Command(IDC_MODE_CDPLAYER);
    EXPECT_EQ(focused(), IDC_CD_PLAY);
}
