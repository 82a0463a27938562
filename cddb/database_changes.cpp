// Changes to the disc database.
#include "cddb/database_changes.h"

#include <vector>

#include "app/app_directory.h"
#include "cddb/database_file.h"
#include "cddb/database_format.h"
#include "cddb/database_recovery.h"
#include "cddb/database_rewrite.h"
#include "cddb/database_walk.h"

static DatabaseResult WriteResult(FileStatus status) {
    return status == FileStatus::diskFull ? DatabaseResult::diskFull : DatabaseResult::writeFailed;
}

// The last entry leads to the end of the file, and the count is 0 only when there is none.
static bool EndsWithEntry(FileHandle file, uint64_t sizeBytes, uint16_t* entryCount) {
    WindowReader reader;
    StartReading(reader, file, kUnknownOffset);
    if (!ReadEntryCount(reader, entryCount)) return false;
    if (sizeBytes == kHeaderBytes || *entryCount == 0) {
        return sizeBytes == kHeaderBytes && *entryCount == 0;
    }
    if (sizeBytes < kHeaderBytes + kMinEntryBytes) return false;
    uint32_t lastStart = 0;
    EntryHeader header;
    reader.position = sizeBytes - kTrailerBytes;
    return ReadU32(reader, &lastStart) && lastStart >= kHeaderBytes &&
           ReadEntryHeader(reader, lastStart, &header) && header.nextOffset == sizeBytes &&
           uint64_t{lastStart} + kNextOffsetBytes + header.entrySize == sizeBytes;
}

static FileStatus WriteEntryCount(FileHandle file, uint32_t entryCount) {
    uint8_t field[2];
    PutU16(field, static_cast<uint16_t>(entryCount));
    const FileStatus status = WriteAt(file, kCountOffset, field, sizeof field);
    return status == FileStatus::ok ? DatabaseFiles.flush(file) : status;
}

// The count follows only when the entry is on the disk: a program ended in between leaves a whole
// entry that is not counted yet, and recovery counts it.
static FileStatus WriteNewEntry(FileHandle file, uint64_t entryStart, uint32_t entryCount,
                                const std::vector<uint8_t>& bytes) {
    FileStatus status =
        WriteAt(file, entryStart, bytes.data(), static_cast<uint32_t>(bytes.size()));
    if (status == FileStatus::ok) status = DatabaseFiles.flush(file);
    if (status == FileStatus::ok) status = WriteEntryCount(file, entryCount);
    return status;
}

// Tries both steps whatever becomes of the first; recovery does what fails here.
static void CutBack(FileHandle file, uint64_t sizeBytes, uint32_t entryCount) {
    WriteEntryCount(file, entryCount);
    DatabaseFiles.truncate(file, sizeBytes);
    DatabaseFiles.flush(file);
}

DatabaseResult AppendEntry(const EntryFields& fields) {
    ScopedFile file;
    if (OpenPatiently(InAppDirectory(kDatabaseName).c_str(), FileMode::readWrite, file) !=
        FileStatus::ok) {
        return DatabaseResult::cannotOpen;
    }
    uint64_t sizeBytes = 0;
    uint16_t entryCount = 0;
    if (DatabaseFiles.size(file.handle, &sizeBytes) != FileStatus::ok) {
        return DatabaseResult::writeFailed;
    }
    // An entry behind a broken end could not be reached. An earlier append that could not be taken
    // back is put right here; any other damage is left for the user to know.
    if (!EndsWithEntry(file.handle, sizeBytes, &entryCount)) {
        const RecoveryResult repaired = RepairDatabaseEnd(file.handle);
        if (repaired == RecoveryResult::failed) return DatabaseResult::writeFailed;
        if (DatabaseFiles.size(file.handle, &sizeBytes) != FileStatus::ok) {
            return DatabaseResult::writeFailed;
        }
        if (!EndsWithEntry(file.handle, sizeBytes, &entryCount)) return DatabaseResult::damaged;
    }
    if (entryCount == kMaxEntries || sizeBytes > UINT32_MAX - kMaxEntryBytes) {
        return DatabaseResult::full;
    }
    const std::vector<uint8_t> bytes =
        EncodeEntry(DatabaseDisc, fields, static_cast<uint32_t>(sizeBytes));
    const FileStatus status = WriteNewEntry(file.handle, sizeBytes, entryCount + 1u, bytes);
    if (status == FileStatus::ok) return DatabaseResult::ok;
    CutBack(file.handle, sizeBytes, entryCount);
    return WriteResult(status);
}

static DatabaseResult PutEntry(RewriteTarget& target, const EntryFields& fields) {
    if (target.offset > UINT32_MAX - kMaxEntryBytes) return DatabaseResult::full;
    const std::vector<uint8_t> bytes =
        EncodeEntry(DatabaseDisc, fields, static_cast<uint32_t>(target.offset));
    PutBytes(target, bytes.data(), static_cast<uint32_t>(bytes.size()));
    return DatabaseResult::ok;
}

namespace {

enum class NewEntry { none, inPlace, atEnd };

}  // namespace

static DatabaseResult WriteWithout(RewriteSource& source, RewriteTarget& target,
                                   uint32_t entryStart, NewEntry place, const EntryFields* fields) {
    uint64_t entryEnd = 0;
    if (source.entryCount == 0 ||
        !FindEntryEnd(source.reader, entryStart, source.sizeBytes, &entryEnd)) {
        return source.reader.failed ? DatabaseResult::writeFailed : DatabaseResult::damaged;
    }
    const int removed = place == NewEntry::none ? 1 : 0;
    DatabaseResult result =
        CopyHeader(source, static_cast<uint16_t>(source.entryCount - removed), target);
    if (result != DatabaseResult::ok) return result;
    result = CopyBytes(source, kHeaderBytes, entryStart - kHeaderBytes, target);
    if (result != DatabaseResult::ok) return result;
    if (place == NewEntry::inPlace) result = PutEntry(target, *fields);
    if (result != DatabaseResult::ok) return result;
    uint64_t copiedTo = 0;
    result = CopyEntries(source, entryEnd, target, &copiedTo);
    if (result != DatabaseResult::ok) return result;
    // Stray bytes at the end stay, unless an entry follows: it could not be reached behind them.
    if (place == NewEntry::atEnd) return PutEntry(target, *fields);
    return CopyBytes(source, copiedTo, source.sizeBytes - copiedTo, target);
}

DatabaseResult DeleteEntry(uint32_t entryStart) {
    return SafeRewrite([&](RewriteSource& source, RewriteTarget& target) {
        return WriteWithout(source, target, entryStart, NewEntry::none, nullptr);
    });
}

DatabaseResult ReplaceEntry(uint32_t entryStart, const EntryFields& fields) {
    return SafeRewrite([&](RewriteSource& source, RewriteTarget& target) {
        return WriteWithout(source, target, entryStart, NewEntry::inPlace, &fields);
    });
}

DatabaseResult ReplaceEntryAtEnd(uint32_t entryStart, const EntryFields& fields) {
    return SafeRewrite([&](RewriteSource& source, RewriteTarget& target) {
        return WriteWithout(source, target, entryStart, NewEntry::atEnd, &fields);
    });
}
