// See code_page.h.
#include "companion/code_page.h"

constexpr char32_t kNoPoint = 0xFFFFFFFF;

static void AppendUtf8(char32_t point, std::string& text) {
    const auto put = [&text](char32_t value) { text += static_cast<char>(value); };
    if (point < 0x80) {
        put(point);
    } else if (point < 0x800) {
        put(0xC0 | point >> 6);
        put(0x80 | (point & 0x3F));
    } else if (point < 0x10000) {
        put(0xE0 | point >> 12);
        put(0x80 | (point >> 6 & 0x3F));
        put(0x80 | (point & 0x3F));
    } else {
        put(0xF0 | point >> 18);
        put(0x80 | (point >> 12 & 0x3F));
        put(0x80 | (point >> 6 & 0x3F));
        put(0x80 | (point & 0x3F));
    }
}

// The character at `position`, which moves behind it; kNoPoint, and one byte on, for bytes that are
// no UTF-8. Overlong forms, surrogates and numbers beyond U+10FFFF are none.
static char32_t NextPoint(std::string_view text, size_t& position) {
    const auto first = static_cast<uint8_t>(text[position++]);
    if (first < 0x80) return first;
    const int more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
    if (first < 0xC2 || first > 0xF4) return kNoPoint;
    char32_t point = first & (0x3F >> more);
    size_t at = position;
    for (int i = 0; i < more; ++i, ++at) {
        if (at >= text.size()) return kNoPoint;
        const auto next = static_cast<uint8_t>(text[at]);
        if ((next & 0xC0) != 0x80) return kNoPoint;
        point = point << 6 | (next & 0x3F);
    }
    constexpr char32_t kSmallest[] = {0, 0x80, 0x800, 0x10000};
    if (point < kSmallest[more] || point > 0x10FFFF || (point >= 0xD800 && point < 0xE000)) {
        return kNoPoint;
    }
    position = at;
    return point;
}

bool LoadCodePage(int number, CodePage& page) {
    CodePage loaded;
    bool undefined[256] = {};
    for (int byte = 0; byte < 256; ++byte) {
        bool several = false;
        undefined[byte] =
            !CodePointOfByte(number, static_cast<uint8_t>(byte), loaded.points[byte], several);
        if (several) return false;
        if (!undefined[byte]) {
            loaded.bytes.emplace(loaded.points[byte], static_cast<uint8_t>(byte));
        }
    }
    for (int byte = 0; byte < 256; ++byte) {
        if (!undefined[byte]) continue;
        loaded.points[byte] = static_cast<char32_t>(byte);
        loaded.bytes.emplace(loaded.points[byte], static_cast<uint8_t>(byte));
    }
    page = std::move(loaded);
    return true;
}

std::string ToUtf8(std::string_view text, const CodePage& page) {
    std::string result;
    for (const char character : text) {
        AppendUtf8(page.points[static_cast<uint8_t>(character)], result);
    }
    return result;
}

std::string FromUtf8(std::string_view text, const CodePage& page, int& lostCharacters) {
    std::string result;
    for (size_t position = 0; position < text.size();) {
        const auto found = page.bytes.find(NextPoint(text, position));
        if (found == page.bytes.end()) ++lostCharacters;
        result += found == page.bytes.end() ? '?' : static_cast<char>(found->second);
    }
    return result;
}

bool IsUtf8(std::string_view text) {
    for (size_t position = 0; position < text.size();) {
        if (NextPoint(text, position) == kNoPoint) return false;
    }
    return true;
}

std::string Latin1ToUtf8(std::string_view text) {
    std::string result;
    for (const char character : text)
        AppendUtf8(static_cast<uint8_t>(character), result);
    return result;
}
