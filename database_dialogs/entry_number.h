// The entry number of the editor and the search: an edit that takes effect when it is left, and two
// arrows that lead around the database.
#pragma once

#include <windows.h>

#include <cstdint>

// In WM_INITDIALOG.
void OpenEntryNumber(HWND dialog);

// `entryIndex` counts from 0, the number shown from 1.
void ShowEntryNumber(HWND dialog, uint32_t entryIndex);

// False unless something was typed since the number was shown. Then entryIndex becomes what was
// meant, at most the last of entryCount, and the number is shown anew.
bool TakeTypedNumber(HWND dialog, uint32_t entryCount, uint32_t& entryIndex);

// A click on one of the arrows; the last entry is followed by the first. False for other commands.
bool TakeArrow(int controlId, int notification, uint32_t entryCount, uint32_t& entryIndex);
