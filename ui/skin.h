// The skin's bitmaps and the palette, recoloured to the user's system colours when they are loaded.
// On the screen's own pixels the whole skin takes three megabytes, most of it for other modes and
// for dialogs that few open: each bitmap is loaded when it is first drawn.
#pragma once

#include <windows.h>

#include "resources/skin_map.h"

// 1 when the large pictures are in use (120 dots per inch both ways), else 0.
extern int LargeSkin;
// The palette of palette devices, or null.
extern HPALETTE ProgramPalette;

// Decides LargeSkin from the window's screen and builds the palette; bitmaps can be drawn from then
// on.
void LoadSkin(HWND window);
// Everything anew, in the system's present colours.
void ReloadSkin(HWND window);
// Leaves every slot null, and nothing of what was decided.
void FreeSkin();
// Null before LoadSkin, and where the bitmap cannot be loaded: it is drawn as nothing. Owned by the
// skin.
HBITMAP SkinBitmap(SkinSlot slot);
// Copies a part of a slot's bitmap in its natural size; nothing when there is no bitmap.
void CopyFromSkin(HDC target, int x, int y, SkinSlot slot, const SkinRect& source);
