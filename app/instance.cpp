// One main window per desktop.
#include "app/instance.h"

#include <windows.h>

#include "app/command_line.h"
#include "resources/ids.h"

// The main window's title, by which a running program is found.
constexpr char kMainWindowTitle[] = "Tarnwell 1.1";

// A folder that bears the program's name is shown in a window with the same title.
static bool IsFolderWindow(HWND window) {
    char className[32] = {};
    GetClassNameA(window, className, sizeof className);
    return lstrcmpiA(className, "CabinetWClass") == 0 || lstrcmpiA(className, "ExploreWClass") == 0;
}

static bool HasExactTitle(HWND window) {
    // The search for a window ignores case.
    char title[64] = {};
    GetWindowTextA(window, title, sizeof title);
    return std::string(title) == kMainWindowTitle;
}

static HWND FindRunningWindow() {
    HWND window = nullptr;
    while ((window = FindWindowExA(nullptr, window, nullptr, kMainWindowTitle)) != nullptr) {
        if (HasExactTitle(window) && !IsFolderWindow(window)) return window;
    }
    return nullptr;
}

bool HandToRunningInstance(const std::string& commandLine) {
    HWND running = FindRunningWindow();
    if (running == nullptr) return false;
    uint16_t track = 0;
    if (ForwardedTrack(commandLine, track)) {
        PostMessageA(running, WM_COMMAND, IDC_CD_PLAY,
                     static_cast<LPARAM>(MAKELONG(track, kCommandLineMarker)));
    }
    // Bringing to the top alone does not raise another program's window; a dialog it has open comes
    // first, and is asked for while it still is the last one that was active.
    HWND front = GetLastActivePopup(running);
    BringWindowToTop(running);
    if (IsIconic(running)) ShowWindow(running, SW_RESTORE);
    SetForegroundWindow(front);
    return true;
}
