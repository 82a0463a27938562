// Where the program's own files lie.
#pragma once

#include <string>

// The executable's directory in lower case, with its trailing backslash.
extern std::string AppDirectory;

// AppDirectory with the file name appended directly.
std::string InAppDirectory(const char* fileName);

// Cuts the executable's own 8.3 name, always twelve characters, off its full path; a shorter path
// gives the empty text.
std::string DirectoryOfExecutable(const std::string& modulePath);
