// Steps over the entries of an open database file.
#pragma once

#include <cstdint>

#include "database/window_reader.h"

struct EntryHeader {
    uint32_t nextOffset;
    uint16_t entrySize;
    uint16_t totalSeconds;
    uint16_t firstTrackSeconds;
};

// Reads the header at entryStart and leaves the reader before TrackCount.
bool ReadEntryHeader(WindowReader& reader, uint64_t entryStart, EntryHeader& header);

// Follows NextOffset from the first entry on. False when the chain ends before; a pointer that does
// not lead onwards ends it, so that no walk runs in a circle.
bool StepToEntry(WindowReader& reader, uint32_t entryIndex, uint32_t& entryStart);

// From before TrackCount to before the Artist.
bool SkipTracks(WindowReader& reader);

// From before TrackCount to before the trailer.
bool SkipEntryBody(WindowReader& reader);

// NextOffset, EntrySize and the trailer say the same thing three times. Two that agree are enough,
// so that an entry with one damaged pointer can still be moved or deleted, and no other disc with
// it. False when they do not, or when the entry does not fit into a file of fileBytes.
bool FindEntryEnd(WindowReader& reader, uint64_t entryStart, uint64_t fileBytes,
                  uint64_t& entryEnd);

bool ReadEntryCount(WindowReader& reader, uint16_t& entryCount);

// How far a database file keeps its rules.
struct DatabaseCheck {
    uint64_t sizeBytes = 0;
    uint16_t entryCount = 0;    // as the header says
    bool markIsRight = false;   // the header's first six bytes
    uint32_t wholeEntries = 0;  // at the front of the file, without a gap and without a fault
    uint64_t chainEnd = 0;      // behind the last of these
};

// Reads the whole file. An entry is whole when its pointers, its trailer and its contents agree.
// False when the file cannot be read.
bool CheckDatabase(FileHandle file, DatabaseCheck& check);

// Every byte of the file belongs to the header or to a whole entry, and their number is right.
bool IsIntact(const DatabaseCheck& check);
