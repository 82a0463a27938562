// The catalogue's texts are bytes of a code page; the world outside is UTF-8.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

// A code page of one byte a character. Bytes that it leaves undefined stand for the code points of
// their own number, so that every text comes back exactly.
struct CodePage {
    char32_t points[256] = {};
    std::unordered_map<char32_t, uint8_t> bytes;
};

constexpr int kDefaultCodePage = 1252;

// False when the system does not know the page or it has characters of several bytes.
bool LoadCodePage(int number, CodePage& page);

// The system's answer for one byte: false when the page leaves it undefined. `several` is set when
// the byte begins a character of several bytes or the page is unknown.
bool CodePointOfByte(int pageNumber, uint8_t byte, char32_t& point, bool& several);

std::string ToUtf8(std::string_view text, const CodePage& page);

// Characters that the page does not have, and bytes that are no UTF-8, become "?" and are counted.
std::string FromUtf8(std::string_view text, const CodePage& page, int& lostCharacters);

// Whether all of it is well-formed UTF-8.
bool IsUtf8(std::string_view text);

// ISO 8859-1, whose bytes are the code points of their own number.
std::string Latin1ToUtf8(std::string_view text);
