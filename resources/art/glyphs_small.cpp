// Glyphs of the small buttons, in a box of 26 x 15 units.
#include "resources/art/glyphs.h"

static void DrawBrowse(const Pen& pen) {
    DrawFolder(pen, 4, 0, 22, 15);
}

static void DrawSoundOn(const Pen& pen) {
    DrawSpeaker(pen, 3, 7.5, 10, kBrass);
    for (const double radius : {4.5, 8.0}) {
        DrawFlat(pen, ArcOf(pen, 13, 7.5, radius, 2.6, 0.87, 1.13), kInk);
        DrawFlat(pen, ArcOf(pen, 13, 7.5, radius, 1.2, 0.87, 1.13), kHoney);
    }
}

static void DrawSoundOff(const Pen& pen) {
    DrawSpeaker(pen, 3, 7.5, 10, kUnlit);
    DrawBody(pen, CrossOf(pen, 14, 2, 11), kRed);
}

static void DrawLoop(const Pen& pen, const Body& body) {
    const Field upper = PolygonOf(
        pen, {{3, 9}, {3, 2}, {16, 2}, {16, -1}, {22, 4}, {16, 9}, {16, 6}, {7, 6}, {7, 9}});
    const Field lower = PolygonOf(
        pen, {{23, 6}, {23, 13}, {10, 13}, {10, 16}, {4, 11}, {10, 6}, {10, 9}, {19, 9}, {19, 6}});
    DrawBody(pen, upper, body);
    DrawBody(pen, lower, body);
}

static void DrawRepeatOn(const Pen& pen) {
    DrawLoop(pen, kBrass);
}

static void DrawRepeatOff(const Pen& pen) {
    DrawLoop(pen, kUnlit);
}

static void DrawPageUp(const Pen& pen) {
    DrawBody(pen, PolygonOf(pen, {{13, 0}, {22, 8}, {4, 8}}), kBrass);
    DrawBody(pen, BoxOf(pen, 4, 10, 22, 14), kBrass);
}

static void DrawPageDown(const Pen& pen) {
    DrawBody(pen, PolygonOf(pen, {{4, 7}, {22, 7}, {13, 15}}), kBrass);
    DrawBody(pen, BoxOf(pen, 4, 1, 22, 5), kBrass);
}

static void DrawArrowForward(const Pen& pen) {
    DrawBody(pen, ArrowRightOf(pen, 3, 7.5, 20, 7.5), kBrass);
}

static void DrawArrowBack(const Pen& pen) {
    DrawBody(pen,
             PolygonOf(pen, {{23, 4}, {11, 4}, {11, 0}, {3, 7.5}, {11, 15}, {11, 11}, {23, 11}}),
             kBrass);
}

static void DrawTrack(const Pen& pen) {
    DrawBody(pen, BoxOf(pen, 2, 1, 24, 14, 2), kGlass);
    DrawFlat(pen, PolygonOf(pen, {{10, 3}, {17, 7.5}, {10, 12}}), kCopper);
}

static void DrawTrackPlaying(const Pen& pen) {
    DrawBody(pen, BoxOf(pen, 2, 1, 24, 14, 2), {kInk, kCream, kHoney, kAmber});
    DrawFlat(pen, PolygonOf(pen, {{10, 3}, {17, 7.5}, {10, 12}}), kInk);
}

std::vector<Glyph> SmallGlyphs() {
    return {{kFaceBrowse, DrawBrowse},
            {kFaceSoundOn, DrawSoundOn},
            {kFaceSoundOff, DrawSoundOff},
            {kFaceRepeatOn, DrawRepeatOn},
            {kFaceRepeatOff, DrawRepeatOff},
            {kFacePageUp, DrawPageUp},
            {kFacePageDown, DrawPageDown},
            {kFaceArrowForward, DrawArrowForward},
            {kFaceArrowBack, DrawArrowBack},
            {kFaceTrack, DrawTrack},
            {kFaceTrackPlaying, DrawTrackPlaying}};
}
