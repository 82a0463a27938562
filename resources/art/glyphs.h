// The glyphs of all buttons.
#pragma once

#include <vector>

#include "resources/art/glyph_kit.h"
#include "resources/skin_map.h"

struct Glyph {
    SkinFace face;
    void (*draw)(const Pen& pen);
};

std::vector<Glyph> Glyphs();

std::vector<Glyph> TransportGlyphs();
std::vector<Glyph> FileGlyphs();
std::vector<Glyph> DialogGlyphs();
std::vector<Glyph> SmallGlyphs();
std::vector<Glyph> MenuGlyphs();

// The mode tabs are plates with lettering, not glyphs on a face.
void DrawTabs(Picture& picture, bool large);
