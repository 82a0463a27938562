// Drives the real program from a second process, as a person would, and looks at what it shows.
// Every call is bounded: waiting procedures return false at their deadline, and a program that
// hangs makes the reading ones return an empty text or -1.
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

constexpr int kDeadlineMs = 10000;

// A copy of the program in a directory of its own, so that no settings but its own are touched.
struct Program {
    std::string directory;  // with a trailing backslash, in lower case
    HANDLE process = nullptr;
    HWND window = nullptr;
};

// Waits for a condition, asked every 10 ms.
bool WaitUntil(const std::function<bool()>& condition, int deadlineMs = kDeadlineMs);

// A new empty directory with a copy of the EXE that TARNWELL_EXE names and a folder "media". The
// directory of the program before it is removed.
bool PrepareProgram(Program& program);

// One value of the settings file in the program's directory: [MAIN] unless another section is
// named.
void PutSetting(const Program& program, const char* key, const char* value,
                const char* section = "MAIN");
std::string GetSetting(const Program& program, const char* key, const char* section = "MAIN");

// Starts the program with this text, unquoted, behind its name; waits for the visible main window
// and for what it does at its start.
bool StartProgram(Program& program, const std::string& arguments = "");

// Starts a second instance and gives its exit code, -1 if it does not end. The first one's window
// stays the driven one.
int RunSecondInstance(const Program& program, const std::string& arguments);

// The exit code once the program has ended, -1 at the deadline.
int ExitCode(const Program& program, int deadlineMs = kDeadlineMs);

// Ends the program, whatever it is doing. Harmless when it has ended.
void EndProgram(Program& program);

// The control of the program that has the keyboard.
HWND FocusOf(const Program& program);

// The main window's controls, and those of any other dialog.
HWND Control(HWND dialog, int id);
std::string Text(HWND dialog, int id);
std::string Title(HWND window);
std::string ClassOf(HWND window);
bool IsShown(HWND dialog, int id);
// A WM_COMMAND as the control would send it; posted, because it may open a modal dialog.
void Command(HWND dialog, int id, int notification = 0);
// Waits until every command posted so far has been carried out, or has opened a dialog.
bool Settle(const Program& program);
// Puts a text into a field, in place of what is there.
void SetText(HWND dialog, int id, const std::string& text);
// Gives a control of a dialog the keyboard.
void FocusOn(HWND dialog, int id);
// Waits for a text of a control.
bool WaitForText(HWND dialog, int id, const std::string& text, int deadlineMs = kDeadlineMs);

// The dialog that stands in front of the main window; null when none comes before the deadline.
HWND WaitForPopup(const Program& program, int deadlineMs = kDeadlineMs);
// Waits until the main window is in front again and enabled.
bool WaitForNoPopup(const Program& program, int deadlineMs = kDeadlineMs);

std::vector<std::string> ListTexts(HWND list);
void SelectAll(HWND list, bool selected);
bool Select(HWND list, const std::string& text);

// The main window's scroll bar.
int ScrollPosition(const Program& program);
int ScrollMaximum(const Program& program);
// A scroll message as the bar sends it.
void Scroll(const Program& program, int code, int position = 0);

// Mouse and keyboard as the user has them; screen coordinates.
void MoveMouse(POINT at);
void ClickMouse(POINT at);
void HoldMouse(POINT at);
void ReleaseMouse();
POINT CentreOf(HWND window);
void PressKey(uint8_t virtualKey, uint8_t heldKey = 0);
// Brings a window to the front first.
void PressKeyIn(HWND window, uint8_t virtualKey, uint8_t heldKey = 0);

// Root mean square, 0 to 32768, of the last milliseconds that the sound card was given.
double SoundLevel(int lastMs);

// How much of the last milliseconds could be heard, in steps of 10.
int AudibleMs(int lastMs);

// Small media files. A wave is a sine of 440 Hz, 16 bit, mono, 22,050 Hz; the MIDI file holds one
// note for the time given.
void WriteFileBytes(const std::string& path, const std::string& bytes);
// Empty when there is no such file.
std::string FileBytes(const std::string& path);
std::string WaveFile(int lengthMs);
// A wave of any form, its samples given.
struct WaveForm {
    uint16_t tag, channels;
    uint32_t rate;
    uint16_t bits;
};
std::string PackWave(const WaveForm& form, const std::string& data);
std::string MidiFile(int lengthMs);
