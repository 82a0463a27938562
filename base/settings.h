// The settings file TARNWELL.INI and its copy in memory: reading and writing it.
#pragma once

#include <string>

#include "base/settings_values.h"

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

// A program that the user has chosen: NAMEPath, its directory, and NAMEName. Asks the file at each
// call. False when none is chosen; the outputs are then left alone.
bool ReadProgramSetting(const std::string& name, std::string& directory, std::string& file);

// EntryFieldColorization alone, which start-up needs before everything else.
void ReadColorizationSetting();
// The three media directories into WaveFilesPath, MidiFilesPath and VideoFilesPath.
void ReadMediaDirectories();
// Everything else, PlayMode included. Missing keys take the documented values.
void ReadSettings();
// Failures are not reported: the program is ending.
void WriteSettings();
