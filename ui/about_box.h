// The About box (dialog 1100) and, behind its hidden Alt+E, the credits (dialog 2700).
#pragma once

#include <windows.h>

void ShowAboutBox(HWND owner);
