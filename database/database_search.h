// The search through the whole database.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "database/match_rule.h"

struct SearchHit {
    uint16_t entryIndex;  // from 0
    uint16_t field;       // a track from 0, or a SearchField
    std::string title;    // artist, " - ", disc name
};

// How far a walk over the entries is: `number` counts from 1.
using EntryProgress = std::function<void(uint32_t number, uint32_t entryCount)>;

// The entries from `firstIndex` to the last, in file order, that match. Nothing when the file
// cannot be read.
std::vector<SearchHit> SearchDatabase(const SearchQuery& query, uint32_t firstIndex,
                                      const EntryProgress& progress);
