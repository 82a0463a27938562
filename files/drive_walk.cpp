// See drive_walk.h.
#include "files/drive_walk.h"

#include <algorithm>
#include <utility>

#include "files/path_chain.h"

void BeginWalk(DriveWalk& walk, const std::string& root) {
    walk = {root, {}};
}

bool GoOn(DriveWalk& walk, std::vector<std::string> subdirectories) {
    walk.levels.push_back({walk.path.size(), std::move(subdirectories), 0});
    while (!walk.levels.empty()) {
        DriveWalk::Level& level = walk.levels.back();
        walk.path.resize(level.pathLength);
        while (level.next < level.names.size()) {
            if (DescendPath(walk.path, level.names[level.next++], walk.path)) return true;
        }
        walk.levels.pop_back();
    }
    return false;
}

static char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
}

bool MatchesMask(const std::string& name, const std::vector<std::string>& masks) {
    return std::any_of(masks.begin(), masks.end(), [&name](const std::string& mask) {
        const size_t length = mask.size() - 1;  // of what follows the asterisk
        return name.size() >= length &&
               std::equal(name.end() - static_cast<std::ptrdiff_t>(length), name.end(),
                          mask.begin() + 1, [](char a, char b) { return Lower(a) == Lower(b); });
    });
}
