// What dialog 800 shows while a file is copied.
#include "files/copy_progress.h"

#include "base/file_texts.h"
#include "resources/ids.h"
#include "ui/click_sounds.h"
#include "ui/dialog_helpers.h"
#include "ui/frame_stepping.h"
#include "ui/frame_strip.h"
#include "ui/long_run.h"

constexpr DWORD kDrawingPeriodMs = 20;

static uint16_t Frame;
static DWORD LastDrawn;

static void DrawCopyFrame(HWND dialog) {
    const RECT place = PicturePlace(ControlRect(dialog, IDC_COPY_ANIMATION), kCopyStrip.frame);
    DrawStripFrame(dialog, kCopyStrip, Frame, place.left, place.top, true);
}

void ResetCopyAnimation() {
    Frame = 0;
}

void PaintCopyAnimation(HWND dialog) {
    DrawMount(dialog, ControlRect(dialog, IDC_COPY_ANIMATION), kCopyStrip.frame);
    DrawCopyFrame(dialog);
}

// Nothing else of the program runs during a copy, so the text is painted here.
static void ShowPercent(HWND dialog, const std::string& text) {
    SetControlText(dialog, IDC_COPY_PERCENT, text);
    PaintWaitingWindows();
}

void ShowCopyStarted(HWND dialog) {
    ShowPercent(dialog, "0%");
    PlayClickSound(IDS_SOUND_COPY_START);
    SetCursor(LoadCursor(nullptr, IDC_WAIT));
    LastDrawn = GetTickCount();
}

void ShowCopyStep(HWND dialog, uint64_t doneBytes, uint64_t totalBytes) {
    const DWORD now = GetTickCount();
    if (now - LastDrawn < kDrawingPeriodMs) return;
    LastDrawn = now;
    Frame = NextFrame(Frame, kCopyStrip.frames);
    DrawCopyFrame(dialog);
    ShowPercent(dialog, PercentText(doneBytes, totalBytes));
}

void ShowCopyDone(HWND dialog) {
    PlayClickSound(IDS_SOUND_COPY_DONE);
    ShowPercent(dialog, "100%");
}
