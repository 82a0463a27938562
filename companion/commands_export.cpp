// Discs out of the catalogue: comma-separated values, JSON, xmcd files, a page.
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <set>

#include "companion/commands.h"
#include "companion/disc_csv.h"
#include "companion/disc_html.h"
#include "companion/disc_json.h"
#include "companion/disc_names.h"
#include "companion/paths.h"
#include "companion/xmcd.h"

namespace fs = std::filesystem;

namespace {

// A file, or the standard output.
struct Output {
    std::ofstream file;
    bool isFile = false;
    bool failed = false;
};

}  // namespace

static Refusal OpenOutput(const CommonOptions& options, const std::string& path, Output& output) {
    if (path.empty()) return {};
    std::error_code error;
    if (fs::equivalent(PathOf(path), PathOf(options.file), error)) {
        return "this is the catalogue itself";
    }
    output.isFile = true;
    output.file.open(PathOf(path), std::ios::binary | std::ios::trunc);
    return output.file ? Refusal() : "the file cannot be made";
}

static void Write(Output& output, const std::string& text) {
    if (!output.isFile) {
        Print(text);
        return;
    }
    output.file.write(text.data(), static_cast<std::streamsize>(text.size()));
    output.failed = output.failed || !output.file;
}

static bool CloseOutput(Output& output) {
    if (!output.isFile) return true;  // looked at when the program ends
    output.file.close();
    return !output.failed && output.file;
}

// Start, every disc and end, one after the other.
template <typename Text>
static ExitCode ExportInOrder(const CommonOptions& options, Catalogue& catalogue, Output& output,
                              const Text& textOf) {
    CataloguePlace place;
    Disc disc;
    while (ReadNextDisc(catalogue, place, disc)) {
        Write(output, textOf(disc, place.index));
        ShowProgress("disc", place.index, catalogue.entryCount);
    }
    ClearProgress();
    return TellBreak(options, catalogue, place);
}

static ExitCode ExportCsv(const CommonOptions& options, Catalogue& catalogue, Output& output,
                          CsvForm form) {
    Write(output, CsvHeader(form));
    return ExportInOrder(options, catalogue, output, [&](const Disc& disc, uint32_t number) {
        return CsvLines(form, disc, static_cast<int>(number), options.page);
    });
}

static ExitCode ExportJson(const CommonOptions& options, Catalogue& catalogue, Output& output) {
    Write(output, JsonStart());
    const ExitCode code =
        ExportInOrder(options, catalogue, output, [&](const Disc& disc, uint32_t number) {
            return (number > 1 ? JsonBetween() : std::string()) + JsonDisc(disc, options.page);
        });
    Write(output, JsonEnd());
    return code;
}

namespace {

struct ListedDisc {
    std::string artist;
    std::string discName;
    uint64_t start;
};

}  // namespace

// By artist and disc name without regard to the case of plain letters.
static std::vector<ListedDisc> DiscsByArtist(Catalogue& catalogue, CataloguePlace& place) {
    std::vector<ListedDisc> discs;
    Disc disc;
    for (uint64_t start = place.start; ReadNextDisc(catalogue, place, disc); start = place.start) {
        discs.push_back({disc.fields.artist, disc.fields.discName, start});
    }
    std::stable_sort(discs.begin(), discs.end(), [](const ListedDisc& a, const ListedDisc& b) {
        const std::string left = SmallLetters(a.artist);
        const std::string right = SmallLetters(b.artist);
        return left != right ? left < right : SmallLetters(a.discName) < SmallLetters(b.discName);
    });
    return discs;
}

static ExitCode ExportHtml(const CommonOptions& options, Catalogue& catalogue, Output& output) {
    CataloguePlace place;
    const std::vector<ListedDisc> discs = DiscsByArtist(catalogue, place);
    HtmlTotals totals;
    Disc disc;
    Write(output, HtmlStart());
    for (const ListedDisc& listed : discs) {
        const bool sameArtist = &listed != &discs.front() &&
                                SmallLetters((&listed)[-1].artist) == SmallLetters(listed.artist);
        if (!sameArtist) Write(output, HtmlArtist(listed.artist, options.page));
        if (ReadDiscAt(catalogue, listed.start, disc)) {
            Write(output, HtmlDisc(disc, options.page, totals));
        }
        ShowProgress("disc", totals.discs, discs.size());
    }
    ClearProgress();
    Write(output, HtmlEnd(totals));
    return TellBreak(options, catalogue, place);
}

// A name that no other disc of this export has.
static std::string XmcdName(const Disc& disc, std::set<std::string>& names) {
    char id[9];
    snprintf(id, sizeof id, "%08x", static_cast<unsigned>(ApproximateDiscId(disc.toc)));
    std::string name = id;
    for (int copy = 2; !names.insert(name).second; ++copy) {
        name = std::string(id) + "-" + std::to_string(copy);
    }
    return name;
}

static ExitCode ExportXmcd(const CommonOptions& options, Catalogue& catalogue,
                           const std::string& folder) {
    std::error_code error;
    if (folder.empty()) return Fail("export", "--as xmcd needs --output with a folder");
    fs::create_directories(PathOf(folder), error);
    if (!fs::is_directory(PathOf(folder), error)) return Fail(folder, "this is no folder");
    // Files of an older export would stand among the new ones.
    if (!fs::is_empty(PathOf(folder), error)) return Fail(folder, "the folder is not empty");
    std::set<std::string> names;
    CataloguePlace place;
    Disc disc;
    while (ReadNextDisc(catalogue, place, disc)) {
        const std::string name = XmcdName(disc, names);
        std::ofstream file(PathOf(folder) / name, std::ios::binary);
        file << XmcdText(disc, options.page);
        file.close();
        if (!file) return Fail(folder + "/" + name, "the file cannot be written");
        ShowProgress("disc", place.index, catalogue.entryCount);
    }
    ClearProgress();
    return TellBreak(options, catalogue, place);
}

ExitCode ExportDiscs(const CommonOptions& options, const ExportOptions& exported) {
    Catalogue catalogue;
    if (const Refusal why = OpenCatalogue(catalogue); !why.empty()) return Fail(options.file, why);
    if (exported.kind == "xmcd") return ExportXmcd(options, catalogue, exported.output);

    Output output;
    if (const Refusal why = OpenOutput(options, exported.output, output); !why.empty()) {
        return Fail(exported.output, why);
    }
    const CsvForm form = exported.tracks ? CsvForm::kTracks : CsvForm::kDiscs;
    const ExitCode code = exported.kind == "csv"    ? ExportCsv(options, catalogue, output, form)
                          : exported.kind == "json" ? ExportJson(options, catalogue, output)
                                                    : ExportHtml(options, catalogue, output);
    if (!CloseOutput(output)) return Fail(exported.output, "the output cannot be written");
    return code;
}
