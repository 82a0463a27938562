// The file information dialogs: 1200 for wave, 1300 for MIDI, 1400 for video files.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

// One dialog after the other for these files of the current mode's directory. Of several, each can
// be the last: Cancel ends the series. A file that does not open is reported and passed over.
// Nothing may be playing.
void ShowFileInformation(HWND owner, const std::vector<std::string>& names);
