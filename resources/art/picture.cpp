// Indexed pictures of sixteen colours and their bitmap files.
#include "resources/art/picture.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>

Palette MakePalette(const std::array<Colour, 16 - kReservedCount>& own) {
    Palette palette{};
    std::copy(std::begin(kReservedColours), std::end(kReservedColours), palette.begin());
    std::copy(own.begin(), own.end(), palette.begin() + kReservedCount);
    return palette;
}

Palette HousePalette() {
    return MakePalette({{{0x23, 0x18, 0x14},
                         {0x5C, 0x36, 0x20},
                         {0xA4, 0x5C, 0x28},
                         {0xE2, 0x97, 0x38},
                         {0xF8, 0xCC, 0x78},
                         {0xFF, 0xF6, 0xDE},
                         {0x16, 0x46, 0x50},
                         {0x2F, 0x8A, 0x8C},
                         {0x98, 0xD6, 0xCC},
                         {0x98, 0x2C, 0x22},
                         {0xE4, 0x56, 0x36},
                         {0x4A, 0x6C, 0x2C},
                         {0x94, 0xBC, 0x38}}});
}

Palette CommonPalette() {
    return MakePalette({{{0x00, 0x00, 0x00},
                         {0x80, 0x00, 0x00},
                         {0x00, 0x80, 0x00},
                         {0x80, 0x80, 0x00},
                         {0x00, 0x00, 0x80},
                         {0x80, 0x00, 0x80},
                         {0x00, 0x80, 0x80},
                         {0xFF, 0x00, 0x00},
                         {0x00, 0xFF, 0x00},
                         {0xFF, 0xFF, 0x00},
                         {0x00, 0x00, 0xFF},
                         {0xFF, 0x00, 0xFF},
                         {0x00, 0xFF, 0xFF}}});
}

Picture MakePicture(int width, int height, Index fill) {
    const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    return {width, height, std::vector<Index>(count, fill)};
}

static bool IsInside(const Picture& picture, int x, int y) {
    return x >= 0 && y >= 0 && x < picture.width && y < picture.height;
}

static std::size_t Offset(const Picture& picture, int x, int y) {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) +
           static_cast<std::size_t>(x);
}

Index PixelAt(const Picture& picture, int x, int y) {
    return IsInside(picture, x, y) ? picture.pixels[Offset(picture, x, y)] : kClear;
}

void SetPixel(Picture& picture, int x, int y, Index index) {
    if (IsInside(picture, x, y)) picture.pixels[Offset(picture, x, y)] = index;
}

void FillRectangle(Picture& picture, int x, int y, int width, int height, Index index) {
    for (int row = y; row < y + height; ++row) {
        for (int column = x; column < x + width; ++column)
            SetPixel(picture, column, row, index);
    }
}

void DrawEdge(Picture& picture, int x, int y, int width, int height, Index upperLeft,
              Index lowerRight) {
    FillRectangle(picture, x, y, width - 1, 1, upperLeft);
    FillRectangle(picture, x, y, 1, height - 1, upperLeft);
    FillRectangle(picture, x + width - 1, y, 1, height, lowerRight);
    FillRectangle(picture, x, y + height - 1, width, 1, lowerRight);
}

void Stamp(Picture& picture, const Picture& source, int x, int y) {
    for (int row = 0; row < source.height; ++row) {
        for (int column = 0; column < source.width; ++column) {
            const Index index = PixelAt(source, column, row);
            if (index != kClear) SetPixel(picture, x + column, y + row, index);
        }
    }
}

void StampShadow(Picture& picture, const Picture& source, int x, int y, Index index) {
    for (int row = 0; row < source.height; ++row) {
        for (int column = 0; column < source.width; ++column) {
            if (PixelAt(source, column, row) != kClear)
                SetPixel(picture, x + column, y + row, index);
        }
    }
}

void AppendLittleEndian(std::vector<std::uint8_t>& bytes, std::uint32_t value, int byteCount) {
    for (int i = 0; i < byteCount; ++i) {
        bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
    }
}

bool WriteBytes(const std::string& path, const std::vector<std::uint8_t>& bytes) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (!file) return false;
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
    return std::fclose(file) == 0 && written;
}

bool WriteBitmap(const std::string& path, const Picture& picture, const Palette& palette) {
    constexpr std::uint32_t kFileHeader = 14;
    constexpr std::uint32_t kInfoHeader = 40;
    constexpr std::uint32_t kPixelsPerMetre = 3780;  // 96 dots per inch
    const int stride = (picture.width + 7) / 8 * 4;
    const auto imageSize = static_cast<std::uint32_t>(stride * picture.height);
    const std::uint32_t pixelOffset = kFileHeader + kInfoHeader + 4 * 16;

    std::vector<std::uint8_t> bytes = {'B', 'M'};
    AppendLittleEndian(bytes, pixelOffset + imageSize, 4);
    AppendLittleEndian(bytes, 0, 4);
    AppendLittleEndian(bytes, pixelOffset, 4);
    AppendLittleEndian(bytes, kInfoHeader, 4);
    AppendLittleEndian(bytes, static_cast<std::uint32_t>(picture.width), 4);
    AppendLittleEndian(bytes, static_cast<std::uint32_t>(picture.height), 4);
    AppendLittleEndian(bytes, 1, 2);
    AppendLittleEndian(bytes, 4, 2);
    AppendLittleEndian(bytes, 0, 4);
    AppendLittleEndian(bytes, imageSize, 4);
    AppendLittleEndian(bytes, kPixelsPerMetre, 4);
    AppendLittleEndian(bytes, kPixelsPerMetre, 4);
    AppendLittleEndian(bytes, 16, 4);
    AppendLittleEndian(bytes, 16, 4);
    for (const Colour& colour : palette) {
        bytes.insert(bytes.end(), {colour.blue, colour.green, colour.red, 0});
    }
    for (int row = picture.height - 1; row >= 0; --row) {
        for (int column = 0; column < stride * 2; column += 2) {
            const Index left = PixelAt(picture, column, row);
            const Index right = PixelAt(picture, column + 1, row);
            const int high = left == kClear ? 0 : left;
            const int low = right == kClear ? 0 : right;
            bytes.push_back(static_cast<std::uint8_t>(high << 4 | low));
        }
    }
    return WriteBytes(path, bytes);
}
