// Drawing one frame of an animation strip straight onto a window, and what surrounds it there.
#pragma once

#include <windows.h>

#include "resources/skin_map.h"

// Copies a frame to (x, y) of the window's client area. With a palette device the program's palette
// is realised first unless `usePalette` is false.
void DrawStripFrame(HWND window, const SkinStrip& strip, int frame, int x, int y, bool usePalette);

// Where a picture stands in its area: in the middle.
RECT PicturePlace(const RECT& area, const SkinSize& picture);

// Fills an area inside its etched frame, around the picture in its middle. Where there is room, the
// picture is sunk into a raised plate.
void DrawMount(HWND window, const RECT& area, const SkinSize& picture);
