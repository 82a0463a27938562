// The timers of the windows that play. Timer 1 of the main window belongs to the file player or to
// the CD player, never to both; a film in a window of its own has its timer there.
#pragma once

#include <windows.h>

// Starting a running timer does nothing, and neither does stopping one that runs on another window.
void StartPositionTimer(HWND window);  // every TimerSpeed milliseconds, for a file that plays
void StopPositionTimer(HWND window);
bool IsPositionTimerRunning(HWND window);

void StartCdTimer(HWND window);  // every 1000 ms, in cdplayer mode
void StopCdTimer(HWND window);
bool IsCdTimerRunning(HWND window);

void StartAnimationTimer(HWND window);  // every 333 ms; not in video mode
void StopAnimationTimer(HWND window);

// While a film plays, screen saver and the display's sleep are held off: true for a WM_SYSCOMMAND
// that would begin them then and must be dropped.
bool HoldsOffSleep(WPARAM systemCommand);

// Before a window that takes long, and at the end: all three.
void StopPlayerTimers(HWND window);
// The first state, with no window's timer running.
void ResetPlayerTimers();
