// The entry point.
#include <windows.h>

#include "app/command_line.h"
#include "app/instance.h"
#include "app/main_window.h"
#include "base/app_directory.h"
#include "base/program_state.h"
#include "base/settings.h"
#include "database/database_file.h"
#include "database/database_recovery.h"
#include "resources/ids.h"
#include "ui/click_sounds.h"
#include "ui/entry_colors.h"
#include "ui/skin.h"

// The settings file's path is not known yet when a media file is named: the two other directories
// then take their default.
static void TakeStartFile(const CommandLineRequest& request) {
    StartFileGiven = true;
    StartFileName = request.fileName;
    ReadMediaDirectories();
    SetPlayMode(request.mode);
    SetModeDirectory(request.directory);
}

static void TakeRequest(const CommandLineRequest& request) {
    PlayOnStart = request.playDisc;
    StartTrack = request.track;
    if (request.mediaFile) TakeStartFile(request);
}

static void FixDirectories() {
    char path[MAX_PATH] = {};
    GetModuleFileNameA(ProgramInstance, path, sizeof path);
    path[sizeof path - 1] = '\0';
    AppDirectory = DirectoryOfExecutable(path);
    CharLowerA(AppDirectory.data());
    SettingsPath = InAppDirectory("TARNWELL.INI");
}

// Until the window is gone: when the program is ended while the user drags the window or the scroll
// bar's thumb, the loop inside the platform takes WM_QUIT away.
static void RunMessageLoop() {
    MSG message = {};
    while (MainWindow != nullptr && GetMessageA(&message, nullptr, 0, 0) > 0) {
        if (IsDialogMessageA(MainWindow, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR commandLine, int showCommand) {
    ResetProgramState(instance);
    // An empty drive is no reason for the system's own pop-up.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    TakeRequest(ParseCommandLine(commandLine));
    if (HandToRunningInstance(commandLine)) return 0;

    FixDirectories();
    ReadColorizationSetting();
    CreateBackgroundBrush();
    RegisterMainWindowClass();
    if (!StartFileGiven) ReadMediaDirectories();
    // Before the first look into the catalogue, which would create an empty one for a missing file.
    ResetDatabaseState();
    RecoverDatabase();
    if (CreateMainWindow() == nullptr) return 1;
    ShowWindow(MainWindow, showCommand);
    // A request that waits in the queue may take its time; the window is drawn before.
    UpdateWindow(MainWindow);
    RunMessageLoop();
    FreeSkin();
    FreeClickSound();
    return 0;
}
