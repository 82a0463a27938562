// Keeps what an importer takes, warns of and refuses.
#pragma once

#include <string>
#include <vector>

#include "companion/code_page.h"
#include "companion/disc.h"

struct ImportLog {
    std::vector<Disc> discs;
    std::vector<std::string> warnings;
    std::vector<std::string> refusals;

    DiscSink Sink() {
        return {[this](const Disc& disc, const std::string&) { discs.push_back(disc); },
                [this](const std::string& where, const std::string& what) {
                    warnings.push_back(where + ": " + what);
                },
                [this](const std::string& where, const std::string& why) {
                    refusals.push_back(where + ": " + why);
                }};
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
