// The safe rewrite: the one way an existing database is replaced.
#include "database/database_rewrite.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "database/database_format.h"
#include "database/database_paths.h"
#include "database/database_walk.h"

// Over whole windows, and the rest at the end of the file: writing and reading back cut alike.
static uint32_t Checksum(uint32_t checksum, const uint8_t* bytes, uint32_t sizeBytes) {
    constexpr uint32_t kPrime = 16777619;
    // Four sums side by side, because each step of one waits for the step before.
    uint32_t sums[] = {checksum, 1, 2, 3};
    uint32_t i = 0;
    for (; i + 16 <= sizeBytes; i += 16) {
        for (uint32_t lane = 0; lane < 4; ++lane)
            sums[lane] = (sums[lane] ^ GetU32(bytes + i + 4 * lane)) * kPrime;
    }
    for (; i < sizeBytes; ++i)
        sums[0] = (sums[0] ^ bytes[i]) * kPrime;
    for (uint32_t lane = 1; lane < 4; ++lane)
        sums[0] = (sums[0] ^ sums[lane]) * kPrime;
    return sums[0];
}

static void WriteBlock(RewriteTarget& target) {
    uint32_t writtenBytes = 0;
    target.status = FileCalls.write(target.file, target.block, target.blockSize, writtenBytes);
    if (target.status == FileStatus::kOk && writtenBytes != target.blockSize) {
        target.status = FileStatus::kDiskFull;
    }
    target.checksum = Checksum(target.checksum, target.block, target.blockSize);
    target.blockSize = 0;
}

void PutBytes(RewriteTarget& target, const void* data, uint32_t sizeBytes) {
    const uint8_t* from = static_cast<const uint8_t*>(data);
    while (sizeBytes > 0 && target.status == FileStatus::kOk) {
        const uint32_t count = std::min(sizeBytes, kWindowBytes - target.blockSize);
        std::memcpy(target.block + target.blockSize, from, count);
        target.blockSize += count;
        target.offset += count;
        from += count;
        sizeBytes -= count;
        if (target.blockSize == kWindowBytes) WriteBlock(target);
    }
}

DatabaseResult CopyBytes(RewriteSource& source, uint64_t from, uint64_t sizeBytes,
                         RewriteTarget& target) {
    source.reader.position = from;
    while (sizeBytes > 0 && target.status == FileStatus::kOk) {
        uint32_t count = 0;
        const uint8_t* bytes = ReadInWindow(source.reader, sizeBytes, count);
        if (bytes == nullptr) {
            return source.reader.failed ? DatabaseResult::kReadFailed : DatabaseResult::kDamaged;
        }
        PutBytes(target, bytes, count);
        sizeBytes -= count;
    }
    return WriteResult(target.status);
}

void PutHeader(RewriteTarget& target, uint16_t entryCount) {
    uint8_t header[kHeaderBytes];
    std::memcpy(header, kHeaderMark, sizeof kHeaderMark);
    PutU16(header + kCountOffset, entryCount);
    PutBytes(target, header, sizeof header);
}

DatabaseResult CopyHeader(RewriteSource& source, uint16_t entryCount, RewriteTarget& target) {
    const DatabaseResult result = CopyBytes(source, 0, kCountOffset, target);
    if (result != DatabaseResult::kOk) return result;
    uint8_t field[2];
    PutU16(field, entryCount);
    PutBytes(target, field, sizeof field);
    return WriteResult(target.status);
}

DatabaseResult CopyEntryBytes(RewriteSource& source, uint64_t entryStart, uint64_t entryEnd,
                              RewriteTarget& target) {
    const uint32_t sizeBytes = static_cast<uint32_t>(entryEnd - entryStart);
    if (target.offset + sizeBytes > UINT32_MAX) return DatabaseResult::kFull;
    const uint32_t newStart = static_cast<uint32_t>(target.offset);
    uint8_t pointers[kDiscKeyOffset];
    PutU32(pointers, newStart + sizeBytes);
    PutU16(pointers + kEntrySizeOffset, static_cast<uint16_t>(sizeBytes - kNextOffsetBytes));
    PutBytes(target, pointers, sizeof pointers);
    const DatabaseResult result = CopyBytes(source, entryStart + kDiscKeyOffset,
                                            sizeBytes - kDiscKeyOffset - kTrailerBytes, target);
    if (result != DatabaseResult::kOk) return result;
    PutU32(pointers, newStart);
    PutBytes(target, pointers, kTrailerBytes);
    return WriteResult(target.status);
}

DatabaseResult CopyEntry(RewriteSource& source, uint64_t entryStart, RewriteTarget& target) {
    EntryHeader header;
    uint64_t entryEnd = 0;
    if (!FindEntryEnd(source.reader, entryStart, source.sizeBytes, entryEnd) ||
        !ReadEntryHeader(source.reader, entryStart, header)) {
        return source.reader.failed ? DatabaseResult::kReadFailed : DatabaseResult::kDamaged;
    }
    if (entryEnd != entryStart + kNextOffsetBytes + header.entrySize) {
        return DatabaseResult::kDamaged;
    }
    return CopyEntryBytes(source, entryStart, entryEnd, target);
}

DatabaseResult CopyEntries(RewriteSource& source, uint64_t from, RewriteTarget& target,
                           uint64_t& copiedTo) {
    while (from + kNextOffsetBytes <= source.sizeBytes) {
        const uint64_t before = target.offset;
        const DatabaseResult result = CopyEntry(source, from, target);
        if (result != DatabaseResult::kOk) return result;
        from += target.offset - before;
    }
    copiedTo = from;
    return DatabaseResult::kOk;
}

static DatabaseResult ReadBack(const RewriteTarget& target) {
    uint64_t sizeBytes = 0;
    const FileStatus status = FileCalls.size(target.file, sizeBytes);
    if (status != FileStatus::kOk || sizeBytes != target.offset)
        return DatabaseResult::kWriteFailed;
    WindowReader reader;
    StartReading(reader, target.file, kUnknownOffset);
    uint8_t bytes[kWindowBytes];
    uint32_t checksum = 0;
    while (const uint32_t count = ReadUpTo(reader, bytes, sizeof bytes)) {
        checksum = Checksum(checksum, bytes, count);
    }
    const bool same = !reader.failed && checksum == target.checksum;
    return same ? DatabaseResult::kOk : DatabaseResult::kWriteFailed;
}

static DatabaseResult FinishTarget(RewriteTarget& target) {
    if (target.status == FileStatus::kOk && target.blockSize > 0) WriteBlock(target);
    if (target.status == FileStatus::kOk) target.status = FileCalls.flush(target.file);
    if (target.status != FileStatus::kOk) return WriteResult(target.status);
    return ReadBack(target);
}

DatabaseResult WriteNewDatabase(const RewriteContent& writeContent) {
    ScopedFile database;
    FileStatus status = OpenPatiently(DatabasePath().c_str(), FileMode::kReadWrite, database);
    if (status != FileStatus::kOk) return OpenResult(status);
    RewriteSource source;
    StartReading(source.reader, database.handle);
    status = FileCalls.size(database.handle, source.sizeBytes);
    if (status != FileStatus::kOk) return WriteResult(status);
    if (!ReadEntryCount(source.reader, source.entryCount)) {
        return source.reader.failed ? DatabaseResult::kReadFailed : DatabaseResult::kDamaged;
    }

    ScopedFile rewritten;
    status = OpenPatiently(NewDatabasePath().c_str(), FileMode::kCreateAlways, rewritten);
    if (status != FileStatus::kOk) return OpenResult(status);
    RewriteTarget target;
    target.file = rewritten.handle;
    DatabaseResult result = writeContent(source, target);
    if (result == DatabaseResult::kOk) result = FinishTarget(target);
    const FileStatus closed = CloseFile(rewritten);
    return result == DatabaseResult::kOk ? WriteResult(closed) : result;
}

// An older backup that could not be removed would stand in the way of the first rename.
static FileStatus ClearBackupName(const std::string& backup) {
    const FileStatus status = RemovePatiently(backup.c_str());
    return status == FileStatus::kMissing ? FileStatus::kOk : status;
}

// Until this has succeeded, a rewrite that cannot undo its first rename could still be finished by
// recovery.
static bool RemoveNewDatabase() {
    const FileStatus status = RemovePatiently(NewDatabasePath().c_str());
    return status == FileStatus::kOk || status == FileStatus::kMissing;
}

static DatabaseResult PutNewDatabaseInPlace() {
    const std::string database = DatabasePath();
    const std::string rewritten = NewDatabasePath();
    const std::string backup = BackupPath();
    FileStatus status = ClearBackupName(backup);
    if (status == FileStatus::kOk) status = RenamePatiently(database.c_str(), backup.c_str());
    if (status != FileStatus::kOk) return WriteResult(status);
    status = RenamePatiently(rewritten.c_str(), database.c_str());
    if (status != FileStatus::kOk) {
        // The backup is the old database; recovery brings it back once the new one is gone.
        const bool undone = RenamePatiently(backup.c_str(), database.c_str()) == FileStatus::kOk;
        return undone || RemoveNewDatabase() ? WriteResult(status) : DatabaseResult::kNotTakenBack;
    }
    // The new database is in place and whole; a backup that another program holds stays until the
    // next rewrite.
    RemovePatiently(backup.c_str());
    return DatabaseResult::kOk;
}

DatabaseResult SafeRewrite(const RewriteContent& writeContent) {
    DatabaseResult result = WriteNewDatabase(writeContent);
    if (result == DatabaseResult::kOk) result = PutNewDatabaseInPlace();
    // Beside a database it is no more than rubbish, which the next rewrite overwrites.
    if (result != DatabaseResult::kOk) RemoveNewDatabase();
    return result;
}
