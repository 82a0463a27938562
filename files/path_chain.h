// The arithmetic of the path dialog: a path's directories, going up and down, and what list entries
// say.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

// Longest path of a directory, trailing backslash included.
constexpr size_t kMaxDirectoryPath = 260;

// A stored text as a directory: with a trailing backslash, or "c:\" when it does not begin with
// letter, colon and backslash or is too long. Case stays.
std::string PathOrRoot(const std::string& stored);

// The root ("c:\") and then the name of each directory on the way. The path must be one that
// PathOrRoot gave.
std::vector<std::string> PathChain(const std::string& path);

// The path down to an entry of its chain; 0 is the root. The entry must be in the chain.
std::string PathAtLevel(const std::string& path, size_t level);

// A directory below the path. False, with `below` left alone, when that would be too long.
bool DescendPath(const std::string& path, const std::string& name, std::string& below);

// What a system listing writes around names: "[name]" without its outer brackets, and the letter of
// "[-c-]" in lower case, NUL when there is none.
std::string UnbracketedName(const std::string& entry);
char DriveLetter(const std::string& entry);

// A remote name up to and with its first colon.
std::string CutAfterColon(const std::string& remoteName);
