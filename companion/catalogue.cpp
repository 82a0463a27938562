// See catalogue.h.
#include "companion/catalogue.h"

#include <algorithm>

#include "companion/system.h"
#include "database/database_file.h"
#include "database/database_format.h"
#include "database/database_paths.h"
#include "database/database_rewrite.h"

static const char kForeignText[] =
    "this is no disc catalogue: it does not begin like one (check and salvage look for discs in it "
    "all the same)";

// The player keeps the file for moments only.
constexpr int kHeldAttempts = 12;  // of a quarter of a second each

static Refusal TextOf(FileStatus status) {
    switch (status) {
        case FileStatus::kMissing:
            return "there is no such file";
        case FileStatus::kHeld:
            return "another program holds the file";
        case FileStatus::kDenied:
            return "access is denied, or this is a folder";
        case FileStatus::kDiskFull:
            return "the disk is full";
        default:
            return "the file cannot be read";
    }
}

static FileStatus OpenHeld(const std::string& path, ScopedFile& file) {
    FileStatus status = FileStatus::kHeld;
    for (int i = 0; i < kHeldAttempts && status == FileStatus::kHeld; ++i) {
        status = OpenPatiently(path.c_str(), FileMode::kReadShared, file);
    }
    return status;
}

Refusal ChooseCatalogue(const std::string& path) {
    // The empty path would stand for the program's own catalogue.
    if (path.empty()) return "no file is named";
    std::string system;
    if (!ToSystemPath(path, system)) return "the system's code page cannot name this file";
    UseDatabaseFile(system);
    return {};
}

Refusal ChooseNewCatalogue(const std::string& path) {
    if (Refusal why = ChooseCatalogue(path); !why.empty()) return why;
    for (const std::string& needed : {DatabasePath(), NewDatabasePath(), BackupPath()}) {
        if (FileCalls.exists(needed.c_str()) != FileStatus::kMissing) {
            return needed == DatabasePath() ? "this file exists already"
                                            : "writing it would destroy " + needed;
        }
    }
    return {};
}

static Refusal OpenFileAt(const std::string& path, ScopedFile& file, uint64_t& sizeBytes) {
    FileStatus status = OpenHeld(path, file);
    if (status == FileStatus::kOk) status = FileCalls.size(file.handle, sizeBytes);
    return status == FileStatus::kOk ? Refusal() : TextOf(status);
}

Refusal OpenAnyFile(ScopedFile& file, uint64_t& sizeBytes) {
    return OpenFileAt(DatabasePath(), file, sizeBytes);
}

Refusal OpenCatalogue(Catalogue& catalogue, HeaderMark accepted) {
    return OpenCatalogueAt(DatabasePath(), catalogue, accepted);
}

Refusal OpenCatalogueAt(const std::string& path, Catalogue& catalogue, HeaderMark accepted) {
    Refusal why = OpenFileAt(path, catalogue.file, catalogue.sizeBytes);
    if (!why.empty()) return why;
    StartReading(catalogue.reader, catalogue.file.handle);
    uint8_t header[kHeaderBytes];
    const uint32_t size = ReadUpTo(catalogue.reader, header, kHeaderBytes);
    if (catalogue.reader.failed) return kUnreadableText;
    if (size == 0) return "the file is empty";
    catalogue.markIsRight =
        size == kHeaderBytes && std::equal(std::begin(kHeaderMark), std::end(kHeaderMark), header);
    const bool mayBeWrong = accepted == HeaderMark::kAny && size == kHeaderBytes;
    if (!catalogue.markIsRight && !mayBeWrong) return kForeignText;
    catalogue.entryCount = GetU16(header + kCountOffset);
    return {};
}

bool ReadDiscAt(Catalogue& catalogue, uint64_t start, Disc& disc) {
    return start <= UINT32_MAX && ReadEntry(catalogue.reader, static_cast<uint32_t>(start),
                                            disc.toc, disc.fields) == DecodeResult::kWhole;
}

bool ReadNextDisc(Catalogue& catalogue, CataloguePlace& place, Disc& disc) {
    uint64_t end = 0;
    if (place.index >= catalogue.entryCount ||
        !FindEntryEnd(catalogue.reader, place.start, catalogue.sizeBytes, end) ||
        !ReadDiscAt(catalogue, place.start, disc)) {
        return false;
    }
    place.start = end;
    ++place.index;
    return true;
}

static void PutEntry(std::vector<uint8_t> bytes, RewriteTarget& target) {
    const auto start = static_cast<uint32_t>(target.offset);
    const auto size = static_cast<uint32_t>(bytes.size());
    PutU32(bytes.data(), start + size);
    PutU32(bytes.data() + size - kTrailerBytes, start);
    PutBytes(target, bytes.data(), size);
}

// Another program may have sorted or shortened the catalogue since the change was thought of.
static bool IsStillThere(RewriteSource& source, uint64_t start,
                         const std::vector<uint8_t>& replacement) {
    Disc stored;
    Disc written;
    DecodeEntry(replacement.data(), replacement.size(), written.toc, written.fields);
    return ReadEntry(source.reader, static_cast<uint32_t>(start), stored.toc, stored.fields) ==
               DecodeResult::kWhole &&
           TocKey(stored.toc) == TocKey(written.toc);
}

static DatabaseResult WriteContent(const CatalogueChange& change, RewriteSource& source,
                                   RewriteTarget& target) {
    const size_t count = source.entryCount + change.additions.size();
    if (count > kMaxEntries) return DatabaseResult::kFull;
    if (change.replacements.size() > source.entryCount) return DatabaseResult::kChangedMeanwhile;
    DatabaseResult result = CopyHeader(source, static_cast<uint16_t>(count), target);
    uint64_t start = kHeaderBytes;
    for (size_t i = 0; i < source.entryCount && result == DatabaseResult::kOk; ++i) {
        uint64_t end = 0;
        if (!FindEntryEnd(source.reader, start, source.sizeBytes, end)) {
            return DatabaseResult::kDamaged;
        }
        if (i < change.replacements.size() && !change.replacements[i].empty()) {
            if (!IsStillThere(source, start, change.replacements[i])) {
                return DatabaseResult::kChangedMeanwhile;
            }
            PutEntry(change.replacements[i], target);
        } else {
            result = CopyEntry(source, start, target);
        }
        start = end;
    }
    for (const std::vector<uint8_t>& entry : change.additions)
        PutEntry(entry, target);
    return result;
}

// Nothing is added to a catalogue whose faults the new entries would bury.
static Refusal RefuseDamage() {
    ScopedFile file;
    DatabaseCheck check;
    const FileStatus status = OpenHeld(DatabasePath(), file);
    if (status == FileStatus::kMissing) return kUnmadeText;
    if (status != FileStatus::kOk) return TextOf(status);
    if (!CheckDatabase(file.handle, check)) return "the file cannot be read";
    return IsIntact(check) ? Refusal() : kDamagedText;
}

Refusal WriteCatalogue(const CatalogueChange& change) {
    const std::string path = DatabasePath();
    const bool isNew = FileCalls.exists(path.c_str()) == FileStatus::kMissing &&
                       FileCalls.exists(BackupPath().c_str()) == FileStatus::kMissing;
    EnsureDatabase();
    if (const Refusal refusal = RefuseDamage(); !refusal.empty()) return refusal;
    const DatabaseResult result =
        SafeRewrite([&change](RewriteSource& source, RewriteTarget& target) {
            return WriteContent(change, source, target);
        });
    if (result == DatabaseResult::kOk) return {};
    // The empty one that was made for this.
    if (isNew) RemovePatiently(path.c_str());
    return DatabaseResultText(result);
}

std::string TocKey(const DiscToc& toc) {
    std::string key;
    for (int track = 0; track < toc.trackCount; ++track) {
        key += static_cast<char>(toc.lengthSeconds[track] & 0xFF);
        key += static_cast<char>(toc.lengthSeconds[track] >> 8);
    }
    return key;
}
