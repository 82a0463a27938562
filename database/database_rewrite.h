// The safe rewrite: the one way an existing database is replaced. The new file is written beside
// the old one, flushed, read back, and only then renamed into its place.
#pragma once

#include <cstdint>
#include <functional>

#include "database/database_result.h"
#include "database/window_reader.h"

// The database as it is.
struct RewriteSource {
    WindowReader reader;
    uint64_t sizeBytes = 0;
    uint16_t entryCount = 0;  // as the header says
};

// The new file, written from front to end. After the first failure nothing more is written; the
// rewrite looks at `status` when the content is complete.
struct RewriteTarget {
    FileHandle file = kNoFile;
    FileStatus status = FileStatus::kOk;
    uint64_t offset = 0;  // bytes put so far
    uint32_t checksum = 0;
    uint32_t blockSize = 0;
    uint8_t block[kWindowBytes];
};

void PutBytes(RewriteTarget& target, const void* data, uint32_t sizeBytes);

// A header of this program with a count.
void PutHeader(RewriteTarget& target, uint16_t entryCount);

// The first six header bytes as they are in the source, and a count.
DatabaseResult CopyHeader(RewriteSource& source, uint16_t entryCount, RewriteTarget& target);

// Copies part of the old file. kDamaged when it ends before.
DatabaseResult CopyBytes(RewriteSource& source, uint64_t from, uint64_t sizeBytes,
                         RewriteTarget& target);

// Copies one entry to the target's end with its pointers set for its new place, the rest byte for
// byte. kDamaged when its EntrySize does not fit into the old file, or neither of its other
// pointers agrees with it.
DatabaseResult CopyEntry(RewriteSource& source, uint64_t entryStart, RewriteTarget& target);

// The same for an entry that is known to fill the bytes from entryStart to entryEnd.
DatabaseResult CopyEntryBytes(RewriteSource& source, uint64_t entryStart, uint64_t entryEnd,
                              RewriteTarget& target);

// Copies the entries from `from` to the end of the old file the same way. `copiedTo` is where the
// last one ends in the old file: up to 3 bytes that are no entry can follow there.
DatabaseResult CopyEntries(RewriteSource& source, uint64_t from, RewriteTarget& target,
                           uint64_t& copiedTo);

// Writes the whole new file, header included, and answers kOk, or what stops the rewrite.
using RewriteContent = std::function<DatabaseResult(RewriteSource&, RewriteTarget&)>;

// The first half of a rewrite: tarnwell.new is written, flushed, read back and closed.
DatabaseResult WriteNewDatabase(const RewriteContent& writeContent);

// kOk: the new file is in place. Anything else: the old one is, or, should undoing the first rename
// fail too, it waits as the backup and the next use of the database brings it back. kNotTakenBack:
// the new one could not even be removed, and that use may bring it instead.
DatabaseResult SafeRewrite(const RewriteContent& writeContent);
