// The Editor and Volume commands.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

// Hands the first of the names, files in the mode's directory, to the editor of its kind. Where
// none is chosen, the user may choose one.
void EditFirstFile(HWND owner, const std::vector<std::string>& names);
// Starts the volume mixer, or lets the user choose one.
void StartMixer(HWND owner);
