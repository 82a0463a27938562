// Process-wide state that everybody reads.
#include "base/program_state.h"

#include <algorithm>
#include <cstring>

#include "base/app_directory.h"
#include "base/settings.h"

HINSTANCE ProgramInstance;
HWND MainWindow;
bool StartFileGiven;
bool PlayOnStart;
uint16_t StartTrack;
std::string StartFileName;
bool ShuttingDown;
char MessageText[kMessageTextSize];

void ResetProgramState(HINSTANCE instance) {
    ProgramInstance = instance;
    MainWindow = nullptr;
    StartFileGiven = false;
    PlayOnStart = false;
    StartTrack = 0;
    StartFileName.clear();
    ShuttingDown = false;
    MessageText[0] = '\0';
    AppDirectory.clear();
    SettingsPath.clear();
    ReplaceSettings({});
    ResetModes();
}

void SetMessageText(const std::string& text) {
    const size_t length = std::min<size_t>(text.size(), kMessageTextSize - 1);
    memcpy(MessageText, text.data(), length);
    MessageText[length] = '\0';
}
