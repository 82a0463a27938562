// The copy dialog's animation: a sheet that flies from one folder into another.
#include "resources/art/glyph_kit.h"
#include "resources/art/strip_kit.h"

StripPicture DrawCopyStrip() {
    return DrawPanes(kCopyStrip, HousePalette(), kInk, kInk, [](Layer& layer, int frame) {
        // A table to stand on.
        Paint(layer, Box(0, layer.height - 6, layer.width, layer.height), kUmber);
        Paint(layer, Box(0, layer.height - 6, layer.width, layer.height - 5), kCopper);
        const Pen pen = {layer, 0, 0, 1};
        DrawFolderBack(pen, 6, 13, 34, 34);
        DrawFolderBack(pen, 82, 13, 110, 34);
        // In the first and the last frame the sheet is hidden in a folder.
        const double along = frame / static_cast<double>(kCopyStrip.frames - 1);
        const double x = 14 + 76 * along;
        const double y = 19 - 4 * 18 * along * (1 - along);
        for (int i = 2; i >= 1; --i) {
            const double before = along - 0.045 * i;
            if (before <= 0 || along >= 1) continue;
            const double trailX = 14 + 76 * before;
            const double trailY = 19 - 4 * 18 * before * (1 - before);
            DrawFlat(pen, BoxOf(pen, trailX + 1, trailY + 4, trailX + 4, trailY + 10), kUmber);
        }
        DrawSheet(pen, x, y, 12, 14, 2);
        DrawFolderFront(pen, 6, 13, 34, 34);
        DrawFolderFront(pen, 82, 13, 110, 34);
    });
}
