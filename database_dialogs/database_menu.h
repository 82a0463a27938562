// The database menu (dialog 2100): editor, sorter, information and export.
#pragma once

#include <windows.h>

void ShowDatabaseMenu(HWND owner);
