// The position scroll bar of the main window, which the file modes and the CD player share.
#pragma once

// From 0 to `end`, in whatever unit the player counts. Unchanged values repaint nothing.
void SetPositionRange(int end);
void SetPositionThumb(int position);
int PositionThumb();
