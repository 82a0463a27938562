// Puts right what a program that was ended in the middle of a write left behind.
#include "database/database_recovery.h"

#include <string>

#include "database/database_format.h"
#include "database/database_paths.h"
#include "database/database_walk.h"

static RecoveryResult RepairedIf(bool succeeded) {
    return succeeded ? RecoveryResult::kRepaired : RecoveryResult::kFailed;
}

// No disc can be in a file that ends with its header or before; an ended creation leaves one.
static bool HeaderIsUnfinished(const DatabaseCheck& check) {
    return check.sizeBytes <= kHeaderBytes && !IsIntact(check);
}

// Everything from TrackCount to the trailer is there and fills the file to its end, so that only
// the two pointers in front can be wrong or missing.
static bool LastEntryIsComplete(FileHandle file, const DatabaseCheck& check) {
    if (check.sizeBytes - check.chainEnd > kNextOffsetBytes + UINT16_MAX) return false;
    WindowReader reader;
    StartReading(reader, file, kUnknownOffset);
    reader.position = check.chainEnd + kTrackCountOffset;
    uint32_t trailer = 0;
    return SkipEntryBody(reader) && reader.position + kTrailerBytes == check.sizeBytes &&
           ReadU32(reader, trailer) && trailer == check.chainEnd;
}

static RecoveryResult CompleteLastEntry(FileHandle file, const DatabaseCheck& check) {
    uint8_t pointers[kDiscKeyOffset];
    PutU32(pointers, static_cast<uint32_t>(check.sizeBytes));
    PutU16(pointers + kEntrySizeOffset,
           static_cast<uint16_t>(check.sizeBytes - check.chainEnd - kNextOffsetBytes));
    return RepairedIf(WriteAt(file, check.chainEnd, pointers, sizeof pointers) == FileStatus::kOk &&
                      FileCalls.flush(file) == FileStatus::kOk &&
                      WriteEntryCount(file, check.wholeEntries + 1) == FileStatus::kOk);
}

// An entry that was being appended is not counted yet, begins with its final pointers (or zeros,
// when only the file's new length reached the disk) and ends too early. Anything else is not cut
// off: it may be discs whose first bytes are damaged.
static bool RestIsEndedAppend(FileHandle file, const DatabaseCheck& check) {
    const uint64_t restBytes = check.sizeBytes - check.chainEnd;
    if (!check.markIsRight || check.wholeEntries != check.entryCount) return false;
    if (restBytes > kMaxEntryBytes) return false;
    if (restBytes < kDiscKeyOffset) return true;
    WindowReader reader;
    StartReading(reader, file, kUnknownOffset);
    reader.position = check.chainEnd;
    uint32_t nextOffset = 0;
    uint16_t entrySize = 0;
    if (!ReadU32(reader, nextOffset) || !ReadU16(reader, entrySize)) return false;
    if (nextOffset == 0 && entrySize == 0) return true;
    const bool agree = nextOffset == check.chainEnd + kNextOffsetBytes + entrySize;
    return agree && nextOffset >= check.sizeBytes;
}

RecoveryResult RepairDatabaseEnd(FileHandle file) {
    DatabaseCheck check;
    if (!CheckDatabase(file, check)) return RecoveryResult::kFailed;
    if (HeaderIsUnfinished(check)) return RepairedIf(WriteEmptyHeader(file) == FileStatus::kOk);
    if (check.wholeEntries > kMaxEntries) return RecoveryResult::kDamaged;
    if (check.chainEnd == check.sizeBytes) {
        if (check.wholeEntries == check.entryCount) return RecoveryResult::kNothingToDo;
        return RepairedIf(WriteEntryCount(file, check.wholeEntries) == FileStatus::kOk);
    }
    if (check.wholeEntries < kMaxEntries && LastEntryIsComplete(file, check)) {
        return CompleteLastEntry(file, check);
    }
    if (!RestIsEndedAppend(file, check)) return RecoveryResult::kDamaged;
    return RepairedIf(FileCalls.truncate(file, check.chainEnd) == FileStatus::kOk &&
                      FileCalls.flush(file) == FileStatus::kOk);
}

static bool PassesStrictCheck(const std::string& path) {
    ScopedFile file;
    DatabaseCheck check;
    return OpenPatiently(path.c_str(), FileMode::kReadShared, file) == FileStatus::kOk &&
           CheckDatabase(file.handle, check) && IsIntact(check);
}

// The database is missing only between the first and the second rename of a rewrite: the backup is
// the old database, and tarnwell.new is the new one, which was read back before the renames.
static RecoveryResult RestoreDatabase(const std::string& database) {
    const std::string backup = BackupPath();
    const std::string rewritten = NewDatabasePath();
    const FileStatus backupStatus = FileCalls.exists(backup.c_str());
    if (backupStatus == FileStatus::kMissing) return RecoveryResult::kNothingToDo;
    if (backupStatus != FileStatus::kOk) return RecoveryResult::kFailed;
    const bool takeRewritten = PassesStrictCheck(rewritten);
    const std::string& source = takeRewritten ? rewritten : backup;
    if (RenamePatiently(source.c_str(), database.c_str()) != FileStatus::kOk) {
        return RecoveryResult::kFailed;
    }
    return RecoveryResult::kRestored;
}

static FileStatus HasHeader(const std::string& path, bool& hasHeader) {
    ScopedFile file;
    uint64_t sizeBytes = 0;
    FileStatus status = OpenPatiently(path.c_str(), FileMode::kReadShared, file);
    if (status == FileStatus::kOk) status = FileCalls.size(file.handle, sizeBytes);
    if (status == FileStatus::kOk) hasHeader = sizeBytes >= kHeaderBytes;
    return status;
}

// No disc is in a file that ends before its header does, and a copy that has some may lie beside
// it. Clears the name for RestoreDatabase: the rest is removed when there is a backup, and becomes
// the backup when there is none, because only a backup vouches for a tarnwell.new.
static void SetShortDatabaseAside(const std::string& database) {
    bool hasHeader = true;
    if (HasHeader(database, hasHeader) != FileStatus::kOk || hasHeader) return;
    const std::string backup = BackupPath();
    bool backupHasHeader = false;
    const FileStatus asked = HasHeader(backup, backupHasHeader);
    if (backupHasHeader) {
        RemovePatiently(database.c_str());
    } else if (PassesStrictCheck(NewDatabasePath()) &&
               (asked == FileStatus::kMissing ||
                (asked == FileStatus::kOk && RemovePatiently(backup.c_str()) == asked))) {
        RenamePatiently(database.c_str(), backup.c_str());
    }
}

// A backup that is kept beside a whole database would bring old discs back, should the database be
// deleted one day.
static void RemoveOldBackup(const std::string& database) {
    const std::string backup = BackupPath();
    if (FileCalls.exists(backup.c_str()) != FileStatus::kOk) return;
    if (PassesStrictCheck(database)) RemovePatiently(backup.c_str());
}

static RecoveryResult RepairDatabaseFile(const std::string& database) {
    ScopedFile file;
    if (OpenPatiently(database.c_str(), FileMode::kReadWrite, file) != FileStatus::kOk) {
        return RecoveryResult::kFailed;
    }
    return RepairDatabaseEnd(file.handle);
}

RecoveryResult RecoverDatabase() {
    const std::string database = DatabasePath();
    RecoveryResult restored = RecoveryResult::kNothingToDo;
    FileStatus status = FileCalls.exists(database.c_str());
    if (status == FileStatus::kOk) {
        SetShortDatabaseAside(database);
        status = FileCalls.exists(database.c_str());
    }
    if (status == FileStatus::kMissing) {
        restored = RestoreDatabase(database);
        if (restored != RecoveryResult::kRestored) return restored;
    } else if (status != FileStatus::kOk) {
        return RecoveryResult::kFailed;
    }
    const RecoveryResult repaired = RepairDatabaseFile(database);
    if (repaired != RecoveryResult::kFailed) RemoveOldBackup(database);
    return repaired == RecoveryResult::kNothingToDo ? restored : repaired;
}
