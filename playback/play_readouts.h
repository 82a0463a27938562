// What a window shows of a playing file: status, length, position, the position scroll bar. The
// main window and the window of a large film have the same controls under the same numbers.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

#include "playback/play_position.h"

void ShowStatus(HWND window, const char* text);
// The length of a newly opened file; the position is back at its start.
void ShowLength(HWND window, const PlayLength& length);
// A position beyond the length is shown as it is.
void ShowPosition(HWND window, int64_t position, PlayUnit unit);
// Position, length and file name empty, no file selected.
void BlankReadouts(HWND window);

// The position scroll bar, which the file modes and the CD player share: from 0 to `end`, in
// whatever unit the player counts. Unchanged values repaint nothing.
void SetPositionRange(HWND window, int end);
void SetPositionThumb(HWND window, int position);
int PositionThumb(HWND window);
