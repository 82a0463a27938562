// See cd_player_fixture.h.
#include "tests/playback/cd_player_fixture.h"

#include "database/database_changes.h"
#include "database/database_file.h"
#include "database/disc_lookup.h"
#include "playback/play_readouts.h"

void CdPlayerTest::SetUp() {
    UseStandIns();
    OpenTestWindow(IDC_MODE_CDPLAYER, {});
}

void CdPlayerTest::Start(std::vector<DWORD> trackSeconds) {
    FailCall(-1);
    CloseCdPlayer(MainWindow);
    ResetCdPlayer();
    InstallFakeDrive(std::move(trackSeconds));
    OpenCdPlayer(MainWindow);
    ShowCdPlayer(MainWindow);
    TakeLog();
}

void CdPlayerTest::Catalogue(const std::string& artist, const std::string& disc) {
    EntryFields fields;
    fields.artist = artist;
    fields.discName = disc;
    for (int i = 0; i < kMaxTracks; ++i)
        fields.trackNames[i] = disc + " " + char('a' + i % 26);
    EnsureDatabase();
    CopyDiscToc(CdPlayer.toc);
    ASSERT_EQ(AppendEntry(fields), DatabaseResult::kOk);
}

void CdPlayerTest::TickPlaying(DWORD track, DWORD seconds) {
    SetPlaying(track, seconds);
    CdStatusTick(MainWindow);
}

void CdPlayerTest::TickIn(DWORD mode) {
    Drive.mode = mode;
    CdStatusTick(MainWindow);
}

void CdPlayerTest::TickWithDisc(std::vector<DWORD> trackSeconds) {
    InsertDisc(std::move(trackSeconds));
    CdStatusTick(MainWindow);
}

void CdPlayerTest::TickWithoutDisc() {
    RemoveDisc();
    CdStatusTick(MainWindow);
}

bool CdPlayerTest::IsShown(int id) {
    return (GetWindowLongA(GetDlgItem(MainWindow, id), GWL_STYLE) & WS_VISIBLE) != 0;
}

int CdPlayerTest::Range() {
    int low = 0;
    int high = 0;
    GetScrollRange(GetDlgItem(MainWindow, IDC_SCROLL), SB_CTL, &low, &high);
    return high;
}

int CdPlayerTest::Thumb() {
    return PositionThumb(MainWindow);
}
