// Stand-ins at the product's seams: a media control interface that records and can fail, boxes that
// answer by themselves, and the real main window to write to, hidden, in a directory of its own.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include <windows.h>

#include "playback/mci.h"

struct FakeMci {
    // One line per command: "OPEN element wait c:\x.wav", "PLAY from 5 to 5", "STATUS mode".
    std::vector<std::string> log;
    // Answers of status items, by item; 0 where none is given.
    std::map<DWORD, DWORD> status;
    // The call (counted from 0 since the last clear) that fails, and with what; -1 for none.
    int failingCall = -1;
    MCIERROR failure = MCIERR_HARDWARE;
    int calls = 0;
};
extern FakeMci TheMci;

struct FakeBoxes {
    std::vector<std::string> shown;  // texts of message and question boxes, in order
    bool answerOk = true;
    std::function<void()> whileOpen;  // runs inside the next box, once
};
extern FakeBoxes TheBoxes;

// Puts fresh stand-ins in place. With the fake, error codes read "error N".
void UseStandIns();

// The main window in a file mode, made anew on every call; the mode's directory holds these files.
void OpenTestWindow(int mode, const std::vector<std::string>& files);
void CloseTestWindow();

// An empty directory of the test's own, with its trailing backslash.
std::string FreshDirectory();

// Dispatches what is in the message queue.
void PumpMessages();
