// What the disc database costs among many discs, beside one reading of its file in the same window
// and, natively, beside SQLite with the same discs. Prints best and median times and ratios;
// asserts nothing about time.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>

#include "base/app_directory.h"
#include "database/database_changes.h"
#include "database/database_export.h"
#include "database/database_file.h"
#include "database/database_format.h"
#include "database/database_recovery.h"
#include "database/database_search.h"
#include "database/database_sort.h"
#include "database/disc_lookup.h"
#include "database/window_reader.h"
#include "tests/database/sample_discs.h"
#ifdef TARNWELL_WITH_SQLITE
#include "sqlite_side.h"
#include "sqlite_texts.h"
#endif

namespace fs = std::filesystem;

namespace {

struct Measure {
    const char* name;
    std::function<void()> work;
    std::vector<double> microseconds = {};
    int calls = 0;
};

// Counts the system calls: one for each call of the table.
int systemCalls = 0;
FileAccess realFiles;

}  // namespace

static void CountSystemCalls() {
    realFiles = FileCalls;
    FileCalls.open = [](const char* path, FileMode mode, FileHandle& file) {
        return ++systemCalls, realFiles.open(path, mode, file);
    };
    FileCalls.read = [](FileHandle file, void* data, uint32_t size, uint32_t& count) {
        return ++systemCalls, realFiles.read(file, data, size, count);
    };
    FileCalls.write = [](FileHandle file, const void* data, uint32_t size, uint32_t& count) {
        return ++systemCalls, realFiles.write(file, data, size, count);
    };
    FileCalls.seek = [](FileHandle file, uint64_t offset) {
        return ++systemCalls, realFiles.seek(file, offset);
    };
    FileCalls.size = [](FileHandle file, uint64_t& size) {
        return ++systemCalls, realFiles.size(file, size);
    };
    FileCalls.flush = [](FileHandle file) { return ++systemCalls, realFiles.flush(file); };
    FileCalls.truncate = [](FileHandle file, uint64_t size) {
        return ++systemCalls, realFiles.truncate(file, size);
    };
    FileCalls.close = [](FileHandle file) { return ++systemCalls, realFiles.close(file); };
    FileCalls.rename = [](const char* from, const char* to) {
        return ++systemCalls, realFiles.rename(from, to);
    };
    FileCalls.remove = [](const char* path) { return ++systemCalls, realFiles.remove(path); };
    FileCalls.exists = [](const char* path) { return ++systemCalls, realFiles.exists(path); };
}

static void Require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "%s failed\n", what);
    std::exit(1);
}

static void LowerAscii(std::string& text) {
    for (char& c : text)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}

static void ReadFileOnce(bool lowerCase) {
    ScopedFile file;
    std::string window(kWindowBytes, '\0');
    uint32_t count = 1;
    const std::string path = InAppDirectory(kDatabaseName);
    Require(FileCalls.open(path.c_str(), FileMode::kReadShared, file.handle) == FileStatus::kOk,
            "open");
    while (count > 0) {
        FileCalls.read(file.handle, window.data(), kWindowBytes, count);
        if (lowerCase) LowerAscii(window);
    }
}

// A copy by the platform's own means that is on the disk afterwards.
static void CopyFlushed(const fs::path& from, const fs::path& to) {
    // The library takes any two files of Windows for the same one and does not overwrite.
    fs::remove(to);
    fs::copy_file(from, to);
    ScopedFile file;
    Require(
        FileCalls.open(to.string().c_str(), FileMode::kReadWrite, file.handle) == FileStatus::kOk &&
            FileCalls.flush(file.handle) == FileStatus::kOk,
        "copy");
}

// In the blocks that the export writes.
static void WriteText(const std::string& path, const std::string& text) {
    ScopedFile file;
    Require(FileCalls.open(path.c_str(), FileMode::kCreateAlways, file.handle) == FileStatus::kOk,
            "text file");
    for (size_t at = 0; at < text.size(); at += 32768) {
        uint32_t written = 0;
        const size_t size = std::min<size_t>(32768, text.size() - at);
        FileCalls.write(file.handle, text.data() + at, static_cast<uint32_t>(size), written);
        Require(written == size, "writing the text");
    }
}

static void LookUp(const Disc& disc, bool known) {
    CopyDiscToc(disc.toc);
    Require(FindDisc(DatabaseDisc.totalSeconds, DatabaseDisc.trackCount) == known, "look-up");
}

// Of a text that is in no field, so that all of them are read.
static void SearchAll(bool ignoreCase) {
    SearchQuery query;
    query.text = "no such text";
    if (ignoreCase) query.lowerCase = LowerAscii;
    Require(SearchDatabase(query, 0, [](uint32_t, uint32_t) {}).empty(), "search");
}

static void ExportAll(const std::string& path, CompareTexts compare) {
    ScopedFile file;
    Require(FileCalls.open(path.c_str(), FileMode::kCreateAlways, file.handle) == FileStatus::kOk,
            "export file");
    ExportRequest request;
    request.items.fill(true);
    request.form = ExportForm::kDelimited;
    request.compare = compare;
    Require(ExportDatabase(file.handle, request, [](const char*) {}) == DatabaseResult::kOk,
            "export");
}

static std::vector<Disc> MakeDiscs(int count) {
    std::mt19937 random(1);
    std::vector<Disc> discs;
    for (int i = 0; i < count; ++i) {
        Disc disc = SampleDisc(i, 8 + i % 9);
        // Lengths of real discs: keys differ, but some are equal.
        disc.toc.totalSeconds = 0;
        for (int track = 0; track < disc.toc.trackCount; ++track) {
            disc.toc.lengthSeconds[track] = static_cast<uint16_t>(90 + random() % 300);
            disc.toc.totalSeconds =
                static_cast<uint16_t>(disc.toc.totalSeconds + disc.toc.lengthSeconds[track]);
        }
        discs.push_back(disc);
    }
    return discs;
}

// The ratio is taken of the best times: on a busy machine the others tell about its other work.
static void Print(const Measure& measure, double bestReading) {
    const double best = measure.microseconds.front();
    const double median = measure.microseconds[measure.microseconds.size() / 2];
    std::printf("  %-34s %11.1f us %11.1f us %9.2f x %9d calls\n", measure.name, best, median,
                best / bestReading, measure.calls);
}

// Round by round, so that all of them meet the same weather.
static void Run(std::vector<Measure>& measures, int rounds) {
    for (int round = 0; round <= rounds; ++round) {
        for (Measure& measure : measures) {
            systemCalls = 0;
#ifdef TARNWELL_WITH_SQLITE
            SqliteCallsMade();
#endif
            const auto start = std::chrono::steady_clock::now();
            measure.work();
            const std::chrono::duration<double, std::micro> taken =
                std::chrono::steady_clock::now() - start;
            measure.calls = systemCalls;
#ifdef TARNWELL_WITH_SQLITE
            measure.calls += SqliteCallsMade();
#endif
            if (round > 0) measure.microseconds.push_back(taken.count());
        }
    }
    for (Measure& measure : measures) {
        std::sort(measure.microseconds.begin(), measure.microseconds.end());
    }
}

static void MeasureAmong(int count, const fs::path& directory, int rounds) {
    const std::vector<Disc> discs = MakeDiscs(count);
    const Disc extra = MakeDiscs(count + 1).back();
    const std::string image = DatabaseImage(discs);
    const std::vector<uint32_t> starts = EntryStarts(discs);
    std::ofstream(directory / kDatabaseName, std::ios::binary) << image;
    const uint32_t middle = starts[discs.size() / 2];
    const Disc& moved = discs[discs.size() / 2];

    std::vector<Measure> measures = {
        {"one reading of the file", [] { ReadFileOnce(false); }},
        {"look-up, last disc", [&] { LookUp(discs.back(), true); }},
        {"look-up, unknown disc", [&] { LookUp(extra, false); }},
        {"title text, last disc", [&] { DiscTitleText(); }},
        {"start-up recovery, nothing to do",
         [&] { Require(RecoverDatabase() == RecoveryResult::kNothingToDo, "recovery"); }},
        {"a flushed copy of the file",
         [&] { CopyFlushed(directory / kDatabaseName, directory / "copy.dat"); }},
        {"delete, middle", [&] { Require(DeleteEntry(middle) == DatabaseResult::kOk, "delete"); }},
        {"append",
         [&] {
             CopyDiscToc(moved.toc);
             Require(AppendEntry(moved.fields) == DatabaseResult::kOk, "append");
         }},
    };
#ifdef TARNWELL_WITH_SQLITE
    const std::string sqlite = (directory / "discs.sqlite").string();
    SqliteCreate(sqlite, discs);
    const std::vector<Measure> others = {
        {"SQLite look-up, last disc",
         [&] { Require(!SqliteTitle(sqlite, discs.back().toc).empty(), "sqlite look-up"); }},
        {"SQLite look-up, unknown disc",
         [&] { Require(SqliteTitle(sqlite, extra.toc).empty(), "sqlite look-up"); }},
        {"SQLite append", [&] { SqliteAppend(sqlite, extra); }},
        {"SQLite delete", [&] { SqliteDelete(sqlite, count + 1); }},
    };
    measures.insert(measures.end(), others.begin(), others.end());
#endif
    Run(measures, rounds);
    std::printf("%d discs, %zu bytes, %zu windows\n", count, image.size(),
                (image.size() + kWindowBytes - 1) / kWindowBytes);
    for (const Measure& measure : measures)
        Print(measure, measures[0].microseconds.front());
}

// What reads or writes all discs. By itself: a sort moves the entries.
static void MeasureWalksAmong(int count, const fs::path& directory, int rounds) {
    const std::vector<Disc> discs = MakeDiscs(count);
    std::ofstream(directory / kDatabaseName, std::ios::binary) << DatabaseImage(discs);
    const std::string text = (directory / "export.txt").string();
    ExportAll(text, nullptr);
    std::ostringstream bytes;
    bytes << std::ifstream(text, std::ios::binary).rdbuf();
    const std::string exported = bytes.str();
    std::vector<Measure> measures = {
        {"one reading of the file", [] { ReadFileOnce(false); }},
        {"search, case counts", [] { SearchAll(false); }},
        {"search, lower case", [] { SearchAll(true); }},
        {"one reading, lower-cased", [] { ReadFileOnce(true); }},
        {"information", [&] { Require(SumDatabase().entries == count, "information"); }},
        {"export", [&] { ExportAll(text, nullptr); }},
        {"one reading, export's text written",
         [&] {
             ReadFileOnce(false);
             WriteText(text, exported);
         }},
        {"export, sorted", [&] { ExportAll(text, std::strcmp); }},
        {"sort",
         [] {
             Require(SortDatabase(std::strcmp, [](const char*) {}) == DatabaseResult::kOk, "sort");
         }},
    };
#ifdef TARNWELL_WITH_SQLITE
    const std::string texts = (directory / "texts.sqlite").string();
    SqliteCreateTexts(texts, discs);
    const std::vector<Measure> others = {
        {"SQLite search", [&] { Require(SqliteSearch(texts, "no such text") == 0, "sqlite"); }},
        {"SQLite information", [&] { Require(SqliteTotalSeconds(texts) > 0, "sqlite"); }},
        {"SQLite export", [&] { SqliteExport(texts, text, false); }},
        {"SQLite export, sorted", [&] { SqliteExport(texts, text, true); }},
    };
    measures.insert(measures.end(), others.begin(), others.end());
#endif
    Run(measures, rounds);
    std::printf("%d discs: all of them\n", count);
    for (const Measure& measure : measures)
        Print(measure, measures[0].microseconds.front());
}

static int RoundsFor(int count) {
    return count <= 1000 ? 101 : count <= 10000 ? 31 : 7;
}

// database_bench [DISCS...]
int main(int argc, char** argv) {
    const fs::path directory =
        fs::temp_directory_path() / ("tarnwell_bench_" + std::to_string(std::random_device()()));
    fs::create_directory(directory);
    AppDirectory = (directory / "").string();
    CountSystemCalls();
    // The unknown disc is never in the file, and the last one leaves room for an append.
    std::vector<int> counts = {1000, 10000, 65534};
    if (argc > 1) counts.clear();
    for (int i = 1; i < argc; ++i)
        counts.push_back(std::clamp(std::atoi(argv[i]), 1, 65534));
    for (const int count : counts)
        MeasureAmong(count, directory, RoundsFor(count));
    for (const int count : counts)
        MeasureWalksAmong(count, directory, RoundsFor(count) / 3 + 1);
    fs::remove_all(directory);
}
