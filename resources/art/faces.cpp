// Lays the glyphs out on button faces: every face up and pressed, at both sizes.
#include <cmath>

#include "resources/art/glyphs.h"
#include "resources/art/skin_pictures.h"

// The glyph's box in the cell, in units of the small set.
struct GlyphBox {
    double width;
    double height;
};

static GlyphBox BoxFor(const SkinGrid& grid) {
    if (grid.slot == kSlotSmallButtons) return {26, 15};
    if (grid.slot == kSlotMenuButtons) return {68, 60};
    return {34, 33};
}

static Picture DrawGlyph(const Glyph& glyph, SkinSize cell, bool large) {
    Layer layer = MakeLayer(cell.width, cell.height);
    const double scale = large ? 4.0 / 3 : 1;
    const GlyphBox box = BoxFor(*glyph.face.grid);
    const double left = std::floor((cell.width - box.width * scale) / 2 + 0.5);
    const double top = std::floor((cell.height - box.height * scale) / 2);
    glyph.draw({layer, left, top, scale});
    return Resolve(layer, HousePalette(), EdgeRule::kRelief);
}

// The face's own edge: raised when up, sunken when pressed.
static void DrawPlate(Picture& picture, const SkinRect& at, bool pressed) {
    FillRectangle(picture, at.x, at.y, at.width, at.height, kFaceGrey);
    if (!pressed) {
        DrawEdge(picture, at.x, at.y, at.width, at.height, kReliefLight, kReliefShade);
        return;
    }
    DrawEdge(picture, at.x, at.y, at.width, at.height, kReliefShade, kReliefLight);
    FillRectangle(picture, at.x + 1, at.y + 1, at.width - 3, 1, kReliefShade);
    FillRectangle(picture, at.x + 1, at.y + 1, 1, at.height - 3, kReliefShade);
}

Picture DrawGrid(const SkinGrid& grid, bool large) {
    const SkinSize cell = large ? grid.largeCell : grid.smallCell;
    Picture picture =
        MakePicture(cell.width * grid.columns * 2, cell.height * grid.rows, kFaceGrey);
    for (int i = 0; i < grid.columns * grid.rows; ++i) {
        const SkinFace face = {&grid, i % grid.columns, i / grid.columns};
        DrawPlate(picture, FaceRect(face, false, large), false);
        DrawPlate(picture, FaceRect(face, true, large), true);
    }
    for (const Glyph& glyph : Glyphs()) {
        if (glyph.face.grid->slot != grid.slot) continue;
        const Picture drawn = DrawGlyph(glyph, cell, large);
        const SkinRect up = FaceRect(glyph.face, false, large);
        const SkinRect down = FaceRect(glyph.face, true, large);
        // Small glyphs stand lower over the face: a wide shadow would fill their gaps.
        const int lift = grid.slot == kSlotSmallButtons ? 1 : 2;
        StampShadow(picture, drawn, up.x + lift, up.y + lift, kReliefShade);
        Stamp(picture, drawn, up.x, up.y);
        // Pressed, the glyph goes down towards its shadow.
        StampShadow(picture, drawn, down.x + lift, down.y + lift, kReliefShade);
        Stamp(picture, drawn, down.x + 1, down.y + 1);
    }
    if (grid.slot == kSlotTabs) DrawTabs(picture, large);
    return picture;
}
