// Where the catalogue lies, and the files that may stand beside it.
#pragma once

#include <string>

// tarnwell.dat in the program's directory, or the file that UseDatabaseFile has named.
std::string DatabasePath();
// What a rewrite writes before it takes the catalogue's place: tarnwell.new.
std::string NewDatabasePath();
// The catalogue from before a rewrite: tarnwell.dbk.
std::string BackupPath();
// A copy of a damaged catalogue from before it was rebuilt: TARNWELL.BAD.
std::string DamagedPath();

// Another catalogue from now on; the empty path means the program's own again. The files
// beside it bear its name with .new, .dbk and .BAD in place of .dat, or behind a name that ends
// otherwise.
void UseDatabaseFile(const std::string& path);
