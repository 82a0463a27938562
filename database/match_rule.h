// When an entry of the database matches what the user looks for, and in which of its fields.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "base/search_fields.h"
#include "database/window_reader.h"

// Where an entry matches. Below kFieldArtist it is a track, from 0.
enum SearchField {
    kFieldArtist = 100,
    kFieldDiscName,
    kFieldCategory,
    kFieldLabel,
    kFieldNotes,
    kFieldRecordingFirst,                        // AAD, ADD, DAD, DDD
    kFieldTypeFirst = kFieldRecordingFirst + 4,  // Album, Single, CD+MM, CD+Video
    kFieldThreeInch = kFieldTypeFirst + 4,
    kFieldFiveInch,
    kFieldYearReleased,
};

struct SearchQuery {
    int code = 0;  // kFieldRecordingFirst to kFieldFiveInch: that code is looked for and no text
    std::string text;  // already lower-cased when case does not count
    // Brings a field into lower case; null when case counts.
    void (*lowerCase)(std::string& text) = nullptr;
    SearchFields fields;
};

// Whether a field holds the text; the empty text is in none. The scan does not go back to behind
// the beginning of a partial match, so that "ab" is not found in "aab": this is meant.
bool TextContains(const std::string& field, const std::string& text);

// Tells most of the entries that cannot match by their bytes alone, without taking them apart: the
// first, a middle and the last letter of the text stand nowhere at their distances.
struct TextFilter {
    bool isOfUse = false;
    bool bothCases = false;
    size_t distances[3] = {};
    uint8_t letters[3][2] = {};
};
TextFilter FilterOf(const SearchQuery& query);
bool CanHoldText(const TextFilter& filter, const uint8_t* bytes, size_t sizeBytes);

constexpr int kNoMatch = -1;
// The first field that matches: tracks 1 to 99, artist, disc name, category, label, notes, year
// released, or the code. The reader stands before the entry's TrackCount. kNoMatch also when the
// entry ends before.
int MatchEntry(WindowReader& reader, const SearchQuery& query);
