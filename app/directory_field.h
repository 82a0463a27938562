// The field in which the user types the mode's directory.
#pragma once

// As before anything was typed.
void ResetDirectoryField();

// Takes the field's text as the mode's directory and fills the list anew. An invalid text gives way
// to the directory in force. When a mouse button took the focus away, the list waits until it is
// released: the click that left the field must find the window as it was. The message about an
// invalid text always comes later, from the timer: no box opens in the middle of a focus change.
void OnLeaveDirectoryField();

// ID_DIRECTORY_TIMER: does what waits once the button has been released.
void OnDirectoryTimer();

// Fills the list at once if that still waits; every command needs it.
void FinishDirectoryChange();
