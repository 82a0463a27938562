// Whether a directory can be entered.
#pragma once

#include <string>

// Makes a directory, or a drive ("d:"), the current one for a moment; the former one is put back.
// False when it cannot be entered; else `entered` is where that led, with a trailing backslash.
bool TryDirectory(const std::string& directory, std::string& entered);

// Normalises a typed text and looks whether there is such a directory. False, with `directory` left
// alone, when the text is no path or cannot be entered.
bool CheckTypedDirectory(const std::string& typed, std::string& directory);
