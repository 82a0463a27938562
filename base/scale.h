// Positions that code sets are pixels at 96 dots per inch; these factors bring them to the screen.
#pragma once

struct ScaleFactors {
    float horizontal;
    float vertical;
};

// From the screen's logical resolution in dots per inch; 1 up to 96. A window grows with its font,
// and a font does not come in every size: from where 4 by 8 dialog units are no larger than so many
// pixels, the factors stay behind the resolution, so that nothing leaves the window.
ScaleFactors ScaleForResolution(int horizontalDpi, int verticalDpi, int unitsWidth,
                                int unitsHeight);

// Truncated to whole pixels.
int ScalePosition(int position, float factor);
