// See play_position.h.
#include "playback/play_position.h"

#include <algorithm>

constexpr int64_t kMinuteMs = 60'000;
constexpr int64_t kHourMs = 60 * kMinuteMs;

constexpr int kScrollUnits = 1000;

static std::string FormatPlayTime(int64_t milliseconds) {
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

// Of the largest field shown.
static const char* TimeUnitWord(int64_t milliseconds) {
    if (milliseconds < 1000) return "Milliseconds";
    if (milliseconds < kMinuteMs) return "Seconds";
    if (milliseconds >= kHourMs) return "Hours";
    return "Minutes";
}

std::string PlayTimeText(int64_t milliseconds) {
    return FormatPlayTime(milliseconds) + " " + TimeUnitWord(milliseconds);
}

static std::string FrameText(int64_t frames) {
    return std::to_string(std::max<int64_t>(frames, 0)) + (frames == 1 ? " Frame" : " Frames");
}

std::string PositionText(int64_t position, PlayUnit unit) {
    return unit == PlayUnit::kFrames ? FrameText(position) : PlayTimeText(position);
}

PlayLength LengthInMilliseconds(int32_t length) {
    const auto unit = PlayUnit::kMilliseconds;
    if (length > kScrollUnits) {
        return {unit, length, kScrollUnits, static_cast<float>(length) * 0.001f};
    }
    return {unit, length, std::max<int>(length, 0), 1.0f};
}

PlayLength LengthInFrames(int32_t length) {
    return {PlayUnit::kFrames, length, static_cast<uint16_t>(std::max(length, 0)), 1.0f};
}

int32_t ScrollToPosition(int scroll, const PlayLength& length) {
    const int32_t end = std::max<int32_t>(length.length, 0);
    if (length.unit == PlayUnit::kFrames || length.length <= kScrollUnits) {
        return std::clamp<int32_t>(scroll, 0, end);
    }
    // Single precision cannot hold every length: the product may pass the end and even 32 bits.
    const double milliseconds = static_cast<float>(scroll) * length.scale;
    return static_cast<int32_t>(std::clamp<double>(milliseconds, 0.0, end));
}

int PositionToScroll(int64_t position, const PlayLength& length) {
    if (length.range == 0 || !(length.scale > 0.0f)) return 0;
    if (length.unit == PlayUnit::kFrames) {
        return static_cast<uint16_t>(std::max<int64_t>(position, 0));
    }
    const float units = static_cast<float>(position) / length.scale;
    return static_cast<int>(std::clamp(units, 0.0f, 65535.0f));
}

int MoveScroll(int scroll, int step, int range) {
    return std::clamp(scroll + step, 0, std::max(range, 0));
}
