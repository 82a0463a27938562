// Dialog 1900: which program is the volume mixer.
#pragma once

#include <windows.h>

// Nothing is written before OK. The owner is disabled meanwhile and enabled afterwards, unless it
// was disabled before.
void ShowMixerDialog(HWND owner);
