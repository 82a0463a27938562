// What a program of the older executable format says about itself.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// As much of a file's beginning as a description can need.
constexpr size_t kDescriptionReach = 3 * 0xFFFF + 0xFF + 1;

// The description in the beginning of a program file; empty for any other file, and where what is
// told of its place leads out of the bytes given.
std::string ProgramDescription(std::string_view bytes);
