// Changes to the disc database.
#include "database/database_changes.h"

#include <vector>

#include "database/database_file.h"
#include "database/database_format.h"
#include "database/database_paths.h"
#include "database/database_recovery.h"
#include "database/database_walk.h"
#include "database/disc_lookup.h"

namespace {

struct DatabaseEnd {
    uint64_t sizeBytes = 0;
    uint16_t entryCount = 0;
    bool repaired = false;
};

enum class NewEntry { kNone, kInPlace, kAtEnd };

}  // namespace

// As many entries as counted lead from the header to the end of the file, so that look-ups reach an
// entry behind them.
static bool ChainFillsFile(WindowReader& reader, const DatabaseEnd& end) {
    uint32_t chainEnd = 0;
    return StepToEntry(reader, end.entryCount, chainEnd) && chainEnd == end.sizeBytes;
}

static DatabaseResult FindEnd(FileHandle file, DatabaseEnd& end) {
    // Twice: what an ended or failed append left is put right; any other damage is left for the
    // user to know.
    for (const bool repairs : {true, false}) {
        WindowReader reader;
        StartReading(reader, file, kUnknownOffset);
        if (FileCalls.size(file, end.sizeBytes) != FileStatus::kOk) break;
        if (ReadEntryCount(reader, end.entryCount) && ChainFillsFile(reader, end)) {
            return DatabaseResult::kOk;
        }
        if (reader.failed) break;
        if (!repairs) return DatabaseResult::kDamaged;
        const RecoveryResult repaired = RepairDatabaseEnd(file);
        if (repaired == RecoveryResult::kFailed) return DatabaseResult::kWriteFailed;
        end.repaired = repaired == RecoveryResult::kRepaired;
    }
    return DatabaseResult::kReadFailed;
}

// The count follows only when the entry is on the disk: a program ended in between leaves a whole
// entry that is not counted yet, and recovery counts it.
static FileStatus WriteNewEntry(FileHandle file, const DatabaseEnd& end,
                                const std::vector<uint8_t>& bytes) {
    FileStatus status =
        WriteAt(file, end.sizeBytes, bytes.data(), static_cast<uint32_t>(bytes.size()));
    if (status == FileStatus::kOk) status = FileCalls.flush(file);
    if (status == FileStatus::kOk) status = WriteEntryCount(file, end.entryCount + 1u);
    return status;
}

// Tries every step whatever becomes of the others. A count that stays too high is put right by the
// next start or append; an entry that stays could be counted then.
static bool CutBack(FileHandle file, const DatabaseEnd& end) {
    WriteEntryCount(file, end.entryCount);
    const bool cut = FileCalls.truncate(file, end.sizeBytes) == FileStatus::kOk;
    FileCalls.flush(file);
    return cut;
}

static DatabaseResult OpenForAppend(ScopedFile& file, DatabaseEnd& end) {
    const std::string path = DatabasePath();
    const FileStatus opened = OpenPatiently(path.c_str(), FileMode::kReadWrite, file);
    if (opened != FileStatus::kOk) return OpenResult(opened);
    return FindEnd(file.handle, end);
}

DatabaseResult RepairDatabase() {
    ScopedFile file;
    DatabaseEnd end;
    return OpenForAppend(file, end);
}

DatabaseResult AppendEntry(const EntryFields& fields) {
    if (DatabaseDisc.trackCount == 0) return DatabaseResult::kNoTracks;
    ScopedFile file;
    DatabaseEnd end;
    const DatabaseResult result = OpenForAppend(file, end);
    if (result != DatabaseResult::kOk) return result;
    // An append of this disc that was told as failed has come to light after all.
    if (const uint32_t earlier = end.repaired ? FindDiscEntry(file.handle) : 0) {
        CloseFile(file);
        return ReplaceEntryAtEnd(earlier, fields);
    }
    if (end.entryCount == kMaxEntries || end.sizeBytes > UINT32_MAX - kMaxEntryBytes) {
        return DatabaseResult::kFull;
    }
    const std::vector<uint8_t> bytes =
        EncodeEntry(DatabaseDisc, fields, static_cast<uint32_t>(end.sizeBytes));
    const FileStatus status = WriteNewEntry(file.handle, end, bytes);
    if (status == FileStatus::kOk) return DatabaseResult::kOk;
    return CutBack(file.handle, end) ? WriteResult(status) : DatabaseResult::kNotTakenBack;
}

static DatabaseResult PutEntry(RewriteTarget& target, const EntryFields& fields) {
    if (DatabaseDisc.trackCount == 0) return DatabaseResult::kNoTracks;
    if (target.offset > UINT32_MAX - kMaxEntryBytes) return DatabaseResult::kFull;
    const std::vector<uint8_t> bytes =
        EncodeEntry(DatabaseDisc, fields, static_cast<uint32_t>(target.offset));
    PutBytes(target, bytes.data(), static_cast<uint32_t>(bytes.size()));
    return DatabaseResult::kOk;
}

DatabaseResult MendEnd(RewriteSource& source) {
    DatabaseEnd end;
    const DatabaseResult result = FindEnd(source.reader.file, end);
    StartReading(source.reader, source.reader.file, kUnknownOffset);
    source.sizeBytes = end.sizeBytes;
    source.entryCount = end.entryCount;
    return result;
}

static DatabaseResult WriteWithout(RewriteSource& source, RewriteTarget& target,
                                   uint32_t entryStart, NewEntry place, const EntryFields* fields) {
    if (place == NewEntry::kAtEnd) {
        const DatabaseResult found = MendEnd(source);
        if (found != DatabaseResult::kOk) return found;
    }
    uint64_t entryEnd = 0;
    if (source.entryCount == 0 ||
        !FindEntryEnd(source.reader, entryStart, source.sizeBytes, entryEnd)) {
        return source.reader.failed ? DatabaseResult::kReadFailed : DatabaseResult::kDamaged;
    }
    const int removed = place == NewEntry::kNone ? 1 : 0;
    DatabaseResult result =
        CopyHeader(source, static_cast<uint16_t>(source.entryCount - removed), target);
    if (result != DatabaseResult::kOk) return result;
    result = CopyBytes(source, kHeaderBytes, entryStart - kHeaderBytes, target);
    if (result != DatabaseResult::kOk) return result;
    if (place == NewEntry::kInPlace) result = PutEntry(target, *fields);
    if (result != DatabaseResult::kOk) return result;
    uint64_t copiedTo = 0;
    result = CopyEntries(source, entryEnd, target, copiedTo);
    if (result != DatabaseResult::kOk) return result;
    if (place == NewEntry::kAtEnd) return PutEntry(target, *fields);
    // Stray bytes at the end stay.
    return CopyBytes(source, copiedTo, source.sizeBytes - copiedTo, target);
}

DatabaseResult DeleteEntry(uint32_t entryStart) {
    return SafeRewrite([&](RewriteSource& source, RewriteTarget& target) {
        return WriteWithout(source, target, entryStart, NewEntry::kNone, nullptr);
    });
}

DatabaseResult ReplaceEntry(uint32_t entryStart, const EntryFields& fields) {
    return SafeRewrite([&](RewriteSource& source, RewriteTarget& target) {
        return WriteWithout(source, target, entryStart, NewEntry::kInPlace, &fields);
    });
}

DatabaseResult ReplaceEntryAtEnd(uint32_t entryStart, const EntryFields& fields) {
    return SafeRewrite([&](RewriteSource& source, RewriteTarget& target) {
        return WriteWithout(source, target, entryStart, NewEntry::kAtEnd, &fields);
    });
}

// What cannot be read is for the rewrite to tell.
static bool HoldsOther(uint32_t entryStart, const EntryFields& shown, const EntryFields& fields) {
    EntryFields stored;
    return LoadEntryFields(entryStart, stored) && stored != shown && stored != fields;
}

DatabaseResult SaveDisc(const EntryFields& fields, bool& known, const EntryFields* shown) {
    DatabaseResult result =
        LookUpDisc(DatabaseDisc.totalSeconds, DatabaseDisc.trackCount, WhenHeld::kTryAgain);
    if (result != DatabaseResult::kOk) return result;
    if (FoundEntryOffset == 0) {
        result = AppendEntry(fields);
    } else if (!known) {
        result = DatabaseResult::kAddedMeanwhile;
    } else if (shown != nullptr && HoldsOther(FoundEntryOffset, *shown, fields)) {
        result = DatabaseResult::kChangedMeanwhile;
    } else {
        result = ReplaceEntryAtEnd(FoundEntryOffset, fields);
    }
    // What is found next time may be the user's own entry.
    if (result == DatabaseResult::kNotTakenBack) known = true;
    return result;
}
