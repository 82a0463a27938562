// The order by artist that the sorter gives the file and the export its text.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "database/database_result.h"
#include "database/window_reader.h"

// One element for each entry, in the file's order. Held only while something is put in order.
struct ArtistList {
    std::string names;                  // each with a zero byte behind it
    std::vector<uint32_t> nameOffsets;  // into `names`
    std::vector<uint32_t> entryStarts;  // in the file
};

// Below 0, 0 or above 0, as the first text stands before, with or behind the second.
using CompareTexts = int (*)(const char* first, const char* second);

// Takes a line about what a long run is doing, once for each entry and step.
using StatusLine = std::function<void(const char* text)>;

// In one pass along the chain, as far as it leads. kNoMemory, or kReadFailed.
DatabaseResult ReadArtists(WindowReader& reader, uint32_t entryCount, const StatusLine& status,
                           ArtistList& artists);

// Entry numbers from 0, ascending by artist; equal artists keep their order. kNoMemory when memory
// is refused. A comparison that contradicts itself gives some order of all entries.
DatabaseResult OrderByArtist(const ArtistList& artists, CompareTexts compare,
                             const StatusLine& status, std::vector<uint32_t>& order);
