// See entry_colors.h.
#include "ui/entry_colors.h"

#include "base/program_state.h"
#include "base/settings.h"

HBRUSH BackgroundBrush;

EntryColors CurrentEntryColors() {
    if (Settings.entryFieldColorization) return {COLOR_BTNFACE, COLOR_BTNTEXT};
    return {COLOR_WINDOW, COLOR_WINDOWTEXT};
}

void CreateBackgroundBrush() {
    HBRUSH old = BackgroundBrush;
    BackgroundBrush = CreateSolidBrush(GetSysColor(CurrentEntryColors().ground));
    // The class must not keep a brush that is about to be deleted.
    if (MainWindow != nullptr) {
        SetClassLongA(MainWindow, GCL_HBRBACKGROUND,
                      static_cast<LONG>(reinterpret_cast<LONG_PTR>(BackgroundBrush)));
    }
    if (old != nullptr) DeleteObject(old);
}

void FreeBackgroundBrush() {
    if (BackgroundBrush != nullptr) DeleteObject(BackgroundBrush);
    BackgroundBrush = nullptr;
}

HBRUSH ColorEntryField(HDC dc) {
    const EntryColors colors = CurrentEntryColors();
    SetBkColor(dc, GetSysColor(colors.ground));
    SetTextColor(dc, GetSysColor(colors.text));
    return BackgroundBrush;
}
