// Strips of animation frames, each a sunken pane.
#include "resources/art/strip_kit.h"

StripPicture DrawPanes(const SkinStrip& strip, const Palette& palette, Index line, Index ground,
                       const DrawFrame& draw) {
    const int width = strip.frame.width;
    const int height = strip.frame.height;
    Picture picture = MakePicture(width * strip.frames, height, kFaceGrey);
    for (int frame = 0; frame < strip.frames; ++frame) {
        const int x = frame * width;
        DrawEdge(picture, x, 0, width, height, kReliefShade, kReliefLight);
        DrawEdge(picture, x + 1, 1, width - 2, height - 2, line, line);
        Layer layer = MakeLayer(width - 2 * kPaneEdge, height - 2 * kPaneEdge, ground);
        draw(layer, frame);
        Stamp(picture, Resolve(layer, palette, EdgeRule::kHard), x + kPaneEdge, kPaneEdge);
    }
    return {picture, palette};
}
