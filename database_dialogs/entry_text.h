// Texts on their way into the fields of a catalogue entry.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// The track names in a text of several lines, one line each: blanks around a name and empty lines
// are dropped, and so is a number in front ("3. ", "03 - ", "3) ", "3: ", or set off by a tab).
// Names are cut at 254 bytes.
std::vector<std::string> SplitTrackNames(std::string_view text);
