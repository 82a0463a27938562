// Reads the committed pictures.
#include "tests/art/skin_files.h"

#include <fstream>
#include <iterator>

Bytes ReadFileBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::uint32_t ReadNumber(const Bytes& bytes, std::size_t offset, int byteCount) {
    std::uint32_t value = 0;
    for (int i = byteCount - 1; i >= 0; --i)
        value = value << 8 | bytes.at(offset + static_cast<std::size_t>(i));
    return value;
}

SkinFile ReadSkinFile(const std::string& name) {
    SkinFile file;
    file.bytes = ReadFileBytes(std::string(RESOURCES_FOLDER "/skin/") + name + ".bmp");
    file.width = static_cast<int>(ReadNumber(file.bytes, 18, 4));
    file.height = static_cast<int>(ReadNumber(file.bytes, 22, 4));
    for (std::size_t i = 0; i < 16; ++i) {
        file.colours.push_back(ReadNumber(file.bytes, 54 + 4 * i, 4));
    }
    const int stride = (file.width + 7) / 8 * 4;
    for (int y = file.height - 1; y >= 0; --y) {
        for (int x = 0; x < file.width; ++x) {
            const auto offset = static_cast<std::size_t>(118 + y * stride + x / 2);
            const std::uint32_t pair = ReadNumber(file.bytes, offset, 1);
            file.pixels.push_back(static_cast<std::uint8_t>(x % 2 ? pair & 15 : pair >> 4));
        }
    }
    return file;
}
