// The arithmetic of the skin's colours and of the choice between its two sets.
#pragma once

#include <cstdint>

// The system colours that replace the reserved greys of a picture, as 0x00RRGGBB.
struct SkinColors {
    uint32_t background;  // for light grey, C0C0C0
    uint32_t highlight;   // for white
    uint32_t shadow;      // for dark grey, 808080
};

// One colour-table entry as 0x00RRGGBB: a reserved colour is replaced, any other stays.
uint32_t RecolorEntry(uint32_t color, const SkinColors& colors);

// 1 for exactly 120 dots per inch both ways; 0 when the horizontal resolution is another; otherwise
// the present value stands.
int ChooseSkinSet(int horizontalDpi, int verticalDpi, int present);
