// The CD player: what the main window's CD buttons, its timer and its scroll bar call in cdplayer
// mode.
#pragma once

#include <windows.h>

#include "playback/disc_toc.h"

// Values 0 to 3 as the status line counts them; none before the first look at the drive.
enum class DiscState { kNone = -1, kEmpty = 0, kReady, kPlaying, kPaused };

// Opens the drive at start-up and reads a disc that is in it. Silent without a driver.
void OpenCdPlayer();
// Stops a playing disc and closes the drive, at the end of the program.
void CloseCdPlayer();

// Entering cdplayer mode (also at start-up in it): one look at the drive, so that a disc changed
// meanwhile is noticed, then all read-outs and the track buttons.
void ShowCdPlayer();
// The 1000 ms tick.
void CdStatusTick();

DiscState CurrentDiscState();
const DiscToc& PlayerDiscToc();
// True for the control id of the highlighted track button.
bool IsTrackHighlighted(int controlId);

// Commands. A start track of 1 to 99 plays from that track unless the disc is paused; any other
// value means the current track.
void OnCdPlay(int startTrack);
// The same for a request that arrives while a dialog is open: plays and keeps the state, but
// touches no control.
void OnCdPlayBehindDialog(int startTrack);
void OnCdPause();
void OnCdStop();
void OnSkipBack();
void OnSkipForward();
void OnTrackButton(int controlId);
void OnNextPage();
void OnPreviousPage();
void OnEject();
void OnEntry();

// WM_HSCROLL of the position scroll bar; thumb is the 16-bit position of the message.
void OnCdScroll(int code, int thumb);

// Titles of disc and track and the entry button's label, anew from the catalogue.
void RefreshDiscTitles();
