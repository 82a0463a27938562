// What the device and the file system tell of a media file.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

// One field of a file information dialog. What could not be found out is empty.
struct InfoField {
    int controlId;
    std::string text;
};

struct FileInfo {
    int dialogId = 0;
    std::vector<InfoField> fields;  // all of the dialog's
};

// Opens a file of the current mode's directory on the file device, which must not be open, and
// leaves it open; the mode must list files. Failures are reported; one that comes after the file
// was opened closes it and leaves the fields from there on empty. False when the file does not
// open.
bool OpenFileInfo(HWND window, const std::string& name, FileInfo& info);
