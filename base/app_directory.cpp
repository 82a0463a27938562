// Where the program's own files lie.
#include "base/app_directory.h"

std::string AppDirectory;

constexpr size_t kExecutableNameLength = 12;  // TARNWELL.EXE

std::string InAppDirectory(const char* fileName) {
    return AppDirectory + fileName;
}

std::string DirectoryOfExecutable(const std::string& modulePath) {
    // The cut does not look for a separator: the program always runs under its 8.3 name.
    if (modulePath.size() <= kExecutableNameLength) return {};
    return modulePath.substr(0, modulePath.size() - kExecutableNameLength);
}
