// Discs to fill databases with, and the file they must make.
#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "database/disc_entry.h"

// Lengths 60 + number, 61 + number, ...; names tell track and disc apart.
Disc SampleDisc(int number, int trackCount);

Disc RandomDisc(std::mt19937& random);

// A name for every track and every text as long as can be.
Disc LargestDisc();

// The bytes of a database with these discs, put together in the plainest way.
std::string DatabaseImage(const std::vector<Disc>& discs);

// Where each of them starts, and the end.
std::vector<uint32_t> EntryStarts(const std::vector<Disc>& discs);
