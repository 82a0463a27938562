// A drive letter of the tests' own, and links, made by the system below Wine.
#pragma once

#include <string>

constexpr char kScratchLetter = 't';

// Makes a directory of drive C:, its name spelt as it is stored, the drive t:. False where that is
// not possible.
bool MakeScratchDrive(const std::string& directory);
void RemoveScratchDrive();

// A link in a directory, to a directory given relative to it.
bool MakeLink(const std::string& directory, const std::string& name, const std::string& target);
