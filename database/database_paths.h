// Where the catalogue lies, and the two files that stand beside it for moments.
#pragma once

#include <string>

// tarnwell.dat in the program's directory, or the file that UseDatabaseFile has named.
std::string DatabasePath();
// What a rewrite writes before it takes the catalogue's place: tarnwell.new.
std::string NewDatabasePath();
// The catalogue from before a rewrite: tarnwell.dbk.
std::string BackupPath();

// Another catalogue from now on; the empty path means the program's own again. Its new file and its
// backup bear its name with .new and .dbk in place of .dat, or behind a name that ends otherwise.
void UseDatabaseFile(const std::string& path);
