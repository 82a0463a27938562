// The commands that open a dialog over the list's selected files, one row each, and Setup: they all
// silence the player first.
#pragma once

#include <windows.h>

// False when the id is none of them.
bool RunFileCommand(HWND window, int id);
