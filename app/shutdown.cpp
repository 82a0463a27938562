// The two ways out of the program.
#include "app/shutdown.h"

#include <windows.h>

#include "app/program_state.h"
#include "app/settings.h"
#include "playback/cd_player.h"
#include "playback/media_device.h"
#include "playback/player_timers.h"
#include "resources/ids.h"
#include "ui/click_sounds.h"

static void StopTimers() {
    StopPositionTimer();
    StopCdTimer();
    StopAnimationTimer();
}

static void DestroyMainWindow() {
    CloseCdPlayer();
    DestroyWindow(MainWindow);
    MainWindow = nullptr;
    // After the window, which draws with it to the last.
    DeleteObject(BackgroundBrush);
    BackgroundBrush = nullptr;
    PostQuitMessage(0);
}

void ShutDown() {
    ShuttingDown = true;
    StopAndReset();
    PlayClickSound(IDS_SOUND_EXIT, kClickToEndFlags);
    StopTimers();
    WriteSettings();
    DestroyMainWindow();
}

void EndProgram() {
    ShuttingDown = true;
    StopAndReset();
    StopTimers();
    DestroyMainWindow();
}
