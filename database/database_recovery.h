// Puts right what a program that was ended in the middle of a write left behind.
#pragma once

#include "base/file_access.h"

enum class RecoveryResult {
    kNothingToDo,  // also when there is no database and nothing to make one from
    kRestored,     // a missing database came back from tarnwell.new or tarnwell.dbk
    kRepaired,     // an entry at the end was cut off or completed, or the count was put right
    kDamaged,      // a fault that no ended write explains; the file is left as it is
    kFailed,       // a file could not be opened, read or written; the next start tries again
};

// Called once at start-up, before anything else of the database. Costs one reading of the file.
RecoveryResult RecoverDatabase();

// The half of it that looks at an open file, for writers that find an odd end.
RecoveryResult RepairDatabaseEnd(FileHandle file);
