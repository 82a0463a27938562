// Playing the selected files of wave and MIDI mode one after another.
#pragma once

#include <windows.h>

#include <string>

// The first state of the file device, the queue and the timers.
void ResetFilePlayer();

// Play: resumes a pause, else starts a new queue from the list's selection. Without a selection
// nothing plays and nothing is said. Video files have no player yet: in video mode nothing happens.
void OnPlay(HWND window);
void OnStop(HWND window);
void OnPause(HWND window);
void OnRepeat(HWND window);
// The queue's next file, while one is open and there is another.
void OnNextFile(HWND window);

// Selects the file that the program was started for: the program ends when it has been played.
// False when the list does not have it.
bool SelectStartFile(HWND window, const std::string& name);

// Forgets what is left of the queue, when the mode whose files they are is left; the program then
// does not end with it either.
void CutPlayQueue(HWND window);

// Forgets what is left of the queue and says that nothing plays any more.
void StopQueue(HWND window);

enum class TickResult {
    kGoOn,
    kEndProgram  // the queue that the program was started for has ended
};
TickResult PositionTick(HWND window);

// WM_HSCROLL of the position scroll bar; thumb is the 16-bit position of the message.
void OnFileScroll(HWND window, int code, int thumb);
