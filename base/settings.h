// The settings file TARNWELL.INI: what it holds in memory, how its texts are decoded and encoded.
#pragma once

#include <cstdint>
#include <string>

#include "resources/ids.h"

// How much of a catalogue entry is shown.
enum class DatabaseLayout { kSimple, kAdvanced };

// The database search's options, section [SEARCH].
struct SearchSettings {
    bool track = true;
    bool artist = true;
    bool discName = true;
    bool category = true;
    bool label = true;
    bool notes = true;
    bool yearReleased = true;
    bool caseSensitive = false;
    bool textSearch = true;
    bool entireDatabase = true;
    int radioId = IDC_SEARCH_RADIO_FIRST;  // up to IDC_SEARCH_RADIO_LAST
    std::string text;                      // at most 254 characters
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
    uint16_t timerSpeedMs = 100;  // 100, 333, 500, 666 or 1000
    bool waveAnimation = true;
    bool midiAnimation = true;
    bool videoAnimation = true;
    bool cdAnimation = true;
    bool entryFieldColorization = false;
    DatabaseLayout databaseLayout = DatabaseLayout::kSimple;
    bool editorChosen[5] = {};  // WAV, MID, RMI, AVI, MOV
    bool volumeChosen = false;
    SearchSettings search;
};

extern SettingsValues Settings;
// What a dialog has changed in its copy.
void ReplaceSettings(const SettingsValues& values);

// The settings file's full path; empty before start-up has built it.
extern std::string SettingsPath;

// One key of section [MAIN]: at most `limit` - 1 characters of the stored text, or the default when
// the key or the file is missing.
std::string ReadMainSetting(const char* key, const char* fallback, int limit);
// A null value removes the key. False when the file cannot be written.
bool WriteMainSetting(const char* key, const char* value);

// EntryFieldColorization alone, which start-up needs before everything else.
void ReadColorizationSetting();
// The three media directories into WaveFilesPath, MidiFilesPath and VideoFilesPath.
void ReadMediaDirectories();
// Everything else, PlayMode included. Missing keys take the documented values.
void ReadSettings();
// Failures are not reported: the program is ending.
void WriteSettings();
