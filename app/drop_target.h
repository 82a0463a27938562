// Media files and folders dropped onto the main window are played.
#pragma once

#include <windows.h>

// To be called once for the window.
void AcceptDrops(HWND window);

// WM_DROPFILES. Frees the drop; while the window is blocked that is all.
void OnDropFiles(HWND window, WPARAM wParam, bool blocked);
