// The skin's bitmaps and the palette, recoloured to the user's system colours when they are loaded.
#pragma once

#include <windows.h>

#include "resources/skin_map.h"

// 1 when the large pictures are in use (120 dots per inch both ways), else 0.
extern int LargeSkin;
// The palette of palette devices, or null.
extern HPALETTE ProgramPalette;

// Decides LargeSkin from the window's screen, builds the palette and loads every slot. What cannot
// be loaded stays null and is drawn as nothing.
void LoadSkin(HWND window);
// In the system's present colours.
void ReloadSkin(HWND window);
// Leaves every slot null, and nothing of what was decided.
void FreeSkin();
// Null before LoadSkin. Owned by the skin.
HBITMAP SkinBitmap(SkinSlot slot);
// Copies a part of a slot's bitmap in its natural size; nothing when there is no bitmap.
void CopyFromSkin(HDC target, int x, int y, SkinSlot slot, const SkinRect& source);
