// Reading and writing TARNWELL.INI through the platform's profile functions.
#include "base/settings.h"

#include <windows.h>

#include <vector>

#include "base/modes.h"
#include "base/settings_decoding.h"

SettingsValues Settings;
std::string SettingsPath;

void ReplaceSettings(const SettingsValues& values) {
    Settings = values;
}

static const char kMain[] = "MAIN";
static const char kSearch[] = "SEARCH";
static const char kDirectoryDefault[] = "c:\\";

constexpr int kDecodedLimit = 30;
constexpr int kColorizationLimit = 255;
constexpr int kDirectoryLimit = 260;
constexpr int kSearchTextLimit = 255;

static std::string ReadSetting(const char* section, const char* key, const char* fallback,
                               int limit) {
    // The buffer starts zeroed, so a value shorter than the decoded position reads as NUL there.
    std::vector<char> buffer(static_cast<size_t>(limit) + 1, '\0');
    GetPrivateProfileStringA(section, key, fallback, buffer.data(), static_cast<DWORD>(limit),
                             SettingsPath.c_str());
    return buffer.data();
}

std::string ReadMainSetting(const char* key, const char* fallback, int limit) {
    return ReadSetting(kMain, key, fallback, limit);
}

bool WriteMainSetting(const char* key, const char* value) {
    return WritePrivateProfileStringA(kMain, key, value, SettingsPath.c_str()) != FALSE;
}

static std::string ReadMainWord(const char* key) {
    return ReadMainSetting(key, kDirectoryDefault, kDecodedLimit);
}

static bool ReadMainSwitch(const char* key) {
    return DecodeOnOff(ReadMainWord(key));
}

static bool ReadChosen(const std::string& key, std::string& text) {
    text = ReadMainSetting(key.c_str(), "0", kDirectoryLimit);
    return !text.empty() && text[0] != '0';
}

bool ReadProgramSetting(const std::string& name, std::string& directory, std::string& file) {
    std::string storedDirectory;
    std::string storedFile;
    if (!ReadChosen(name + "Path", storedDirectory) || !ReadChosen(name + "Name", storedFile)) {
        return false;
    }
    directory = storedDirectory;
    file = storedFile;
    return true;
}

static bool IsProgramChosen(const std::string& name) {
    std::string directory;
    std::string file;
    return ReadProgramSetting(name, directory, file);
}

static char ReadSearchLetter(const char* key) {
    return CharacterAt(ReadSetting(kSearch, key, "0", kDecodedLimit), 0);
}

struct SearchSwitch {
    const char* key;
    bool SearchSettings::*field;
    bool onUnlessFalse;  // else off unless "TRUE"
};
constexpr SearchSwitch kSearchSwitches[] = {
    {"SearchTrack", &SearchSettings::track, true},
    {"SearchArtist", &SearchSettings::artist, true},
    {"SearchDiscName", &SearchSettings::discName, true},
    {"SearchCategory", &SearchSettings::category, true},
    {"SearchLabel", &SearchSettings::label, true},
    {"SearchNotes", &SearchSettings::notes, true},
    {"SearchYearReleased", &SearchSettings::yearReleased, true},
    {"CaseSensitive", &SearchSettings::caseSensitive, false},
    {"TextSearch", &SearchSettings::textSearch, true},
    {"SearchEntireDatabase", &SearchSettings::entireDatabase, false},
};

static std::string Key(const Mode& mode, const char* rest) {
    return std::string(mode.label) + rest;
}

void ReadColorizationSetting() {
    Settings.entryFieldColorization = DecodeOnOff(
        ReadMainSetting("EntryFieldColorization", kDirectoryDefault, kColorizationLimit));
}

void ReadMediaDirectories() {
    for (const Mode& mode : Modes()) {
        if (mode.directory == nullptr) continue;
        *mode.directory =
            ReadMainSetting(Key(mode, "FilesPath").c_str(), kDirectoryDefault, kDirectoryLimit);
    }
}

static void ReadSearchSettings() {
    SearchSettings& search = Settings.search;
    for (const SearchSwitch& item : kSearchSwitches) {
        const char letter = ReadSearchLetter(item.key);
        search.*item.field = item.onUnlessFalse ? letter != 'F' : letter == 'T';
    }
    search.radioId = DecodeSearchRadio(ReadSetting(kSearch, "RadioSearch", "0", kDecodedLimit));
    search.text = DecodeSearchText(ReadSetting(kSearch, "StringMatch", "0", kSearchTextLimit));
}

static void ReadListFilter(const Mode& mode) {
    const MediaType& first = mode.types[0];
    const MediaType& second = mode.types[1];
    DecodeListFilter(ReadMainWord(Key(mode, "ListBox").c_str()), first.extension[0],
                     second.extension[0], Settings.*first.listed, Settings.*second.listed);
}

void ReadSettings() {
    SetPlayMode(DecodeMode(ReadMainWord("TarnwellMode")));
    Settings.soundControls = ReadMainSwitch("SoundControls");
    Settings.videoFrames = CharacterAt(ReadMainWord("VideoOutput"), 0) == 'F';
    Settings.recreationScroll = CharacterAt(ReadMainWord("ScrollBar"), 0) == 'R';
    for (const Mode& mode : Modes()) {
        if (mode.types.size() == 2) ReadListFilter(mode);
    }
    Settings.timerSpeedMs = DecodeTimerSpeed(ReadMainWord("TimerSpeed"));
    for (const Mode& mode : Modes()) {
        Settings.*mode.animation = ReadMainSwitch(Key(mode, "Animation").c_str());
    }
    Settings.databaseLayout = CharacterAt(ReadMainWord("CDDatabaseMode"), 0) == 'S'
                                  ? DatabaseLayout::kSimple
                                  : DatabaseLayout::kAdvanced;
    for (size_t i = 0; i < std::size(Settings.editorChosen); ++i) {
        Settings.editorChosen[i] =
            IsProgramChosen(MediaTypes()[i].extension + std::string("Editor"));
    }
    Settings.volumeChosen = IsProgramChosen("VolumeApplication");
    ReadSearchSettings();
}

static void WriteSearch(const char* key, const char* value) {
    WritePrivateProfileStringA(kSearch, key, value, SettingsPath.c_str());
}

static const char* OnOff(bool on) {
    return on ? "On" : "Off";
}

// The last write wins, so "Both" stands when both kinds are listed; nothing is written for neither.
static void WriteListFilter(const Mode& mode) {
    const std::string key = Key(mode, "Listbox");
    const MediaType& first = mode.types[0];
    const MediaType& second = mode.types[1];
    const bool listsFirst = Settings.*first.listed;
    const bool listsSecond = Settings.*second.listed;
    if (listsFirst) WriteMainSetting(key.c_str(), first.extension);
    if (listsSecond) WriteMainSetting(key.c_str(), second.extension);
    if (listsFirst && listsSecond) WriteMainSetting(key.c_str(), "Both");
}

void WriteSettings() {
    WriteMainSetting("VideoOutput", Settings.videoFrames ? "Frames" : "Time");
    WriteMainSetting("ScrollBar", Settings.recreationScroll ? "Recreation" : "Normal");
    WriteMainSetting("SoundControls", OnOff(Settings.soundControls));
    for (const Mode& mode : Modes()) {
        if (mode.types.size() == 2) WriteListFilter(mode);
    }
    const std::string speed = EncodeTimerSpeed(Settings.timerSpeedMs);
    if (!speed.empty()) WriteMainSetting("TimerSpeed", speed.c_str());
    for (const Mode& mode : Modes()) {
        if (mode.directory == nullptr) continue;
        WriteMainSetting(Key(mode, "FilesPath").c_str(), mode.directory->c_str());
    }
    WriteMainSetting("TarnwellMode", CurrentMode().name);
    for (const Mode& mode : Modes()) {
        WriteMainSetting(Key(mode, "Animation").c_str(), OnOff(Settings.*mode.animation));
    }
    WriteMainSetting("EntryFieldColorization", OnOff(Settings.entryFieldColorization));
    WriteMainSetting("CDDatabaseMode",
                     Settings.databaseLayout == DatabaseLayout::kSimple ? "Simple" : "Advanced");
    for (const SearchSwitch& item : kSearchSwitches) {
        WriteSearch(item.key, Settings.search.*item.field ? "TRUE" : "FALSE");
    }
    WriteSearch("RadioSearch", EncodeSearchRadio(Settings.search.radioId).c_str());
    WriteSearch("StringMatch", Settings.search.text.c_str());
}
