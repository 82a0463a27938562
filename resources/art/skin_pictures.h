// The pictures of the skin, each drawn at every size it has.
#pragma once

#include <string>

#include "resources/art/picture.h"
#include "resources/skin_map.h"

// A grid's whole bitmap: every face up and pressed, in the house colours.
Picture DrawGrid(const SkinGrid& grid, bool large);

// Drive and folder icons for a plain background, or for the selection's.
Picture DrawIcons(int iconSize, bool onHighlight);
Picture DrawFrameCorners();

// A strip of frames with its own colours.
struct StripPicture {
    Picture picture;
    Palette palette;
};
StripPicture DrawCdStrip();
StripPicture DrawMidiStrip();
StripPicture DrawWaveStrip();
StripPicture DrawAboutStrip();
StripPicture DrawCopyStrip();
StripPicture DrawCdSprite();
StripPicture DrawWaveSprite();
StripPicture DrawMidiSprite();
StripPicture DrawVideoSprite();

// The program's icon: 16, 32 and 48 pixels, each in 16 and in 256 colours. Returns false when the
// file cannot be written.
bool WriteIcon(const std::string& path);
