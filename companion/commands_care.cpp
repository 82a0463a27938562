// The commands that keep a catalogue whole and in order: salvage, sort, backup.
#include <algorithm>

#include "companion/commands.h"
#include "companion/system.h"
#include "database/database_file.h"
#include "database/database_format.h"
#include "database/database_paths.h"
#include "database/database_salvage.h"
#include "database/database_sort.h"

constexpr uint64_t kLargestCatalogue = kHeaderBytes + uint64_t{kMaxEntries} * kMaxEntryBytes;

// Tells where discs begin, which of them are doubtful, and how many bytes between them are none.
static uint32_t TellFindings(const CommonOptions& options, RewriteSource& damaged) {
    uint32_t found = 0;
    uint32_t doubtful = 0;
    uint64_t lost = 0;
    uint64_t from = kHeaderBytes;
    SalvagedEntry entry;
    const SalvageProgress progress = [&](uint64_t offset) {
        ShowProgress("looked at byte", offset, damaged.sizeBytes);
    };
    while (FindSalvageableEntry(damaged.reader, from, damaged.sizeBytes, entry, progress)) {
        ++found;
        lost += entry.start - from;
        if (!entry.contentsFit) {
            ++doubtful;
            Print("entry " + std::to_string(found) + " at offset " + std::to_string(entry.start) +
                  " is doubtful: its texts do not fill it, what can be read of them is kept\n");
        }
        from = entry.end;
    }
    ClearProgress();
    if (damaged.sizeBytes > from) lost += damaged.sizeBytes - from;
    Print(options.file + ": " + std::to_string(found) + " discs found, " +
          std::to_string(damaged.entryCount) + " counted in the file, " + std::to_string(doubtful) +
          " doubtful, " + std::to_string(lost) + " bytes belong to none\n");
    return found;
}

// An empty catalogue is made there and rewritten.
static Refusal WriteSalvagedTo(const std::string& output, RewriteSource& damaged) {
    if (Refusal why = ChooseNewCatalogue(output); !why.empty()) return why;
    EnsureDatabase();
    if (FileCalls.exists(DatabasePath().c_str()) == FileStatus::kMissing) return kUnmadeText;
    const DatabaseResult result = SafeRewrite([&damaged](RewriteSource&, RewriteTarget& target) {
        return WriteSalvaged(damaged, target, [&damaged](uint64_t offset) {
            ShowProgress("taken from byte", offset, damaged.sizeBytes);
        });
    });
    ClearProgress();
    if (result == DatabaseResult::kOk) return {};
    RemovePatiently(DatabasePath().c_str());
    return DatabaseResultText(result);
}

ExitCode SalvageCatalogue(const CommonOptions& options, const std::string& output) {
    ScopedFile file;
    RewriteSource damaged;
    if (const Refusal why = OpenAnyFile(file, damaged.sizeBytes); !why.empty()) {
        return Fail(options.file, why);
    }
    if (damaged.sizeBytes > kLargestCatalogue) {
        return Fail(options.file, "the file is larger than a catalogue can be");
    }
    StartReading(damaged.reader, file.handle);
    ReadEntryCount(damaged.reader, damaged.entryCount);
    if (damaged.reader.failed) return Fail(options.file, kUnreadableText);
    if (TellFindings(options, damaged) == 0) return Fail(options.file, "there is no disc in it");
    if (const Refusal why = WriteSalvagedTo(output, damaged); !why.empty()) {
        return Fail(output, why);
    }
    DatabaseCheck check;
    return CheckDatabase(file.handle, check) && IsIntact(check) ? kDone : kFound;
}

ExitCode SortCatalogue(const CommonOptions& options) {
    Catalogue catalogue;
    if (const Refusal why = OpenCatalogue(catalogue); !why.empty()) return Fail(options.file, why);
    CloseFile(catalogue.file);
    if (catalogue.entryCount < 2) return kDone;
    const DatabaseResult result = SortDatabase(CompareArtists, [](const char*) {});
    return result == DatabaseResult::kOk ? kDone : Fail(options.file, DatabaseResultText(result));
}

static std::string Generation(const std::string& path, int number) {
    return path + "." + std::to_string(number);
}

// The same bytes, read from both; false also when one cannot be read.
static bool SameContents(const std::string& first, const std::string& second) {
    constexpr uint32_t kBlock = 64 * 1024;
    std::vector<uint8_t> left(kBlock);
    std::vector<uint8_t> right(kBlock);
    ScopedFile a;
    ScopedFile b;
    if (OpenPatiently(first.c_str(), FileMode::kReadShared, a) != FileStatus::kOk ||
        OpenPatiently(second.c_str(), FileMode::kReadShared, b) != FileStatus::kOk) {
        return false;
    }
    for (;;) {
        uint32_t leftBytes = 0;
        uint32_t rightBytes = 0;
        if (FileCalls.read(a.handle, left.data(), kBlock, leftBytes) != FileStatus::kOk ||
            FileCalls.read(b.handle, right.data(), kBlock, rightBytes) != FileStatus::kOk ||
            leftBytes != rightBytes ||
            !std::equal(left.begin(), left.begin() + leftBytes, right.begin())) {
            return false;
        }
        if (leftBytes == 0) return true;
    }
}

static Refusal CopyFileTo(FileHandle source, const std::string& path) {
    std::vector<uint8_t> block(64 * 1024);
    ScopedFile target;
    if (OpenPatiently(path.c_str(), FileMode::kCreateAlways, target) != FileStatus::kOk ||
        FileCalls.seek(source, 0) != FileStatus::kOk) {
        return "the copy cannot be made";
    }
    for (;;) {
        uint32_t size = 0;
        uint32_t written = 0;
        if (FileCalls.read(source, block.data(), static_cast<uint32_t>(block.size()), size) !=
            FileStatus::kOk) {
            return "the catalogue cannot be read";
        }
        if (size == 0) break;
        if (FileCalls.write(target.handle, block.data(), size, written) != FileStatus::kOk ||
            written != size) {
            return "the copy cannot be written";
        }
    }
    if (FileCalls.flush(target.handle) != FileStatus::kOk || CloseFile(target) != FileStatus::kOk) {
        return "the copy cannot be written";
    }
    return {};
}

// FILE.1 becomes FILE.2 and so on; the oldest beyond `keep` goes, once the new copy is there.
static Refusal MoveGenerations(const std::string& path, int keep) {
    int last = 0;
    while (last < keep && FileCalls.exists(Generation(path, last + 1).c_str()) == FileStatus::kOk) {
        ++last;
    }
    if (last == keep && RemovePatiently(Generation(path, keep).c_str()) != FileStatus::kOk) {
        return "the oldest copy cannot be removed";
    }
    for (int i = std::min(last, keep - 1); i > 0; --i) {
        if (RenamePatiently(Generation(path, i).c_str(), Generation(path, i + 1).c_str()) !=
            FileStatus::kOk) {
            return "an older copy cannot be renamed";
        }
    }
    return {};
}

ExitCode BackUpCatalogue(const CommonOptions& options, int keep) {
    const std::string path = DatabasePath();
    const std::string made = path + ".copying";
    Catalogue catalogue;
    if (const Refusal why = OpenCatalogue(catalogue); !why.empty()) return Fail(options.file, why);
    if (SameContents(path, Generation(path, 1))) {
        Print(options.file + ": the newest copy is the same already\n");
        return kDone;
    }
    if (const Refusal why = CopyFileTo(catalogue.file.handle, made); !why.empty()) {
        RemovePatiently(made.c_str());
        return Fail(options.file, why);
    }
    // What is looked at is the copy: the catalogue may change at any moment.
    Catalogue copy;
    const bool faultless = OpenCatalogueAt(made, copy).empty() && IsFaultless(copy);
    CloseFile(copy.file);
    if (!faultless) {
        RemovePatiently(made.c_str());
        return Fail(options.file,
                    "the catalogue is damaged and replaces no copy; check says where");
    }
    if (const Refusal why = MoveGenerations(path, keep); !why.empty()) {
        return Fail(options.file, why + "; the new one is " + made);
    }
    if (RenamePatiently(made.c_str(), Generation(path, 1).c_str()) != FileStatus::kOk) {
        return Fail(options.file, "the copy cannot be renamed; it is " + made);
    }
    return kDone;
}
