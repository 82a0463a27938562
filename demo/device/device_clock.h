// The clock of the virtual devices.
#pragma once

#include <chrono>
#include <cstdint>

// Steady milliseconds.
inline uint64_t NowMs() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<uint64_t>(
        std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}
