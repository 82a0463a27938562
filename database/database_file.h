// Questions to the disc database. Each opens the file, reads what it needs and closes it again.
// A file that is missing, damaged or cut short gives empty or wrong texts and no message.
#pragma once

#include <cstdint>
#include <string>

#include "base/file_access.h"
#include "database/database_result.h"
#include "database/disc_entry.h"
#include "database/window_reader.h"
#include "disc/disc_toc.h"

// The database's own copy of a table of contents: of the disc in the drive (CopyDiscToc) or of an
// entry (LoadEntryDisc). Lookups and new entries take the disc from here.
extern DiscToc DatabaseDisc;

// Where the entry starts that the last look-up found; 0 when it found none.
extern uint32_t FoundEntryOffset;

// No disc, and none looked up.
void ResetDatabaseState();

// Creates an empty database when there is none. One that another program holds is left alone, and
// one that a rewrite left under another name is brought back first.
void EnsureDatabase();

// EnsureDatabase, and the file stays open for reading.
FileStatus OpenEnsuredDatabase(ScopedFile& file, WhenHeld whenHeld = WhenHeld::kGiveUp);

// Opens an existing file for reading; one that another program holds is tried again.
bool OpenDatabaseToRead(ScopedFile& file);

// 0 when the file cannot be read.
uint16_t DatabaseEntryCount();
// The same for those who must know; a missing file has none.
DatabaseResult ReadDatabaseEntryCount(uint16_t& entryCount);

// Where entry number entryIndex (from 0) starts; 0 when there are fewer entries.
uint32_t FindEntryOffset(uint32_t entryIndex);

// trackNumber counts from 1; a number the disc does not have gives the empty text.
std::string ReadTrackName(uint32_t entryStart, int trackNumber);
std::string ReadArtist(uint32_t entryStart);
std::string ReadDiscName(uint32_t entryStart);

// Artist, " - ", disc name: what a disc is called wherever one line must do.
std::string TitleOf(const std::string& artist, const std::string& discName);
// At most 513 bytes.
std::string ReadTitle(WindowReader& reader, uint32_t entryStart);
std::string ReadTrackName(WindowReader& reader, uint32_t entryStart, int trackNumber);

// All the names and codes of an entry; false when it is not whole, with what could be read. A file
// that another program holds is tried again.
bool LoadEntryFields(uint32_t entryStart, EntryFields& fields);

// Fills DatabaseDisc from an entry; lengths it does not have are 0. False as above.
bool LoadEntryDisc(uint32_t entryStart);

// All of the entry that starts there; of one cut short, what can be read.
DecodeResult ReadEntry(WindowReader& reader, uint32_t entryStart, DiscToc& disc,
                       EntryFields& fields);

struct NumberedEntry {
    uint32_t start = 0;
    DiscToc disc;
    EntryFields fields;
};
// Entry number entryIndex (from 0). kDamaged when there is no such entry, it is not whole or the
// chain leads elsewhere; entry is then what could be read there.
DatabaseResult LoadNumberedEntry(uint32_t entryIndex, NumberedEntry& entry);

struct DatabaseTotals {
    uint16_t entries = 0;  // as the header says
    uint32_t tracks = 0;
    uint32_t seconds = 0;  // of the discs' stored totals, which are kept modulo 65,536
};
// What one walk over all entries gives; of a damaged file, what comes before the damage.
DatabaseTotals SumDatabase();
