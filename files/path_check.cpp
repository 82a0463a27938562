// Whether a typed directory is one.
#include "files/path_check.h"

#include <windows.h>

#include "files/path_text.h"

bool CheckTypedDirectory(const std::string& typed, std::string& directory) {
    std::string path;
    if (!NormalizeTypedPath(typed, path)) return false;
    constexpr size_t rootLength = 3;
    const std::string entered = path.size() > rootLength ? path.substr(0, path.size() - 1) : path;

    char before[MAX_PATH + 1] = {};
    const DWORD length = GetCurrentDirectoryA(sizeof before, before);
    const bool exists = SetCurrentDirectoryA(entered.c_str()) != FALSE;
    if (length > 0 && length < sizeof before) SetCurrentDirectoryA(before);
    if (exists) directory = path;
    return exists;
}
