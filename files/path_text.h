// The text half of checking a typed directory.
#pragma once

#include <string>

// Longest directory that can be typed, without its trailing backslash.
constexpr size_t kMaxTypedPath = 258;

// Brings a typed directory into the form "c:\dir\dir\": drive letter in lower case, whatever
// follows it taken as the colon, single backslashes, one at the end. False for anything else;
// `normalized` is then left alone.
bool NormalizeTypedPath(const std::string& typed, std::string& normalized);
