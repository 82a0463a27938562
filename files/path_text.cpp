// The text half of checking a typed directory.
#include "files/path_text.h"

static bool IsSeparator(char c) {
    return c == '\\' || c == '/';
}

bool NormalizeTypedPath(const std::string& typed, std::string& normalized) {
    if (typed.empty() || typed.size() > kMaxTypedPath) return false;
    if (typed[0] < 'a' || typed[0] > 'z') return false;
    std::string path = {typed[0], ':', '\\'};
    // A missing backslash after the colon is put in: a drive-relative path would change its
    // meaning.
    const size_t rest = typed.size() > 2 && IsSeparator(typed[2]) ? 3 : 2;
    for (size_t i = rest; i < typed.size(); ++i) {
        if (!IsSeparator(typed[i])) {
            path += typed[i];
        } else if (path.back() == '\\') {
            return false;
        } else {
            path += '\\';
        }
    }
    if (path.back() != '\\') path += '\\';
    normalized = path;
    return true;
}
