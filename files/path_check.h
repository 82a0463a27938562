// Whether a typed directory is one.
#pragma once

#include <string>

// Normalises the text and looks whether there is such a directory. False, with `directory` left
// alone, when the text is no path or cannot be entered. The current directory is left as it was.
bool CheckTypedDirectory(const std::string& typed, std::string& directory);
