// The arithmetic between the position scroll bar's units and milliseconds.
#include "playback/scroll_scale.h"

#include <algorithm>

constexpr int kScrollUnits = 1000;

ScrollScale ScaleForLength(int32_t lengthMs) {
    if (lengthMs > kScrollUnits) return {kScrollUnits, static_cast<float>(lengthMs) * 0.001f};
    return {std::max<int>(lengthMs, 0), 1.0f};
}

int32_t ScrollToMilliseconds(int position, int32_t lengthMs, const ScrollScale& scale) {
    const int32_t end = std::max<int32_t>(lengthMs, 0);
    if (lengthMs <= kScrollUnits) return std::clamp<int32_t>(position, 0, end);
    // Single precision cannot hold every length: the product may pass the end and even 32 bits.
    const double milliseconds = static_cast<float>(position) * scale.scale;
    return static_cast<int32_t>(std::clamp<double>(milliseconds, 0.0, end));
}

int MillisecondsToScroll(int64_t milliseconds, const ScrollScale& scale) {
    if (!(scale.scale > 0.0f)) return 0;
    const float units = static_cast<float>(milliseconds) / scale.scale;
    return static_cast<int>(std::clamp(units, 0.0f, 65535.0f));
}

int MoveScroll(int position, int step, int range) {
    return std::clamp(position + step, 0, std::max(range, 0));
}
