// Stand-ins at the product's seams: a media control interface that records and can fail, boxes that
// answer by themselves, and the real main window to write to, hidden, in a directory of its own.
#pragma once

#include <gmock/gmock.h>

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include <windows.h>

#include <mmsystem.h>

#include "base/program_state.h"
#include "playback/mci.h"
#include "resources/ids.h"

using Log = std::vector<std::string>;

struct FakeMci {
    // One line per command: "open c:\x.wav", "play from 5 to 5", "mode"; to the drive "length 3",
    // "play 5 1:02.30". Flags other than those a command must have are told; a command to a device
    // that is not open is a failure, and so is a film's close right after its stop.
    Log log;
    // Answers of the file device's status items, by item; 0 where none is given.
    std::map<DWORD, DWORD> status = {{MCI_STATUS_LENGTH, 2000}, {MCI_STATUS_MODE, MCI_MODE_PLAY}};
    DWORD frames = 0;   // the length while frames are counted
    RECT picture = {};  // of a film: 0, 0, width and height
    // Answers for "cdaudio"; without it no such driver is installed.
    std::function<MCIERROR(UINT message, DWORD_PTR flags, DWORD_PTR parameters)> drive;
    int callsToFailure = -1;
    MCIERROR failure = MCIERR_HARDWARE;
};
extern FakeMci TheMci;

// An error that the platform has no words for.
constexpr MCIERROR kErrorWithoutText = 999;

// The n-th call from now on (0 is the next) fails, and only that one; -1 for none.
void FailCall(int n, MCIERROR failure = MCIERR_HARDWARE);
// The commands since the last time.
Log TakeLog();

struct FakeBoxes {
    Log shown;  // texts of the boxes, in order; those of questions begin with "? "
    bool answerOk = true;
    std::function<void()> whileOpen;  // runs inside the next box, once
};
extern FakeBoxes TheBoxes;

// Puts fresh stand-ins in place. With the fake, error codes read "error N".
void UseStandIns();

// The main window in a mode, made anew on every call; the file modes' directory holds these files.
void OpenTestWindow(int mode, const std::vector<std::string>& files);
void CloseTestWindow();

// Makes an empty file or, where a backslash ends it, a directory. Answers with the path.
std::string Make(const std::string& path);
// A whole file; empty when there is none.
std::string BytesOf(const std::string& path);
// An empty directory of the test's own, with its trailing backslash.
std::string FreshDirectory();

// A command of the main window, and the texts of its controls.
void Command(int id, int notification = 0);
std::string Text(int id);
bool IsShown(int id);
void ExpectShown(std::initializer_list<std::pair<int, const char*>> texts);
// Selects these entries of the file list and no others.
void SelectFiles(int first, int last);
// The same, and Play.
void PlayFiles(int first, int last);
// What the file device is found to do from now on.
void FileEnds();
void FilePlays();
// A step of the position scroll bar.
void Scroll(int code, int thumb = 0);

// Does something while a key or a button of the mouse is down.
void HoldKey(int key, const std::function<void()>& act);
// Dispatches what is in the message queue.
void PumpMessages();
