// The main window's timers.
#include "playback/player_timers.h"

#include "base/program_state.h"
#include "base/settings.h"
#include "resources/ids.h"

constexpr UINT kCdPeriodMs = 1000;
constexpr UINT kAnimationPeriodMs = 333;

// 0 while not running. The first two share one timer of the window.
static UINT_PTR PositionTimer;
static UINT_PTR CdTimer;
static UINT_PTR AnimationTimer;

static void Start(UINT_PTR& timer, UINT_PTR id, UINT periodMs) {
    if (timer == 0) timer = SetTimer(MainWindow, id, periodMs, nullptr);
}

static void Stop(UINT_PTR& timer, UINT_PTR id) {
    if (timer == 0) return;
    KillTimer(MainWindow, id);
    timer = 0;
}

void StartPositionTimer() {
    Stop(CdTimer, ID_POSITION_TIMER);
    Start(PositionTimer, ID_POSITION_TIMER, Settings.timerSpeedMs);
}
void StopPositionTimer() {
    Stop(PositionTimer, ID_POSITION_TIMER);
}
bool IsPositionTimerRunning() {
    return PositionTimer != 0;
}

void StartCdTimer() {
    Stop(PositionTimer, ID_POSITION_TIMER);
    Start(CdTimer, ID_POSITION_TIMER, kCdPeriodMs);
}
void StopCdTimer() {
    Stop(CdTimer, ID_POSITION_TIMER);
}
bool IsCdTimerRunning() {
    return CdTimer != 0;
}

void StartAnimationTimer() {
    Start(AnimationTimer, ID_ANIMATION_TIMER, kAnimationPeriodMs);
}
void StopAnimationTimer() {
    Stop(AnimationTimer, ID_ANIMATION_TIMER);
}
