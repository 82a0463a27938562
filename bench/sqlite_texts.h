// The catalogue's texts in SQLite tables: what its search, its export and its figures are measured
// against. Every call opens the database, does one thing and closes it again.
#pragma once

#include <string>
#include <vector>

#include "tests/database/sample_discs.h"

void SqliteCreateTexts(const std::string& path, const std::vector<Disc>& discs);
// How many discs hold the text in any field, case ignored.
int SqliteSearch(const std::string& path, const std::string& text);
// Artist, name and tracks of every disc into a text file, in the order of the artists or of their
// adding.
void SqliteExport(const std::string& path, const std::string& textPath, bool sorted);
// Seconds of all discs, from the figures of each.
int64_t SqliteTotalSeconds(const std::string& path);
