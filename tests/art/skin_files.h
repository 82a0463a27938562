// Reads the committed pictures as the program's loader does, without the code that wrote them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

using Bytes = std::vector<std::uint8_t>;

// Empty when the file cannot be read.
Bytes ReadFileBytes(const std::string& path);
// Throws beyond the end, which fails the running test.
std::uint32_t ReadNumber(const Bytes& bytes, std::size_t offset, int byteCount);

// A 4-bit bitmap, rows from the top.
struct SkinFile {
    Bytes bytes;
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> colours;  // 0xRRGGBB
    std::vector<std::uint8_t> pixels;

    int At(int x, int y) const {
        return pixels.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                         static_cast<std::size_t>(x));
    }
};

// `name` as in the skin's folder, without the extension.
SkinFile ReadSkinFile(const std::string& name);
