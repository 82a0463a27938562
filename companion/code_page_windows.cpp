// Code pages as the system knows them.
#include <windows.h>

#include "companion/code_page.h"

bool CodePointOfByte(int pageNumber, uint8_t byte, char32_t& point, bool& several) {
    const UINT page = static_cast<UINT>(pageNumber);
    CPINFO info;
    several = pageNumber <= 0 || !GetCPInfo(page, &info) || info.MaxCharSize != 1;
    if (several) return false;
    const char source = static_cast<char>(byte);
    wchar_t target[2];
    if (MultiByteToWideChar(page, MB_ERR_INVALID_CHARS, &source, 1, target, 2) != 1) return false;
    point = target[0];
    return true;
}
