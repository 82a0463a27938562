// The main window's commands: one row per control id, each with its handler.
#pragma once

#include <windows.h>

// As before the first command.
void ResetCommands();

// WM_COMMAND. While the window is blocked only a forwarded request to play the disc gets through.
void OnCommand(HWND window, WPARAM wParam, LPARAM lParam, bool blocked);
