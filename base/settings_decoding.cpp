// The pure half of the settings.
#include "base/settings_decoding.h"

#include <algorithm>

#include "base/modes.h"
#include "resources/ids.h"

char CharacterAt(const std::string& text, size_t position) {
    return position < text.size() ? text[position] : '\0';
}

int DecodeMode(const std::string& text) {
    for (const Mode& mode : Modes()) {
        if (CharacterAt(text, 0) == mode.name[0]) return mode.id;
    }
    return IDC_MODE_CDPLAYER;
}

bool DecodeOnOff(const std::string& text) {
    // The second letter tells "On" from "Off"; only the small one counts.
    return CharacterAt(text, 1) == 'n';
}

uint16_t DecodeTimerSpeed(const std::string& text) {
    for (const uint16_t speedMs : kTimerSpeedsMs) {
        if (text.substr(0, 1) == EncodeTimerSpeed(speedMs)) return speedMs;
    }
    return 1000;
}

std::string EncodeTimerSpeed(uint16_t milliseconds) {
    const auto* end = std::end(kTimerSpeedsMs);
    const auto* found = std::find(std::begin(kTimerSpeedsMs), end, milliseconds);
    return found == end ? "" : std::to_string(found - std::begin(kTimerSpeedsMs) + 1);
}

void DecodeListFilter(const std::string& text, char firstLetter, char secondLetter, bool& first,
                      bool& second) {
    const char letter = CharacterAt(text, 0);
    if (letter != 'B' && letter != firstLetter && letter != secondLetter) return;
    first = letter != secondLetter;
    second = letter != firstLetter;
}

int DecodeSearchRadio(const std::string& text) {
    const char letter = CharacterAt(text, 0);
    if (letter < '1' || letter > '9') return IDC_SEARCH_RADIO_LAST;
    return IDC_SEARCH_RADIO_FIRST + (letter - '1');
}

std::string EncodeSearchRadio(int id) {
    if (id < IDC_SEARCH_RADIO_FIRST || id > IDC_SEARCH_RADIO_LAST) return {};
    const int index = id - IDC_SEARCH_RADIO_FIRST;
    return std::string(1, id == IDC_SEARCH_RADIO_LAST ? 'A' : static_cast<char>('1' + index));
}

std::string DecodeSearchText(const std::string& text) {
    return CharacterAt(text, 0) == '0' ? std::string() : text;
}
