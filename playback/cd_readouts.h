// The main window's controls of cdplayer mode: status, titles, times, track buttons, entry button.
// A control is written only when its text changes, so that nothing flickers once a second.
#pragma once

#include <windows.h>

// The word for CdPlayer.state, and what the eject button would do in it.
void ShowDiscState();
void ShowDiscLength();
// Number, title and length of the current track; the scroll bar takes its length for a range.
void ShowTrack();
// The running times at a position in the current track; with the thumb or while it is dragged.
void ShowElapsed(int seconds);
void ShowElapsedAndThumb(int seconds);

void ClearCdReadouts();

// Title of the disc and label of the entry button, from the catalogue.
void ShowDiscTitle();
// Once more what a catalogue that could not be read left open.
void ShowStaleTitles();

// Total tracks, the page's fifteen buttons with their numbers, the page buttons, the eject button.
// Outside cdplayer mode none of them is made visible.
void ShowDiscButtons();
// Takes another current track and lights its button; a track of 0 lights the first, which Play
// would play.
void SetCurrentTrack(int track);

// Of the position scroll bar, in seconds; without effect outside cdplayer mode.
void SetDiscRange(int seconds);
void SetDiscThumb(int seconds);
