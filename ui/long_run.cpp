// See long_run.h.
#include "ui/long_run.h"

#include <windows.h>

// A window that does not validate what it paints would be offered for ever.
constexpr int kMostPaints = 64;

void PaintWaitingWindows() {
    MSG message;
    for (int count = 0; count < kMostPaints; ++count) {
        if (!PeekMessageA(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE)) return;
        DispatchMessageA(&message);
    }
}

void DropWaitingInput() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE | PM_QS_INPUT)) {
    }
}
