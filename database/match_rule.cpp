// See match_rule.h.
#include "database/match_rule.h"

#include <algorithm>

#include "database/disc_entry.h"

bool TextContains(const std::string& field, const std::string& text) {
    size_t found = 0;
    for (const char c : field) {
        // What does not match is passed over, even when a match could begin with it.
        found = found < text.size() && c == text[found] ? found + 1 : 0;
        if (found > 0 && found == text.size()) return true;
    }
    return false;
}

namespace {

enum class FieldAnswer { kNoMatch, kMatch, kEntryEnds };

// What stands behind the tracks, and how it is looked for.
struct SearchedItem {
    EntryItem item;
    int field;                               // of a code: of its value 0
    bool SearchFields::*searched = nullptr;  // of a text
    int lastCode = 0;                        // of a code: the largest that has a field
    bool lastStandsForMore = false;          // larger codes count as the last
};

}  // namespace

static constexpr SearchedItem kSearchedItems[] = {
    {{&EntryFields::artist}, kFieldArtist, &SearchFields::artist},
    {{&EntryFields::discName}, kFieldDiscName, &SearchFields::discName},
    {{&EntryFields::category}, kFieldCategory, &SearchFields::category},
    {{&EntryFields::label}, kFieldLabel, &SearchFields::label},
    {{&EntryFields::notes}, kFieldNotes, &SearchFields::notes},
    {{nullptr, &EntryFields::recordingCode},
     kFieldRecordingFirst,
     nullptr,
     std::size(kRecordingWords) - 1},
    {{nullptr, &EntryFields::discType}, kFieldTypeFirst, nullptr, std::size(kTypeWords) - 1},
    {{nullptr, &EntryFields::discSize}, kFieldThreeInch, nullptr, 1, true},
    {{&EntryFields::yearReleased}, kFieldYearReleased, &SearchFields::yearReleased},
};
static_assert(std::ranges::equal(kSearchedItems, kEntryItems, {}, &SearchedItem::item));

// Reads or steps over one text.
static FieldAnswer MatchText(WindowReader& reader, const SearchQuery& query, bool searched,
                             std::string& field) {
    if (!searched) return SkipText(reader) ? FieldAnswer::kNoMatch : FieldAnswer::kEntryEnds;
    if (!ReadText(reader, field)) return FieldAnswer::kEntryEnds;
    if (query.lowerCase != nullptr) query.lowerCase(field);
    return TextContains(field, query.text) ? FieldAnswer::kMatch : FieldAnswer::kNoMatch;
}

// Every text is looked at when no code is asked for, and none when one is.
static bool LooksAt(const SearchQuery& query, bool SearchFields::*searched) {
    return query.code == 0 && query.fields.*searched;
}

static bool CodeMatches(const SearchQuery& query, const SearchedItem& searched, int code) {
    if (code > searched.lastCode && !searched.lastStandsForMore) return false;
    return query.code == searched.field + std::min(code, searched.lastCode);
}

// The bytes that become `letter` in lower case. False when there are more than two. A byte of
// several-byte characters may become another beside others than alone; plain letters do not.
static bool FindCases(const SearchQuery& query, char letter, uint8_t (&cases)[2]) {
    cases[0] = cases[1] = static_cast<uint8_t>(letter);
    if (query.lowerCase == nullptr) return true;
    if (cases[0] >= 0x80) return false;
    int count = 0;
    for (int byte = 0; byte < 256; ++byte) {
        std::string lowered(1, static_cast<char>(byte));
        query.lowerCase(lowered);
        if (lowered[0] != letter) continue;
        if (count == 2) return false;
        cases[1] = static_cast<uint8_t>(byte);
        if (count++ == 0) cases[0] = cases[1];
    }
    return true;
}

TextFilter FilterOf(const SearchQuery& query) {
    TextFilter filter;
    if (query.code != 0 || query.text.empty()) return filter;
    filter.isOfUse = true;
    filter.bothCases = query.lowerCase != nullptr;
    const size_t last = query.text.size() - 1;
    const size_t distances[] = {0, last / 2, last};
    for (int i = 0; i < 3; ++i) {
        filter.distances[i] = distances[i];
        filter.isOfUse &= FindCases(query, query.text[distances[i]], filter.letters[i]);
    }
    return filter;
}

// Without a branch inside, so that a compiler can look at many bytes at once.
template <bool kBothCases>
static bool HoldsLetters(const TextFilter& filter, const uint8_t* bytes, size_t count) {
    const uint8_t* middle = bytes + filter.distances[1];
    const uint8_t* last = bytes + filter.distances[2];
    const auto [a, b, c] = filter.letters;
    // A byte, not a bool: compilers put bytes side by side.
    uint8_t found = 0;
    for (size_t i = 0; i < count; ++i) {
        const auto is = [](uint8_t byte, const uint8_t(&cases)[2]) {
            return (byte == cases[0]) | (kBothCases && byte == cases[1]);
        };
        const int here = is(bytes[i], a) & is(middle[i], b) & is(last[i], c);
        found = static_cast<uint8_t>(found | here);
    }
    return found != 0;
}

bool CanHoldText(const TextFilter& filter, const uint8_t* bytes, size_t sizeBytes) {
    if (!filter.isOfUse) return true;
    if (sizeBytes <= filter.distances[2]) return false;
    const size_t count = sizeBytes - filter.distances[2];
    return filter.bothCases ? HoldsLetters<true>(filter, bytes, count)
                            : HoldsLetters<false>(filter, bytes, count);
}

int MatchEntry(WindowReader& reader, const SearchQuery& query) {
    uint8_t trackCount = 0;
    if (!ReadU8(reader, trackCount)) return kNoMatch;
    std::string text;
    const auto matchText = [&](bool SearchFields::*searched, bool exists = true) {
        return MatchText(reader, query, exists && LooksAt(query, searched), text);
    };
    for (int track = 0; track < trackCount; ++track) {
        const FieldAnswer answer = matchText(&SearchFields::track, track < kMaxTracks);
        if (answer == FieldAnswer::kEntryEnds) return kNoMatch;
        if (answer == FieldAnswer::kMatch) return track;
        reader.position += 2;
    }
    for (const SearchedItem& searched : kSearchedItems) {
        if (searched.item.text) {
            const FieldAnswer answer = matchText(searched.searched);
            if (answer == FieldAnswer::kEntryEnds) return kNoMatch;
            if (answer == FieldAnswer::kMatch) return searched.field;
        } else {
            uint8_t code = 0;
            if (!ReadU8(reader, code)) return kNoMatch;
            if (CodeMatches(query, searched, code)) return query.code;
        }
    }
    return kNoMatch;
}
