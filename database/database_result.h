// What became of a change to the disc database.
#pragma once

#include "base/file_access.h"

enum class DatabaseResult {
    kOk,
    kCannotOpen,  // a file is missing or could not be opened or created
    kHeld,        // another program holds it
    kReadOnly,    // it, its folder or the disk may not be written
    kFull,        // 65,535 discs are in it
    kDiskFull,
    kReadFailed,
    kWriteFailed,     // writing, checking what was written, or renaming failed
    kDamaged,         // the entry is not there, or an entry behind it does not fit into the file
    kNoTracks,        // the disc has none: its entry would stand for every disc that cannot be read
    kAddedMeanwhile,  // another program has added the disc that was new when the user began
    kChangedMeanwhile,  // another program has changed or moved the entry that was shown
    kNotTakenBack,      // writing failed, and taking back what was written failed too
    kNoMemory,          // for the sort
};

// What a call that failed, or not, means for the change: one that opens or creates a file, and one
// that writes or renames.
DatabaseResult OpenResult(FileStatus status);
DatabaseResult WriteResult(FileStatus status);

// One line for the message box; the empty text for kOk. After every other result but kNotTakenBack
// the database is as it was, or its next use or start makes it so. After kNotTakenBack these make
// it either as it was or as it was to be, and no other disc is concerned.
const char* DatabaseResultText(DatabaseResult result);
