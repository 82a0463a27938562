// What a disc's fields are called outside the catalogue, and how texts and codes get in and out.
#pragma once

#include <span>
#include <string>

#include "companion/code_page.h"
#include "companion/disc.h"

// The six texts in the order of listings.
struct DiscText {
    const char* name;
    std::string EntryFields::*text;
};
std::span<const DiscText> DiscTexts();

// The three codes. A value without a name stands as its number.
struct DiscCode {
    const char* name;
    uint8_t EntryFields::*code;
    std::span<const char* const> values;
};
std::span<const DiscCode> DiscCodes();
std::string CodeName(const DiscCode& code, uint8_t value);
// False, and `value` untouched, for a text that is neither a name nor a number up to 255.
bool ParseCode(const DiscCode& code, const std::string& text, uint8_t& value);

// A text from outside as the catalogue keeps it: in its code page, ended by a zero byte, cut at 254
// bytes. What that costs is told to `sink` with the field's name.
std::string TakeText(std::string_view utf8, const CodePage& page, const std::string& where,
                     const std::string& field, const DiscSink& sink);

// Tells `sink` of a total that the track lengths do not make. It is kept, because an entry of a
// catalogue comes back as it was; but in the drive no disc has such a total.
void CheckTotal(const DiscToc& toc, const std::string& where, const DiscSink& sink);

// Plain letters alone; whatever else there is stays.
std::string SmallLetters(std::string text);

// A whole number from 0 to `limit`, digits alone.
bool ParseNumber(std::string_view text, int limit, int& number);

// "1:02:03" with hours, else "2:03".
std::string LengthText(uint64_t seconds);
