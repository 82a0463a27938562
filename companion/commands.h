// tarndisc's commands. The catalogue is chosen before. Each tells its results and faults itself.
#pragma once

#include <string>
#include <vector>

#include "companion/catalogue.h"
#include "companion/code_page.h"
#include "companion/terminal.h"

struct CommonOptions {
    std::string file;  // the catalogue, as it was named
    CodePage page;
};

// After reading along the chain: a chain that breaks off at `place`, before its end, is told.
ExitCode TellBreak(const CommonOptions& options, const Catalogue& catalogue,
                   const CataloguePlace& place);

ExitCode ListDiscs(const CommonOptions& options);
// `number` counts from 1.
ExitCode ShowDisc(const CommonOptions& options, int number);
ExitCode FindText(const CommonOptions& options, const std::string& text);
ExitCode ShowStatistics(const CommonOptions& options);
ExitCode ListDuplicates(const CommonOptions& options);

struct ExportOptions {
    std::string kind;    // csv, json, xmcd or html
    std::string output;  // a file, for xmcd a folder; empty means the standard output
    bool tracks = false;
};
ExitCode ExportDiscs(const CommonOptions& options, const ExportOptions& exported);

enum class KnownDiscs { kSkip, kReplace, kBoth };
struct ImportOptions {
    std::vector<std::string> sources;
    KnownDiscs known = KnownDiscs::kSkip;
    std::string lengths;  // a file of sections' lengths for cdplayer.ini; empty when there is none
};
ExitCode ImportDiscs(const CommonOptions& options, const ImportOptions& imported);

// The discs of both catalogues into a third. What is equal in both stands once.
ExitCode MergeCatalogues(const CommonOptions& options, const std::string& other,
                         const std::string& output);

ExitCode CheckCatalogue(const CommonOptions& options);
// Whether check would find nothing in a catalogue that was just opened.
bool IsFaultless(Catalogue& catalogue);
ExitCode SalvageCatalogue(const CommonOptions& options, const std::string& output);
ExitCode SortCatalogue(const CommonOptions& options);
// Up to `keep` generations, FILE.1 the newest.
ExitCode BackUpCatalogue(const CommonOptions& options, int keep);
