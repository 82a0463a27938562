// See entry_text.h.
#include "database_dialogs/entry_text.h"

#include <algorithm>

#include "database/database_format.h"

constexpr std::string_view kBlanks = " \t";
constexpr size_t kMaxNumberDigits = 3;

static std::string_view Trim(std::string_view text) {
    const size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// A number counts only with a mark and a blank behind it: "99 Balloons", "7-11" and "2.5 Degrees"
// are names.
static std::string_view WithoutNumber(std::string_view line) {
    const size_t digits = line.find_first_not_of("0123456789");
    if (digits == 0 || digits > kMaxNumberDigits || digits == std::string_view::npos) return line;
    std::string_view rest = line.substr(digits);
    if (rest.front() == '\t') return Trim(rest);
    const bool blankBefore = rest.front() == ' ';
    rest = Trim(rest);
    const bool isMark = blankBefore
                            ? rest.front() == '-'
                            : std::string_view(".):").find(rest.front()) != std::string_view::npos;
    if (!isMark || rest.size() < 2 || kBlanks.find(rest[1]) == std::string_view::npos) return line;
    return Trim(rest.substr(1));
}

std::vector<std::string> SplitTrackNames(std::string_view text) {
    std::vector<std::string> names;
    while (!text.empty()) {
        const size_t end = text.find_first_of("\r\n");
        const std::string_view name = WithoutNumber(Trim(text.substr(0, end)));
        if (!name.empty()) {
            std::string& kept = names.emplace_back(name.substr(0, kMaxTextBytes));
            std::replace(kept.begin(), kept.end(), '\t', ' ');
        }
        if (end == std::string_view::npos) break;
        text.remove_prefix(end + 1);
    }
    return names;
}

uint32_t EntryIndexFromText(std::string_view text, uint32_t entryCount) {
    text = Trim(text);
    uint64_t number = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') break;
        number = std::min<uint64_t>(number * 10 + static_cast<uint64_t>(c - '0'), UINT32_MAX);
    }
    number = std::clamp<uint64_t>(number, 1, std::max<uint32_t>(entryCount, 1));
    return static_cast<uint32_t>(number - 1);
}
