// The wave player's animation: an oscilloscope on whose screen a wave travels by a quarter of its
// length from frame to frame.
#include <cmath>

#include "resources/art/strip_kit.h"

namespace {

enum WaveColour : Index {
    kNight = kReservedCount,
    kTimber,
    kRust,
    kGold,
    kStraw,
    kGlass,
    kGrid,
    kGlow,
    kTrace,
    kSpark,
    kGleam,
    kWalnut,
    kEmber
};

constexpr double kScreenLeft = 9;
constexpr double kScreenTop = 9;
constexpr double kScreenRight = 137;
constexpr double kScreenBottom = 105;

}  // namespace

// The line on the screen at one of the four moments; the wave's length is four steps.
static std::vector<Point> TraceAt(int frame) {
    constexpr double kLength = 44;
    const double middle = (kScreenTop + kScreenBottom) / 2;
    std::vector<Point> points;
    for (double x = kScreenLeft + 3; x <= kScreenRight - 3; x += 1.5) {
        const double along = (x - kScreenLeft) / (kScreenRight - kScreenLeft);
        // Quiet at both edges of the screen, with a waist between two swells.
        const double swell = Sine(along / 2) * (0.72 + 0.28 * Cosine(along * 2 + 0.5));
        const double place = x / kLength - frame / 4.0;
        const double height = 0.72 * Sine(place) + 0.34 * Sine(2 * place + 0.13);
        points.push_back({x, middle - 40 * swell * height});
    }
    return points;
}

static void DrawScreen(Layer& layer, int frame) {
    const Field screen = Box(kScreenLeft, kScreenTop, kScreenRight, kScreenBottom, 8);
    Paint(layer, Grown(screen, 3), kNight);
    Paint(layer, Moved(Grown(screen, 1.6), 0.8, 0.8), kRust);
    Paint(layer, Grown(screen, 1), kNight);
    PaintShaded(layer, screen, [](double x, double y) {
        const double dx = (x - 60) / 90;
        const double dy = (y - 46) / 70;
        return Dither({kGrid, kGlass, kGlass, kNight}, (dx * dx + dy * dy) * 0.9 + 0.25, x, y);
    });
    for (int i = 1; i < 8; ++i) {
        const double x = kScreenLeft + 16 * i;
        Paint(layer, Both(screen, Box(x, kScreenTop, x + 1, kScreenBottom)), kGrid);
    }
    for (int i = 1; i < 6; ++i) {
        const double y = kScreenTop + 16 * i;
        Paint(layer, Both(screen, Box(kScreenLeft, y, kScreenRight, y + 1)), kGrid);
    }
    // The screen keeps a faint memory of the moment before.
    Paint(layer, Stroke(TraceAt(frame + 3), 1.4), kGrid);
    const std::vector<Point> trace = TraceAt(frame);
    Paint(layer, Stroke(trace, 5), kGlow);
    Paint(layer, Stroke(trace, 2.6), kTrace);
    Paint(layer, Stroke(trace, 1.2), kSpark);
    // The reflection of a window in the glass.
    PaintShaded(layer, Both(screen, Arc({kScreenLeft + 22, kScreenTop + 20}, 17, 1.4, 0.53, 0.72)),
                [](double, double) { return kGleam; });
}

static void DrawControl(Layer& layer, double x, double y, double radius, double turn) {
    Paint(layer, Circle({x + 1.5, y + 1.5}, radius), kNight);
    PaintBody(layer, Circle({x, y}, radius), {kNight, kStraw, kRust, kTimber}, 1, 1.5);
    PaintBody(layer, Circle({x, y}, radius - 2.5), {kTimber, kStraw, kGold, kRust}, 1, 1.5);
    Paint(layer,
          Stroke({{x + 0.2 * radius * Cosine(turn), y + 0.2 * radius * Sine(turn)},
                  {x + 0.75 * radius * Cosine(turn), y + 0.75 * radius * Sine(turn)}},
                 1.6),
          kNight);
}

static void DrawControls(Layer& layer, int frame) {
    DrawControl(layer, 22, 125, 10, 0.65);
    DrawControl(layer, 49, 125, 10, 0.85);
    // A small grille and a lamp that glows with the wave.
    for (int i = 0; i < 7; ++i) {
        const double x = 72 + 6 * i;
        Paint(layer, Box(x, 116, x + 3, 134, 1.5), kNight);
        Paint(layer, Box(x + 2.5, 117, x + 3.5, 134, 0.5), kRust);
    }
    Paint(layer, Circle({128, 125}, 7), kNight);
    Paint(layer, Circle({128, 125}, 6), kRust);
    Paint(layer, Circle({128, 125}, 5), kEmber);
    const double bright[] = {2.2, 2.8, 3.4, 2.8};
    Paint(layer, Circle({127, 124}, bright[frame]), kGold);
    Paint(layer, Circle({126.5, 123.5}, 1.2), kStraw);
}

StripPicture DrawWaveStrip() {
    const Palette palette = MakePalette({{{0x16, 0x10, 0x0E},
                                          {0x5C, 0x36, 0x20},
                                          {0x98, 0x58, 0x2A},
                                          {0xE2, 0x97, 0x38},
                                          {0xF8, 0xCC, 0x78},
                                          {0x10, 0x2A, 0x2C},
                                          {0x1E, 0x48, 0x4A},
                                          {0x2C, 0x74, 0x70},
                                          {0x58, 0xC0, 0xAC},
                                          {0xE4, 0xFF, 0xF0},
                                          {0x6A, 0x94, 0x94},
                                          {0x7A, 0x48, 0x26},
                                          {0xC8, 0x48, 0x2C}}});
    return DrawPanes(kWaveStrip, palette, kNight, kTimber, [](Layer& layer, int frame) {
        PaintShaded(layer, Box(0, 0, layer.width, layer.height), [](double x, double y) {
            // The grain of the wood.
            const double grain = Sine(y / 9 + 0.35 * Sine(x / 90)) * Sine(y / 23 + x / 210);
            return Dither({kTimber, kWalnut}, 0.5 + 0.6 * grain, x * 0.25, y);
        });
        DrawScreen(layer, frame);
        DrawControls(layer, frame);
    });
}
