// Gets the discs out of a damaged database.
#pragma once

#include <cstdint>
#include <functional>

#include "database/database_result.h"
#include "database/database_rewrite.h"

// How far a search through a damaged file is; called often. Rubbish may be large.
using SalvageProgress = std::function<void(uint64_t offset)>;

// Where an entry lies in a damaged file.
struct SalvagedEntry {
    uint64_t start = 0;
    uint64_t end = 0;
    bool contentsFit = false;  // tracks, texts and codes end where the entry does
};

// The first entry at or behind `from`. NextOffset, EntrySize, the trailer and the contents each
// tell where an entry ends; where two of them agree, there is one. Behind bytes that are none, only
// an entry that names its own place counts. False when there is no further one.
bool FindSalvageableEntry(WindowReader& reader, uint64_t from, uint64_t fileBytes,
                          SalvagedEntry& entry, const SalvageProgress& progress = {});

// The content of a rewrite: every entry that can be found, byte for byte but for its pointers, and
// the right count. What does not fit into its entry is written as far as it can be read.
DatabaseResult WriteSalvaged(RewriteSource& source, RewriteTarget& target,
                             const SalvageProgress& progress = {});

// Keeps a copy of the damaged database as TARNWELL.BAD and rewrites it with the entries that
// WriteSalvaged finds. An older TARNWELL.BAD is kept as TARNWELL.BAD1, BAD2, ... After a failure
// the database is as it was. Entries may lie elsewhere afterwards.
DatabaseResult RebuildDatabase();
