// The CD player's animation: a disc that turns in its well under a fixed light, and the bars of a
// level display below it.
#include <cmath>

#include "resources/art/strip_kit.h"

namespace {

enum CdColour : Index {
    kNight = kReservedCount,
    kSmoke,
    kBark,
    kRust,
    kGold,
    kStraw,
    kGleam,
    kSea,
    kLagoon,
    kMint,
    kRose,
    kViolet,
    kEmber
};

constexpr Point kCentre = {42.5, 44.5};
constexpr double kDiscRadius = 37;
constexpr double kLabelRadius = 15;

}  // namespace

// The light falls in two opposite fans that stand still, trembling a little, while the disc turns.
static Index Shimmer(double x, double y, int frame) {
    const double dx = x - kCentre.x;
    const double dy = y - kCentre.y;
    const double tremble = 0.012 * Sine(frame / 21.0 * 3) + 0.006 * Sine(frame / 21.0 * 8);
    double turn = Turn(dx, dy) + tremble + 0.42;
    turn -= std::floor(turn * 2) / 2;
    const double off = std::fabs(turn - 0.25);
    const double radius = std::sqrt(dx * dx + dy * dy);
    // Colours spread outwards, as from a grating.
    const double spread = off * (3.0 - radius / kDiscRadius);
    static const std::vector<Index> kFan = {kGleam,  kStraw, kRose,   kViolet,
                                            kLagoon, kMint,  kLagoon, kSea};
    return Dither(kFan, spread / 0.5, x, y);
}

static void DrawTurningDisc(Layer& layer, int frame) {
    Paint(layer, Circle(kCentre, kDiscRadius + 3.5), kBark);
    Paint(layer, Circle({kCentre.x + 0.7, kCentre.y + 0.7}, kDiscRadius + 2.6), kSmoke);
    Paint(layer, Circle(kCentre, kDiscRadius + 1.4), kNight);
    Paint(layer, Circle(kCentre, kDiscRadius), kMint);
    PaintShaded(layer, Circle(kCentre, kDiscRadius - 1.2),
                [&](double x, double y) { return Shimmer(x, y, frame); });
    // The end of the recording, a thin dark ring that turns unseen.
    Paint(layer, Minus(Circle(kCentre, 31.6), Circle(kCentre, 30.9)), kSea);

    const double turned = frame / 21.0;
    Paint(layer, Circle(kCentre, kLabelRadius + 1), kNight);
    Paint(layer, Circle(kCentre, kLabelRadius), kGold);
    Paint(layer, Arc(kCentre, 12, 2.4, turned, turned + 0.3), kRust);
    Paint(layer, Arc(kCentre, 12, 2.4, turned + 0.42, turned + 0.5), kRust);
    Paint(layer, Arc(kCentre, 12, 2.4, turned + 0.62, turned + 0.84), kStraw);
    const double mark = turned + 0.15;
    Paint(layer,
          Circle({kCentre.x + 8 * Cosine(mark + 0.5), kCentre.y + 8 * Sine(mark + 0.5)}, 1.8),
          kEmber);
    Paint(layer, Circle(kCentre, 5.6), kBark);
    Paint(layer, Circle(kCentre, 4.6), kGleam);
    Paint(layer, Circle(kCentre, 2.8), kNight);
}

static void DrawLevels(Layer& layer, int frame) {
    constexpr int kBars = 9;
    constexpr int kSegments = 11;
    constexpr int kLeft = 7;
    constexpr int kBottom = 139;
    Paint(layer, Box(3, 92, 82, 144, 2), kBark);
    Paint(layer, Box(4, 93, 81, 143, 1.5), kNight);
    for (int bar = 0; bar < kBars; ++bar) {
        // Whole cycles in 21 frames, different from bar to bar, so that the loop closes.
        const double time = frame / 21.0;
        const double shape = 7.2 - 0.42 * bar;
        const double level = shape + 2.4 * Sine(time * (2 + bar % 3) + bar * 0.37) +
                             1.7 * Sine(time * (5 - bar % 2) + bar * 0.61);
        const int lit = static_cast<int>(level);
        for (int segment = 0; segment < kSegments; ++segment) {
            const double x = kLeft + 8 * bar;
            const double y = kBottom - 4 * segment;
            Index index = segment > 8 ? kEmber : segment > 5 ? kStraw : kGold;
            if (segment >= lit) index = kSmoke;
            Paint(layer, Box(x, y - 3, x + 7, y), index);
        }
    }
}

StripPicture DrawCdStrip() {
    const Palette palette = MakePalette({{{0x16, 0x0F, 0x0D},
                                          {0x30, 0x21, 0x1B},
                                          {0x54, 0x34, 0x22},
                                          {0x9C, 0x56, 0x28},
                                          {0xE0, 0x94, 0x36},
                                          {0xF8, 0xD0, 0x80},
                                          {0xFF, 0xF8, 0xE6},
                                          {0x34, 0x5E, 0x6A},
                                          {0x5E, 0x98, 0xA0},
                                          {0x9C, 0xCC, 0xC8},
                                          {0xE8, 0xA8, 0x98},
                                          {0x94, 0x86, 0xB4},
                                          {0xDC, 0x58, 0x3C}}});
    return DrawPanes(kCdStrip, palette, kNight, kNight, [](Layer& layer, int frame) {
        PaintShaded(layer, Box(0, 0, layer.width, layer.height), [&](double x, double y) {
            return Dither({kSmoke, kNight}, (x + y) / 190, x, y);
        });
        DrawTurningDisc(layer, frame);
        DrawLevels(layer, frame);
    });
}
