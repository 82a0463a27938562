// Keeps what an importer takes, warns of and refuses.
#pragma once

#include <string>
#include <vector>

#include "companion/code_page.h"
#include "companion/disc.h"

struct ImportLog {
    bool taken = false;
    SourceFault fault;
    std::vector<Disc> discs;
    std::vector<std::string> warnings;
    std::vector<std::string> refusals;

    DiscSink Sink() {
        const auto noteIn = [](std::vector<std::string>& lines) {
            return [&lines](const std::string& where, const std::string& what) {
                lines.push_back(where + ": " + what);
            };
        };
        return {[this](const Disc& disc) { discs.push_back(disc); }, noteIn(warnings),
                noteIn(refusals)};
    }
};

inline const CodePage& WesternPage() {
    static const CodePage page = [] {
        CodePage loaded;
        LoadCodePage(kDefaultCodePage, loaded);
        return loaded;
    }();
    return page;
}

// Gives the text to ReadCsv, ReadJson or ReadXmcd.
template <typename Reader>
ImportLog Import(Reader read, const std::string& text) {
    ImportLog log;
    log.taken = read(text, WesternPage(), log.Sink(), log.fault);
    return log;
}
