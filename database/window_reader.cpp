// Reading an open file field by field through one small window.
#include "database/window_reader.h"

#include <algorithm>
#include <cstring>

#include "database/database_format.h"

void StartReading(WindowReader& reader, FileHandle file, uint64_t fileOffset) {
    reader.file = file;
    reader.position = 0;
    reader.windowStart = 0;
    reader.windowSize = 0;
    reader.fileOffset = fileOffset;
    reader.nextBytes = kFirstWindowBytes;
    reader.failed = false;
}

// Moves the window on. A position within the next window's reach is met by reading straight on,
// which saves the seek; only a longer way, or the way back, is a seek.
static bool FillWindow(WindowReader& reader) {
    const bool straightOn = reader.fileOffset != kUnknownOffset &&
                            reader.position >= reader.fileOffset &&
                            reader.position - reader.fileOffset < reader.nextBytes;
    reader.windowSize = 0;
    if (!straightOn) {
        reader.fileOffset = kUnknownOffset;
        reader.nextBytes = kFirstWindowBytes;
        if (FileCalls.seek(reader.file, reader.position) != FileStatus::kOk) {
            reader.failed = true;
            return false;
        }
        reader.fileOffset = reader.position;
    }
    uint32_t readBytes = 0;
    if (FileCalls.read(reader.file, reader.window, reader.nextBytes, readBytes) !=
        FileStatus::kOk) {
        reader.failed = true;
        reader.fileOffset = kUnknownOffset;
        return false;
    }
    reader.windowStart = reader.fileOffset;
    reader.windowSize = std::min(readBytes, reader.nextBytes);
    reader.nextBytes = std::min(2 * reader.nextBytes, kWindowBytes);
    reader.fileOffset += reader.windowSize;
    return reader.windowSize > 0;
}

const uint8_t* ReadInWindow(WindowReader& reader, uint64_t mostBytes, uint32_t& sizeBytes) {
    const uint8_t* bytes = PeekInWindow(reader, 1);
    while (bytes == nullptr) {
        if (!FillWindow(reader)) return nullptr;
        bytes = PeekInWindow(reader, 1);
    }
    const uint64_t inWindow = reader.windowStart + reader.windowSize - reader.position;
    sizeBytes = static_cast<uint32_t>(std::min(mostBytes, inWindow));
    reader.position += sizeBytes;
    return bytes;
}

uint32_t ReadUpTo(WindowReader& reader, void* data, uint32_t sizeBytes) {
    uint8_t* to = static_cast<uint8_t*>(data);
    uint32_t done = 0;
    while (done < sizeBytes) {
        uint32_t count = 0;
        const uint8_t* bytes = ReadInWindow(reader, sizeBytes - done, count);
        if (bytes == nullptr) break;
        std::memcpy(to + done, bytes, count);
        done += count;
    }
    return done;
}

bool ReadU16(WindowReader& reader, uint16_t& value) {
    uint8_t bytes[2];
    if (ReadUpTo(reader, bytes, sizeof bytes) != sizeof bytes) return false;
    value = GetU16(bytes);
    return true;
}

bool ReadU32(WindowReader& reader, uint32_t& value) {
    uint8_t bytes[4];
    if (ReadUpTo(reader, bytes, sizeof bytes) != sizeof bytes) return false;
    value = GetU32(bytes);
    return true;
}

// Most texts lie whole in the window.
static bool ReadTextInWindow(WindowReader& reader, std::string& text) {
    const uint8_t* stored = PeekInWindow(reader, 1);
    if (stored == nullptr) return false;
    const uint8_t length = *stored;
    if (PeekInWindow(reader, 1u + length) == nullptr) return false;
    const char* bytes = reinterpret_cast<const char*>(stored + 1);
    text.assign(bytes, strnlen(bytes, length));
    reader.position += 1u + length;
    return true;
}

bool ReadText(WindowReader& reader, std::string& text) {
    if (ReadTextInWindow(reader, text)) return true;
    uint8_t length = 0;
    char bytes[UINT8_MAX];
    if (!ReadU8(reader, length) || ReadUpTo(reader, bytes, length) != length) return false;
    text.assign(bytes, strnlen(bytes, length));
    return true;
}

bool SkipText(WindowReader& reader) {
    uint8_t length = 0;
    if (!ReadU8(reader, length)) return false;
    reader.position += length;
    return true;
}
