// Changes to the disc database. Each either happens whole or leaves the file as it was, and says
// which, or that it could not be told (DatabaseResult::kNotTakenBack). The disc (key, track count,
// track lengths) is taken from DatabaseDisc.
#pragma once

#include <cstdint>

#include "database/database_result.h"
#include "database/database_rewrite.h"
#include "database/disc_entry.h"

// Puts right what an append that was ended or failed has left at the end of the file. kOk: new
// entries will be found there; kDamaged: they would not, and are refused.
DatabaseResult RepairDatabase();

// The same for a rewrite that is under way: its source is the mended file afterwards.
DatabaseResult MendEnd(RewriteSource& source);

// Adds an entry at the end of the file, in place. When an earlier append of the disc turns out to
// have been made after all, its entry is replaced.
DatabaseResult AppendEntry(const EntryFields& fields);

// Removes the entry that starts at entryStart.
DatabaseResult DeleteEntry(uint32_t entryStart);

// Writes a new entry in the place of the one that starts at entryStart; the order stays.
DatabaseResult ReplaceEntry(uint32_t entryStart, const EntryFields& fields);

// DeleteEntry followed by AppendEntry as one rewrite: the same bytes, but the old entry is never
// gone without the new one.
DatabaseResult ReplaceEntryAtEnd(uint32_t entryStart, const EntryFields& fields);

// Replaces the entry that a look-up finds for the disc, at the end, or adds one. `known` says
// whether there was one when the user began: an entry that has come since is not replaced, and
// nothing is added while the file cannot be read. Pass the same variable when the user tries again.
// `shown` is what the user saw of a known entry: kChangedMeanwhile when the file holds something
// else now, and not yet what is to be written. Null replaces whatever it holds.
DatabaseResult SaveDisc(const EntryFields& fields, bool& known, const EntryFields* shown = nullptr);
