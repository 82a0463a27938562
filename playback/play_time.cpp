// The texts of every read-out in milliseconds.
#include "playback/play_time.h"

#include <algorithm>

constexpr int64_t kMinuteMs = 60'000;
constexpr int64_t kHourMs = 60 * kMinuteMs;

std::string FormatPlayTime(int64_t milliseconds) {
    const int64_t time = std::max<int64_t>(milliseconds, 0);
    const int64_t hours = time / kHourMs;
    const int64_t minutes = time % kHourMs / kMinuteMs;
    // One number with a decimal digit or more per field, so that its own leading zeros fall away.
    const int64_t fields = hours * 10'000'000 + minutes * 100'000 + time % kMinuteMs;
    const std::string digits = std::to_string(fields);
    std::string text;
    for (size_t i = 0; i < digits.size(); ++i) {
        const size_t left = digits.size() - i;
        if (i > 0 && (left == 7 || left == 5)) text += ':';
        if (i > 0 && left == 3) text += '.';
        text += digits[i];
    }
    return text;
}

const char* TimeUnitWord(int64_t milliseconds) {
    if (milliseconds < 1000) return "Milliseconds";
    if (milliseconds < kMinuteMs) return "Seconds";
    if (milliseconds >= kHourMs) return "Hours";
    return "Minutes";
}

std::string PlayTimeText(int64_t milliseconds) {
    return FormatPlayTime(milliseconds) + " " + TimeUnitWord(milliseconds);
}
