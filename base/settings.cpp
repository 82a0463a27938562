// Reading and writing TARNWELL.INI through the platform's profile functions.
#include "base/settings.h"

#include <windows.h>

#include <vector>

#include "base/program_state.h"
#include "base/settings_decoding.h"

SettingsValues Settings;
std::string SettingsPath;

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

static bool IsProgramChosen(const char* key) {
    return CharacterAt(ReadMainSetting(key, "0", kDecodedLimit), 0) != '0';
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

void ReadColorizationSetting() {
    Settings.entryFieldColorization = DecodeOnOff(
        ReadMainSetting("EntryFieldColorization", kDirectoryDefault, kColorizationLimit));
}

void ReadMediaDirectories() {
    WaveFilesPath = ReadMainSetting("WaveFilesPath", kDirectoryDefault, kDirectoryLimit);
    MidiFilesPath = ReadMainSetting("MidiFilesPath", kDirectoryDefault, kDirectoryLimit);
    VideoFilesPath = ReadMainSetting("VideoFilesPath", kDirectoryDefault, kDirectoryLimit);
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

void ReadSettings() {
    PlayMode = DecodeMode(ReadMainWord("TarnwellMode"));
    Settings.soundControls = ReadMainSwitch("SoundControls");
    Settings.videoFrames = CharacterAt(ReadMainWord("VideoOutput"), 0) == 'F';
    Settings.recreationScroll = CharacterAt(ReadMainWord("ScrollBar"), 0) == 'R';
    DecodeListFilter(ReadMainWord("MidiListBox"), 'M', 'R', Settings.listMid, Settings.listRmi);
    DecodeListFilter(ReadMainWord("VideoListBox"), 'A', 'M', Settings.listAvi, Settings.listMov);
    Settings.timerSpeedMs = DecodeTimerSpeed(ReadMainWord("TimerSpeed"));
    Settings.waveAnimation = ReadMainSwitch("WaveAnimation");
    Settings.midiAnimation = ReadMainSwitch("MidiAnimation");
    Settings.videoAnimation = ReadMainSwitch("VideoAnimation");
    Settings.cdAnimation = ReadMainSwitch("CDAnimation");
    Settings.databaseLayout = CharacterAt(ReadMainWord("CDDatabaseMode"), 0) == 'S'
                                  ? DatabaseLayout::kSimple
                                  : DatabaseLayout::kAdvanced;
    static const char* const editorKeys[] = {"WavEditorPath", "MidEditorPath", "RmiEditorPath",
                                             "AviEditorPath", "MovEditorPath"};
    for (size_t i = 0; i < std::size(editorKeys); ++i) {
        Settings.editorChosen[i] = IsProgramChosen(editorKeys[i]);
    }
    Settings.volumeChosen = IsProgramChosen("VolumeApplicationPath");
    ReadSearchSettings();
}

static void WriteSearch(const char* key, const char* value) {
    WritePrivateProfileStringA(kSearch, key, value, SettingsPath.c_str());
}

static const char* OnOff(bool on) {
    return on ? "On" : "Off";
}

// The last write wins, so "Both" stands when both kinds are listed; nothing is written for neither.
static void WriteListFilter(const char* key, const char* firstName, bool first,
                            const char* secondName, bool second) {
    if (first) WriteMainSetting(key, firstName);
    if (second) WriteMainSetting(key, secondName);
    if (first && second) WriteMainSetting(key, "Both");
}

void WriteSettings() {
    WriteMainSetting("VideoOutput", Settings.videoFrames ? "Frames" : "Time");
    WriteMainSetting("ScrollBar", Settings.recreationScroll ? "Recreation" : "Normal");
    WriteMainSetting("SoundControls", OnOff(Settings.soundControls));
    WriteListFilter("MidiListbox", "Mid", Settings.listMid, "Rmi", Settings.listRmi);
    WriteListFilter("VideoListbox", "Avi", Settings.listAvi, "Mov", Settings.listMov);
    if (const char* speed = EncodeTimerSpeed(Settings.timerSpeedMs)) {
        WriteMainSetting("TimerSpeed", speed);
    }
    WriteMainSetting("WaveFilesPath", WaveFilesPath.c_str());
    WriteMainSetting("MidiFilesPath", MidiFilesPath.c_str());
    WriteMainSetting("VideoFilesPath", VideoFilesPath.c_str());
    if (const char* mode = EncodeMode(PlayMode)) WriteMainSetting("TarnwellMode", mode);
    WriteMainSetting("WaveAnimation", OnOff(Settings.waveAnimation));
    WriteMainSetting("MidiAnimation", OnOff(Settings.midiAnimation));
    WriteMainSetting("VideoAnimation", OnOff(Settings.videoAnimation));
    WriteMainSetting("CDAnimation", OnOff(Settings.cdAnimation));
    WriteMainSetting("EntryFieldColorization", OnOff(Settings.entryFieldColorization));
    WriteMainSetting("CDDatabaseMode",
                     Settings.databaseLayout == DatabaseLayout::kSimple ? "Simple" : "Advanced");
    for (const SearchSwitch& item : kSearchSwitches) {
        WriteSearch(item.key, Settings.search.*item.field ? "TRUE" : "FALSE");
    }
    WriteSearch("RadioSearch", EncodeSearchRadio(Settings.search.radioId).c_str());
    WriteSearch("StringMatch", Settings.search.text.c_str());
}
