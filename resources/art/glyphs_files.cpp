// Glyphs of the file tools.
#include "resources/art/glyphs.h"

static void DrawInfo(const Pen& pen) {
    DrawSheet(pen, 3, 2, 20, 27, 5);
    DrawBody(pen, CircleOf(pen, 23, 22, 9.5), kEnamel);
    DrawFlat(pen, BoxOf(pen, 22, 16, 25, 19), kCream);
    DrawFlat(pen, BoxOf(pen, 21, 20, 25, 22), kCream);
    DrawFlat(pen, BoxOf(pen, 22, 20, 25, 27), kCream);
    DrawFlat(pen, BoxOf(pen, 21, 26, 26, 28), kCream);
}

static void DrawCopy(const Pen& pen) {
    DrawSheet(pen, 3, 2, 19, 23, 4);
    DrawSheet(pen, 12, 8, 19, 23, 4);
}

static void DrawRename(const Pen& pen) {
    DrawBody(pen, PolygonOf(pen, {{2, 18}, {8, 12}, {29, 12}, {29, 27}, {8, 27}, {2, 21}}), kPaper);
    DrawFlat(pen, CircleOf(pen, 7, 19.5, 1.5), kInk);
    DrawFlat(pen, BoxOf(pen, 11, 18, 20, 19), kCopper);
    DrawFlat(pen, BoxOf(pen, 11, 22, 16, 23), kCopper);
    DrawPencil(pen, 17, 23, 20);
}

static void DrawMove(const Pen& pen) {
    DrawSheet(pen, 2, 3, 15, 20, 3);
    DrawFolder(pen, 13, 13, 33, 30);
    DrawBody(pen, ArrowRightOf(pen, 7, 22, 18, 6), kGreen);
}

static void DrawEditor(const Pen& pen) {
    DrawWaveScreen(pen, 2, 5, 28, 27);
    DrawPencil(pen, 15, 30, 22);
}

static void DrawDelete(const Pen& pen) {
    DrawBody(pen, PolygonOf(pen, {{7, 9}, {27, 9}, {25, 31}, {9, 31}}), kEnamel);
    for (const double x : {12.0, 16.5, 21.0}) {
        DrawFlat(pen, BoxOf(pen, x, 13, x + 1, 28), kDeepTeal);
        DrawFlat(pen, BoxOf(pen, x + 1, 13, x + 2, 28), kAqua);
    }
    DrawBody(pen, BoxOf(pen, 13, 2, 21, 7, 1.5), kEnamel);
    DrawBody(pen, BoxOf(pen, 5, 5, 29, 10, 1.5), kEnamel);
}

static void DrawSearch(const Pen& pen) {
    DrawBody(pen, StrokeOf(pen, {{21, 20}, {29, 28}}, 6.5), kWood);
    DrawBody(pen, CircleOf(pen, 14, 13, 11.5), kBrass);
    DrawBody(pen, CircleOf(pen, 14, 13, 8.5), {kInk, kCream, kAqua, kAqua});
    DrawFlat(pen, ArcOf(pen, 14, 13, 5, 1.8, 0.52, 0.74), kCream);
}

static void DrawList(const Pen& pen, bool chosen) {
    DrawBody(pen, BoxOf(pen, 4, 2, 30, 31, 1), kPaper);
    for (int i = 0; i < 3; ++i) {
        const double y = 5 + 8 * i;
        if (chosen) DrawFlat(pen, BoxOf(pen, 6, y - 1, 28, y + 7), kHoney);
        DrawBody(pen, BoxOf(pen, 7, y, 13, y + 6), {kInk, kCream, kCream, kCream});
        DrawFlat(pen, BoxOf(pen, 16, y + 2, 27, y + 4), chosen ? kUmber : kHoney);
        if (chosen) DrawBody(pen, TickOf(pen, 6, y - 3, 10), {kMoss, kMoss, kMoss, kMoss});
    }
}

static void DrawSelect(const Pen& pen) {
    DrawList(pen, true);
}

static void DrawNone(const Pen& pen) {
    DrawList(pen, false);
}

std::vector<Glyph> FileGlyphs() {
    return {{kFaceInfo, DrawInfo},     {kFaceCopy, DrawCopy},     {kFaceRename, DrawRename},
            {kFaceMove, DrawMove},     {kFaceEditor, DrawEditor}, {kFaceDelete, DrawDelete},
            {kFaceSearch, DrawSearch}, {kFaceSelect, DrawSelect}, {kFaceNone, DrawNone}};
}
