// The drive search dialog: which directories of a drive hold files of a kind.
#pragma once

#include <windows.h>

#include <string>

#include "files/drive_search.h"

// Searches the drive of `path`. True when the user takes one of the directories found: `path` is
// then that one. Otherwise it stays.
bool ShowSearchDialog(HWND owner, const FileKind& kind, std::string& path);
