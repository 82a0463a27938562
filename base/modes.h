// The four modes and the five kinds of media file: one row for each, with all that tells them
// apart.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "base/settings_values.h"
#include "resources/skin_map.h"

// The kinds of media that can be switched off; which of them are is for playback/ to say.
struct DriverFlags {
    bool cdAudio = true;
    bool sequencer = true;
    bool videoForWindows = true;
    bool quickTime = true;
    bool wave = true;
};

struct MediaType {
    const char* extension;         // "Wav"; the names of its settings begin with it too
    bool SettingsValues::*listed;  // the filter that lists it; null when nothing filters it
    bool DriverFlags::*driver;
    const char* driverMissing;  // what is said when the driver is switched off
};

// WAV, MID, RMI, AVI, MOV: the order of SettingsValues::editorChosen.
std::span<const MediaType> MediaTypes();

struct Mode {
    int id;                            // of its tab
    const char* name;                  // as it is stored, told by its first letter
    const char* label;                 // begins its texts, "Wave Files:", and its settings' keys
    std::span<const MediaType> types;  // the files it lists; none in cdplayer mode
    std::string* directory;            // null in cdplayer mode
    bool showsVideo;                   // the picture takes the animation's timer and palette
    bool SettingsValues::*animation;   // whether its animation is shown
    int animationArea;                 // control of the strip; 0 without one
    const SkinStrip* strip;            // null without one
    const SkinStrip* sprite;
    SkinFace tab;
    SkinFace selectedTab;
};

// Wave, midi, video, cdplayer: the order of their tabs.
std::span<const Mode> Modes();
// Null for an id that is no mode's.
const Mode* FindMode(int id);

// The mode and the directories of a start without settings.
void ResetModes();

// Control id of the current mode's tab: IDC_MODE_WAVE to IDC_MODE_CDPLAYER.
extern int PlayMode;
void SetPlayMode(int id);
const Mode& CurrentMode();
bool InCdMode();

// The mode that lists files of an extension, given without its dot and in any case; null for
// others.
const Mode* ModeOfExtension(const std::string& extension);
// The masks of the files that a mode lists, as its filters allow: "*.Mid" and so on.
std::vector<std::string> ListedMasks(const Mode& mode, const SettingsValues& settings);
// The kind of a file of a mode by the first letter of its extension; the first kind when no letter
// fits. The mode must list files.
const MediaType& TypeOfFile(const Mode& mode, const std::string& name);

// Directories of the three file modes, each ending in a backslash.
extern std::string WaveFilesPath;
extern std::string MidiFilesPath;
extern std::string VideoFilesPath;
// The current file mode's directory; null in cdplayer mode.
const std::string* ModeDirectory();
// Does nothing in cdplayer mode.
void SetModeDirectory(const std::string& directory);
