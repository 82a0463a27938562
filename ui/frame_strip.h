// Drawing one frame of an animation strip straight onto a window.
#pragma once

#include <windows.h>

#include "ui/skin_map.h"

// Copies a frame to (x, y) of the window's client area. With a palette device the program's palette
// is realised first unless `usePalette` is false.
void DrawStripFrame(HWND window, const SkinStrip& strip, int frame, int x, int y, bool usePalette);
