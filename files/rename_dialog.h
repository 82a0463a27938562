// Dialog 700: a new name for each of the selected files.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

// Opens once for each name of a file in the mode's directory; cancelling one goes on to the next. A
// file of the new name is never replaced.
void ShowRenameDialogs(HWND owner, const std::vector<std::string>& names);
