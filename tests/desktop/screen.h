// Pictures: what the screen shows of the driven program, and those in the program's resources.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

#include "resources/skin_map.h"

// Pixels from the top row down, as 0x00RRGGBB.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<uint32_t> pixels;

    uint32_t At(int x, int y) const { return pixels[static_cast<size_t>(y * width + x)]; }
};

// What the screen shows where a window stands.
Picture Photograph(HWND window);

// Waits for what has more than one colour: a film or a drawn button, and not the ground behind it.
bool WaitForPicture(HWND window);

// A bitmap as the program that TARNWELL_EXE names has it in its resources.
const Picture& ResourcePicture(int id);

// Part of a bitmap stands on the screen's picture, its upper left corner at this place. Colours
// that follow the system's are not compared.
bool ShowsPart(const Picture& screen, int left, int top, const Picture& bitmap,
               const SkinRect& part);
