// Uses a modal dialog of the product from inside its own message loop.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <windows.h>

// Calls what opens a dialog or a series of them, and the script once one shows; a script may run
// another dialog inside its own. What a script leaves open is closed by IDCANCEL. False when no
// dialog came.
bool RunInDialog(const std::function<void()>& open, const std::function<void(HWND)>& script);

// A command of a dialog, carried out before this returns.
void Press(HWND dialog, int id, int notification = 0);

std::vector<std::string> Entries(HWND dialog, int listId);
// Selects an entry by its text, as the arrow keys do. False when there is none.
bool SelectEntry(HWND dialog, int listId, const std::string& text);
// Selects it and presses twice.
bool DoubleClickEntry(HWND dialog, int listId, const std::string& text);
