// The colours of entry fields and of the main window's background, which one setting decides.
#pragma once

#include <windows.h>

// Indices of system colours.
struct EntryColors {
    int ground;
    int text;
};
// Those of button faces when entry fields are colorized, else those of windows.
EntryColors CurrentEntryColors();

extern HBRUSH BackgroundBrush;  // background of the main window and of all entry fields

// Replaces BackgroundBrush and the window class's brush by the colour that the settings ask for.
void CreateBackgroundBrush();
void FreeBackgroundBrush();

// Answer to WM_CTLCOLOR... of a control: sets both colours, returns the background brush.
HBRUSH ColorEntryField(HDC dc);
