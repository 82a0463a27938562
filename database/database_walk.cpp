// Steps over the entries of an open database file.
#include "database/database_walk.h"

#include <cstring>

#include "database/database_format.h"
#include "database/disc_entry.h"

bool ReadEntryHeader(WindowReader& reader, uint64_t entryStart, EntryHeader& header) {
    uint8_t copy[kTrackCountOffset];
    reader.position = entryStart;
    const uint8_t* bytes = PeekInWindow(reader, sizeof copy);
    if (bytes) {
        reader.position += sizeof copy;
    } else if (ReadUpTo(reader, copy, sizeof copy) == sizeof copy) {
        bytes = copy;
    } else {
        return false;
    }
    header.nextOffset = GetU32(bytes);
    header.entrySize = GetU16(bytes + kEntrySizeOffset);
    header.totalSeconds = GetU16(bytes + kDiscKeyOffset);
    header.firstTrackSeconds = GetU16(bytes + kDiscKeyOffset + 2);
    return true;
}

bool StepToEntry(WindowReader& reader, uint32_t entryIndex, uint32_t& entryStart) {
    uint32_t start = kHeaderBytes;
    for (uint32_t i = 0; i < entryIndex; ++i) {
        uint32_t nextOffset = 0;
        reader.position = start;
        if (!ReadU32(reader, nextOffset) || nextOffset <= start) return false;
        start = nextOffset;
    }
    entryStart = start;
    return true;
}

bool SkipTracks(WindowReader& reader) {
    uint8_t trackCount = 0;
    if (!ReadU8(reader, trackCount)) return false;
    for (int track = 0; track < trackCount; ++track) {
        if (!SkipText(reader)) return false;
        reader.position += 2;
    }
    return true;
}

bool SkipEntryBody(WindowReader& reader) {
    if (!SkipTracks(reader)) return false;
    for (const EntryItem& item : kEntryItems) {
        if (!item.text) {
            ++reader.position;
        } else if (!SkipText(reader)) {
            return false;
        }
    }
    return true;
}

bool FindEntryEnd(WindowReader& reader, uint64_t entryStart, uint64_t fileBytes,
                  uint64_t& entryEnd) {
    EntryHeader header;
    if (entryStart < kHeaderBytes || !ReadEntryHeader(reader, entryStart, header)) return false;
    const uint64_t bySize = entryStart + kNextOffsetBytes + header.entrySize;
    for (const uint64_t end : {bySize, uint64_t{header.nextOffset}}) {
        if (end < entryStart + kMinEntryBytes || end > fileBytes) continue;
        if (end - entryStart - kNextOffsetBytes > UINT16_MAX) continue;
        bool agree = header.nextOffset == bySize;
        if (!agree) {
            uint32_t trailer = 0;
            reader.position = end - kTrailerBytes;
            agree = ReadU32(reader, trailer) && trailer == entryStart;
        }
        if (!agree) continue;
        entryEnd = end;
        return true;
    }
    return false;
}

bool ReadEntryCount(WindowReader& reader, uint16_t& entryCount) {
    reader.position = kCountOffset;
    return ReadU16(reader, entryCount);
}

static bool EntryIsWhole(WindowReader& reader, uint64_t entryStart, uint64_t sizeBytes,
                         uint64_t& entryEnd) {
    EntryHeader header;
    if (!ReadEntryHeader(reader, entryStart, header)) return false;
    const uint64_t end = entryStart + kNextOffsetBytes + header.entrySize;
    if (header.nextOffset != end || end > sizeBytes || !SkipEntryBody(reader)) return false;
    uint32_t trailer = 0;
    if (reader.position + kTrailerBytes != end || !ReadU32(reader, trailer)) return false;
    if (trailer != entryStart) return false;
    entryEnd = end;
    return true;
}

bool CheckDatabase(FileHandle file, DatabaseCheck& check) {
    DatabaseCheck result;
    if (FileCalls.size(file, result.sizeBytes) != FileStatus::kOk) return false;
    WindowReader reader;
    StartReading(reader, file, kUnknownOffset);
    uint8_t header[kHeaderBytes];
    if (ReadUpTo(reader, header, sizeof header) == sizeof header) {
        result.markIsRight = std::memcmp(header, kHeaderMark, sizeof kHeaderMark) == 0;
        result.entryCount = GetU16(header + kCountOffset);
        result.chainEnd = kHeaderBytes;
        while (EntryIsWhole(reader, result.chainEnd, result.sizeBytes, result.chainEnd)) {
            ++result.wholeEntries;
        }
    }
    if (reader.failed) return false;
    check = result;
    return true;
}

bool IsIntact(const DatabaseCheck& check) {
    return check.markIsRight && check.chainEnd == check.sizeBytes &&
           check.wholeEntries == check.entryCount;
}
