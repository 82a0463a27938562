// The main window's timers. Timer 1 belongs to the file player or to the CD player, never to both;
// the two stored ids tell whose ticks they are.
#pragma once

// Starting a running timer does nothing.
void StartPositionTimer();  // every TimerSpeed milliseconds, for the file modes
void StopPositionTimer();
bool IsPositionTimerRunning();

void StartCdTimer();  // every 1000 ms, in cdplayer mode
void StopCdTimer();
bool IsCdTimerRunning();

void StartAnimationTimer();  // every 333 ms; not in video mode
void StopAnimationTimer();
