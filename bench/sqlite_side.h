// The same discs in an SQLite database with an index on the key: what the catalogue is measured
// against. Every call opens the database, does one thing and closes it again.
#pragma once

#include <string>
#include <vector>

#include "tests/database/sample_discs.h"

void SqliteCreate(const std::string& path, const std::vector<Disc>& discs);
// "Artist - Disc name" of the disc with this table of contents, or the empty text.
std::string SqliteTitle(const std::string& path, const DiscToc& toc);
void SqliteAppend(const std::string& path, const Disc& disc);
// The number-th disc in the order of their adding, from 1.
void SqliteDelete(const std::string& path, int64_t number);

// System calls since the last question, without those that wait for the disk.
int SqliteCallsMade();
