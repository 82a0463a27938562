// The text half of where copied and moved files go.
#include "files/destination_path.h"

#include <algorithm>

constexpr size_t kMaxComponent = 8;

const char* DestinationMessage(DestinationFault fault) {
    return fault == DestinationFault::kNoPath ? "No destination path!"
                                              : "Invalid destination path!";
}

static bool IsSeparator(char c) {
    return c == '\\' || c == '/';
}

static void AppendComponent(const std::string& component, const DirectoryQuestion& isThere,
                            std::string& path) {
    if (component.size() <= kMaxComponent || isThere(path + component + '\\')) {
        path += component + '\\';
        return;
    }
    for (size_t at = 0; at < component.size(); at += kMaxComponent) {
        path += component.substr(at, kMaxComponent) + '\\';
    }
}

DestinationFault NormalizeDestination(const std::string& typed, const DirectoryQuestion& isThere,
                                      std::string& normalized) {
    if (typed.empty()) return DestinationFault::kNoPath;
    if (typed[0] < 'a' || typed[0] > 'z') return DestinationFault::kInvalid;
    const std::string root = {typed[0], ':', '\\'};
    if (!isThere(root)) return DestinationFault::kInvalid;
    std::string path = root;
    constexpr size_t behindColon = 2;
    for (size_t at = behindColon; at < typed.size();) {
        const auto start = typed.begin() + static_cast<std::ptrdiff_t>(at);
        const auto end = std::find_if(start, typed.end(), IsSeparator);
        if (end != start) AppendComponent({start, end}, isThere, path);
        at = static_cast<size_t>(end - typed.begin()) + 1;
    }
    if (path.size() > kMaxDestination) return DestinationFault::kInvalid;
    normalized = path;
    return DestinationFault::kNone;
}

DestinationFault SplitDestination(const std::string& typed, const std::string& ownName,
                                  std::string& directory, std::string& name) {
    std::string text = typed;
    std::replace(text.begin(), text.end(), '/', '\\');
    const size_t separator = text.rfind('\\');
    std::string rest;
    if (separator != std::string::npos) {
        rest = text.substr(separator + 1);
        directory = text.substr(0, separator + 1);
    } else if (text.size() >= 2 && text[1] == ':') {
        rest = text.substr(2);
        directory = text.substr(0, 2) + '\\';
    } else {
        return DestinationFault::kNoPath;
    }
    name = rest.empty() ? ownName : rest;
    return DestinationFault::kNone;
}

bool IsTargetName(const std::string& name) {
    return name.find_first_of(":*?<>|\"") == std::string::npos;
}
