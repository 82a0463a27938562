// Every question to a database of any bytes, then recovery, then changes, with any bytes under the
// three names. The first byte says which files exist, the next four how long tarnwell.new and
// tarnwell.dbk are; tarnwell.dat gets the rest.
#include <algorithm>

#include "database/database_changes.h"
#include "database/database_file.h"
#include "database/database_format.h"
#include "database/database_recovery.h"
#include "database/database_search.h"
#include "database/disc_lookup.h"
#include "database/export_lines.h"
#include "tests/database/memory_files.h"

static void Require(bool holds) {
    if (!holds) __builtin_trap();
}

static MemorySnapshot DiskFrom(std::string bytes) {
    MemorySnapshot disk;
    if (bytes.size() < 5) bytes.resize(5);
    const auto* head = reinterpret_cast<const uint8_t*>(bytes.data());
    const uint8_t exists = head[0];
    const size_t newBytes = std::min<size_t>(GetU16(head + 1), bytes.size() - 5);
    const size_t backupBytes = std::min<size_t>(GetU16(head + 3), bytes.size() - 5 - newBytes);
    if (exists & 1) disk[kNewDatabaseName] = bytes.substr(5, newBytes);
    if (exists & 2) disk[kBackupName] = bytes.substr(5 + newBytes, backupBytes);
    if (exists & 4) disk[kDatabaseName] = bytes.substr(5 + newBytes + backupBytes);
    return disk;
}

// Recovery may take back one entry at the end, and write a header, a count, one entry's pointers.
// A database shorter than its header counts as missing.
static void RequireLittleChanged(const std::string& before, const std::string& after) {
    if (before.size() < kHeaderBytes) return;
    Require(after.size() <= before.size() && before.size() - after.size() <= kMaxEntryBytes);
    size_t differing = 0;
    for (size_t i = 0; i < after.size(); ++i)
        differing += before[i] != after[i];
    Require(differing <= 8);
}

// Answers are bounded.
static void AskAbout(uint32_t entryStart) {
    Require(ReadArtist(entryStart).size() + ReadDiscName(entryStart).size() <= 510);
    for (const int track : {-1, 0, 1, 99, 255, 256})
        Require(ReadTrackName(entryStart, track).size() <= 255);
    EntryFields fields;
    LoadEntryFields(entryStart, fields);
    LoadEntryDisc(entryStart);
    Require(fields.notes.size() <= 255 && DatabaseDisc.trackCount <= kMaxTracks);
    // The disc of the entry itself, so that the comparison of the tracks is reached.
    Require(!FindDisc(DatabaseDisc.totalSeconds, DatabaseDisc.trackCount) ||
            FoundEntryOffset >= kHeaderBytes);
    Require(DiscTitleText().size() <= 513);
    Require(TrackNameText(DatabaseDisc.trackCount).size() <= 255);
}

// One result an entry, in fields that there are.
static void SearchAndExport() {
    const uint16_t entryCount = DatabaseEntryCount();
    SearchQuery query;
    query.text = "a";
    for (const int code : {0, int{kFieldRecordingFirst}, int{kFieldFiveInch}}) {
        query.code = code;
        const auto hits = SearchDatabase(query, 0, [](uint32_t, uint32_t) {});
        Require(hits.size() <= entryCount);
        for (const SearchHit& hit : hits)
            Require(hit.field <= kFieldYearReleased && hit.field != kMaxTracks);
    }
    Require(SumDatabase().tracks <= 255u * entryCount);
    ExportItems items;
    items.fill(true);
    NumberedEntry entry;
    LoadNumberedEntry(1, entry);
    PlainLines(entry.disc, entry.fields, items);
    DelimitedRecord(entry.disc, entry.fields, items);
}

// The file stays as it is, and no walk runs on for ever.
static void AskEverything(const MemorySnapshot& disk) {
    for (const uint32_t index : {0u, 1u, uint32_t{DatabaseEntryCount()}}) {
        const uint32_t entryStart = FindEntryOffset(index);
        Require(entryStart < disk.at(kDatabaseName).size() || entryStart == 0);
        AskAbout(entryStart);
    }
    AskAbout(UINT32_MAX);
    SearchAndExport();
    Require(DiskAfterEnd() == disk && CallsMade() < 3'000'000 && OpenHandles() == 0);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    UseMemoryFiles();
    const MemorySnapshot before = DiskFrom({reinterpret_cast<const char*>(data), size});
    StartOnDisk(before);
    if (before.count(kDatabaseName) > 0) AskEverything(before);
    const RecoveryResult result = RecoverDatabase();
    Require(result != RecoveryResult::kFailed && OpenHandles() == 0);
    const MemorySnapshot recovered = DiskAfterEnd();
    const std::string database = FileBytes(recovered, kDatabaseName);
    if (before.count(kDatabaseName) > 0) {
        RequireLittleChanged(before.at(kDatabaseName), database);
        // The backup goes when it is of no more use, and is not changed else.
        const std::string backup = FileBytes(recovered, kBackupName);
        Require(backup == FileBytes(before, kBackupName) || backup == kNoSuchFile);
    } else {
        // Only a backup vouches for a database that is missing.
        Require((recovered.count(kDatabaseName) > 0) == (before.count(kBackupName) > 0));
    }
    RecoverDatabase();
    Require(DiskAfterEnd() == recovered);

    const DiscToc toc = {1, 77, {77}};
    EntryFields fields;
    fields.artist = "appended";
    CopyDiscToc(toc);
    // The new entry fills the file's end, and nothing in front of it has changed but the count.
    std::string expected = database;
    if (AppendEntry(fields) == DatabaseResult::kOk) {
        const auto entry = EncodeEntry(toc, fields, static_cast<uint32_t>(database.size()));
        expected.append(entry.begin(), entry.end());
        auto* count = reinterpret_cast<uint8_t*>(expected.data()) + kCountOffset;
        PutU16(count, static_cast<uint16_t>(GetU16(count) + 1));
    }
    Require(Database() == expected);
    for (const uint32_t index : {0u, 1u}) {
        const uint32_t entryStart = FindEntryOffset(index);
        const DatabaseResult deleted =
            index == 0 ? DeleteEntry(entryStart) : ReplaceEntryAtEnd(entryStart, fields);
        Require(deleted == DatabaseResult::kOk || Database() == expected);
        StartOnDisk(DiskWith(expected));
    }
    return 0;
}
