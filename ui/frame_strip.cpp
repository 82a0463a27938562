// Drawing one frame of an animation strip straight onto a window.
#include "ui/frame_strip.h"

#include "ui/handles.h"
#include "ui/skin.h"

static HPALETTE UsePalette(HDC dc, HPALETTE palette, bool realize) {
    HPALETTE old = SelectPalette(dc, palette, FALSE);
    if (realize) RealizePalette(dc);
    return old;
}

void DrawStripFrame(HWND window, const SkinStrip& strip, int frame, int x, int y, bool usePalette) {
    HBITMAP bitmap = SkinBitmap(strip.slot);
    if (bitmap == nullptr) return;
    const UniqueWindowDc dc = GetUniqueDc(window);
    const UniqueMemoryDc memory(CreateCompatibleDC(dc.get()));
    const SelectedObject selected = SelectInto(memory.get(), bitmap);
    const bool withPalette = usePalette && ProgramPalette != nullptr;
    HPALETTE oldWindow = nullptr;
    HPALETTE oldMemory = nullptr;
    if (withPalette) {
        oldMemory = UsePalette(memory.get(), ProgramPalette, false);
        oldWindow = UsePalette(dc.get(), ProgramPalette, true);
    }
    BitBlt(dc.get(), x, y, strip.frame.width, strip.frame.height, memory.get(),
           frame * strip.frame.width, 0, SRCCOPY);
    if (withPalette) {
        UsePalette(dc.get(), oldWindow, true);
        UsePalette(memory.get(), oldMemory, false);
    }
}
