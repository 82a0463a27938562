// What the list boxes of the program have in common.
#pragma once

#include <windows.h>

#include <span>
#include <string>

// One entry's text, of any length; empty when there is no such entry.
std::string ListText(HWND list, int index);
int ListCount(HWND list);
// The selected entry of a list that allows one; -1 without one.
int SelectedEntry(HWND list);

// Adds the names of the files that the system finds in a directory for each mask. Directories are
// left out.
void AddFileNames(HWND list, const std::string& directory, std::span<const std::string> masks);
// The same instead of what the list holds, drawn once.
void FillWithFileNames(HWND list, const std::string& directory, std::span<const std::string> masks);

// Lets the user scroll to the end of the widest entry. `indent` is what stands before the texts, in
// pixels. Entries before `first` have been measured already.
void FitListExtent(HWND list, LONG indent = 0, int first = 0);
