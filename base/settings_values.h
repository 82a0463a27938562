// The settings as they stand in memory.
#pragma once

#include <cstdint>
#include <string>

#include "base/search_fields.h"
#include "resources/ids.h"

// How often read-outs may change, in milliseconds. 666 is meant, although it is called 667 to the
// user.
constexpr uint16_t kTimerSpeedsMs[] = {100, 333, 500, 666, 1000};

// How much of a catalogue entry is shown.
enum class DatabaseLayout { kSimple, kAdvanced };

// The database search's options, section [SEARCH].
struct SearchSettings : SearchFields {
    bool caseSensitive = false;
    bool textSearch = true;
    bool entireDatabase = true;
    int radioId = IDC_SEARCH_RADIO_FIRST;  // up to IDC_SEARCH_RADIO_LAST
    std::string text;                      // at most 254 characters

    bool operator==(const SearchSettings&) const = default;
};

// The in-memory copy of the file. The initial values are the built-in ones, in force when the
// program starts with a media file and the file is not read.
struct SettingsValues {
    bool soundControls = true;
    bool videoFrames = true;  // video position in frame numbers, else as time
    bool recreationScroll = false;
    bool listMid = true;
    bool listRmi = true;
    bool listAvi = true;
    bool listMov = true;
    uint16_t timerSpeedMs = kTimerSpeedsMs[0];
    bool waveAnimation = true;
    bool midiAnimation = true;
    bool videoAnimation = true;
    bool cdAnimation = true;
    bool entryFieldColorization = false;
    DatabaseLayout databaseLayout = DatabaseLayout::kSimple;
    bool editorChosen[5] = {};  // WAV, MID, RMI, AVI, MOV
    bool volumeChosen = false;
    SearchSettings search;

    bool operator==(const SettingsValues&) const = default;
};
