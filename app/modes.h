// The four modes: changing between them, and the layout of the mode the program starts in.
#pragma once

#include <windows.h>

// A click on a tab. The current mode's own tab does nothing.
void ChangeMode(HWND window, int mode);

// Lays out the mode that PlayMode names, for the first time. In cdplayer mode the drive must be
// open.
void EnterStartMode(HWND window);
