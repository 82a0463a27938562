// Puts right what a program that was ended in the middle of a write left behind.
#pragma once

#include "base/file_access.h"

enum class RecoveryResult {
    nothingToDo,  // also when there is no database and nothing to make one from
    restored,     // a missing database came back from tarnwell.new or tarnwell.dbk
    repaired,     // an entry at the end was cut off or completed, or the count was put right
    damaged,      // a fault that no ended write explains; the file is left as it is
    failed,       // a file could not be opened, read or written; the next start tries again
};

// Called once at start-up, before anything else of the database. Costs one reading of the file.
RecoveryResult RecoverDatabase();

// The half of it that looks at an open file, for writers that find an odd end.
RecoveryResult RepairDatabaseEnd(FileHandle file);
