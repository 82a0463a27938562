// Glyphs of the dialogs' own buttons and of the catalogue's menu.
#include "resources/art/glyphs.h"

static void DrawStart(const Pen& pen) {
    DrawBody(pen, CircleOf(pen, 17, 16.5, 14.5), kGreen);
    DrawBody(pen, PolygonOf(pen, {{13, 8}, {26, 16.5}, {13, 25}}), kPaper);
}

static void DrawSave(const Pen& pen) {
    DrawBody(pen, PolygonOf(pen, {{4, 3}, {27, 3}, {30, 6}, {30, 30}, {4, 30}}), kEnamel);
    DrawBody(pen, BoxOf(pen, 9, 3, 25, 13), {kInk, kCream, kAqua, kAqua});
    DrawFlat(pen, BoxOf(pen, 19, 5, 22, 11), kInk);
    DrawBody(pen, BoxOf(pen, 7, 17, 27, 30), kPaper);
    DrawFlat(pen, BoxOf(pen, 10, 21, 24, 22), kCopper);
    DrawFlat(pen, BoxOf(pen, 10, 25, 20, 26), kCopper);
}

static void DrawOk(const Pen& pen) {
    DrawBody(pen, TickOf(pen, 3, 3, 28), kGreen);
}

static void DrawCancel(const Pen& pen) {
    DrawBody(pen, CrossOf(pen, 5, 4.5, 24), kRed);
}

static void DrawDeleteEntry(const Pen& pen) {
    DrawCard(pen, 2, 7, 26, 19);
    DrawBody(pen, CrossOf(pen, 17, 15, 15), kRed);
}

static void DrawOverwriteAll(const Pen& pen) {
    DrawBody(pen, BoxOf(pen, 12, 2, 32, 24), kPaper);
    DrawBody(pen, BoxOf(pen, 8, 6, 28, 28), kPaper);
    DrawSheet(pen, 4, 10, 20, 22, 0);
    DrawBody(pen, ArrowDownOf(pen, 14, 2, 26, 8), kRed);
}

static void DrawChangeEditor(const Pen& pen) {
    DrawWaveScreen(pen, 2, 2, 25, 20);
    DrawFolder(pen, 11, 14, 33, 31);
}

static void DrawChangeVolume(const Pen& pen) {
    DrawKnob(pen, 13, 13, 8);
    DrawFolder(pen, 12, 15, 33, 31);
}

// The menu's glyphs have a box of 68 x 60 units.

static void DrawMenuEditor(const Pen& pen) {
    DrawCard(pen, 10, 6, 44, 30);
    DrawCard(pen, 6, 14, 48, 38);
    DrawDisc(pen, 20, 37, 10);
    DrawPencil(pen, 32, 51, 45, 3.6);
}

static void DrawMenuSorter(const Pen& pen) {
    for (int i = 0; i < 4; ++i)
        DrawCard(pen, 4 + 6 * i, 4 + 8 * i, 34, 26);
    DrawBody(pen, ArrowDownOf(pen, 58, 8, 44, 8), kGreen);
}

static void DrawMenuExport(const Pen& pen) {
    DrawDisc(pen, 21, 24, 18);
    DrawSheet(pen, 34, 14, 30, 42, 8);
    DrawBody(pen, ArrowRightOf(pen, 16, 38, 30, 9), kGreen);
}

static void DrawMenuInformation(const Pen& pen) {
    DrawCard(pen, 4, 8, 46, 40);
    for (int i = 0; i < 4; ++i) {
        static constexpr double kHeights[] = {9, 16, 12, 22};
        DrawBody(pen, BoxOf(pen, 10 + 8 * i, 44 - kHeights[i], 17 + 8 * i, 44), kBrass);
    }
    DrawBody(pen, CircleOf(pen, 50, 40, 16), kEnamel);
    DrawFlat(pen, BoxOf(pen, 48, 29, 53, 34), kCream);
    DrawFlat(pen, BoxOf(pen, 46, 37, 53, 40), kCream);
    DrawFlat(pen, BoxOf(pen, 48, 37, 53, 50), kCream);
    DrawFlat(pen, BoxOf(pen, 45, 48, 56, 51), kCream);
}

std::vector<Glyph> DialogGlyphs() {
    return {{kFaceStart, DrawStart},
            {kFaceSave, DrawSave},
            {kFaceOk, DrawOk},
            {kFaceCancel, DrawCancel},
            {kFaceDeleteEntry, DrawDeleteEntry},
            {kFaceOverwriteAll, DrawOverwriteAll},
            {kFaceChangeEditor, DrawChangeEditor},
            {kFaceChangeVolume, DrawChangeVolume}};
}

std::vector<Glyph> MenuGlyphs() {
    return {{kFaceMenuEditor, DrawMenuEditor},
            {kFaceMenuSorter, DrawMenuSorter},
            {kFaceMenuExport, DrawMenuExport},
            {kFaceMenuInformation, DrawMenuInformation}};
}
