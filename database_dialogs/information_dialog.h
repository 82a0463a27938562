// The database information (dialog 2400): figures about the file.
#pragma once

#include <windows.h>

// Creates an empty database when there is none.
void ShowInformationDialog(HWND owner);
