// The order by artist that the sorter gives the file and the export its text.
#include "database/artist_order.h"

#include <algorithm>
#include <cstddef>
#include <new>

#include "database/database_format.h"
#include "database/database_walk.h"

static void AddArtists(WindowReader& reader, uint32_t entryCount, ArtistList& artists) {
    artists.nameOffsets.reserve(entryCount);
    artists.entryStarts.reserve(entryCount);
    uint32_t entryStart = kHeaderBytes;
    EntryHeader header;
    for (uint32_t i = 0; i < entryCount; ++i) {
        if (!ReadEntryHeader(reader, entryStart, header)) return;
        std::string artist;
        if (SkipTracks(reader)) ReadText(reader, artist);
        artists.nameOffsets.push_back(static_cast<uint32_t>(artists.names.size()));
        artists.entryStarts.push_back(entryStart);
        artists.names.append(artist).push_back('\0');
        if (header.nextOffset <= entryStart) return;
        entryStart = header.nextOffset;
    }
}

DatabaseResult ReadArtists(WindowReader& reader, uint32_t entryCount, const StatusLine& status,
                           ArtistList& artists) {
    artists = {};
    status("Creating memory buffer for the sort array.");
    status("Loading artist names into memory.");
    try {
        AddArtists(reader, entryCount, artists);
    } catch (const std::bad_alloc&) {
        return DatabaseResult::kNoMemory;
    }
    return reader.failed ? DatabaseResult::kReadFailed : DatabaseResult::kOk;
}

DatabaseResult OrderByArtist(const ArtistList& artists, CompareTexts compare,
                             const StatusLine& status, std::vector<uint32_t>& order) {
    const auto name = [&](uint32_t i) { return artists.names.c_str() + artists.nameOffsets[i]; };
    const auto before = [&](uint32_t a, uint32_t b) { return compare(name(a), name(b)) < 0; };
    const uint32_t count = static_cast<uint32_t>(artists.nameOffsets.size());
    const std::string ofCount = " of " + std::to_string(count);
    // Ordered runs of 2, 4, 8, ... entries are merged as soon as two stand beside each other, so
    // that the number shown grows with the work done. Merging keeps equal artists in order, makes
    // do without a buffer, and stays within its bounds whatever the comparison says.
    const auto mergeLast = [&](size_t run, size_t runBefore) {
        const auto middle = order.end() - static_cast<std::ptrdiff_t>(run);
        std::inplace_merge(middle - static_cast<std::ptrdiff_t>(runBefore), middle, order.end(),
                           before);
    };
    status("Building sorting table.");
    try {
        order.clear();
        order.reserve(count);
        for (uint32_t i = 0; i < count; ++i) {
            status((std::to_string(i) + ofCount).c_str());
            order.push_back(i);
            for (size_t run = 1; order.size() % (2 * run) == 0; run *= 2)
                mergeLast(run, run);
        }
        // What is left are runs of falling powers of two.
        size_t merged = 0;
        for (size_t run = 1; run <= count; run *= 2) {
            if ((count & run) == 0) continue;
            if (merged > 0) mergeLast(merged, run);
            merged += run;
        }
    } catch (const std::bad_alloc&) {
        return DatabaseResult::kNoMemory;
    }
    return DatabaseResult::kOk;
}
