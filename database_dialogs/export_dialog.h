// The export of the database to a text file (dialog 2000).
#pragma once

#include <windows.h>

void ShowExportDialog(HWND owner);
