// From positions at 96 dots per inch to the screen.
#include "base/scale.h"

#include <algorithm>

constexpr int kBaseDpi = 96;

// What 4 by 8 dialog units measure there.
constexpr int kBaseUnitsWidth = 6;
constexpr int kBaseUnitsHeight = 13;

ScaleFactors ScaleForResolution(int horizontalDpi, int verticalDpi, int unitsWidth,
                                int unitsHeight) {
    // The two corrections differ on purpose: dialog fonts grow wider than they grow high.
    constexpr int widthCorrection = 8;
    constexpr int heightCorrection = -2;
    // Across there is room for the correction; down there is none to spare.
    horizontalDpi = std::min(horizontalDpi, kBaseDpi * unitsWidth / kBaseUnitsWidth);
    verticalDpi =
        std::min(verticalDpi, kBaseDpi * unitsHeight / kBaseUnitsHeight - heightCorrection);
    ScaleFactors factors = {1.0f, 1.0f};
    if (horizontalDpi > kBaseDpi) {
        factors.horizontal = static_cast<float>(horizontalDpi + widthCorrection) / kBaseDpi;
    }
    if (verticalDpi > kBaseDpi) {
        factors.vertical = static_cast<float>(verticalDpi + heightCorrection) / kBaseDpi;
    }
    return factors;
}

int ScalePosition(int position, float factor) {
    return static_cast<int>(static_cast<float>(position) * factor);
}
