// The main window's controls of cdplayer mode: status, titles, times, track buttons, entry button.
// A control is written only when its text changes, so that nothing flickers once a second.
#pragma once

#include <windows.h>

// The word for CdPlayer.state, and what the eject button would do in it.
void ShowDiscState(HWND window);
void ShowDiscLength(HWND window);
// Number, title and length of the current track; the scroll bar takes its length for a range.
void ShowTrack(HWND window);
// The running times at a position in the current track; with the thumb or while it is dragged.
void ShowElapsed(HWND window, int seconds);
void ShowElapsedAndThumb(HWND window, int seconds);

void ClearCdReadouts(HWND window);

// Title of the disc and label of the entry button, from the catalogue.
void ShowDiscTitle(HWND window);
// Once more what a catalogue that could not be read left open.
void ShowStaleTitles(HWND window);

// Total tracks, the page's fifteen buttons with their numbers, the page buttons, the eject button.
// Outside cdplayer mode none of them is made visible.
void ShowDiscButtons(HWND window);
// Takes another current track and lights its button; a track of 0 lights the first, which Play
// would play.
void SetCurrentTrack(HWND window, int track);

// Of the position scroll bar, in seconds; without effect outside cdplayer mode.
void SetDiscRange(HWND window, int seconds);
void SetDiscThumb(HWND window, int seconds);

// Titles of disc and track and the entry button's label, anew from the catalogue.
void RefreshDiscTitles(HWND window);
// True for the control id of the highlighted track button.
bool IsTrackHighlighted(int controlId);
