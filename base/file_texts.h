// How a file's size, the moment of its last change and the share of it that is done are written.
#pragma once

#include <cstdint>
#include <string>

// All digits without separators, then " bytes ".
std::string SizeText(uint64_t sizeBytes);

// Date and time as the file system of old packs them into two words: "3-7-1995 9:05PM". The hour is
// shifted by six hours, whatever the time zone, and the date is not; that is meant.
std::string DateText(uint16_t packedDate, uint16_t packedTime);

// Whole per cent, above 100 when more was done than there was at first; 100 of nothing.
std::string PercentText(uint64_t done, uint64_t total);
