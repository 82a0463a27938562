// A CD player under test: the main window in cdplayer mode over a fake drive.
#pragma once

#include "playback/cd_player.h"
#include "playback/cd_player_state.h"
#include "playback/cd_readouts.h"
#include "tests/fake_drive.h"
#include "tests/stand_ins.h"

class CdPlayerTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override { CloseTestWindow(); }

    // A drive with this disc, open, as cdplayer mode shows it; the player remembers nothing.
    void Start(std::vector<DWORD> trackSeconds);
    // The disc in the drive becomes known to the database, its tracks as "Disc a", "Disc b" ...
    void Catalogue(const std::string& artist, const std::string& disc);

    // What the drive does, and the tick that sees it.
    static void TickPlaying(DWORD track, DWORD seconds);
    static void TickIn(DWORD mode);
    static void TickWithDisc(std::vector<DWORD> trackSeconds);
    static void TickWithoutDisc();

    bool IsShown(int id);
    int Thumb();
    int Range();
};
