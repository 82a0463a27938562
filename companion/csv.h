// Comma-separated values as RFC 4180 has them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "companion/disc.h"

struct CsvReader {
    std::string_view text;
    size_t position = 0;
    int line = 1;  // of `position`
    size_t lineStart = 0;
};

enum class CsvResult { kRecord, kEnd, kFault };

// The next record; `line` is where it begins. Lines end in CR LF or LF; a line break inside quotes
// belongs to the field. A fault is a quote that is never closed, text behind a closing quote or a
// quote inside an unquoted field.
CsvResult ReadCsvRecord(CsvReader& reader, std::vector<std::string>& fields, int& line,
                        SourceFault& fault);

// A record with CR LF behind it; fields are quoted where that is needed.
std::string CsvRecord(const std::vector<std::string>& fields);
