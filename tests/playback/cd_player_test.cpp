// The CD player's ticks: what the window shows as the drive plays, stops and changes its disc.
#include "playback/cd_player.h"

#include "playback/cd_player_state.h"
#include "resources/ids.h"
#include "tests/playback/cd_player_fixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(CdPlayerTest, EmptyAndMissingDrivesAreSilentAtStart) {
    InstallFakeDrive({});
    RemoveDisc();
    OpenCdPlayer();
    ShowCdPlayer();
    ExpectShown({{IDC_CD_STATUS, "Empty"}, {IDC_EJECT_LABEL, "Load"}});
    CloseCdPlayer();
    // The high word of an error may carry a device.
    Drive.openError = MCIERR_CANNOT_LOAD_DRIVER + (7 << 16);
    OpenCdPlayer();
    CdStatusTick();
    EXPECT_THAT(Messages, IsEmpty());
    Drive.openError = MCIERR_HARDWARE;
    OpenCdPlayer();
    EXPECT_THAT(Messages, ElementsAre("error 262"));
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
    ExpectShown({{IDC_DISC_TITLE, "Artist - Disc"}, {IDC_TRACK_TITLE, "Disc a"}});
    EXPECT_EQ(Range(), 100);

    SetPlaying(3, 65);
    CdStatusTick();
    ExpectShown({{IDC_CD_STATUS, "Playing"},
                 {IDC_TRACK_NUMBER, "3"},
                 {IDC_TRACK_TITLE, "Disc c"},
                 {IDC_TIME, "1:05"},
                 {IDC_REMAINING, "3:55"},
                 {IDC_TOTAL_PLAYING, "6:05"},
                 {IDC_TOTAL_REMAINING, "3:55"},
                 {IDC_TRACK_LENGTH, "5:00"},
                 {IDC_SCROLL_RIGHT, "5:00"},
                 {IDC_DISC_LENGTH, "10:00"}});
    EXPECT_EQ(Range(), 300);
    EXPECT_EQ(Thumb(), 65);
    EXPECT_TRUE(IsTrackHighlighted(IDC_TRACK_FIRST + 2));

    // While the drive seeks, the state is "Ready" and blank; then everything comes back.
    Drive.mode = MCI_MODE_SEEK;
    CdStatusTick();
    ExpectShown({{IDC_TRACK_NUMBER, ""}});
    SetPlaying(3, 70);
    CdStatusTick();
    ExpectShown(
        {{IDC_TRACK_NUMBER, "3"}, {IDC_DISC_TITLE, "Artist - Disc"}, {IDC_TRACK_TITLE, "Disc c"}});

    OnCdStop();
    CdStatusTick();
    for (int id : {IDC_TRACK_NUMBER, IDC_TIME, IDC_TOTAL_REMAINING, IDC_DISC_TITLE, IDC_TRACK_TITLE,
                   IDC_SCROLL_RIGHT}) {
        ExpectShown({{id, ""}});
    }
    EXPECT_EQ(Thumb(), 0);
    EXPECT_EQ(CdPlayer.currentTrack, 1);
    RefreshDiscTitles();
    ExpectShown({{IDC_TRACK_TITLE, "Disc a"}, {IDC_ENTRY_LABEL, "Edit Entry"}});
}

TEST_F(CdPlayerTest, DiscRemovedWhilePlayingLeavesNothingToCommand) {
    Start({100, 200});
    OnCdPlay(2);
    CdStatusTick();
    RemoveDisc();
    CdStatusTick();
    ExpectShown({{IDC_TIME, ""}, {IDC_DISC_LENGTH, ""}, {IDC_TOTAL_TRACKS, "0"}});
    EXPECT_FALSE(IsShown(IDC_TRACK_FIRST));
    EXPECT_FALSE(IsShown(IDC_TRACK_LABEL_FIRST));
    TakeLog();
    for (auto command : {OnCdPause, OnCdStop, OnSkipBack, OnSkipForward, OnNextPage, OnEntry}) {
        command();
    }
    OnCdPlay(1);
    OnTrackButton(IDC_TRACK_FIRST);
    EXPECT_THAT(TakeLog(), IsEmpty());
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
        ExpectShown({{IDC_CD_STATUS, "Ready"}});
        ExpectShown({{IDC_DISC_TITLE, ""}});
        ExpectShown({{IDC_ENTRY_LABEL, "Add Entry"}});
        ExpectShown({{IDC_DISC_LENGTH, "11:06"}});
        CdStatusTick();
        ExpectShown({{IDC_CD_STATUS, "Ready"}});
        CloseCdPlayer();
    }
}

TEST_F(CdPlayerTest, TitleOfAKnownDiscStandsFromTheMomentItComesIn) {
    Start({100, 200});
    Catalogue("Artist", "Disc");
    RemoveDisc();
    CdStatusTick();
    ExpectShown({{IDC_ENTRY_LABEL, "Add Entry"}});
    InsertDisc({100, 200});
    Drive.mode = MCI_MODE_NOT_READY;  // it spins up and cannot tell its tracks yet
    TakeLog();
    Drive.failAt = 2;
    CdStatusTick();
    EXPECT_EQ(PlayerDiscToc().trackCount, 0);
    Drive.failAt = -1;
    Drive.mode = MCI_MODE_STOP;
    CdStatusTick();
    EXPECT_THAT(Messages, IsEmpty());
    ExpectShown({{IDC_DISC_TITLE, "Artist - Disc"}, {IDC_ENTRY_LABEL, "Edit Entry"}});
}

TEST_F(CdPlayerTest, DiscsOutOfTheOrdinary) {
    Start(std::vector<DWORD>(120, 15315));
    ExpectShown({{IDC_TOTAL_TRACKS, "99"}});
    EXPECT_EQ(PlayerDiscToc().totalSeconds, static_cast<uint16_t>(99 * 15315));
    for (int page = 0; page < 6; ++page)
        OnNextPage();
    ExpectShown({{IDC_TRACK_LABEL_FIRST, "91"}});
    EXPECT_TRUE(IsShown(IDC_TRACK_FIRST + 8));
    EXPECT_FALSE(IsShown(IDC_TRACK_FIRST + 9));
    TakeLog();
    OnTrackButton(IDC_TRACK_FIRST + 9);
    OnTrackButton(IDC_TRACK_FIRST + 8);
    EXPECT_THAT(TakeLog(), ElementsAre("play 99 0:00.00"));
    OnSkipForward();
    EXPECT_THAT(TakeLog(), ElementsAre("play 1 0:00.00"));
    OnNextPage();
    ExpectShown({{IDC_TRACK_LABEL_FIRST, "1"}});
    OnPreviousPage();
    ExpectShown({{IDC_TRACK_LABEL_FIRST, "91"}});

    // A data track plays as far as the drive says; its length is 0.
    CloseCdPlayer();
    CdPlayer = {};
    Start({0, 60});
    SetPlaying(1, 0);
    CdStatusTick();
    ExpectShown({{IDC_TRACK_LENGTH, "0:00"}});
    EXPECT_EQ(Range(), 0);
    OnCdScroll(SB_LINERIGHT, 0);
    EXPECT_EQ(Thumb(), 0);

    // The drive answers a track that the disc does not have.
    SetPlaying(255, 1);
    CdStatusTick();
    ExpectShown({{IDC_TRACK_NUMBER, "255"}});
    TakeLog();
    OnSkipForward();
    EXPECT_THAT(TakeLog(), ElementsAre("play 1 0:00.00"));
}

TEST_F(CdPlayerTest, ReturningToTheModeFindsThePauseOrAnotherDisc) {
    Start({100, 200});
    OnCdPlay(2);
    OnCdPause();
    ShowCdPlayer();
    ExpectShown({{IDC_CD_STATUS, "Paused"}});
    EXPECT_EQ(CdPlayer.currentTrack, 2);
    EXPECT_EQ(Range(), 0);
    OnCdPause();
    EXPECT_EQ(Range(), 200);

    OnCdPause();
    InsertDisc({50});
    ShowCdPlayer();
    ExpectShown({{IDC_CD_STATUS, "Ready"}});
    EXPECT_EQ(PlayerDiscToc().trackCount, 1);

    SetPlaying(1, 20);
    ShowCdPlayer();
    ExpectShown({{IDC_TIME, "0:20"}});
    EXPECT_EQ(Range(), 50);
}
