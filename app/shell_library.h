// What the program asks of the system's shell. Its library is large and takes long to load; nothing
// but a drop and the manual needs it, so it is loaded for these alone.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

// The paths of a drop, which is freed. Those that do not fit the program's own are left out.
std::vector<std::string> TakeDroppedPaths(WPARAM drop);

// Opens a document with the program that the user has chosen for its kind. Without one nothing
// happens.
void OpenDocument(HWND owner, const std::string& path);
