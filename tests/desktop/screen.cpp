// See screen.h.
#include "tests/desktop/screen.h"

#include <algorithm>
#include <cstdlib>
#include <map>

#include "tests/desktop/driver.h"

static Picture ReadBitmap(HDC dc, HBITMAP bitmap) {
    BITMAP size = {};
    GetObjectA(bitmap, sizeof size, &size);
    Picture picture = {size.bmWidth, size.bmHeight, {}};
    picture.pixels.resize(static_cast<size_t>(picture.width * picture.height));
    BITMAPINFO info = {
        {sizeof info.bmiHeader, picture.width, -picture.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}};
    GetDIBits(dc, bitmap, 0, static_cast<UINT>(picture.height), picture.pixels.data(), &info,
              DIB_RGB_COLORS);
    for (uint32_t& pixel : picture.pixels)
        pixel &= 0xFFFFFF;
    return picture;
}

Picture Photograph(HWND window) {
    RECT place = {};
    GetWindowRect(window, &place);
    const int width = place.right - place.left;
    const int height = place.bottom - place.top;
    HDC screen = GetDC(nullptr);
    HDC memory = CreateCompatibleDC(screen);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
    HGDIOBJ old = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, width, height, screen, place.left, place.top, SRCCOPY);
    SelectObject(memory, old);
    const Picture picture = ReadBitmap(memory, bitmap);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return picture;
}

const Picture& ResourcePicture(int id) {
    static std::map<int, Picture> loaded;
    Picture& picture = loaded[id];
    if (!picture.pixels.empty()) return picture;
    HMODULE module = LoadLibraryExA(getenv("TARNWELL_EXE"), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    const auto bitmap = static_cast<HBITMAP>(
        LoadImageA(module, MAKEINTRESOURCEA(id), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
    HDC screen = GetDC(nullptr);
    picture = ReadBitmap(screen, bitmap);
    ReleaseDC(nullptr, screen);
    DeleteObject(bitmap);
    FreeLibrary(module);
    return picture;
}

static bool FollowsSystem(uint32_t color) {
    return color == 0xC0C0C0 || color == 0xFFFFFF || color == 0x808080;
}

bool ShowsPart(const Picture& screen, int left, int top, const Picture& bitmap,
               const SkinRect& part) {
    if (left + part.width > screen.width || top + part.height > screen.height) return false;
    for (int y = 0; y < part.height; ++y) {
        for (int x = 0; x < part.width; ++x) {
            const uint32_t wanted = bitmap.At(part.x + x, part.y + y);
            if (!FollowsSystem(wanted) && screen.At(left + x, top + y) != wanted) return false;
        }
    }
    return true;
}

bool WaitForPicture(HWND control) {
    return WaitUntil([&] {
        const std::vector<uint32_t> pixels = Photograph(control).pixels;
        return IsWindowVisible(control) &&
               std::ranges::count(pixels, pixels.at(0)) < std::ssize(pixels);
    });
}
