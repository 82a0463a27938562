// The field in which the user types the mode's directory.
#pragma once

#include <windows.h>

// Posted to the main window when a typed directory is none, so that the box opens after the click
// that took the focus away.
constexpr UINT kInvalidPathMessage = WM_APP + 1;

// Takes the field's text as the mode's directory and fills the list anew. An invalid text gives way
// to the directory in force.
void OnLeaveDirectoryField();
void OnInvalidPath();
