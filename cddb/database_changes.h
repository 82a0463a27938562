// Changes to the disc database. Each either happens whole or leaves the file as it was, and says
// which. The disc (key, track count, track lengths) is taken from DatabaseDisc.
#pragma once

#include <cstdint>

#include "cddb/database_result.h"
#include "cddb/disc_entry.h"

// Adds an entry at the end of the file, in place.
DatabaseResult AppendEntry(const EntryFields& fields);

// Removes the entry that starts at entryStart.
DatabaseResult DeleteEntry(uint32_t entryStart);

// Writes a new entry in the place of the one that starts at entryStart; the order stays.
DatabaseResult ReplaceEntry(uint32_t entryStart, const EntryFields& fields);

// DeleteEntry followed by AppendEntry as one rewrite: the same bytes, but the old entry is never
// gone without the new one.
DatabaseResult ReplaceEntryAtEnd(uint32_t entryStart, const EntryFields& fields);
