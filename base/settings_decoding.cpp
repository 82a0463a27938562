// The pure half of the settings.
#include "base/settings_decoding.h"

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

struct TimerSpeed {
    char letter;
    const char* text;
    uint16_t milliseconds;
};
// 666 is meant, although the set-up dialog labels it 667.
constexpr TimerSpeed kTimerSpeeds[] = {
    {'1', "1", 100}, {'2', "2", 333}, {'3', "3", 500}, {'4', "4", 666}, {'5', "5", 1000}};

uint16_t DecodeTimerSpeed(const std::string& text) {
    for (const TimerSpeed& speed : kTimerSpeeds) {
        if (CharacterAt(text, 0) == speed.letter) return speed.milliseconds;
    }
    return 1000;
}

const char* EncodeTimerSpeed(uint16_t milliseconds) {
    for (const TimerSpeed& speed : kTimerSpeeds) {
        if (milliseconds == speed.milliseconds) return speed.text;
    }
    return nullptr;
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
