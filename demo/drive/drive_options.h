// The virtual drive's options. Each is the value of that name under
// HKEY_CURRENT_USER\Software\Tarnwell Virtual Drive, unless an environment variable,
// TARNWELL_DRIVE_ and the name in capitals, gives it:
//   Tray      path of a text file whose first line names the CUE sheet of the disc in the drive
//   (UTF-8,
//             relative to the text file); a missing or empty file is an empty drive
//   Log       path of a text file to which every command is added as it arrives; none by default
//   SpinUpMs  how long a disc takes to become ready after it was put in; 0 by default
//   CanEject  0 for a drive whose door stays shut; 1 by default
#pragma once

#include <windows.h>

#include <string>

// Empty when the option is not set.
std::wstring ReadTextOption(const wchar_t* name);

DWORD ReadNumberOption(const wchar_t* name, DWORD fallback);
