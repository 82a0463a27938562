// Which controls of the main window belong to which kind of mode, and where those stand that code
// places.
#pragma once

#include <windows.h>

// To be called once, before any placing: fits the picture buttons to their pictures.
void PrepareLayout(HWND window);

// The scroll bar is shared by the two kinds of mode and stands elsewhere in each.
void PlaceScrollBar(HWND window, bool cdMode);

// Shows or hides the controls of a kind; those of the disc are placed when they are shown. Track,
// page and eject buttons, animation areas and the small buttons for repeat and sound follow their
// own rules and are only ever hidden here. The template has the disc's hidden.
void ShowFileControls(HWND window, bool show);
void ShowCdControls(HWND window, bool show);
