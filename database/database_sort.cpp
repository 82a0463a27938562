// The sorter: the whole database rewritten in the order of its artists.
#include "database/database_sort.h"

#include <cstring>
#include <new>

#include "database/database_changes.h"
#include "database/database_file.h"
#include "database/database_format.h"
#include "database/database_paths.h"
#include "database/database_rewrite.h"
#include "database/database_walk.h"

// An entry that its chain does not reach, or that is not whole, would be lost.
static DatabaseResult CheckSource(const RewriteSource& source) {
    DatabaseCheck check;
    if (!CheckDatabase(source.reader.file, check)) return DatabaseResult::kReadFailed;
    const bool whole = check.wholeEntries == source.entryCount && check.chainEnd == check.sizeBytes;
    return whole ? DatabaseResult::kOk : DatabaseResult::kDamaged;
}

static DatabaseResult WriteInOrder(RewriteSource& source, RewriteTarget& target,
                                   const ArtistList& artists, const std::vector<uint32_t>& order,
                                   const StatusLine& status) {
    PutHeader(target, source.entryCount);
    status("Writing database file.");
    for (const uint32_t i : order) {
        status(("Writing: " + std::string(&artists.names[artists.nameOffsets[i]])).c_str());
        const DatabaseResult result = CopyEntry(source, artists.entryStarts[i], target);
        if (result != DatabaseResult::kOk) return result;
    }
    status("Writing new pointers.");
    return order.size() == source.entryCount ? DatabaseResult::kOk : DatabaseResult::kDamaged;
}

static DatabaseResult WriteSorted(RewriteSource& source, RewriteTarget& target,
                                  CompareTexts compare, const StatusLine& status) {
    DatabaseResult result = MendEnd(source);
    if (result == DatabaseResult::kOk) result = CheckSource(source);
    if (result != DatabaseResult::kOk) return result;
    StartReading(source.reader, source.reader.file, kUnknownOffset);
    ArtistList artists;
    result = ReadArtists(source.reader, source.entryCount, status, artists);
    if (result != DatabaseResult::kOk) return result;
    std::vector<uint32_t> order;
    result = OrderByArtist(artists, compare, status, order);
    if (result != DatabaseResult::kOk) return result;
    return WriteInOrder(source, target, artists, order, status);
}

// What the sorter has always left beside a database that needs no order.
static DatabaseResult LeaveHeader(uint16_t entryCount) {
    ScopedFile file;
    const FileStatus opened =
        OpenPatiently(NewDatabasePath().c_str(), FileMode::kCreateAlways, file);
    if (opened != FileStatus::kOk) return OpenResult(opened);
    const FileStatus written = WriteEmptyHeader(file.handle);
    if (written != FileStatus::kOk) return WriteResult(written);
    return WriteResult(WriteEntryCount(file.handle, entryCount));
}

DatabaseResult SortDatabase(CompareTexts compare, const StatusLine& status) {
    try {
        uint16_t entryCount = 0;
        const DatabaseResult read = ReadDatabaseEntryCount(entryCount);
        if (read != DatabaseResult::kOk) return read;
        if (entryCount < 2) return LeaveHeader(entryCount);
        return SafeRewrite([&](RewriteSource& source, RewriteTarget& target) {
            return WriteSorted(source, target, compare, status);
        });
    } catch (const std::bad_alloc&) {
        return DatabaseResult::kNoMemory;
    }
}
