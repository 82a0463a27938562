// Reading an open file field by field through one small window, so that a walk over the database
// costs one system call per window and not per field. The window opens small, for the sake of
// single questions, and doubles while the reading goes straight on.
#pragma once

#include <cstdint>
#include <string>

#include "base/file_access.h"

constexpr uint32_t kFirstWindowBytes = 2048;
// Measured: larger windows win nothing any more. tools/bench measures other sizes.
#ifndef TARNWELL_WINDOW_KB
#define TARNWELL_WINDOW_KB 64
#endif
constexpr uint32_t kWindowBytes = TARNWELL_WINDOW_KB * 1024;

// Borrows the handle. Nothing but this reader moves the file's position while it is in use.
struct WindowReader {
    FileHandle file = kNoFile;
    uint64_t position = 0;     // of the next byte that is handed out; any value may be put here
    uint64_t windowStart = 0;  // file offset of the window's first byte
    uint32_t windowSize = 0;   // valid bytes in the window
    uint64_t fileOffset = 0;   // where the system stands
    uint32_t nextBytes = 0;    // that the next read asks for
    bool failed = false;       // the system refused a read; reaching the end is no failure
    uint8_t window[kWindowBytes];
};

// For a file that was just opened. With a file used before, pass its offset or kUnknownOffset.
constexpr uint64_t kUnknownOffset = UINT64_MAX;
void StartReading(WindowReader& reader, FileHandle file, uint64_t fileOffset = 0);

// Reads as many bytes as there are, at most sizeBytes; less than that means the end of the file or
// a failure.
uint32_t ReadUpTo(WindowReader& reader, void* data, uint32_t sizeBytes);

// The next bytes where they lie in the window, as many as it holds and at most `mostBytes`, and on
// behind them. Null at the end of the file and after a failure. Good until the next read.
const uint8_t* ReadInWindow(WindowReader& reader, uint64_t mostBytes, uint32_t& sizeBytes);

// The next bytes where they lie in the window, without moving on; null unless it holds all of them.
inline const uint8_t* PeekInWindow(const WindowReader& reader, uint32_t sizeBytes) {
    const uint64_t from = reader.position - reader.windowStart;
    const bool inside = reader.position >= reader.windowStart && from <= reader.windowSize &&
                        reader.windowSize - from >= sizeBytes;
    return inside ? reader.window + from : nullptr;
}

// These answer false, leave the output alone and `position` anywhere when the file ends before.
inline bool ReadU8(WindowReader& reader, uint8_t& value) {
    const uint8_t* byte = PeekInWindow(reader, 1);
    if (!byte) return ReadUpTo(reader, &value, 1) == 1;
    ++reader.position;
    value = *byte;
    return true;
}
bool ReadU16(WindowReader& reader, uint16_t& value);
bool ReadU32(WindowReader& reader, uint32_t& value);

// A length byte and that many bytes. The text ends at a zero byte, if it holds one.
bool ReadText(WindowReader& reader, std::string& text);
bool SkipText(WindowReader& reader);
