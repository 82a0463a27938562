// The position of the file that plays, in the window it plays in: the read-outs follow the device,
// and the scroll bar moves it.
#pragma once

#include <windows.h>

// What the device answers, unless the user holds the scroll bar. Nothing while the window is
// minimised.
void ShowProgress(HWND window);
// The end of the file, where it has stopped.
void ShowEnd(HWND window);

// Plays the file from its start, as the scroll bar would, whatever a mouse button holds meanwhile.
void ReturnToStart(HWND window);

// WM_HSCROLL of the position scroll bar; thumb is the 16-bit position of the message.
void OnFileScroll(HWND window, int code, int thumb);
