// The About box's animation: a disc over a mountain lake at dusk, its light on the moving water.
#include <cmath>

#include "resources/art/strip_kit.h"

namespace {

enum DuskColour : Index {
    kNight = kReservedCount,
    kPlum,
    kWine,
    kEmber,
    kGold,
    kStraw,
    kGleam,
    kFarHill,
    kNearHill,
    kDeep,
    kWater,
    kMint,
    kReed
};

constexpr Point kMoon = {46, 24};
constexpr double kMoonRadius = 14;
constexpr double kShore = 42;

}  // namespace

static void DrawSky(Layer& layer, int frame) {
    PaintShaded(layer, Box(0, 0, layer.width, kShore), [](double x, double y) {
        return Dither({kNight, kPlum, kWine, kEmber, kGold}, y / kShore * 1.05, x, y);
    });
    static constexpr int kStars[][2] = {{8, 5}, {20, 10}, {29, 3}, {66, 4}, {74, 12}, {86, 6}};
    for (int i = 0; i < 6; ++i) {
        const bool bright = (frame + 2 * i) % 12 < 8;
        Paint(layer, Box(kStars[i][0], kStars[i][1], kStars[i][0] + 1, kStars[i][1] + 1),
              bright ? kStraw : kWine);
    }
}

static void DrawMoonDisc(Layer& layer, int frame) {
    Paint(layer, Circle(kMoon, kMoonRadius + 1), kWine);
    Paint(layer, Circle(kMoon, kMoonRadius), kGleam);
    PaintShaded(layer, Circle(kMoon, kMoonRadius - 1), [&](double x, double y) {
        // Four equal fans; a quarter turn in twelve frames closes the loop.
        double turn = 4 * (Turn(x - kMoon.x, y - kMoon.y) - frame / 48.0);
        turn -= std::floor(turn);
        return Dither({kGleam, kStraw, kGold, kStraw}, std::fabs(turn - 0.5) * 2, x, y);
    });
    Paint(layer, Circle(kMoon, 4.6), kEmber);
    Paint(layer, Circle(kMoon, 3.6), kStraw);
    Paint(layer, Circle(kMoon, 1.8), kWine);
}

static void DrawHills(Layer& layer) {
    Paint(layer,
          Polygon({{0, 26}, {8, 20}, {14, 25}, {20, 22}, {34, 36}, {40, 38}, {46, 42}, {0, 42}}),
          kFarHill);
    Paint(layer,
          Polygon({{92, 19}, {84, 15}, {76, 23}, {70, 21}, {58, 35}, {50, 39}, {44, 42}, {92, 42}}),
          kFarHill);
    Paint(layer, Polygon({{0, 33}, {10, 31}, {20, 37}, {30, 40}, {34, 42}, {0, 42}}), kNearHill);
    Paint(layer, Polygon({{92, 30}, {82, 33}, {74, 37}, {62, 40}, {58, 42}, {92, 42}}), kNearHill);
}

static void DrawWater(Layer& layer, int frame) {
    PaintShaded(layer, Box(0, kShore, layer.width, layer.height), [](double x, double y) {
        return Dither({kWater, kDeep, kNight}, (y - kShore) / 28, x, y);
    });
    Paint(layer, Box(0, kShore, layer.width, kShore + 1), kNight);
    for (int row = 0; row < 12; ++row) {
        const double y = kShore + 2 + 2 * row;
        // Each ripple swells and shifts once in the loop, later the nearer it is.
        const double phase = frame / 12.0 - row * 0.19;
        const double half = (13.0 - 0.45 * row) * (0.72 + 0.28 * Sine(phase));
        const double shift = 2.2 * Sine(phase + 0.25);
        const double middle = kMoon.x + shift;
        Paint(layer, Box(middle - half, y, middle + half, y + 1), row < 4 ? kStraw : kGold);
        if (row < 8) {
            Paint(layer, Box(middle - half * 0.45, y, middle + half * 0.35, y + 1), kGleam);
        }
        // Glints to the sides.
        const double side = 24 + 5.0 * (row % 4) + 2 * Sine(phase);
        const double length = 2.5 + 2.5 * Sine(phase + 0.1);
        if (length > 0.6) {
            Paint(layer, Box(46 - side - length, y, 46 - side + length, y + 1), kMint);
            Paint(layer, Box(46 + side - length, y, 46 + side + length, y + 1), kMint);
        }
    }
}

static void DrawReeds(Layer& layer, int frame) {
    static constexpr double kReeds[][2] = {{6, 40}, {11, 34}, {15, 44}, {84, 38}, {88, 45}};
    for (const auto& reed : kReeds) {
        const double sway = 0.9 * Sine(frame / 12.0 + reed[0] * 0.07);
        const double tip = reed[0] + sway;
        Paint(layer, Stroke(Curve({reed[0], 70}, {reed[0], 60}, {tip, 54}, {tip, reed[1]}), 1.2),
              kReed);
        Paint(layer, Box(tip - 1.2, reed[1] + 1, tip + 1.2, reed[1] + 9, 1.2), kNearHill);
    }
}

StripPicture DrawAboutStrip() {
    const Palette palette = MakePalette({{{0x1A, 0x14, 0x24},
                                          {0x3C, 0x24, 0x40},
                                          {0x80, 0x34, 0x40},
                                          {0xD4, 0x64, 0x3C},
                                          {0xF0, 0xA8, 0x4C},
                                          {0xFC, 0xD8, 0x8C},
                                          {0xFF, 0xF8, 0xE4},
                                          {0x5A, 0x34, 0x48},
                                          {0x2E, 0x1E, 0x2C},
                                          {0x1C, 0x3C, 0x54},
                                          {0x34, 0x6C, 0x80},
                                          {0x84, 0xBC, 0xC0},
                                          {0x24, 0x2C, 0x24}}});
    return DrawPanes(kAboutStrip, palette, kNight, kNight, [](Layer& layer, int frame) {
        DrawSky(layer, frame);
        DrawMoonDisc(layer, frame);
        DrawHills(layer);
        DrawWater(layer, frame);
        DrawReeds(layer, frame);
    });
}
