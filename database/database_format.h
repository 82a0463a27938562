// The numbers of the database file's layout, which FORMAT.md describes, and its header.
#pragma once

#include <cstdint>

#include "base/file_access.h"

constexpr const char* kDatabaseName = "tarnwell.dat";
constexpr const char* kNewDatabaseName = "tarnwell.new";
constexpr const char* kBackupName = "tarnwell.dbk";
constexpr const char* kDamagedName = "TARNWELL.BAD";

constexpr uint8_t kHeaderMark[6] = {0xFF, 'Q', 'M', 'R', 0x00, 0x0A};
constexpr uint32_t kCountOffset = 6;
constexpr uint32_t kHeaderBytes = 8;
constexpr uint32_t kMaxEntries = 65535;

// From an entry's start: NextOffset, EntrySize, DiscKey, TrackCount, track records.
constexpr uint32_t kEntrySizeOffset = 4;
constexpr uint32_t kDiscKeyOffset = 6;
constexpr uint32_t kTrackCountOffset = 10;
constexpr uint32_t kTracksOffset = 11;

// EntrySize leaves out the 4 bytes of NextOffset.
constexpr uint32_t kNextOffsetBytes = 4;
constexpr uint32_t kTrailerBytes = 4;

constexpr uint32_t kMaxTextBytes = 254;
// No tracks and empty texts; 99 tracks and the longest texts.
constexpr uint32_t kMinEntryBytes = 11 + 5 + 3 + 1 + 4;
constexpr uint32_t kMaxEntryBytes =
    11 + 99 * (1 + kMaxTextBytes + 2) + 5 * (1 + kMaxTextBytes) + 3 + (1 + kMaxTextBytes) + 4;

inline uint16_t GetU16(const uint8_t* bytes) {
    return static_cast<uint16_t>(bytes[0] | bytes[1] << 8);
}

inline uint32_t GetU32(const uint8_t* bytes) {
    return GetU16(bytes) | static_cast<uint32_t>(GetU16(bytes + 2)) << 16;
}

inline void PutU16(uint8_t* bytes, uint16_t value) {
    bytes[0] = static_cast<uint8_t>(value);
    bytes[1] = static_cast<uint8_t>(value >> 8);
}

inline void PutU32(uint8_t* bytes, uint32_t value) {
    PutU16(bytes, static_cast<uint16_t>(value));
    PutU16(bytes + 2, static_cast<uint16_t>(value >> 16));
}

// Both answer kOk when the bytes have reached the disk.
FileStatus WriteEntryCount(FileHandle file, uint32_t entryCount);
// The header of a database without entries.
FileStatus WriteEmptyHeader(FileHandle file);
