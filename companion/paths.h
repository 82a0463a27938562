// Paths are UTF-8 everywhere but where the standard library takes them.
#pragma once

#include <filesystem>
#include <string>

inline std::filesystem::path PathOf(const std::string& utf8) {
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

inline std::string NameOf(const std::filesystem::path& path) {
    const std::u8string name = path.u8string();
    return {name.begin(), name.end()};
}
