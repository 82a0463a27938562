// tarndisc: the catalogue's console program. What each command is given and which procedure does
// it.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <functional>
#include <map>

#include "companion/catalogue.h"
#include "companion/commands.h"
#include "companion/system.h"

namespace {

struct Invocation {
    CommonOptions common;
    int codePage = kDefaultCodePage;
    int number = 0;
    std::string text;
    std::string output;
    std::string other;
    int keep = 0;
    ExportOptions exported;
    ImportOptions imported;
    std::function<ExitCode()> run;
};

}  // namespace

static const std::map<std::string, KnownDiscs> kKnown = {
    {"skip", KnownDiscs::kSkip}, {"replace", KnownDiscs::kReplace}, {"both", KnownDiscs::kBoth}};

// A command whose first argument is the catalogue.
static CLI::App* AddCommand(CLI::App& app, Invocation& given, const char* name,
                            const char* description, std::function<ExitCode()> run) {
    CLI::App* command = app.add_subcommand(name, description);
    command->add_option("FILE", given.common.file, "the catalogue, such as tarnwell.dat")
        ->required();
    command->final_callback([&given, run = std::move(run)] { given.run = run; });
    return command;
}

static void AddReadingCommands(CLI::App& app, Invocation& given) {
    const CommonOptions& common = given.common;
    AddCommand(app, given, "check", "Looks at every rule of the format; a line for each fault",
               [&] { return CheckCatalogue(common); });
    AddCommand(app, given, "list", "A line for each disc: entry, tracks, length, artist - name",
               [&] { return ListDiscs(common); });
    AddCommand(app, given, "show", "One disc with all its texts and tracks",
               [&] { return ShowDisc(common, given.number); })
        ->add_option("N", given.number, "number of the entry, from 1")
        ->required();
    AddCommand(app, given, "find", "Every text that holds TEXT; ends with 1 when there is none",
               [&] { return FindText(common, given.text); })
        ->add_option("TEXT", given.text, "what to look for, letter by letter")
        ->required();
    AddCommand(app, given, "stats", "Numbers of discs, tracks, hours, artists and categories",
               [&] { return ShowStatistics(common); });
    AddCommand(app, given, "duplicates",
               "Entries with equal tables of contents or equal texts; ends with 1 when there are",
               [&] { return ListDuplicates(common); });
}

static void AddExchangeCommands(CLI::App& app, Invocation& given) {
    const CommonOptions& common = given.common;
    CLI::App* command = AddCommand(app, given, "export", "All discs in another form",
                                   [&] { return ExportDiscs(common, given.exported); });
    command->add_option("--as", given.exported.kind, "csv, json, xmcd or html")
        ->required()
        ->check(CLI::IsMember({"csv", "json", "xmcd", "html"}));
    command->add_flag("--tracks", given.exported.tracks,
                      "csv with a line for each track, which import reads");
    command->add_option("--output", given.exported.output,
                        "a file (else the standard output); for xmcd a new or empty folder");

    command = AddCommand(app, given, "import",
                         "Adds discs: csv with tracks, json, xmcd files and folders of them, "
                         "cdplayer.ini. All in one step or not at all",
                         [&] { return ImportDiscs(common, given.imported); });
    command->add_option("SOURCE", given.imported.sources, "files and folders")->required();
    command
        ->add_option("--known", given.imported.known,
                     "what becomes of discs that are in the catalogue: skip (as it is without "
                     "this), replace or both")
        ->transform(CLI::CheckedTransformer(kKnown).description(""))
        ->type_name("KIND");
    command->add_option("--lengths", given.imported.lengths,
                        "for cdplayer.ini: a file with lines such as A1B2C3 3:07 4:12");

    command = AddCommand(app, given, "merge",
                         "The discs of FILE and OTHER into a new file; what is equal in both "
                         "stands once",
                         [&] { return MergeCatalogues(common, given.other, given.output); });
    command->add_option("OTHER", given.other, "another catalogue")->required();
    command->add_option("--output", given.output, "the new catalogue")->required();
}

static void AddCareCommands(CLI::App& app, Invocation& given) {
    const CommonOptions& common = given.common;
    AddCommand(app, given, "salvage",
               "Every disc that can be found in a damaged file, into a new file",
               [&] { return SalvageCatalogue(common, given.output); })
        ->add_option("--output", given.output, "the new catalogue")
        ->required();
    AddCommand(app, given, "sort", "Orders the discs by artist",
               [&] { return SortCatalogue(common); });
    AddCommand(app, given, "backup",
               "Copies a faultless catalogue to FILE.1 and moves older copies on",
               [&] { return BackUpCatalogue(common, given.keep); })
        ->add_option("--keep", given.keep, "how many copies there may be")
        ->required()
        ->check(CLI::Range(1, 999));
}

static ExitCode Run(Invocation& given) {
    if (!LoadCodePage(given.codePage, given.common.page)) {
        return Fail("--code-page " + std::to_string(given.codePage),
                    "this system knows no such code page of single bytes");
    }
    const Refusal why = ChooseCatalogue(given.common.file);
    return why.empty() ? given.run() : Fail(given.common.file, why);
}

int main(int argc, char** argv) {
    PrepareOutput();
    CLI::App app("Keeps, mends and exchanges the disc catalogue of Tarnwell.", "tarndisc");
    app.require_subcommand(1);
    app.footer(
        "Ends with 0 when all is done, 1 when something was found or left out, 2 when it "
        "cannot be done; then nothing was written.");
    Invocation given;
    app.add_option("--code-page", given.codePage,
                   "the code page of the catalogue's texts, 1252 without this");
    app.fallthrough();
    AddReadingCommands(app, given);
    AddExchangeCommands(app, given);
    AddCareCommands(app, given);
    try {
        std::vector<std::string> arguments = Arguments(argc, argv);
        std::reverse(arguments.begin(), arguments.end());
        app.parse(std::move(arguments));
        const ExitCode code = Run(given);
        if (OutputHasArrived()) return code;
        Tell("the standard output could not be written to its end");
        return std::max(code, kFound);
    } catch (const CLI::ParseError& error) {
        if (const auto words = app.remaining(); !words.empty() && app.get_subcommands().empty()) {
            return Fail(words[0], "there is no such command; tarndisc --help lists them");
        }
        return app.exit(error) == 0 ? kDone : kFailed;
    } catch (const std::exception& error) {
        return Fail(given.common.file, error.what());
    }
}
