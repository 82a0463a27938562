// Texts on their way into the fields of a catalogue entry.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// The track names in a text of several lines, one line each: blanks around a name and empty lines
// are dropped, and so is a number in front ("3. ", "03 - ", "3) ", "3: ", or set off by a tab).
// Tabs in a name, as between a table's columns, become blanks: a field shows nothing for them.
// Names are cut at 254 bytes.
std::vector<std::string> SplitTrackNames(std::string_view text);

// The index, from 0, of the entry whose number was typed: no number and numbers below 1 mean the
// first entry, numbers beyond entryCount the last.
uint32_t EntryIndexFromText(std::string_view text, uint32_t entryCount);
