// A catalogue file as the console program uses it: opened once, read disc by disc, written only
// through the core's checked rewrite.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/file_access.h"
#include "database/database_result.h"
#include "database/database_walk.h"
#include "database/disc_entry.h"

// Why something could not be done, for the user; empty when it could.
using Refusal = std::string;

inline constexpr const char* kUnmadeText = "the file cannot be made there";
inline constexpr const char* kUnreadableText = "the file cannot be read, or is a folder";
inline constexpr const char* kDamagedText =
    "the catalogue is damaged; check says where, and salvage makes a whole one";

// Names the catalogue for all that follows, by its path in UTF-8.
Refusal ChooseCatalogue(const std::string& path);
// The same for one that is to be made. Refused when there is such a file, or one of the names that
// writing it needs: that may be the only one left of a catalogue, or what the new one is made of.
Refusal ChooseNewCatalogue(const std::string& path);

struct Catalogue {
    ScopedFile file;
    WindowReader reader;
    uint64_t sizeBytes = 0;
    uint16_t entryCount = 0;  // as the header says
    bool markIsRight = true;
};

// Opens the chosen file for reading, whatever it is.
Refusal OpenAnyFile(ScopedFile& file, uint64_t& sizeBytes);

// Opens the chosen catalogue for reading. A file that another program holds is waited for, some
// seconds long. Files that do not begin like a catalogue are refused, unless any mark in front is
// accepted.
enum class HeaderMark { kRight, kAny };
Refusal OpenCatalogue(Catalogue& catalogue, HeaderMark accepted = HeaderMark::kRight);
// The same for a catalogue by its path as the file calls take it.
Refusal OpenCatalogueAt(const std::string& path, Catalogue& catalogue,
                        HeaderMark accepted = HeaderMark::kRight);

// One disc, with where it lies. False at the end of the chain.
struct CataloguePlace {
    uint32_t index = 0;  // of the disc that is read next, from 0
    uint64_t start = 8;
};
bool ReadNextDisc(Catalogue& catalogue, CataloguePlace& place, Disc& disc);
bool ReadDiscAt(Catalogue& catalogue, uint64_t start, Disc& disc);

// What a rewrite shall do with the catalogue's discs: each stays or is replaced, others follow.
struct CatalogueChange {
    // By index, each with the table of contents of the disc it replaces; empty bytes mean that the
    // disc stays. Shorter than the catalogue is long: the rest stays.
    std::vector<std::vector<uint8_t>> replacements;
    std::vector<std::vector<uint8_t>> additions;  // as EncodeEntry made them, at any place
};

// All of it or nothing. Makes the file when there is none. Refused for a damaged catalogue, and for
// one in which other discs have come to stand in the places of those to be replaced.
Refusal WriteCatalogue(const CatalogueChange& change);

// Track count and lengths as one text: equal for the same disc.
std::string TocKey(const DiscToc& toc);
