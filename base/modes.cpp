// The table of modes and media types.
#include "base/modes.h"

#include <algorithm>

#include "resources/ids.h"

static const char kDefaultDirectory[] = "c:\\";

int PlayMode;
std::string WaveFilesPath;
std::string MidiFilesPath;
std::string VideoFilesPath;

void ResetModes() {
    PlayMode = IDC_MODE_CDPLAYER;
    WaveFilesPath = MidiFilesPath = VideoFilesPath = kDefaultDirectory;
}

constexpr MediaType kMediaTypes[] = {
    {"Wav", nullptr, &DriverFlags::wave, "No MCI Sound driver installed. Can't play file!"},
    {"Mid", &SettingsValues::listMid, &DriverFlags::sequencer,
     "No MCI MIDI sequencer driver installed. Can't play file!"},
    {"Rmi", &SettingsValues::listRmi, &DriverFlags::sequencer,
     "No MCI MIDI sequencer driver installed. Can't play file!"},
    {"Avi", &SettingsValues::listAvi, &DriverFlags::videoForWindows,
     "No MCI Video for Windows driver installed. Can't play file!"},
    {"Mov", &SettingsValues::listMov, &DriverFlags::quickTime,
     "No MCI QuickTime for Windows driver installed. Can't play file!"},
};

constexpr Mode kModes[] = {
    {.id = IDC_MODE_WAVE,
     .name = "wave",
     .label = "Wave",
     .types = {&kMediaTypes[0], 1},
     .directory = &WaveFilesPath,
     .showsVideo = false,
     .animation = &SettingsValues::waveAnimation,
     .animationArea = IDC_WAVE_ANIMATION,
     .strip = &kWaveStrip,
     .sprite = &kWaveSprite,
     .tab = kFaceTabWave,
     .selectedTab = kFaceTabWaveSelected},
    {.id = IDC_MODE_MIDI,
     .name = "midi",
     .label = "Midi",
     .types = {&kMediaTypes[1], 2},
     .directory = &MidiFilesPath,
     .showsVideo = false,
     .animation = &SettingsValues::midiAnimation,
     .animationArea = IDC_MIDI_ANIMATION,
     .strip = &kMidiStrip,
     .sprite = &kMidiSprite,
     .tab = kFaceTabMidi,
     .selectedTab = kFaceTabMidiSelected},
    {.id = IDC_MODE_VIDEO,
     .name = "video",
     .label = "Video",
     .types = {&kMediaTypes[3], 2},
     .directory = &VideoFilesPath,
     .showsVideo = true,
     .animation = &SettingsValues::videoAnimation,
     .animationArea = 0,
     .strip = nullptr,
     .sprite = &kVideoSprite,
     .tab = kFaceTabVideo,
     .selectedTab = kFaceTabVideoSelected},
    {.id = IDC_MODE_CDPLAYER,
     .name = "cdplayer",
     .label = "CD",
     .types = {},
     .directory = nullptr,
     .showsVideo = false,
     .animation = &SettingsValues::cdAnimation,
     .animationArea = IDC_CD_ANIMATION,
     .strip = &kCdStrip,
     .sprite = &kCdSprite,
     .tab = kFaceTabCdPlayer,
     .selectedTab = kFaceTabCdPlayerSelected},
};

std::span<const MediaType> MediaTypes() {
    return kMediaTypes;
}

std::span<const Mode> Modes() {
    return kModes;
}

const Mode* FindMode(int id) {
    const auto* found = std::find_if(std::begin(kModes), std::end(kModes),
                                     [id](const Mode& mode) { return mode.id == id; });
    return found == std::end(kModes) ? nullptr : found;
}

void SetPlayMode(int id) {
    PlayMode = id;
}

const Mode& CurrentMode() {
    const Mode* mode = FindMode(PlayMode);
    return mode != nullptr ? *mode : kModes[std::size(kModes) - 1];
}

bool InCdMode() {
    return CurrentMode().types.empty();
}

static char Lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

static bool IsSameText(const std::string& a, const std::string& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char left, char right) { return Lower(left) == Lower(right); });
}

const Mode* ModeOfExtension(const std::string& extension) {
    for (const Mode& mode : kModes) {
        for (const MediaType& type : mode.types) {
            if (IsSameText(extension, type.extension)) return &mode;
        }
    }
    return nullptr;
}

std::vector<std::string> ListedMasks(const Mode& mode, const SettingsValues& settings) {
    std::vector<std::string> masks;
    for (const MediaType& type : mode.types) {
        if (type.listed == nullptr || settings.*type.listed) {
            masks.push_back(std::string("*.") + type.extension);
        }
    }
    return masks;
}

const MediaType& TypeOfFile(const Mode& mode, const std::string& name) {
    const size_t dot = name.rfind('.');
    const char letter = dot == std::string::npos || dot + 1 == name.size() ? '\0' : name[dot + 1];
    for (const MediaType& type : mode.types) {
        if (Lower(letter) == Lower(type.extension[0])) return type;
    }
    return mode.types.front();
}

const std::string* ModeDirectory() {
    return CurrentMode().directory;
}

void SetModeDirectory(const std::string& directory) {
    if (CurrentMode().directory != nullptr) *CurrentMode().directory = directory;
}
