// The CD player's buttons and its scroll bar.
#pragma once

#include <windows.h>

#include "disc/disc_toc.h"

// A start track of 1 to 99 plays from that track unless the disc is paused; any other
// value means the current track.
void OnCdPlay(HWND window, int startTrack);
// The same for a request from another program, which may come before any tick has seen the disc.
// Behind a dialog no question is asked, and without an open drive nothing happens.
void OnCdPlayRequest(HWND window, int startTrack, bool behindDialog);
void OnCdPause(HWND window);
void OnCdStop(HWND window);
void OnSkipBack(HWND window);
void OnSkipForward(HWND window);
void OnTrackButton(HWND window, int controlId);
void OnNextPage(HWND window);
void OnPreviousPage(HWND window);
void OnEject(HWND window);
// What comes before the dialog in which the disc is named: true when there is a disc with tracks,
// perhaps after asking the user for the drive. The copy stays as it is while the drive goes on.
bool PrepareEntry(HWND window, DiscToc& disc);

// WM_HSCROLL of the position scroll bar; thumb is the 16-bit position of the message.
void OnCdScroll(HWND window, int code, int thumb);
