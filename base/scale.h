// Positions that code sets are pixels at 96 dots per inch; these factors bring them to the screen.
#pragma once

struct ScaleFactors {
    float horizontal;
    float vertical;
};

// From the screen's logical resolution in dots per inch; 1 up to 96.
ScaleFactors ScaleForResolution(int horizontalDpi, int verticalDpi);

// Truncated to whole pixels.
int ScalePosition(int position, float factor);
