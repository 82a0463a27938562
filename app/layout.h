// Which controls of the main window belong to which kind of mode, and where those stand that code
// places.
#pragma once

#include <windows.h>

// To be called once, before any placing: fits the picture buttons to their pictures.
void PrepareLayout(HWND window);

// Places what stands elsewhere in the two kinds of mode, the shared scroll bar, or all CD controls.
void PlaceScrollBar(HWND window, bool cdMode);
void PlaceCdControls(HWND window);

// Shows or hides the controls of a kind. Track, page and eject buttons, animation areas and the
// small buttons for repeat and sound follow their own rules and are only ever hidden here.
void ShowFileControls(HWND window, bool show);
void ShowCdControls(HWND window, bool show);
