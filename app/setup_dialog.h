// Dialog 400: the user changes settings. They are in force with OK and written when the program
// ends.
#pragma once

#include <windows.h>

void ShowSetupDialog(HWND owner);
