// The texts of every read-out in milliseconds, and the arithmetic between them and the position
// scroll bar.
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
// A scroll bar from 0 to `range`, each unit worth `scale` milliseconds. Both are 0 while nothing is
// open.
struct ScrollScale {
    int range = 0;  // 0 to 1000
    float scale = 0.0f;
};

// More than 1000 ms take 1000 units; shorter files take a unit for each millisecond.
ScrollScale ScaleForLength(int32_t lengthMs);

// Clamped to 0 and the length.
int32_t ScrollToMilliseconds(int position, int32_t lengthMs, const ScrollScale& scale);

// 0 without a scale; saturates at 65,535.
int MillisecondsToScroll(int64_t milliseconds, const ScrollScale& scale);

// A move by `step` units from `position`, clamped to 0 and the range's end.
int MoveScroll(int position, int step, int range);
