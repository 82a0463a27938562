// What the system makes of a program's path that holds blanks.
#include "files/programs.h"

static bool HasExtension(const std::string& path) {
    const size_t dot = path.rfind('.');
    return dot != std::string::npos && path.find('\\', dot) == std::string::npos;
}

std::vector<std::string> PathsInFront(const std::string& path) {
    std::vector<std::string> paths;
    for (size_t blank = path.find(' '); blank != std::string::npos;
         blank = path.find(' ', blank + 1)) {
        const std::string front = path.substr(0, blank);
        paths.push_back(front);
        if (!HasExtension(front)) paths.push_back(front + ".exe");
    }
    return paths;
}
