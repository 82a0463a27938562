// Discs into the catalogue: one checked rewrite for everything, or nothing.
#include <algorithm>
#include <fstream>
#include <unordered_map>

#include "companion/commands.h"
#include "companion/disc.h"
#include "companion/disc_csv.h"
#include "companion/disc_json.h"
#include "companion/disc_names.h"
#include "companion/paths.h"
#include "companion/player_ini.h"
#include "companion/xmcd.h"
#include "database/database_file.h"
#include "database/database_paths.h"

namespace fs = std::filesystem;

// Beyond this a source is no list of discs.
constexpr uint64_t kLargestSource = 512ull << 20;
constexpr size_t kFirstLook = 4096;

namespace {

// Where a disc with some table of contents is to be found.
struct KnownPlace {
    bool added;  // among the additions, else in the catalogue
    size_t index;
};

struct FoundDisc {
    std::string tocKey;
    std::vector<uint8_t> bytes;
};

struct ImportState {
    const CommonOptions& options;
    KnownDiscs policy;
    CatalogueChange change;
    std::unordered_map<std::string, KnownPlace> known;
    SectionLengths lengths;
    std::string source;            // the one being read
    std::vector<FoundDisc> found;  // in it so far: of a broken one nothing is taken
    int added = 0;
    int skipped = 0;
    int replaced = 0;
    int refused = 0;
    int warned = 0;
};

}  // namespace

static std::string PlaceIn(const std::string& source, const std::string& where) {
    return where.empty() ? source : source + ": " + where;
}

static void TakeDisc(ImportState& state, FoundDisc& disc) {
    const auto found = state.known.find(disc.tocKey);
    if (found == state.known.end() || state.policy == KnownDiscs::kBoth) {
        state.known.try_emplace(disc.tocKey, KnownPlace{true, state.change.additions.size()});
        state.change.additions.push_back(std::move(disc.bytes));
        ++state.added;
    } else if (state.policy == KnownDiscs::kSkip) {
        ++state.skipped;
    } else {
        const auto [added, index] = found->second;
        auto& list = added ? state.change.additions : state.change.replacements;
        if (list.size() <= index) list.resize(index + 1);
        list[index] = std::move(disc.bytes);
        ++state.replaced;
    }
}

// A catalogue's worth of these is held at once, so none keeps the room for the largest entry.
static std::vector<uint8_t> BytesOf(const Disc& disc) {
    const std::vector<uint8_t> bytes = EncodeEntry(disc.toc, disc.fields, 0);
    return {bytes.begin(), bytes.end()};
}

static DiscSink SinkOf(ImportState& state) {
    return {[&state](const Disc& disc) {
                state.found.push_back({TocKey(disc.toc), BytesOf(disc)});
            },
            [&state](const std::string& where, const std::string& what) {
                Tell(PlaceIn(state.source, where) + ": " + what);
                ++state.warned;
            },
            [&state](const std::string& where, const std::string& why) {
                Tell(PlaceIn(state.source, where) + ": refused: " + why);
                ++state.refused;
            }};
}

static Refusal ReadWholeFile(const fs::path& path, std::string& text) {
    std::error_code error;
    const uint64_t size = fs::file_size(path, error);
    std::ifstream file(path, std::ios::binary);
    if (error || !file) return "the file cannot be read";
    if (size > kLargestSource) return "the file is too large for a list of discs";
    text.resize(static_cast<size_t>(size));
    file.read(text.data(), static_cast<std::streamsize>(size));
    text.resize(static_cast<size_t>(file.gcount()));
    return file.bad() ? "the file cannot be read" : Refusal();
}

static std::string FirstBytes(const fs::path& path) {
    std::string text(kFirstLook, '\0');
    std::ifstream file(path, std::ios::binary);
    file.read(text.data(), kFirstLook);
    text.resize(static_cast<size_t>(file.gcount()));
    return text;
}

enum class SourceKind { kXmcd, kCsv, kJson, kPlayerIni, kForeign };

static SourceKind KindOf(const fs::path& path, std::string_view start) {
    const std::string extension = SmallLetters(NameOf(path.extension()));
    if (start.find('\0') != std::string_view::npos) return SourceKind::kForeign;
    if (start.starts_with("\xEF\xBB\xBF")) start.remove_prefix(3);
    if (LooksLikeXmcd(start)) return SourceKind::kXmcd;
    if (extension == ".csv") return SourceKind::kCsv;
    if (extension == ".json") return SourceKind::kJson;
    if (extension == ".ini") return SourceKind::kPlayerIni;
    return SourceKind::kForeign;
}

// A source that cannot be taken as a whole.
static Refusal ReadSource(ImportState& state, const fs::path& path) {
    state.source = NameOf(path);
    state.found.clear();
    const SourceKind kind = KindOf(path, FirstBytes(path));
    if (kind == SourceKind::kForeign) {
        return "neither an xmcd file nor named .csv, .json or .ini";
    }
    std::string text;
    if (const Refusal why = ReadWholeFile(path, text); !why.empty()) return why;
    const CodePage& page = state.options.page;
    const DiscSink sink = SinkOf(state);
    SourceFault fault;
    bool taken = true;
    switch (kind) {
        case SourceKind::kXmcd:
            taken = ReadXmcd(text, page, sink, fault);
            break;
        case SourceKind::kCsv:
            taken = ReadCsv(text, page, sink, fault);
            break;
        case SourceKind::kJson:
            taken = ReadJson(text, page, sink, fault);
            break;
        default:
            ReadPlayerIni(text, page, state.lengths, sink);
    }
    if (taken) {
        for (FoundDisc& disc : state.found)
            TakeDisc(state, disc);
        return {};
    }
    return fault.where.empty() ? fault.what : fault.where + ": " + fault.what;
}

// Files of a folder are refused one by one; a file that was named and is broken ends the import.
static ExitCode ReadSources(ImportState& state, const std::vector<std::string>& sources) {
    for (const std::string& source : sources) {
        std::error_code error;
        const fs::path path = PathOf(source);
        if (!fs::is_directory(path, error)) {
            if (!fs::exists(path, error)) return Fail(source, "there is no such file");
            if (const Refusal why = ReadSource(state, path); !why.empty()) {
                return Fail(source, why);
            }
            continue;
        }
        std::vector<fs::path> files;
        for (const auto& entry : fs::recursive_directory_iterator(
                 path, fs::directory_options::skip_permission_denied, error)) {
            if (entry.is_regular_file(error)) files.push_back(entry.path());
        }
        if (files.empty()) {
            Tell(source + ": there is no file in this folder");
            ++state.warned;
        }
        std::sort(files.begin(), files.end());
        for (size_t i = 0; i < files.size(); ++i) {
            if (const Refusal why = ReadSource(state, files[i]); !why.empty()) {
                Tell(state.source + ": refused: " + why);
                ++state.refused;
            }
            ShowProgress("file", i + 1, files.size());
        }
        ClearProgress();
    }
    return kDone;
}

// A catalogue that is there and cannot be read to its end is refused.
static Refusal ReadKnownDiscs(ImportState& state) {
    // A rewrite that was ended may have left it under another name.
    if (FileCalls.exists(BackupPath().c_str()) == FileStatus::kOk) EnsureDatabase();
    Catalogue catalogue;
    const Refusal why = OpenCatalogue(catalogue);
    std::error_code error;
    if (!why.empty()) {
        return fs::exists(PathOf(state.options.file), error) ? why : Refusal();
    }
    CataloguePlace place;
    Disc disc;
    while (ReadNextDisc(catalogue, place, disc)) {
        state.known.try_emplace(TocKey(disc.toc), KnownPlace{false, place.index - 1});
    }
    if (place.index == catalogue.entryCount) return {};
    return kDamagedText;
}

static ExitCode ReadLengths(const std::string& path, SectionLengths& lengths) {
    if (path.empty()) return kDone;
    std::string text;
    if (const Refusal why = ReadWholeFile(PathOf(path), text); !why.empty()) {
        return Fail(path, why);
    }
    SourceFault fault;
    if (ReadSectionLengths(text, lengths, fault)) return kDone;
    return Fail(path, fault.where + ": " + fault.what);
}

ExitCode ImportDiscs(const CommonOptions& options, const ImportOptions& imported) {
    ImportState state{options, imported.known, {}, {}, {}, {}, {}};
    if (ReadLengths(imported.lengths, state.lengths) != kDone) return kFailed;
    if (const Refusal why = ReadKnownDiscs(state); !why.empty()) return Fail(options.file, why);
    if (ReadSources(state, imported.sources) != kDone) {
        Tell("nothing was imported");
        return kFailed;
    }
    // An empty list of discs makes an empty catalogue, but what could not be taken makes none.
    std::error_code error;
    const bool leftOut = state.refused + state.warned > 0;
    if (state.added + state.replaced > 0 ||
        (!leftOut && !fs::exists(PathOf(options.file), error))) {
        if (const Refusal why = WriteCatalogue(state.change); !why.empty()) {
            return Fail(options.file, why);
        }
    }
    Print("added " + std::to_string(state.added) + ", known " + std::to_string(state.skipped) +
          ", replaced " + std::to_string(state.replaced) + ", refused " +
          std::to_string(state.refused) + "\n");
    return leftOut ? kFound : kDone;
}

// Every disc of the chosen catalogue that was not met before goes to `change`.
static Refusal Gather(const std::string& path, CatalogueChange& change,
                      std::unordered_map<std::string, std::vector<size_t>>& met, int& equal) {
    if (const Refusal why = ChooseCatalogue(path); !why.empty()) return why;
    Catalogue catalogue;
    if (const Refusal why = OpenCatalogue(catalogue); !why.empty()) return why;
    const size_t before = change.additions.size();
    CataloguePlace place;
    Disc disc;
    while (ReadNextDisc(catalogue, place, disc)) {
        std::vector<uint8_t> bytes = BytesOf(disc);
        std::vector<size_t>& places = met[TocKey(disc.toc)];
        // Two equal entries of one catalogue both stay: somebody may have put them there.
        const bool known = std::any_of(places.begin(), places.end(), [&](size_t index) {
            return index < before && change.additions[index] == bytes;
        });
        if (known) {
            ++equal;
            continue;
        }
        places.push_back(change.additions.size());
        change.additions.push_back(std::move(bytes));
        ShowProgress("disc", place.index, catalogue.entryCount);
    }
    ClearProgress();
    return place.index == catalogue.entryCount ? Refusal() : kDamagedText;
}

ExitCode MergeCatalogues(const CommonOptions& options, const std::string& other,
                         const std::string& output) {
    CatalogueChange change;
    std::unordered_map<std::string, std::vector<size_t>> met;
    int equal = 0;
    for (const std::string& path : {options.file, other}) {
        if (const Refusal why = Gather(path, change, met, equal); !why.empty()) {
            return Fail(path, why);
        }
    }
    if (Refusal why = ChooseNewCatalogue(output); !why.empty()) return Fail(output, why);
    if (Refusal why = WriteCatalogue(change); !why.empty()) return Fail(output, why);
    Print("wrote " + std::to_string(change.additions.size()) + ", equal in both " +
          std::to_string(equal) + "\n");
    return kDone;
}
