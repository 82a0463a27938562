// The main window's commands: one row per control id, each with its handler.
#pragma once

#include <windows.h>

// As before the first command.
void ResetCommands();

// A key of the keyboard's media row, as WM_APPCOMMAND names it. False for keys that mean nothing
// here.
bool OnMediaKey(HWND window, int appCommand);

// WM_COMMAND. While the window is blocked only a forwarded request to play the disc gets through.
void OnCommand(HWND window, WPARAM wParam, LPARAM lParam, bool blocked);
