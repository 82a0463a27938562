// The main window: its class, its creation, and the dispatch of everything that happens to it.
#pragma once

#include <windows.h>

// Registers the window class with the background brush in force. False when that fails.
bool RegisterMainWindowClass();

// Creates the window, hidden. Null on failure.
HWND CreateMainWindow();
