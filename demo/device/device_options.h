// The options of a virtual device. Each is the value of that name under a registry key of the
// device's own, unless an environment variable, the device's prefix and the name in capitals, gives
// it.
#pragma once

#include <windows.h>

#include <string>

// Every device defines these two: the key under HKEY_CURRENT_USER and the prefix.
extern const wchar_t kOptionsKey[];
extern const wchar_t kOptionsPrefix[];

// Empty when the option is not set.
std::wstring ReadTextOption(const wchar_t* name);

DWORD ReadNumberOption(const wchar_t* name, DWORD fallback);
