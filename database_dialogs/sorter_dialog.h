// The database sorter (dialog 2300).
#pragma once

#include <windows.h>

void ShowSorterDialog(HWND owner);
