// What the program says: results on the standard output, everything else on the standard error.
#pragma once

#include <cstdint>
#include <string>

// How a command ended; the program's exit code.
enum ExitCode {
    kDone = 0,
    kFound = 1,   // something was found, or left out
    kFailed = 2,  // it cannot be done; nothing was written
};

// To the standard output, as it is.
void Print(const std::string& text);
// Whether all that was printed has arrived: a disk may be full, a pipe closed. Asked at the end.
bool OutputHasArrived();
// A line to the standard error, behind the program's name.
void Tell(const std::string& line);
// Tells why and answers kFailed.
ExitCode Fail(const std::string& name, const std::string& why);

// Ten times a second at most, and only when the standard error is a terminal.
void ShowProgress(const char* what, uint64_t done, uint64_t of);
// Printing and telling do it by themselves; to be called at the end of the work.
void ClearProgress();
