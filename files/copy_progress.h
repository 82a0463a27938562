// What dialog 800 shows while a file is copied: the animation and the percentage.
#pragma once

#include <windows.h>

#include <cstdint>

// The first frame.
void ResetCopyAnimation();
// The frame and its mount, for a repaint.
void PaintCopyAnimation(HWND dialog);

// A file begins, goes on and has arrived. Blocks come faster than the eye: most draw nothing.
void ShowCopyStarted(HWND dialog);
void ShowCopyStep(HWND dialog, uint64_t doneBytes, uint64_t totalBytes);
void ShowCopyDone(HWND dialog);
