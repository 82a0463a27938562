// The arithmetic of the skin's colours and of the choice between its two sets.
#include "ui/recolor.h"

uint32_t RecolorEntry(uint32_t color, const SkinColors& colors) {
    switch (color) {
        case 0xC0C0C0:
            return colors.background;
        case 0xFFFFFF:
            return colors.highlight;
        case 0x808080:
            return colors.shadow;
        default:
            return color;
    }
}

int ChooseSkinSet(int horizontalDpi, int verticalDpi, int present) {
    constexpr int largeDpi = 120;
    if (horizontalDpi != largeDpi) return 0;
    return verticalDpi == largeDpi ? 1 : present;
}
