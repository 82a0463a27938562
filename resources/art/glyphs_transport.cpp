// Glyphs of the players: transport, disc and set-up.
#include "resources/art/glyphs.h"

// All main glyphs are drawn in a box of 34 x 33 units.

static void DrawPlay(const Pen& pen) {
    DrawBody(pen, PolygonOf(pen, {{7, 3}, {31, 16.5}, {7, 30}}), kGreen);
}

static void DrawStop(const Pen& pen) {
    DrawBody(pen, BoxOf(pen, 7, 6, 28, 27, 1.5), kRed);
}

static void DrawPause(const Pen& pen) {
    DrawBody(pen, BoxOf(pen, 7, 5, 15, 28, 1.5), kBrass);
    DrawBody(pen, BoxOf(pen, 20, 5, 28, 28, 1.5), kBrass);
}

static void DrawSkipBack(const Pen& pen) {
    DrawBody(pen, BoxOf(pen, 3, 6, 8, 27, 1), kBrass);
    DrawBody(pen, PolygonOf(pen, {{20, 6}, {20, 27}, {9, 16.5}}), kBrass);
    DrawBody(pen, PolygonOf(pen, {{31, 6}, {31, 27}, {20, 16.5}}), kBrass);
}

static void DrawSkipForward(const Pen& pen) {
    DrawBody(pen, PolygonOf(pen, {{3, 6}, {14, 16.5}, {3, 27}}), kBrass);
    DrawBody(pen, PolygonOf(pen, {{14, 6}, {25, 16.5}, {14, 27}}), kBrass);
    DrawBody(pen, BoxOf(pen, 26, 6, 31, 27, 1), kBrass);
}

static void DrawEject(const Pen& pen) {
    DrawBody(pen, PolygonOf(pen, {{17, 4}, {30, 18}, {4, 18}}), kBrass);
    DrawBody(pen, BoxOf(pen, 4, 21, 30, 28, 1.5), kBrass);
}

static void DrawSetup(const Pen& pen) {
    std::vector<Point> teeth;
    constexpr int kTeeth = 8;
    for (int i = 0; i < kTeeth; ++i) {
        const double middle = static_cast<double>(i) / kTeeth;
        const auto add = [&](double turn, double radius) {
            teeth.push_back({17 + radius * Cosine(turn), 16.5 + radius * Sine(turn)});
        };
        add(middle - 0.040, 10.5);
        add(middle - 0.027, 14.5);
        add(middle + 0.027, 14.5);
        add(middle + 0.040, 10.5);
    }
    const Field wheel = FreePolygonOf(pen, teeth);
    DrawBody(pen, Minus(wheel, CircleOf(pen, 17, 16.5, 4)), kBrass);
    DrawFlat(pen, CircleOf(pen, 17, 16.5, 3), kClear);
}

static void DrawAbout(const Pen& pen) {
    PaintEmblem(pen.layer, {X(pen, 17), Y(pen, 16.5)}, 15 * pen.scale, 1, HouseEmblem());
}

static void DrawVolume(const Pen& pen) {
    DrawKnob(pen, 17, 18, 10.5);
}

static void DrawExit(const Pen& pen) {
    DrawBody(pen, BoxOf(pen, 3, 2, 21, 30), kWood);
    DrawFlat(pen, BoxOf(pen, 6, 5, 18, 29), kInk);
    DrawBody(pen, PolygonOf(pen, {{5, 4}, {12, 8}, {12, 33}, {5, 29}}), kBrass);
    DrawFlat(pen, BoxOf(pen, 9, 19, 11, 21), kInk);
    DrawBody(pen, ArrowRightOf(pen, 15, 16.5, 17, 7), kRed);
}

static void DrawAddEntry(const Pen& pen) {
    DrawCard(pen, 2, 8, 24, 18);
    DrawBody(pen,
             PolygonOf(pen, {{23, 15},
                             {28, 15},
                             {28, 20},
                             {33, 20},
                             {33, 25},
                             {28, 25},
                             {28, 30},
                             {23, 30},
                             {23, 25},
                             {18, 25},
                             {18, 20},
                             {23, 20}}),
             kGreen);
}

static void DrawGarnish(const Pen& pen) {
    DrawDisc(pen, 17, 13, 11);
    DrawCard(pen, 6, 10, 22, 14);
    DrawBody(pen, PolygonOf(pen, {{2, 17}, {32, 17}, {30, 31}, {4, 31}}), kWood);
    DrawBody(pen, BoxOf(pen, 11, 21, 23, 27), kPaper);
    DrawFlat(pen, BoxOf(pen, 13, 23, 21, 25), kAmber);
}

std::vector<Glyph> TransportGlyphs() {
    return {{kFacePlay, DrawPlay},
            {kFaceStop, DrawStop},
            {kFacePause, DrawPause},
            {kFaceSkipBack, DrawSkipBack},
            {kFaceSkipForward, DrawSkipForward},
            {kFaceEject, DrawEject},
            {kFaceSetup, DrawSetup},
            {kFaceAbout, DrawAbout},
            {kFaceVolume, DrawVolume},
            {kFaceExit, DrawExit},
            {kFaceAddEntry, DrawAddEntry},
            {kFaceGarnish, DrawGarnish}};
}

std::vector<Glyph> Glyphs() {
    std::vector<Glyph> all;
    for (const auto& part :
         {TransportGlyphs(), FileGlyphs(), DialogGlyphs(), SmallGlyphs(), MenuGlyphs()}) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}
