// Playing the selected files of wave, MIDI and video mode one after another.
#pragma once

#include <windows.h>

#include <string>

// The first state of the file device, the queue and the timers.
void ResetFilePlayer();

// The commands of the file modes; none may come in cdplayer mode.
// Play: resumes a pause, else starts a new queue from the list's selection. Without a selection
// nothing plays and nothing is said. A film that is larger than the frame is played in a window of
// its own before this returns.
void OnPlay(HWND window);
void OnStop(HWND window);
void OnPause(HWND window);
void OnRepeat(HWND window);
// The queue's next file, while one is open and there is another.
void OnNextFile(HWND window);
// Switches the sound of films, in video mode.
void OnSound(HWND window);

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
