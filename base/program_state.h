// Process-wide state that everybody reads. Only app/ writes it, but for MessageText, which every
// caller of a box fills. The mode and its directory stand in modes.h.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

#include "base/modes.h"

// Everything that base/ owns, settings, mode and directories too, as the program starts with it;
// the instance is the one whose resources are used.
void ResetProgramState(HINSTANCE instance);

extern HINSTANCE ProgramInstance;
extern HWND MainWindow;  // null before the window exists and after it is destroyed

// What the command line asked for.
extern bool StartFileGiven;
extern bool PlayOnStart;
extern uint16_t StartTrack;
extern std::string StartFileName;

// True from the first step of shutting down; notifications that arrive later are ignored.
extern bool ShuttingDown;

// The text that the message and question boxes show.
constexpr int kMessageTextSize = 256;
extern char MessageText[kMessageTextSize];
// Copies at most 255 bytes.
void SetMessageText(const std::string& text);
