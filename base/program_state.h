// Process-wide state that everybody reads. Only app/ writes it, but for MessageText, which every
// caller of a box fills.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

extern HINSTANCE ProgramInstance;
extern HWND MainWindow;  // null before the window exists and after it is destroyed

// Control id of the current mode's tab: IDC_MODE_WAVE to IDC_MODE_CDPLAYER.
extern int PlayMode;

// Directories of the three file modes, each ending in a backslash.
extern std::string WaveFilesPath;
extern std::string MidiFilesPath;
extern std::string VideoFilesPath;

// What the command line asked for.
extern bool StartFileGiven;
extern bool PlayOnStart;
extern uint16_t StartTrack;
extern std::string StartFileName;

// True from the first step of shutting down; notifications that arrive later are ignored.
extern bool ShuttingDown;

bool InCdMode();

// The current file mode's directory; null in cdplayer mode.
std::string* ModeDirectory();

// The text that the message and question boxes show.
constexpr int kMessageTextSize = 256;
extern char MessageText[kMessageTextSize];
// Copies at most 255 bytes.
void SetMessageText(const std::string& text);
