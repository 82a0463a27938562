// Gets the discs out of a damaged database.
#include "database/database_salvage.h"

#include <string>
#include <vector>

#include "database/database_format.h"
#include "database/database_paths.h"
#include "database/database_walk.h"
#include "database/disc_entry.h"

constexpr int kMaxKeptFiles = 999;
constexpr uint64_t kProgressBytes = 64 * 1024;

static bool TrailerNames(WindowReader& reader, uint64_t entryStart, uint64_t entryEnd) {
    uint32_t trailer = 0;
    reader.position = entryEnd - kTrailerBytes;
    return ReadU32(reader, trailer) && trailer == entryStart;
}

static bool CanEndAt(uint64_t entryStart, uint64_t end, uint64_t fileBytes) {
    return end >= entryStart + kMinEntryBytes && end <= fileBytes &&
           end - entryStart <= kNextOffsetBytes + UINT16_MAX;
}

// How many of the four witnesses agree about the entry's end.
static int FindAgreedEnd(WindowReader& reader, uint64_t entryStart, uint64_t fileBytes,
                         SalvagedEntry& entry) {
    EntryHeader header;
    if (!ReadEntryHeader(reader, entryStart, header)) return 0;
    const uint64_t bySize = entryStart + kNextOffsetBytes + header.entrySize;
    const uint64_t byContents = SkipEntryBody(reader) ? reader.position + kTrailerBytes : 0;
    int mostVotes = 0;
    for (const uint64_t end : {byContents, bySize, uint64_t{header.nextOffset}}) {
        if (!CanEndAt(entryStart, end, fileBytes)) continue;
        const int votes = (end == byContents) + (end == bySize) + (end == header.nextOffset) +
                          TrailerNames(reader, entryStart, end);
        if (votes <= mostVotes) continue;
        mostVotes = votes;
        entry = {entryStart, end, end == byContents};
    }
    return mostVotes;
}

// Both pointers in front and the trailer name this very place: no text does that by chance.
static bool NamesItsPlace(WindowReader& reader, uint64_t entryStart, uint64_t fileBytes) {
    EntryHeader header;
    if (!ReadEntryHeader(reader, entryStart, header)) return false;
    const uint64_t end = entryStart + kNextOffsetBytes + header.entrySize;
    return header.nextOffset == end && CanEndAt(entryStart, end, fileBytes) &&
           TrailerNames(reader, entryStart, end);
}

bool FindSalvageableEntry(WindowReader& reader, uint64_t from, uint64_t fileBytes,
                          SalvagedEntry& entry, const SalvageProgress& progress) {
    if (progress) progress(from);
    if (FindAgreedEnd(reader, from, fileBytes, entry) >= 2) return true;
    for (uint64_t start = from + 1; start + kMinEntryBytes <= fileBytes; ++start) {
        if (progress && start % kProgressBytes == 0) progress(start);
        if (NamesItsPlace(reader, start, fileBytes)) {
            return FindAgreedEnd(reader, start, fileBytes, entry) > 0;
        }
    }
    return false;
}

// An entry whose lengths are damaged: the texts up to the damage, and what is left of the others.
static DatabaseResult PutReadablePart(RewriteSource& source, const SalvagedEntry& entry,
                                      RewriteTarget& target) {
    std::vector<uint8_t> bytes(static_cast<size_t>(entry.end - entry.start - kTrailerBytes));
    const uint32_t sizeBytes = static_cast<uint32_t>(bytes.size());
    source.reader.position = entry.start;
    if (ReadUpTo(source.reader, bytes.data(), sizeBytes) != sizeBytes) {
        return DatabaseResult::kReadFailed;
    }
    DiscToc disc;
    EntryFields fields;
    DecodeEntry(bytes.data(), bytes.size(), disc, fields);
    const std::vector<uint8_t> written =
        EncodeEntry(disc, fields, static_cast<uint32_t>(target.offset));
    PutBytes(target, written.data(), static_cast<uint32_t>(written.size()));
    return DatabaseResult::kOk;
}

DatabaseResult WriteSalvaged(RewriteSource& source, RewriteTarget& target,
                             const SalvageProgress& progress) {
    std::vector<SalvagedEntry> entries;
    SalvagedEntry entry;
    uint64_t from = kHeaderBytes;
    while (entries.size() < kMaxEntries &&
           FindSalvageableEntry(source.reader, from, source.sizeBytes, entry, progress)) {
        entries.push_back(entry);
        from = entry.end;
    }
    if (source.reader.failed) return DatabaseResult::kReadFailed;
    PutHeader(target, static_cast<uint16_t>(entries.size()));
    for (const SalvagedEntry& each : entries) {
        const DatabaseResult result = each.contentsFit
                                          ? CopyEntryBytes(source, each.start, each.end, target)
                                          : PutReadablePart(source, each, target);
        if (result != DatabaseResult::kOk) return result;
    }
    return DatabaseResult::kOk;
}

// A file kept earlier moves out of the way, under the first number that is free.
static DatabaseResult NumberKeptFile(const std::string& kept) {
    const FileStatus status = FileCalls.exists(kept.c_str());
    if (status == FileStatus::kMissing) return DatabaseResult::kOk;
    if (status != FileStatus::kOk) return WriteResult(status);
    for (int number = 1; number <= kMaxKeptFiles; ++number) {
        const FileStatus moved =
            RenamePatiently(kept.c_str(), (kept + std::to_string(number)).c_str());
        if (moved != FileStatus::kExists) return WriteResult(moved);
    }
    return DatabaseResult::kWriteFailed;
}

static DatabaseResult KeepDamaged(const std::string& kept) {
    const DatabaseResult copied =
        WriteNewDatabase([](RewriteSource& source, RewriteTarget& target) {
            return CopyBytes(source, 0, source.sizeBytes, target);
        });
    if (copied != DatabaseResult::kOk) return copied;
    const DatabaseResult numbered = NumberKeptFile(kept);
    if (numbered != DatabaseResult::kOk) return numbered;
    return WriteResult(RenamePatiently(NewDatabasePath().c_str(), kept.c_str()));
}

DatabaseResult RebuildDatabase() {
    const std::string kept = DamagedPath();
    const DatabaseResult result = KeepDamaged(kept);
    if (result != DatabaseResult::kOk) {
        RemovePatiently(NewDatabasePath().c_str());
        return result;
    }
    const DatabaseResult rebuilt = SafeRewrite(
        [](RewriteSource& source, RewriteTarget& target) { return WriteSalvaged(source, target); });
    // The database is still the damaged one: no second copy of it.
    const bool unchanged =
        rebuilt != DatabaseResult::kOk && rebuilt != DatabaseResult::kNotTakenBack;
    if (unchanged) RemovePatiently(kept.c_str());
    return rebuilt;
}
