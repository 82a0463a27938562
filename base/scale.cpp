// From positions at 96 dots per inch to the screen.
#include "base/scale.h"

constexpr int kBaseDpi = 96;

ScaleFactors ScaleForResolution(int horizontalDpi, int verticalDpi) {
    // The two corrections differ on purpose: dialog fonts grow wider than they grow high.
    constexpr int widthCorrection = 8;
    constexpr int heightCorrection = -2;
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
