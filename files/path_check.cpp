// See path_check.h.
#include "files/path_check.h"

#include <windows.h>

#include "files/path_text.h"

static bool GetCurrent(std::string& directory) {
    char text[MAX_PATH + 1] = {};
    const DWORD length = GetCurrentDirectoryA(sizeof text, text);
    if (length == 0 || length >= sizeof text) return false;
    directory = text;
    return true;
}

bool TryDirectory(const std::string& directory, std::string& entered) {
    constexpr size_t rootLength = 3;
    const bool cut = directory.size() > rootLength && directory.back() == '\\';
    std::string before;
    const bool known = GetCurrent(before);
    std::string reached;
    const bool possible =
        SetCurrentDirectoryA(directory.substr(0, directory.size() - cut).c_str()) != FALSE &&
        GetCurrent(reached);
    if (known) SetCurrentDirectoryA(before.c_str());
    if (!possible) return false;
    if (reached.back() != '\\') reached += '\\';
    entered = reached;
    return true;
}

bool CheckTypedDirectory(const std::string& typed, std::string& directory) {
    std::string path;
    std::string entered;
    if (!NormalizeTypedPath(typed, path) || !TryDirectory(path, entered)) return false;
    directory = path;
    return true;
}
