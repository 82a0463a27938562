// The MIDI player's animation: a keyboard that plays a figure of six notes, and the staff above it
// on which the note being played lights up.
#include "resources/art/strip_kit.h"

namespace {

enum MidiColour : Index {
    kNight = kReservedCount,
    kSmoke,
    kBark,
    kRust,
    kGold,
    kStraw,
    kIvory,
    kIvoryShade,
    kEbony,
    kEbonyLight,
    kSea,
    kMint,
    kEmber
};

constexpr int kNotes = 6;
// White keys from the left, and steps above the lowest line of the staff.
constexpr int kKeys[kNotes] = {0, 2, 4, 6, 5, 3};
constexpr double kLowestLine = 32;
constexpr double kStep = 3;  // pixels from one staff place to the next

}  // namespace

static void DrawStaff(Layer& layer, int frame) {
    for (int line = 0; line < 5; ++line) {
        const double y = kLowestLine - 2 * kStep * line;
        Paint(layer, Box(3, y, layer.width - 3, y + 1), kBark);
    }
    for (int i = 0; i < kNotes; ++i) {
        const bool lit = i == frame;
        const double x = 9 + 10 * i;
        const double y = kLowestLine + 0.5 - kStep * kKeys[i];
        const double sway = lit ? -1 : 0;
        if (lit) {
            PaintShaded(layer, Circle({x, y}, 7), [&](double px, double py) {
                const double dx = px - x;
                const double dy = py - y;
                return Dither({kRust, kBark, kSmoke}, (dx * dx + dy * dy) / 50, px, py);
            });
        }
        const Index colour = lit ? kStraw : kRust;
        const bool stemDown = kKeys[i] > 3;
        const double stemX = stemDown ? x - 3 : x + 2;
        const double stemEnd = stemDown ? y + 13 : y - 13;
        Paint(layer, Box(stemX, stemDown ? y : stemEnd, stemX + 1, stemDown ? stemEnd : y), colour);
        Paint(layer, Ellipse({x, y}, 3.3 - sway * 0.4, 2.6 - sway * 0.4), colour);
        if (lit) Paint(layer, Circle({x - 0.5, y - 0.5}, 1.5), kIvory);
    }
}

static void DrawKeyboard(Layer& layer, int frame) {
    constexpr int kWhiteKeys = 7;
    constexpr double kKeyWidth = 9;
    constexpr double kLeft = 1;
    const double top = 45;
    const double bottom = layer.height - 2;
    Paint(layer, Box(0, top - 3, layer.width, layer.height), kNight);
    Paint(layer, Box(0, top - 3, layer.width, top - 1), kRust);
    Paint(layer, Box(0, top - 3, layer.width, top - 2), kGold);
    for (int key = 0; key < kWhiteKeys; ++key) {
        const bool down = key == kKeys[frame];
        const double left = kLeft + kKeyWidth * key;
        const double right = left + kKeyWidth - 1;
        const double end = down ? bottom : bottom - 2;
        Paint(layer, Box(left, top, right, end), down ? kGold : kIvory);
        Paint(layer, Box(right - 1, top, right, end), down ? kRust : kIvoryShade);
        if (down) {
            Paint(layer, Box(left, top, left + 1, end), kRust);
            Paint(layer, Box(left + 2, end - 8, right - 2, end - 2), kStraw);
        } else {
            Paint(layer, Box(left, end - 2, right, end), kIvoryShade);
        }
    }
    for (const int after : {0, 1, 3, 4, 5}) {
        const double left = kLeft + kKeyWidth * (after + 1) - 3.5;
        const double x = static_cast<int>(left);
        Paint(layer, Box(x, top, x + 6, top + 20), kEbony);
        Paint(layer, Box(x + 1, top, x + 3, top + 17), kEbonyLight);
        Paint(layer, Box(x + 1, top + 16, x + 5, top + 18), kEbonyLight);
    }
    PaintShaded(layer, Box(0, top, layer.width, top + 2), [](double, double) { return kNight; });
}

StripPicture DrawMidiStrip() {
    const Palette palette = MakePalette({{{0x18, 0x10, 0x0E},
                                          {0x2E, 0x20, 0x1A},
                                          {0x58, 0x38, 0x24},
                                          {0x9A, 0x58, 0x2A},
                                          {0xE6, 0x9C, 0x3A},
                                          {0xFA, 0xD4, 0x84},
                                          {0xFC, 0xF4, 0xE2},
                                          {0xCC, 0xBA, 0xA0},
                                          {0x26, 0x20, 0x20},
                                          {0x5A, 0x52, 0x50},
                                          {0x2A, 0x60, 0x66},
                                          {0x8C, 0xC6, 0xBE},
                                          {0xD0, 0x50, 0x38}}});
    return DrawPanes(kMidiStrip, palette, kNight, kSmoke, [](Layer& layer, int frame) {
        DrawStaff(layer, frame);
        DrawKeyboard(layer, frame);
    });
}
