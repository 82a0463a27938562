// The search through the database (dialog 2500).
#pragma once

#include <windows.h>

#include <cstdint>

// Starts from entryIndex. True when the user takes a result that is still there: entryIndex is then
// its entry, and field where it matches (database/match_rule.h). Otherwise both stay as they were.
bool ShowSearchDialog(HWND owner, uint32_t& entryIndex, int& field);
