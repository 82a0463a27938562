// The two ways out of the program.
#include "app/shutdown.h"

#include <windows.h>

#include "base/program_state.h"
#include "base/settings.h"
#include "playback/cd_player.h"
#include "playback/media_device.h"
#include "playback/player_timers.h"
#include "resources/ids.h"
#include "ui/click_sounds.h"
#include "ui/entry_colors.h"

static void DestroyMainWindow() {
    CloseCdPlayer(MainWindow);
    DestroyWindow(MainWindow);
    MainWindow = nullptr;
    // After the window, which draws with it to the last.
    FreeBackgroundBrush();
    PostQuitMessage(0);
}

void ShutDown() {
    ShuttingDown = true;
    StopAndReset(MainWindow);
    PlayClickSound(IDS_SOUND_EXIT, kClickToEndFlags);
    StopPlayerTimers(MainWindow);
    WriteSettings();
    DestroyMainWindow();
}

void EndProgram() {
    ShuttingDown = true;
    StopAndReset(MainWindow);
    StopPlayerTimers(MainWindow);
    DestroyMainWindow();
}
