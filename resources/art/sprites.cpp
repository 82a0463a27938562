// The sprites that travel up and down beside the modes: one frame for each direction, with the
// lines of their motion behind them.
//
// A sprite moves by three pixels and is copied over itself: the rows at the end it leaves behind
// must be plain background, or they would stay in the window.
#include "resources/art/glyph_kit.h"
#include "resources/art/skin_pictures.h"

constexpr int kTrail = 3;  // plain rows at either end

// The sprite's thing has a box of 26 x 22 units.
static StripPicture DrawSprite(const SkinStrip& strip, const Palette& palette, Index line,
                               void (*draw)(const Pen& pen)) {
    const int width = strip.frame.width;
    const int height = strip.frame.height;
    Picture picture = MakePicture(width * strip.frames, height, kFaceGrey);
    for (int frame = 0; frame < strip.frames; ++frame) {
        const bool down = frame == 0;
        Layer layer = MakeLayer(width, height);
        const double top = down ? height - kTrail - 24 : kTrail;
        draw({layer, 3, top, 1});
        const Picture drawn = Resolve(layer, palette, EdgeRule::kRelief);
        const int x = frame * width;
        for (int i = 0; i < 3; ++i) {
            const int length = i == 1 ? 5 : 3;
            const int lineX = x + 8 + 7 * i;
            const int lineY = down ? kTrail + 5 - length : height - kTrail - 5;
            FillRectangle(picture, lineX, lineY, 2, length, line);
        }
        StampShadow(picture, drawn, x + 1, 1, kReliefShade);
        Stamp(picture, drawn, x, 0);
        FillRectangle(picture, x, 0, width, kTrail, kFaceGrey);
        FillRectangle(picture, x, height - kTrail, width, kTrail, kFaceGrey);
    }
    return {picture, palette};
}

static void DrawDiscThing(const Pen& pen) {
    DrawDisc(pen, 13, 11, 11);
}

static void DrawLoudspeakerThing(const Pen& pen) {
    DrawBody(pen, BoxOf(pen, 3, 0, 23, 22, 1), kWood);
    DrawBody(pen, CircleOf(pen, 13, 14, 6.5), kGlass);
    DrawBody(pen, CircleOf(pen, 13, 14, 3), kBrass);
    DrawBody(pen, CircleOf(pen, 13, 4.5, 2.5), kBrass);
}

static void DrawNotesThing(const Pen& pen) {
    const Field heads = Union(CircleOf(pen, 6.5, 17.5, 4.5), CircleOf(pen, 19.5, 15.5, 4.5));
    const Field stems = Union(BoxOf(pen, 8, 2, 11, 18), BoxOf(pen, 21, 0, 24, 16));
    const Field beam = PolygonOf(pen, {{8, 3}, {24, 0}, {24, 6}, {8, 9}});
    DrawBody(pen, Union(Union(heads, stems), beam), kBrass);
}

// The video mode shows its film without the program's palette, so its sprite keeps to the colours
// that every display has.
static void DrawFilmThing(const Pen& pen) {
    DrawFlat(pen, BoxOf(pen, 2, 0, 24, 22), kBlack);
    for (const double y : {2.0, 7.0, 12.0, 17.0}) {
        DrawFlat(pen, BoxOf(pen, 4, y, 6, y + 3), kPureYellow);
        DrawFlat(pen, BoxOf(pen, 20, y, 22, y + 3), kPureYellow);
    }
    DrawFlat(pen, BoxOf(pen, 8, 2, 18, 20), kDarkCyan);
    DrawFlat(pen, Both(BoxOf(pen, 8, 2, 18, 20), CircleOf(pen, 13, 12, 3.5)), kPureYellow);
    DrawFlat(pen,
             PolygonOf(pen, {{8, 16}, {11, 12}, {14, 16}, {16, 14}, {18, 16}, {18, 20}, {8, 20}}),
             kDarkRed);
    DrawFlat(pen, BoxOf(pen, 8, 18, 18, 20), kDarkYellow);
}

StripPicture DrawCdSprite() {
    return DrawSprite(kCdSprite, HousePalette(), kAmber, DrawDiscThing);
}

StripPicture DrawWaveSprite() {
    return DrawSprite(kWaveSprite, HousePalette(), kAmber, DrawLoudspeakerThing);
}

StripPicture DrawMidiSprite() {
    return DrawSprite(kMidiSprite, HousePalette(), kAmber, DrawNotesThing);
}

StripPicture DrawVideoSprite() {
    return DrawSprite(kVideoSprite, CommonPalette(), kDarkYellow, DrawFilmThing);
}
