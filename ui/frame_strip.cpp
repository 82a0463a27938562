// Drawing one frame of an animation strip straight onto a window, and what surrounds it there.
#include "ui/frame_strip.h"

#include "base/handles.h"
#include "ui/frame_stepping.h"
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

RECT PicturePlace(const RECT& area, const SkinSize& picture) {
    const int x = CenteredIn(area.left, area.right - area.left, picture.width);
    const int y = CenteredIn(area.top, area.bottom - area.top, picture.height);
    return {x, y, x + picture.width, y + picture.height};
}

// An edge around the picture, so many pixels away, where the ground has room for it.
static void DrawEdgeAround(HDC dc, RECT picture, int distance, const RECT& ground, UINT edge) {
    InflateRect(&picture, distance, distance);
    const bool fits = picture.left >= ground.left && picture.top >= ground.top &&
                      picture.right <= ground.right && picture.bottom <= ground.bottom;
    if (fits) DrawEdge(dc, &picture, edge, BF_RECT);
}

void DrawMount(HWND window, const RECT& area, const SkinSize& picture) {
    constexpr int frame = 2;
    constexpr int bezel = 1;
    constexpr int plate = 10;
    const RECT place = PicturePlace(area, picture);
    RECT ground = area;
    InflateRect(&ground, -frame, -frame);
    const UniqueWindowDc dc = GetUniqueDc(window);
    // What the picture will cover is left alone, so that a repaint does not flicker.
    ExcludeClipRect(dc.get(), place.left, place.top, place.right, place.bottom);
    FillRect(dc.get(), &ground, GetSysColorBrush(COLOR_BTNFACE));
    DrawEdgeAround(dc.get(), place, bezel, ground, BDR_SUNKENOUTER);
    DrawEdgeAround(dc.get(), place, plate, ground, BDR_RAISEDINNER);
}
