// Strips of animation frames. Each frame is a sunken pane with a background of its own, so that it
// sits well on a window of any colour.
#pragma once

#include <functional>

#include "resources/art/shapes.h"
#include "resources/art/skin_pictures.h"

constexpr int kPaneEdge = 2;  // pixels on every side of a pane that the frame's drawing leaves out

// Draws frame `frame` of the strip on a layer the size of the pane's inside.
using DrawFrame = std::function<void(Layer& layer, int frame)>;

// `line` and `ground` are the colours of the pane's inner line and of its empty inside.
StripPicture DrawPanes(const SkinStrip& strip, const Palette& palette, Index line, Index ground,
                       const DrawFrame& draw);
