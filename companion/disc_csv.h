// Discs as comma-separated values, in UTF-8 with a header line: one line a disc, or one line a
// track.
#pragma once

#include <string>
#include <string_view>

#include "companion/code_page.h"
#include "companion/disc.h"

enum class CsvForm { kDiscs, kTracks };

std::string CsvHeader(CsvForm form);

// The disc's line, or a line for each of its tracks; `number` counts discs from 1 and keeps equal
// discs apart.
std::string CsvLines(CsvForm form, const Disc& disc, int number, const CodePage& page);

// The form with a line a track. Columns are found by the names in the header line, in any order;
// a missing column of texts leaves them empty. False when nothing can be taken: a fault of the
// form, or the form with one line a disc, which holds no tracks.
bool ReadCsv(std::string_view text, const CodePage& page, const DiscSink& sink, SourceFault& fault);
