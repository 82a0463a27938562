// The database editor (dialog 2200): every entry by its number, to be changed in its place or
// deleted, without its disc.
#pragma once

#include <windows.h>

// To be called while the database has entries.
void ShowEditorDialog(HWND owner);
