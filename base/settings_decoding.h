// The pure half of the settings: every stored text is decoded by one of its characters, case
// counts, and nothing is trimmed or validated.
#pragma once

#include <cstdint>
#include <string>

// The character at a 0-based position, or NUL beyond the end.
char CharacterAt(const std::string& text, size_t position);

// Control id of the mode's tab.
int DecodeMode(const std::string& text);

bool DecodeOnOff(const std::string& text);
uint16_t DecodeTimerSpeed(const std::string& text);
// Empty when the period is none of the five.
std::string EncodeTimerSpeed(uint16_t milliseconds);
// "B" sets both flags, the one letter the first alone, the other the second alone; anything else
// leaves both as they are.
void DecodeListFilter(const std::string& text, char firstLetter, char secondLetter, bool& first,
                      bool& second);
// The search dialog's radio button id, 1802 to 1811.
int DecodeSearchRadio(const std::string& text);
// One character, or an empty text for an id out of range.
std::string EncodeSearchRadio(int id);
// A stored text beginning with "0" means none.
std::string DecodeSearchText(const std::string& text);
