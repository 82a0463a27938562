// Dialog 1600: which program edits the files of each kind.
#pragma once

#include <windows.h>

#include <string>

#include "base/modes.h"

// "*.WAV"
std::string FilePattern(const MediaType& type);

// Opens on one kind of file; nothing is written before OK. The owner is disabled meanwhile and
// enabled afterwards, unless it was disabled before.
void ShowEditorsDialog(HWND owner, const MediaType& type);
// Opens on the current mode's first kind; on wave files in cdplayer mode.
void ShowEditorsDialog(HWND owner);
