// The catalogue as a page to read and to print, grouped by artist.
#pragma once

#include <string>

#include "companion/code_page.h"
#include "companion/disc.h"

struct HtmlTotals {
    uint64_t discs = 0;
    uint64_t tracks = 0;
    uint64_t seconds = 0;
};

std::string HtmlStart();
// A heading for a new artist; the first one needs it too.
std::string HtmlArtist(const std::string& artist, const CodePage& page);
// Counts the disc in.
std::string HtmlDisc(const Disc& disc, const CodePage& page, HtmlTotals& totals);
std::string HtmlEnd(const HtmlTotals& totals);
