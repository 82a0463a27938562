// One main window per desktop: a second start hands its request to the running program.
#pragma once

#include <string>

// High word of the parameter that marks a forwarded request to play the disc.
constexpr unsigned kCommandLineMarker = 6969;

// True when a running program was found; the disc request of the command line, if any, has been
// posted to it and it has been brought to the front.
bool HandToRunningInstance(const std::string& commandLine);
