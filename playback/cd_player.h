// The CD player: what the main window's CD buttons, its timer and its scroll bar call in cdplayer
// mode.
#pragma once

#include <windows.h>

#include "disc/disc_toc.h"

// Values 0 to 3 as the status line counts them; none before the first look at the drive.
enum class DiscState { kNone = -1, kEmpty = 0, kReady, kPlaying, kPaused };

// Opens the drive at start-up and reads a disc that is in it. Silent without a driver.
void OpenCdPlayer();
// Stops a playing disc and closes the drive, at the end of the program.
void CloseCdPlayer();

// Entering cdplayer mode (also at start-up in it): one look at the drive, so that a disc changed
// meanwhile is noticed, then all read-outs and the track buttons.
void ShowCdPlayer();
// The 1000 ms tick, and the look that comes before a request from outside. In a file mode too: what
// it writes then is hidden, and the scroll bar is left alone.
void CdStatusTick();

DiscState CurrentDiscState();
const DiscToc& PlayerDiscToc();
// True for the control id of the highlighted track button.
bool IsTrackHighlighted(int controlId);

// Commands. A start track of 1 to 99 plays from that track unless the disc is paused; any other
// value means the current track.
void OnCdPlay(int startTrack);
// The same for a request from another program, which may come before any tick has seen the disc.
// Behind a dialog no question is asked, and without an open drive nothing happens.
void OnCdPlayRequest(int startTrack, bool behindDialog);
void OnCdPause();
void OnCdStop();
void OnSkipBack();
void OnSkipForward();
void OnTrackButton(int controlId);
void OnNextPage();
void OnPreviousPage();
void OnEject();
// What comes before the dialog in which the disc is named: true when there is a disc with tracks,
// perhaps after asking the user for the drive. The copy stays as it is while the drive goes on.
bool PrepareEntry(DiscToc& disc);

// WM_HSCROLL of the position scroll bar; thumb is the 16-bit position of the message.
void OnCdScroll(int code, int thumb);

// Titles of disc and track and the entry button's label, anew from the catalogue.
void RefreshDiscTitles();
