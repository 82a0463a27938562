// The two lists of the path dialog. Each visible list is drawn by code; hidden lists hold the plain
// texts behind its entries, which are found by the visible entry's value.
#pragma once

#include <windows.h>

#include <string>

// To be called once, before the lists are filled.
void PreparePathLists(HWND dialog);

// Lists the path's chain and, below it, its subdirectories; none when it cannot be listed. Returns
// the number of entries of the chain.
size_t FillDirectoryList(HWND dialog, const std::string& path);
// An entry as it is drawn, a name without brackets; empty when there is no such entry.
std::string DirectoryEntryName(HWND dialog, int index);
void DrawDirectoryEntry(HWND dialog, const DRAWITEMSTRUCT& item, size_t chainCount);

void FillDriveList(HWND dialog);
void SelectDrive(HWND dialog, char letter);
// In lower case; NUL when there is no such entry.
char DriveOfEntry(HWND dialog, int index);
// Lets the volume's name be read again when the entry is drawn next: the disc may be another.
void ForgetDriveLabel(HWND dialog, int index);
// Reads the volume's name at the first drawing, but never that of a removable drive.
void DrawDriveEntry(HWND dialog, const DRAWITEMSTRUCT& item);
