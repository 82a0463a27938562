// Plays the synthesizer through the wave device on a thread of its own.
#pragma once

#include <cstdint>

// Opens the wave device and starts playing; false if it cannot be opened or is already running.
bool StartEngine();

// Takes a packed MIDI short message; does nothing while the engine is not running.
void SendToEngine(uint32_t message);

// Ends every note; they fade in the time their instruments take.
void QuietEngine();

// Fades out, ends the thread and closes the wave device, all within about a quarter second and
// without waiting for it; the engine can be started again at once.
void StopEngine();
