// Dialog 500: deletes the selected files.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

// Asks once for all names of files in the mode's directory, at least one; each failure is reported,
// and the run goes on. False when the user cancels.
bool ShowDeleteDialog(HWND owner, const std::vector<std::string>& names);
