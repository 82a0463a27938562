// What a dialog shows while a long run keeps its one thread busy.
#pragma once

#include <windows.h>

#include <string>

// The hourglass, up to the end of the scope.
struct WaitCursor {
    HCURSOR before;

    WaitCursor();
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
    ~WaitCursor();
};

// A dialog's status line during one run.
struct RunStatus {
    HWND dialog;
    DWORD shownAt = 0;  // in the system's milliseconds
};

// Shows a text at once, and keeps the windows painted.
void ShowStatus(RunStatus& status, const std::string& text);
// True at most twenty times a second: only then the next text is worth making and showing.
bool StatusIsDue(const RunStatus& status);

// The system's order of texts, in which artists are sorted.
int CompareInSystemOrder(const char* first, const char* second);
