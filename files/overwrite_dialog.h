// Dialog 900: whether a file in the way may be overwritten.
#pragma once

#include <windows.h>

#include <string>

enum class OverwriteAnswer { kThisFile, kAllFiles, kNo };

// Shows both files with size and date and asks.
OverwriteAnswer AskToOverwrite(HWND owner, const std::string& source, const std::string& target);
