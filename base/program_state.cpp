// Process-wide state that everybody reads.
#include "base/program_state.h"

#include <algorithm>
#include <cstring>

#include "resources/ids.h"

HINSTANCE ProgramInstance;
HWND MainWindow;
int PlayMode = IDC_MODE_CDPLAYER;
std::string WaveFilesPath = "c:\\";
std::string MidiFilesPath = "c:\\";
std::string VideoFilesPath = "c:\\";
bool StartFileGiven;
bool PlayOnStart;
uint16_t StartTrack;
std::string StartFileName;
bool ShuttingDown;
char MessageText[kMessageTextSize];

bool InCdMode() {
    return PlayMode == IDC_MODE_CDPLAYER;
}

std::string* ModeDirectory() {
    switch (PlayMode) {
        case IDC_MODE_WAVE:
            return &WaveFilesPath;
        case IDC_MODE_MIDI:
            return &MidiFilesPath;
        case IDC_MODE_VIDEO:
            return &VideoFilesPath;
        default:
            return nullptr;
    }
}

void SetMessageText(const std::string& text) {
    const size_t length = std::min<size_t>(text.size(), kMessageTextSize - 1);
    memcpy(MessageText, text.data(), length);
    MessageText[length] = '\0';
}
