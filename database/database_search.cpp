// See database_search.h.
#include "database/database_search.h"

#include "database/database_file.h"
#include "database/database_format.h"
#include "database/database_walk.h"

// The reader stands behind the entry's header. An entry whose pointers disagree may reach further
// than they say, and one that is not in the window is not looked at.
static bool CanMatch(const WindowReader& reader, uint32_t entryStart, const EntryHeader& header,
                     const TextFilter& filter) {
    const bool agree = header.nextOffset - entryStart == kNextOffsetBytes + header.entrySize;
    if (!agree || header.nextOffset < entryStart + kMinEntryBytes) return true;
    const uint32_t sizeBytes = header.nextOffset - entryStart - kTrackCountOffset;
    const uint8_t* bytes = PeekInWindow(reader, sizeBytes);
    return bytes == nullptr || CanHoldText(filter, bytes, sizeBytes);
}

std::vector<SearchHit> SearchDatabase(const SearchQuery& query, uint32_t firstIndex,
                                      const EntryProgress& progress) {
    std::vector<SearchHit> hits;
    ScopedFile file;
    if (!OpenDatabaseToRead(file)) return hits;
    WindowReader reader;
    StartReading(reader, file.handle);
    uint16_t entryCount = 0;
    uint32_t entryStart = 0;
    if (!ReadEntryCount(reader, entryCount) || !StepToEntry(reader, firstIndex, entryStart)) {
        return hits;
    }
    const TextFilter filter = FilterOf(query);
    for (uint32_t i = firstIndex; i < entryCount; ++i) {
        progress(i + 1, entryCount);
        EntryHeader header;
        if (!ReadEntryHeader(reader, entryStart, header)) break;
        const bool canMatch = CanMatch(reader, entryStart, header, filter);
        const int field = canMatch ? MatchEntry(reader, query) : kNoMatch;
        if (field != kNoMatch) {
            hits.push_back({static_cast<uint16_t>(i), static_cast<uint16_t>(field),
                            ReadTitle(reader, entryStart)});
        }
        if (header.nextOffset <= entryStart) break;
        entryStart = header.nextOffset;
    }
    return hits;
}
