// Owner-drawn push buttons with pictures for faces, and the pieces in the corners of every dialog.
#pragma once

#include <windows.h>

#include "resources/skin_map.h"

// Draws edge and face for a WM_DRAWITEM.
void DrawSkinButton(const DRAWITEMSTRUCT& item, const SkinFace& face);

// Makes the button as large as its face and edge, centred in the place that the template gave it, a
// large button at its foot: pictures have two sizes, templates grow with every font.
void FitSkinButton(HWND button, const SkinFace& face);

// Into the client corners of a dialog.
void PaintFrameCorners(HWND dialog, HDC dc);
