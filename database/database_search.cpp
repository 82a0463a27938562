// See database_search.h.
#include "database/database_search.h"

#include "database/database_file.h"
#include "database/database_format.h"
#include "database/database_walk.h"

static std::string TitleOf(WindowReader& reader, uint32_t entryStart) {
    reader.position = uint64_t{entryStart} + kTrackCountOffset;
    std::string artist;
    std::string discName;
    if (SkipTracks(reader) && ReadText(reader, artist)) ReadText(reader, discName);
    return artist + " - " + discName;
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
    for (uint32_t i = firstIndex; i < entryCount; ++i) {
        progress(i + 1, entryCount);
        EntryHeader header;
        if (!ReadEntryHeader(reader, entryStart, header)) break;
        const int field = MatchEntry(reader, query);
        if (field != kNoMatch) {
            hits.push_back({static_cast<uint16_t>(i), static_cast<uint16_t>(field),
                            TitleOf(reader, entryStart)});
        }
        if (header.nextOffset <= entryStart) break;
        entryStart = header.nextOffset;
    }
    return hits;
}
