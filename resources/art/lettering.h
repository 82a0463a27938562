// The lettering of the mode tabs: pixel letters in two sizes, only those the tabs need.
#pragma once

#include <string_view>

#include "resources/art/picture.h"

// Height of the capitals in pixels.
int CapitalHeight(bool large);
int TextWidth(std::string_view text, bool large);
// (x, y) is the upper left of the capitals. Letters that are not in the set are left out.
void DrawLetters(Picture& picture, std::string_view text, int x, int y, bool large, Index index);
