// What the header of a media file says, as far as the platform must be kept from believing it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

// Reads up to `size` bytes from a place in the file; answers how many there were.
using ReadFileAt = std::function<size_t(uint64_t offset, void* bytes, size_t size)>;

// True when the platform's players would divide by zero on the file, which can end the whole
// program: a wave file of 0 channels, 0 bytes a second or 0 bytes a block, a MIDI file of 0 ticks a
// beat. Whatever else a file holds or lacks is for the platform to judge.
bool WouldDivideByZero(const ReadFileAt& read);
