// Icons of drives and folders, and the brass corners of the dialogs.
#include "resources/art/glyph_kit.h"
#include "resources/art/skin_pictures.h"

// The icons have a box of 16 x 16 units.

static void DrawFloppy(const Pen& pen) {
    DrawBody(pen, PolygonOf(pen, {{1, 1}, {13, 1}, {15, 3}, {15, 15}, {1, 15}}), kEnamel);
    DrawFlat(pen, BoxOf(pen, 4, 1, 11, 6), kInk);
    DrawFlat(pen, BoxOf(pen, 5, 1, 10, 5), kCream);
    DrawFlat(pen, BoxOf(pen, 8, 2, 9, 5), kInk);
    DrawFlat(pen, BoxOf(pen, 3, 8, 13, 15), kInk);
    DrawFlat(pen, BoxOf(pen, 4, 9, 12, 14), kCream);
    DrawFlat(pen, BoxOf(pen, 5, 11, 11, 12), kCopper);
}

// A drive seen from the front: its lid and its front plate with a slot and a lamp.
static void DrawDriveBox(const Pen& pen, double top, double bottom) {
    DrawFlat(pen, PolygonOf(pen, {{3, top}, {13, top}, {16, top + 4}, {0, top + 4}}), kInk);
    DrawFlat(pen, PolygonOf(pen, {{3, top + 1}, {13, top + 1}, {15, top + 4}, {1, top + 4}}),
             kHoney);
    DrawBody(pen, BoxOf(pen, 0, top + 3, 16, bottom), kBrass);
    DrawFlat(pen, BoxOf(pen, 2, bottom - 4, 9, bottom - 3), kInk);
    DrawFlat(pen, BoxOf(pen, 12, bottom - 4, 14, bottom - 2), kMoss);
}

static void DrawHardDisk(const Pen& pen) {
    DrawDriveBox(pen, 3, 14);
}

static void DrawNetwork(const Pen& pen) {
    DrawDriveBox(pen, 0, 10);
    DrawFlat(pen, BoxOf(pen, 6, 10, 10, 13), kInk);
    DrawFlat(pen, BoxOf(pen, 7, 10, 9, 13), kTeal);
    DrawBody(pen, BoxOf(pen, 0, 12, 16, 16), kEnamel);
}

static void DrawCdRom(const Pen& pen) {
    DrawBody(pen, CircleOf(pen, 8, 7, 7), kSilver);
    DrawFlat(pen, PolygonOf(pen, {{8, 6}, {3, 4}, {6, 1}}), kCream);
    DrawFlat(pen, PolygonOf(pen, {{8, 6}, {13, 4}, {14, 8}}), kHoney);
    DrawFlat(pen, BoxOf(pen, 7, 5, 9, 7), kInk);
    DrawBody(pen, BoxOf(pen, 0, 9, 16, 15), kBrass);
    DrawFlat(pen, BoxOf(pen, 2, 11, 10, 12), kInk);
    DrawFlat(pen, BoxOf(pen, 12, 11, 14, 13), kMoss);
}

static void DrawRamDrive(const Pen& pen) {
    for (const double x : {2.0, 6.0, 10.0}) {
        DrawFlat(pen, BoxOf(pen, x, 1, x + 4, 15), kInk);
        DrawFlat(pen, BoxOf(pen, x + 1, 2, x + 3, 14), kHoney);
    }
    DrawBody(pen, BoxOf(pen, 0, 4, 16, 12), kEnamel);
    DrawFlat(pen, BoxOf(pen, 3, 7, 5, 9), kInk);
    DrawFlat(pen, BoxOf(pen, 8, 7, 13, 8), kAqua);
}

static void DrawFolderOpen(const Pen& pen) {
    DrawBody(pen, PolygonOf(pen, {{1, 3}, {2, 2}, {6, 2}, {8, 4}, {13, 4}, {13, 14}, {1, 14}}),
             {kInk, kHoney, kCopper, kCopper});
    DrawBody(pen, PolygonOf(pen, {{3, 7}, {16, 7}, {13, 14}, {1, 14}}), kBrass);
}

static void DrawFolderClosed(const Pen& pen) {
    DrawBody(pen, PolygonOf(pen, {{1, 3}, {2, 2}, {6, 2}, {8, 4}, {15, 4}, {15, 14}, {1, 14}}),
             {kInk, kHoney, kCopper, kCopper});
    DrawBody(pen, BoxOf(pen, 1, 6, 15, 14), kBrass);
}

Picture DrawIcons(int iconSize, bool onHighlight) {
    void (*const draw[kSkinIconCount])(const Pen& pen) = {
        DrawFloppy,   DrawHardDisk,   DrawNetwork,     DrawCdRom,
        DrawRamDrive, DrawFolderOpen, DrawFolderClosed};
    Picture picture = MakePicture(iconSize * kSkinIconCount, iconSize, kFaceGrey);
    for (int i = 0; i < kSkinIconCount; ++i) {
        Layer layer = MakeLayer(iconSize, iconSize);
        draw[i]({layer, 0, 0, iconSize / 16.0});
        // The shadow colour softens edges on a window, but would be a rim on the selection.
        const EdgeRule rule = onHighlight ? EdgeRule::kHard : EdgeRule::kRelief;
        Stamp(picture, Resolve(layer, HousePalette(), rule), i * iconSize, 0);
    }
    return picture;
}

Picture DrawFrameCorners() {
    Picture picture = MakePicture(kCornerSize * kCornerCount, kCornerSize, kFaceGrey);
    for (int piece = 0; piece < kCornerCount; ++piece) {
        const int x = piece * kCornerSize;
        const bool onLeft = piece == 0 || piece == 3;
        const bool onTop = piece == 0 || piece == 1;
        FillRectangle(picture, x, 0, kCornerSize, kCornerSize, kAmber);
        DrawEdge(picture, x, 0, kCornerSize, kCornerSize, kHoney, kCopper);
        // The plate ends in a dark line towards the inside of the dialog.
        FillRectangle(picture, onLeft ? x + kCornerSize - 1 : x, 0, 1, kCornerSize, kInk);
        FillRectangle(picture, x, onTop ? kCornerSize - 1 : 0, kCornerSize, 1, kInk);
        SetPixel(picture, onLeft ? x + kCornerSize - 1 : x, onTop ? kCornerSize - 1 : 0, kFaceGrey);
        const int screwX = x + (onLeft ? 2 : 3);
        const int screwY = onTop ? 2 : 3;
        FillRectangle(picture, screwX, screwY, 3, 3, kCopper);
        SetPixel(picture, screwX, screwY, kHoney);
        SetPixel(picture, screwX + 1, screwY + 1, kInk);
        SetPixel(picture, screwX + 2, screwY, kInk);
        SetPixel(picture, screwX, screwY + 2, kInk);
    }
    return picture;
}
