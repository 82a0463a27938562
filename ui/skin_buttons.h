// Owner-drawn push buttons with pictures for faces, and the pieces in the corners of every dialog.
#pragma once

#include <windows.h>

#include "resources/skin_map.h"

// Draws the face alone for a WM_DRAWITEM, and where the focus is while the keyboard is in use.
void DrawSkinFace(const DRAWITEMSTRUCT& item, const SkinFace& face);
// The edge too.
void DrawSkinButton(const DRAWITEMSTRUCT& item, const SkinFace& face);

// Makes the button as large as its face and edge, centred in the place that the template gave it, a
// large button at its foot: pictures have two sizes, templates grow with every font.
void FitSkinButton(HWND button, const SkinFace& face);

// Into the client corners of a dialog.
void PaintFrameCorners(HWND dialog, HDC dc);
