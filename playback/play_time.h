// The texts of every read-out in milliseconds.
#pragma once

#include <cstdint>
#include <string>

// Hours, minutes, seconds and milliseconds without leading zeros in the first field shown: "999",
// "5.000", "1:23.456", "1:00:00.000". A negative time counts as 0.
std::string FormatPlayTime(int64_t milliseconds);

// Names the largest field that FormatPlayTime shows: "Milliseconds", "Seconds", "Minutes" or
// "Hours".
const char* TimeUnitWord(int64_t milliseconds);

// Both, with a blank between.
std::string PlayTimeText(int64_t milliseconds);
