// The field in which the user types the mode's directory.
#pragma once

#include <windows.h>

// Posted to the main window to say that a typed directory is none.
constexpr UINT kInvalidPathMessage = WM_APP + 1;

// As before anything was typed.
void ResetDirectoryField();

// Takes the field's text as the mode's directory and fills the list anew. An invalid text gives way
// to the directory in force. When a mouse button took the focus away, list and message wait until
// it is released: the click that left the field must find the window as it was.
void OnLeaveDirectoryField();

// Looks whether the button has been released.
void OnDirectoryTimer();

// Fills the list at once if that still waits; every command needs it.
void FinishDirectoryChange();

void OnInvalidPath();
