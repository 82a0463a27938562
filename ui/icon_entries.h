// Entries of owner-drawn lists that show an icon of the skin before their text.
#pragma once

#include <windows.h>

#include <string>

#include "resources/skin_map.h"

// The height that icon and text need in this list.
int IconEntryHeight(HWND list);
// What stands before the text of an entry that is not indented, in pixels.
int IconEntryMargin();

// Draws a whole entry for a WM_DRAWITEM: `indent` pixels, the icon (kSkinIconCount: its place stays
// empty), the text.
void DrawIconEntry(const DRAWITEMSTRUCT& item, int indent, SkinIcon icon, const std::string& text);

// An icon on the ground of a dialog; these have one size, kSmallIconSize, with every skin.
void DrawIconOnFace(HDC dc, int x, int y, SkinIcon icon);
