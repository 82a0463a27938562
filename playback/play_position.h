// The texts of every read-out in milliseconds, and the arithmetic between them and the position
// scroll bar.
#pragma once

#include <cstdint>
#include <string>

// Hours, minutes, seconds and milliseconds without leading zeros in the first field shown, then the
// name of that field: "999 Milliseconds", "5.000 Seconds", "1:23.456 Minutes", "1:00:00.000 Hours".
// A negative time counts as 0.
std::string PlayTimeText(int64_t milliseconds);

// What a length and a position count: milliseconds, or the frames of a film.
enum class PlayUnit { kMilliseconds, kFrames };

// A position or a length as a read-out shows it: "5.000 Seconds", "1 Frame".
std::string PositionText(int64_t position, PlayUnit unit);

// The length of a file and what the position scroll bar makes of it. All 0 while nothing is open.
struct PlayLength {
    PlayUnit unit = PlayUnit::kMilliseconds;
    int32_t length = 0;
    int range = 0;       // end of the scroll bar
    float scale = 0.0f;  // milliseconds or frames to the scroll bar's unit
};

// More than 1000 ms take 1000 units; shorter files take a unit for each millisecond.
PlayLength LengthInMilliseconds(int32_t length);
// A unit for each frame. The scroll bar counts in 16 bits, and so a longer film has the rest of its
// length divided by 65,536. It is meant.
PlayLength LengthInFrames(int32_t length);

// Clamped to 0 and the length.
int32_t ScrollToPosition(int scroll, const PlayLength& length);

// 0 without a range. Milliseconds saturate at 65,535, frames are taken to 16 bits like the range.
int PositionToScroll(int64_t position, const PlayLength& length);

// A move by `step` units from `scroll`, clamped to 0 and the range's end.
int MoveScroll(int scroll, int step, int range);
