// See path_chain.h.
#include "files/path_chain.h"

constexpr size_t kRootLength = 3;

static bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

std::string PathOrRoot(const std::string& stored) {
    const bool rooted = stored.size() >= kRootLength && IsLetter(stored[0]) && stored[1] == ':' &&
                        stored[2] == '\\';
    const std::string path = rooted && stored.back() != '\\' ? stored + '\\' : stored;
    return rooted && path.size() <= kMaxDirectoryPath ? path : "c:\\";
}

std::vector<std::string> PathChain(const std::string& path) {
    std::vector<std::string> chain = {path.substr(0, kRootLength)};
    for (size_t start = kRootLength; start < path.size();) {
        const size_t end = path.find('\\', start);
        if (end > start) chain.push_back(path.substr(start, end - start));
        if (end == std::string::npos) break;
        start = end + 1;
    }
    return chain;
}

std::string PathAtLevel(const std::string& path, size_t level) {
    const std::vector<std::string> chain = PathChain(path);
    std::string cut = chain[0];
    for (size_t i = 1; i <= level; ++i)
        cut += chain[i] + '\\';
    return cut;
}

bool DescendPath(const std::string& path, const std::string& name, std::string& below) {
    if (path.size() + name.size() + 1 > kMaxDirectoryPath) return false;
    below = path + name + '\\';
    return true;
}

std::string UnbracketedName(const std::string& entry) {
    const bool bracketed = entry.size() >= 2 && entry.front() == '[' && entry.back() == ']';
    return bracketed ? entry.substr(1, entry.size() - 2) : entry;
}

char DriveLetter(const std::string& entry) {
    if (entry.size() < 3 || !entry.starts_with("[-") || !IsLetter(entry[2])) return '\0';
    return static_cast<char>(entry[2] | 0x20);
}

std::string CutAfterColon(const std::string& remoteName) {
    const size_t colon = remoteName.find(':');
    return colon == std::string::npos ? remoteName : remoteName.substr(0, colon + 1);
}
