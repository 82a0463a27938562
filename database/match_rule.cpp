// See match_rule.h.
#include "database/match_rule.h"

#include "database/database_walk.h"
#include "disc/disc_toc.h"

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

}  // namespace

// Reads or steps over one text.
static FieldAnswer MatchText(WindowReader& reader, const SearchQuery& query, bool searched,
                             std::string& field) {
    if (!searched) return SkipText(reader) ? FieldAnswer::kNoMatch : FieldAnswer::kEntryEnds;
    if (!ReadText(reader, field)) return FieldAnswer::kEntryEnds;
    if (query.lowerCase != nullptr) query.lowerCase(field);
    return TextContains(field, query.text) ? FieldAnswer::kMatch : FieldAnswer::kNoMatch;
}

static int MatchTexts(WindowReader& reader, const SearchQuery& query) {
    uint8_t trackCount = 0;
    if (!ReadU8(reader, trackCount)) return kNoMatch;
    std::string field;
    FieldAnswer answer = FieldAnswer::kNoMatch;
    for (int track = 0; track < trackCount; ++track) {
        answer = MatchText(reader, query, query.track && track < kMaxTracks, field);
        if (answer == FieldAnswer::kEntryEnds) return kNoMatch;
        if (answer == FieldAnswer::kMatch) return track;
        reader.position += 2;
    }
    const bool searched[] = {query.artist, query.discName, query.category, query.label,
                             query.notes};
    for (int text = 0; text < 5; ++text) {
        answer = MatchText(reader, query, searched[text], field);
        if (answer == FieldAnswer::kEntryEnds) return kNoMatch;
        if (answer == FieldAnswer::kMatch) return kFieldArtist + text;
    }
    reader.position += 3;
    answer = MatchText(reader, query, query.yearReleased, field);
    return answer == FieldAnswer::kMatch ? kFieldYearReleased : kNoMatch;
}

static int MatchCode(WindowReader& reader, int code) {
    if (!SkipTracks(reader)) return kNoMatch;
    for (int text = 0; text < 5; ++text) {
        if (!SkipText(reader)) return kNoMatch;
    }
    uint8_t codes[3];
    if (ReadUpTo(reader, codes, sizeof codes) != sizeof codes) return kNoMatch;
    const int found[] = {kFieldRecordingFirst + codes[0], kFieldTypeFirst + codes[1],
                         codes[2] == 0 ? kFieldThreeInch : kFieldFiveInch};
    const int group = code < kFieldTypeFirst ? 0 : code < kFieldThreeInch ? 1 : 2;
    return found[group] == code ? code : kNoMatch;
}

int MatchEntry(WindowReader& reader, const SearchQuery& query) {
    return query.code == 0 ? MatchTexts(reader, query) : MatchCode(reader, query.code);
}
