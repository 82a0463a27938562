// Where an export goes.
#pragma once

#include <string>

constexpr const char* kDefaultExportName = "export.txt";

// Brings a typed path into the form of an existing directory and a file name, "export.txt" when
// none was typed. False for what is no path on a drive, a directory, a device, and for the
// program's own files, by whatever name.
bool CheckExportPath(const std::string& typed, std::string& path);

// Everything up to the last backslash.
std::string DirectoryOf(const std::string& path);
// Another directory, ending in a backslash, with the file name of the path.
std::string WithDirectory(const std::string& directory, const std::string& path);
