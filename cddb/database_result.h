// What became of a change to the disc database.
#pragma once

enum class DatabaseResult {
    ok,
    cannotOpen,  // the file is missing, cannot be written or is held by another program
    full,        // 65,535 discs are in it
    diskFull,
    writeFailed,  // reading, writing or renaming failed
    damaged,      // the entry is not there, or an entry behind it does not fit into the file
};

// One line for the message box; the empty text for ok. After every result but ok the database is as
// it was.
const char* DatabaseResultText(DatabaseResult result);
