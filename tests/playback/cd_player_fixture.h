// A CD player under test: the main window in cdplayer mode over a fake drive.
#pragma once

#include "playback/cd_player.h"
#include "playback/cd_player_state.h"
#include "playback/cd_readouts.h"
#include "playback/play_readouts.h"
#include "tests/fake_drive.h"
#include "tests/stand_ins.h"

class CdPlayerTest : public testing::Test {
protected:
    void SetUp() override {
        UseStandIns();
        OpenTestWindow(IDC_MODE_CDPLAYER, {});
    }
    void TearDown() override { CloseTestWindow(); }

    // A drive with this disc, open, as cdplayer mode shows it; the player remembers nothing.
    static void Start(const std::vector<DWORD>& trackSeconds) {
        FailCall(-1);
        CloseCdPlayer(MainWindow);
        ResetCdPlayer();
        InstallFakeDrive(trackSeconds);
        OpenCdPlayer(MainWindow);
        ShowCdPlayer(MainWindow);
        TakeLog();
    }

    // What the drive does, and the tick that sees it.
    static void TickPlaying(DWORD track, DWORD seconds) {
        SetPlaying(track, seconds);
        CdStatusTick(MainWindow);
    }
    static void TickIn(DWORD mode) {
        Drive.mode = mode;
        CdStatusTick(MainWindow);
    }
    static void TickWithDisc(const std::vector<DWORD>& trackSeconds) {
        InsertDisc(trackSeconds);
        CdStatusTick(MainWindow);
    }
    static void TickWithoutDisc() {
        RemoveDisc();
        CdStatusTick(MainWindow);
    }

    static int Thumb() { return PositionThumb(MainWindow); }
    static int Range() {
        int low = 0;
        int high = 0;
        GetScrollRange(GetDlgItem(MainWindow, IDC_SCROLL), SB_CTL, &low, &high);
        return high;
    }
};
