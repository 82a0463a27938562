// Reads the committed files as the platform does, without the code that wrote them.
#pragma once

#include <cstdint>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

using Bytes = std::vector<std::uint8_t>;

// Empty when the file cannot be read.
inline Bytes ReadFileBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// Throws beyond the end, which fails the running test.
inline std::uint32_t ReadNumber(const Bytes& bytes, std::size_t offset, int byteCount) {
    std::uint32_t value = 0;
    for (int i = byteCount - 1; i >= 0; --i)
        value = value << 8 | bytes.at(offset + static_cast<std::size_t>(i));
    return value;
}
