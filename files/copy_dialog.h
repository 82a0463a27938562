// Dialog 800: copies or moves the selected files of the current mode.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

// Names of files in the mode's directory, at least one. The list that shows them is not touched.
void ShowCopyDialog(HWND owner, const std::vector<std::string>& names);
void ShowMoveDialog(HWND owner, const std::vector<std::string>& names);
