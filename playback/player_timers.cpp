// See player_timers.h.
#include "playback/player_timers.h"

#include "base/modes.h"
#include "base/settings.h"
#include "resources/ids.h"

constexpr UINT kCdPeriodMs = 1000;
constexpr UINT kAnimationPeriodMs = 333;

// The windows whose timers run, null for none. Position and CD timer share one number, and these
// tell whose ticks they are.
struct PlayerTimersState {
    HWND position = nullptr;
    HWND cd = nullptr;
    HWND animation = nullptr;
    bool sleepHeldOff = false;
};
static PlayerTimersState Timers;

static void Start(HWND& runsOn, HWND window, UINT_PTR id, UINT periodMs) {
    if (runsOn != window && SetTimer(window, id, periodMs, nullptr) != 0) runsOn = window;
}

static void Stop(HWND& runsOn, HWND window, UINT_PTR id) {
    if (window == nullptr || runsOn != window) return;
    KillTimer(window, id);
    runsOn = nullptr;
}

// The position timer runs just as long as something plays.
static void HoldOffSleep(bool holds) {
    if (Timers.sleepHeldOff == holds) return;
    Timers.sleepHeldOff = holds;
    SetThreadExecutionState(holds ? ES_CONTINUOUS | ES_DISPLAY_REQUIRED | ES_SYSTEM_REQUIRED
                                  : ES_CONTINUOUS);
}

bool HoldsOffSleep(WPARAM systemCommand) {
    // The lower four bits are the system's own.
    const WPARAM command = systemCommand & 0xFFF0;
    return Timers.sleepHeldOff && (command == SC_SCREENSAVE || command == SC_MONITORPOWER);
}

void StartPositionTimer(HWND window) {
    StopCdTimer(window);
    Start(Timers.position, window, ID_POSITION_TIMER, Settings.timerSpeedMs);
    HoldOffSleep(CurrentMode().showsVideo);
}
void StopPositionTimer(HWND window) {
    Stop(Timers.position, window, ID_POSITION_TIMER);
    if (Timers.position == nullptr) HoldOffSleep(false);
}
bool IsPositionTimerRunning(HWND window) {
    return window != nullptr && Timers.position == window;
}

void StartCdTimer(HWND window) {
    StopPositionTimer(window);
    Start(Timers.cd, window, ID_POSITION_TIMER, kCdPeriodMs);
}
void StopCdTimer(HWND window) {
    Stop(Timers.cd, window, ID_POSITION_TIMER);
}
bool IsCdTimerRunning(HWND window) {
    return window != nullptr && Timers.cd == window;
}

void StartAnimationTimer(HWND window) {
    Start(Timers.animation, window, ID_ANIMATION_TIMER, kAnimationPeriodMs);
}
void StopAnimationTimer(HWND window) {
    Stop(Timers.animation, window, ID_ANIMATION_TIMER);
}

void StopPlayerTimers(HWND window) {
    StopPositionTimer(window);
    StopCdTimer(window);
    StopAnimationTimer(window);
}

void ResetPlayerTimers() {
    HoldOffSleep(false);
    Timers = {};
}
