// The mode tabs: name plates under glass. The selected mode's plate is lit from behind.
#include <string_view>

#include "resources/art/glyphs.h"
#include "resources/art/lettering.h"

// The marks before the names have a box of 16 x 12 units.

static void MarkWave(const Pen& pen, Index index) {
    std::vector<Point> wave = Curve({0.5, 6}, {2.5, -1.5}, {5.5, -1.5}, {8, 6});
    const std::vector<Point> rest = Curve({8, 6}, {10.5, 13.5}, {13.5, 13.5}, {15.5, 6});
    wave.insert(wave.end(), rest.begin(), rest.end());
    DrawFlat(pen, StrokeOf(pen, wave, 2), index);
}

static void MarkMidi(const Pen& pen, Index index) {
    DrawFlat(pen, StrokeOf(pen, {{4.5, 9.5}, {4.5, 9.5}}, 5), index);
    DrawFlat(pen, StrokeOf(pen, {{12.5, 8.5}, {12.5, 8.5}}, 5), index);
    DrawFlat(pen, BoxOf(pen, 5, 1, 7, 10), index);
    DrawFlat(pen, BoxOf(pen, 13, 0, 15, 9), index);
    DrawFlat(pen, PolygonOf(pen, {{5, 1}, {15, 0}, {15, 3}, {5, 4}}), index);
}

static void MarkVideo(const Pen& pen, Index index) {
    Field film = BoxOf(pen, 0, 0, 16, 12);
    for (double x = 1; x < 16; x += 4) {
        film = Minus(film, BoxOf(pen, x, 1, x + 2, 3));
        film = Minus(film, BoxOf(pen, x, 9, x + 2, 11));
    }
    DrawFlat(pen, Minus(film, PolygonOf(pen, {{6, 4}, {11, 6}, {6, 8}})), index);
}

static void MarkCd(const Pen& pen, Index index) {
    const Field ring = Minus(CircleOf(pen, 8, 6, 6.5), CircleOf(pen, 8, 6, 4.5));
    DrawFlat(pen, Union(ring, Minus(CircleOf(pen, 8, 6, 3), CircleOf(pen, 8, 6, 1))), index);
}

struct Tab {
    SkinFace face;
    SkinFace selected;
    std::string_view name;
    void (*mark)(const Pen& pen, Index index);
};

static Picture DrawNamePlate(const Tab& tab, SkinSize cell, bool large, bool lit) {
    const double scale = large ? 4.0 / 3 : 1;
    const Index writing = lit ? kInk : kAmber;
    const Body glass = lit ? Body{kUmber, kCream, kHoney, kAmber} : Body{kInk, kUmber, kInk, kInk};

    Layer layer = MakeLayer(cell.width, cell.height);
    const double inset = large ? 3 : 2;
    PaintBody(layer, Box(inset, inset, cell.width - inset, cell.height - inset, 2), glass, 1, 1);

    const int markWidth = static_cast<int>(16 * scale + 0.5);
    const int gap = large ? 8 : 6;
    const int width = markWidth + gap + TextWidth(tab.name, large);
    const int left = (cell.width - width) / 2;
    const int top = (cell.height - CapitalHeight(large)) / 2;
    const double markHeight = 12 * scale;
    tab.mark({layer, static_cast<double>(left),
              static_cast<double>(static_cast<int>((cell.height - markHeight) / 2 + 0.5)), scale},
             writing);
    Picture plate = Resolve(layer, HousePalette(), EdgeRule::kRelief);
    DrawLetters(plate, tab.name, left + markWidth + gap, top, large, writing);
    return plate;
}

void DrawTabs(Picture& picture, bool large) {
    const Tab tabs[] = {{kFaceTabWave, kFaceTabWaveSelected, "Wave", MarkWave},
                        {kFaceTabMidi, kFaceTabMidiSelected, "Midi", MarkMidi},
                        {kFaceTabVideo, kFaceTabVideoSelected, "Video", MarkVideo},
                        {kFaceTabCdPlayer, kFaceTabCdPlayerSelected, "CD Player", MarkCd}};
    const SkinSize cell = large ? kTabGrid.largeCell : kTabGrid.smallCell;
    for (const Tab& tab : tabs) {
        for (const bool lit : {false, true}) {
            const Picture plate = DrawNamePlate(tab, cell, large, lit);
            for (const bool pressed : {false, true}) {
                const SkinRect at = FaceRect(lit ? tab.selected : tab.face, pressed, large);
                Stamp(picture, plate, at.x + (pressed ? 1 : 0), at.y + (pressed ? 1 : 0));
            }
        }
    }
}
