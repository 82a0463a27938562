// The two ways out of the program.
#pragma once

// Exit and the system menu's Close: stops everything, lets the exit sound play to its end, writes
// the settings and destroys the main window.
void ShutDown();

// The end of a queue that the program was started for: the same without sound and settings.
void EndProgram();
