// The disk half of where copied and moved files go.
#pragma once

#include <cstdint>
#include <string>

// The bytes free on the drive that a path begins with; 0 when it cannot be asked.
uint64_t FreeBytes(const std::string& path);

// Makes the directory the current one for a moment.
bool IsDirectoryThere(const std::string& directory);

// How the walk along a destination ended.
enum class DirectoryWalk { kDone, kDeclined, kImpossible };

// Creates, in capitals, what is missing of a directory that ends in a backslash. `mayCreate` is
// asked for each, without its last backslash; the first no ends the walk.
DirectoryWalk CreateMissingDirectories(const std::string& directory,
                                       bool (*mayCreate)(const std::string& missing));
