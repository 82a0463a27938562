// See database_export.h.
#include "database/database_export.h"

#include <new>
#include <string>
#include <vector>

#include "database/database_file.h"
#include "database/database_format.h"
#include "database/database_walk.h"

// Entries are gathered, because a system call for each would cost more than the entry.
constexpr size_t kExportBlockBytes = 32768;

static DatabaseResult WriteGathered(FileHandle file, std::string& text) {
    const uint32_t sizeBytes = static_cast<uint32_t>(text.size());
    uint32_t writtenBytes = 0;
    const FileStatus written = FileCalls.write(file, text.data(), sizeBytes, writtenBytes);
    text.clear();
    if (written != FileStatus::kOk) return WriteResult(written);
    return writtenBytes == sizeBytes ? DatabaseResult::kOk : DatabaseResult::kDiskFull;
}

// Where the entries start, in the order in which they are written.
static DatabaseResult OrderEntries(WindowReader& reader, uint32_t entryCount, CompareTexts compare,
                                   const StatusLine& status, std::vector<uint32_t>& starts) {
    ArtistList artists;
    DatabaseResult result = ReadArtists(reader, entryCount, status, artists);
    if (result != DatabaseResult::kOk) return result;
    std::vector<uint32_t> order;
    result = OrderByArtist(artists, compare, status, order);
    if (result != DatabaseResult::kOk) return result;
    starts.reserve(order.size());
    for (const uint32_t entry : order)
        starts.push_back(artists.entryStarts[entry]);
    return DatabaseResult::kOk;
}

// 0 when no entry follows. Asked before the entry is read, so that the reading goes straight on.
static uint32_t StartOfNext(WindowReader& reader, uint32_t entryStart) {
    EntryHeader header;
    const bool follows =
        ReadEntryHeader(reader, entryStart, header) && header.nextOffset > entryStart;
    return follows ? header.nextOffset : 0;
}

static DatabaseResult WriteEntries(WindowReader& reader, uint32_t entryCount,
                                   const std::vector<uint32_t>& starts, FileHandle exportFile,
                                   const ExportRequest& request, const StatusLine& status) {
    const auto linesOf = request.form == ExportForm::kPlain ? PlainLines : DelimitedRecord;
    const bool ordered = request.compare != nullptr;
    const size_t count = ordered ? starts.size() : entryCount;
    uint32_t next = kHeaderBytes;
    DiscToc disc;
    EntryFields fields;
    const std::string kWriting = "Writing: ";
    std::string line = kWriting;
    std::string gathered;
    status("Writing export file.");
    for (size_t i = 0; i < count; ++i) {
        const uint32_t entryStart = ordered ? starts[i] : next;
        if (entryStart == 0) break;
        if (!ordered) next = StartOfNext(reader, entryStart);
        if (ReadEntry(reader, entryStart, disc, fields) != DecodeResult::kWhole) continue;
        status(line.replace(kWriting.size(), std::string::npos, fields.artist).c_str());
        gathered += linesOf(disc, fields, request.items);
        if (gathered.size() < kExportBlockBytes) continue;
        const DatabaseResult result = WriteGathered(exportFile, gathered);
        if (result != DatabaseResult::kOk) return result;
    }
    if (reader.failed) return DatabaseResult::kReadFailed;
    return gathered.empty() ? DatabaseResult::kOk : WriteGathered(exportFile, gathered);
}

DatabaseResult ExportDatabase(FileHandle exportFile, const ExportRequest& request,
                              const StatusLine& status) {
    try {
        ScopedFile database;
        if (!OpenDatabaseToRead(database)) return DatabaseResult::kReadFailed;
        WindowReader reader;
        StartReading(reader, database.handle);
        uint16_t entryCount = 0;
        ReadEntryCount(reader, entryCount);
        if (reader.failed) return DatabaseResult::kReadFailed;
        std::vector<uint32_t> starts;
        if (request.compare != nullptr) {
            const DatabaseResult ordered =
                OrderEntries(reader, entryCount, request.compare, status, starts);
            if (ordered != DatabaseResult::kOk) return ordered;
        }
        return WriteEntries(reader, entryCount, starts, exportFile, request, status);
    } catch (const std::bad_alloc&) {
        return DatabaseResult::kNoMemory;
    }
}
