// See disc_names.h.
#include "companion/disc_names.h"

#include <cstdio>

#include "database/database_format.h"

constexpr DiscText kTexts[] = {
    {"artist", &EntryFields::artist},     {"disc name", &EntryFields::discName},
    {"category", &EntryFields::category}, {"label", &EntryFields::label},
    {"notes", &EntryFields::notes},       {"year released", &EntryFields::yearReleased},
};

constexpr const char* kSizes[] = {"3 inch", "5 inch"};

constexpr DiscCode kCodes[] = {
    {"recording", &EntryFields::recordingCode, kRecordingWords},
    {"type", &EntryFields::discType, kTypeWords},
    {"size", &EntryFields::discSize, kSizes},
};

std::span<const DiscText> DiscTexts() {
    return kTexts;
}

std::span<const DiscCode> DiscCodes() {
    return kCodes;
}

std::string CodeName(const DiscCode& code, uint8_t value) {
    return value < code.values.size() ? code.values[value] : std::to_string(value);
}

bool ParseCode(const DiscCode& code, const std::string& text, uint8_t& value) {
    for (size_t i = 0; i < code.values.size(); ++i) {
        if (text == code.values[i]) {
            value = static_cast<uint8_t>(i);
            return true;
        }
    }
    int number = 0;
    if (!ParseNumber(text, 255, number)) return false;
    value = static_cast<uint8_t>(number);
    return true;
}

std::string TakeText(std::string_view utf8, const CodePage& page, const std::string& where,
                     const std::string& field, const DiscSink& sink) {
    int lost = 0;
    std::string text = FromUtf8(utf8, page, lost);
    if (lost > 0) {
        sink.warn(where, field + ": " + std::to_string(lost) +
                             (lost == 1 ? " character is" : " characters are") +
                             " not in the code page, written as ?");
    }
    if (const size_t zero = text.find('\0'); zero != std::string::npos) {
        text.resize(zero);
        sink.warn(where, field + ": ends at a zero byte");
    }
    if (text.size() > kMaxTextBytes) {
        text.resize(kMaxTextBytes);
        sink.warn(where, field + ": cut at " + std::to_string(kMaxTextBytes) + " characters");
    }
    return text;
}

void CheckTotal(const DiscToc& toc, const std::string& where, const DiscSink& sink) {
    const uint16_t sum = SumOfLengths(toc);
    if (toc.totalSeconds == sum) return;
    sink.warn(where, "total seconds: " + std::to_string(toc.totalSeconds) +
                         ", but the tracks make " + std::to_string(sum) +
                         "; no disc is known by that");
}

std::string SmallLetters(std::string text) {
    for (char& letter : text) {
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    }
    return text;
}

bool ParseNumber(std::string_view text, int limit, int& number) {
    if (text.empty()) return false;
    int64_t value = 0;
    for (const char digit : text) {
        if (digit < '0' || digit > '9') return false;
        value = value * 10 + (digit - '0');
        if (value > limit) return false;
    }
    number = static_cast<int>(value);
    return true;
}

std::string LengthText(uint64_t seconds) {
    char text[40];
    const auto minutes = static_cast<int>(seconds / 60 % 60);
    const auto rest = static_cast<int>(seconds % 60);
    if (seconds >= 3600) {
        snprintf(text, sizeof text, "%u:%02d:%02d", static_cast<unsigned>(seconds / 3600), minutes,
                 rest);
    } else {
        snprintf(text, sizeof text, "%d:%02d", minutes, rest);
    }
    return text;
}
