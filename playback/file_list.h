// The list box of the current mode's media files.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

// Fills the list from the mode's directory and shows directory and count. With `keepSelection` the
// entries that were selected, and the one at the top, stay so by name. Does nothing in cdplayer
// mode.
void FillModeList(HWND window, bool keepSelection = false);
// After a command that may have changed the files: the list stays where the user was in it, and
// nothing is selected.
void RefillModeList(HWND window);

// The texts that name the mode beside its counts, and which of the two small buttons it has.
void ShowModeLabels(HWND window);

// Names of the selected entries in list order, at most `limit`.
std::vector<std::string> SelectedFileNames(HWND window, size_t limit);
int SelectedFileCount(HWND window);

// Selects the files with these names, or all entries when there are no names. Until the next fill
// the list also shows those of them that a filter leaves out: whoever names a file wants to see it.
void SelectFiles(HWND window, const std::vector<std::string>& names);

// Selects the entry with this name alone, case ignored; an 8.3 name matches by its long name. False
// when there is none.
bool SelectFileByName(HWND window, const std::string& name);
