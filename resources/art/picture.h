// Indexed pictures of sixteen colours: the colour tables, the pixels, and the bitmap files they are
// written to.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

using Index = std::uint8_t;

// Stands for "no picture here" while a picture is composed; never written to a file.
constexpr Index kClear = 255;

struct Colour {
    std::uint8_t red;
    std::uint8_t green;
    std::uint8_t blue;
};

using Palette = std::array<Colour, 16>;

// The first three entries of every palette are reserved: the program replaces them by colours of
// the user's scheme when it loads the picture. Everything that must keep its colour uses the rest.
constexpr Index kFaceGrey = 0;
constexpr Index kReliefLight = 1;
constexpr Index kReliefShade = 2;
constexpr int kReservedCount = 3;
constexpr Colour kReservedColours[kReservedCount] = {
    {0xC0, 0xC0, 0xC0}, {0xFF, 0xFF, 0xFF}, {0x80, 0x80, 0x80}};

// The house colours, shared by everything that stands on a button.
enum HouseColour : Index {
    kInk = kReservedCount,
    kUmber,
    kCopper,
    kAmber,
    kHoney,
    kCream,
    kDeepTeal,
    kTeal,
    kAqua,
    kBrick,
    kTomato,
    kMoss,
    kLeaf
};
Palette HousePalette();

// The sixteen colours that every display has, in which the reserved ones are the greys and white.
enum CommonColour : Index {
    kBlack = kReservedCount,
    kDarkRed,
    kDarkGreen,
    kDarkYellow,
    kDarkBlue,
    kDarkMagenta,
    kDarkCyan,
    kPureRed,
    kPureGreen,
    kPureYellow,
    kPureBlue,
    kPureMagenta,
    kPureCyan
};
Palette CommonPalette();

// A palette of the reserved colours and thirteen of the caller's.
Palette MakePalette(const std::array<Colour, 16 - kReservedCount>& own);

// Rows from the top, one byte per pixel.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<Index> pixels;
};

Picture MakePicture(int width, int height, Index fill);
// Pixels outside the picture read as kClear and are not written.
Index PixelAt(const Picture& picture, int x, int y);
void SetPixel(Picture& picture, int x, int y, Index index);
void FillRectangle(Picture& picture, int x, int y, int width, int height, Index index);
// A frame one pixel wide: the upper and left edges in one colour, the lower and right in the other.
void DrawEdge(Picture& picture, int x, int y, int width, int height, Index upperLeft,
              Index lowerRight);
// Copies every pixel of `source` that is not clear.
void Stamp(Picture& picture, const Picture& source, int x, int y);
// Stamps the outline of `source` in one colour, for a shadow thrown on the face below.
void StampShadow(Picture& picture, const Picture& source, int x, int y, Index index);

// A 4-bit uncompressed bitmap with a complete colour table and all sizes filled in. Returns false
// when the file cannot be written.
bool WriteBitmap(const std::string& path, const Picture& picture, const Palette& palette);

bool WriteBytes(const std::string& path, const std::vector<std::uint8_t>& bytes);
void AppendLittleEndian(std::vector<std::uint8_t>& bytes, std::uint32_t value, int byteCount);
