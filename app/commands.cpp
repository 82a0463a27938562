// The main window's commands: one row per control id, each with its handler.
#include "app/commands.h"

#include "app/directory_field.h"
#include "app/file_commands.h"
#include "app/instance.h"
#include "app/main_buttons.h"
#include "app/modes.h"
#include "app/shutdown.h"
#include "base/program_state.h"
#include "database_dialogs/database_menu.h"
#include "database_dialogs/entry_dialog.h"
#include "files/program_commands.h"
#include "playback/cd_commands.h"
#include "playback/cd_player.h"
#include "playback/cd_readouts.h"
#include "playback/file_player.h"
#include "playback/play_progress.h"
#include "playback/player_timers.h"
#include "resources/ids.h"
#include "ui/about_box.h"
#include "ui/click_sounds.h"
#include "ui/dialog_helpers.h"

static void OnAbout(HWND window) {
    ShowAboutBox(window);
}

static void OnExit(HWND) {
    ShutDown();
}

static void OnCdPlayCurrent(HWND window) {
    OnCdPlay(window, 0);
}

static void OnEntry(HWND window) {
    DiscToc disc;
    if (!PrepareEntry(window, disc)) return;
    ShowEntryDialog(window, disc);
    RefreshDiscTitles(window);
}

static void OnGarnish(HWND window) {
    ShowDatabaseMenu(window);
    RefreshDiscTitles(window);
}

enum class CommandKind { kAnyMode, kFileModes, kCdMode };

struct Command {
    int id;
    CommandKind kind;
    void (*handler)(HWND window);
    int sound = 0;  // played first, where nothing that follows decides about it
};

constexpr Command kCommands[] = {
    {IDC_ABOUT, CommandKind::kAnyMode, OnAbout, IDS_SOUND_ABOUT},
    {IDC_EXIT, CommandKind::kAnyMode, OnExit},
    {IDC_VOLUME, CommandKind::kAnyMode, StartMixer, IDS_SOUND_EDITOR},
    {IDC_PLAY, CommandKind::kFileModes, OnPlay},
    {IDC_STOP, CommandKind::kFileModes, OnStop},
    {IDC_PAUSE, CommandKind::kFileModes, OnPause},
    {IDC_REPEAT, CommandKind::kFileModes, OnRepeat},
    {IDC_SOUND, CommandKind::kFileModes, OnSound},
    {IDC_EJECT, CommandKind::kCdMode, OnEject},
    {IDC_CD_PLAY, CommandKind::kCdMode, OnCdPlayCurrent},
    {IDC_CD_PAUSE, CommandKind::kCdMode, OnCdPause},
    {IDC_CD_STOP, CommandKind::kCdMode, OnCdStop},
    {IDC_SKIP_BACK, CommandKind::kCdMode, OnSkipBack},
    {IDC_SKIP_FORWARD, CommandKind::kCdMode, OnSkipForward},
    {IDC_NEXT_PAGE, CommandKind::kCdMode, OnNextPage},
    {IDC_PREVIOUS_PAGE, CommandKind::kCdMode, OnPreviousPage},
    {IDC_ENTRY, CommandKind::kCdMode, OnEntry},
    {IDC_GARNISH, CommandKind::kCdMode, OnGarnish},
};

// The program itself moves the focus while a command runs; the directory field is not left by that.
static bool InCommand;

void ResetCommands() {
    InCommand = false;
}

static void RunCommand(HWND window, int id) {
    if (FindMode(id) != nullptr) {
        ChangeMode(window, id);
        return;
    }
    if (id >= IDC_TRACK_FIRST && id <= IDC_TRACK_LAST) {
        if (InCdMode()) OnTrackButton(window, id);
        return;
    }
    const CommandKind otherKind = InCdMode() ? CommandKind::kFileModes : CommandKind::kCdMode;
    for (const Command& command : kCommands) {
        if (command.id == id && command.kind != otherKind) {
            if (command.sound != 0) PlayClickSound(command.sound);
            command.handler(window);
            return;
        }
    }
    RunFileCommand(window, id);
}

static void GuardedCommand(HWND window, int id) {
    FinishDirectoryChange();
    const bool outer = InCommand;
    InCommand = true;
    RunCommand(window, id);
    InCommand = outer;
}

// A request to play the disc, posted by a second start or by the program itself: marker and track
// stand in the long parameter, or the marker in the notification code and the track in the
// parameter.
static bool IsDiscRequest(WPARAM wParam, LPARAM lParam, int& track) {
    if (LOWORD(wParam) != IDC_CD_PLAY) return false;
    // A click carries the button's handle, which may look like anything.
    if (reinterpret_cast<HWND>(lParam) == GetDlgItem(MainWindow, IDC_CD_PLAY)) return false;
    if (HIWORD(lParam) == kCommandLineMarker) {
        track = LOWORD(lParam);
        return true;
    }
    if (HIWORD(wParam) == kCommandLineMarker) {
        track = static_cast<int>(lParam);
        return true;
    }
    return false;
}

static void OnDiscRequest(HWND window, int track, bool blocked) {
    if (!blocked) ChangeMode(window, IDC_MODE_CDPLAYER);
    OnCdPlayRequest(window, track, blocked);
}

// What Enter means depends on the focus; elsewhere it means nothing.
static void OnEnter(HWND window) {
    const int focused = GetDlgCtrlID(GetFocus());
    if (focused == IDC_DIRECTORY) {
        OnLeaveDirectoryField();
    } else if (focused == IDC_FILE_LIST) {
        GuardedCommand(window, IDC_PLAY);
    } else if (CurrentFace(focused) != nullptr) {
        GuardedCommand(window, focused);
    }
}

static void OnControl(HWND window, int id, int notification) {
    if (id == IDC_FILE_LIST) {
        if (notification == LBN_DBLCLK) GuardedCommand(window, IDC_PLAY);
    } else if (id == IDC_DIRECTORY) {
        if (notification == EN_KILLFOCUS && !InCommand && !InCdMode()) OnLeaveDirectoryField();
    } else if (id == IDOK) {
        OnEnter(window);
    } else if (id >= IDC_ABOUT && id <= IDC_DIRECTORY &&
               IsClick(notification, CurrentFace(id) != nullptr)) {
        GuardedCommand(window, id);
    }
}

void OnCommand(HWND window, WPARAM wParam, LPARAM lParam, bool blocked) {
    int track = 0;
    if (IsDiscRequest(wParam, lParam, track)) {
        if (!ShuttingDown) OnDiscRequest(window, track, blocked);
    } else if (!blocked) {
        OnControl(window, LOWORD(wParam), HIWORD(wParam));
    }
}

static void OnPlayPauseKey(HWND window) {
    if (InCdMode()) {
        DWORD mode = 0;
        const bool plays = QueryDriveMode(window, mode) && mode == MCI_MODE_PLAY;
        GuardedCommand(window, plays ? IDC_CD_PAUSE : IDC_CD_PLAY);
    } else {
        // A file that has come to its end is open still, but nothing watches it any more.
        GuardedCommand(window, IsPositionTimerRunning(window) ? IDC_PAUSE : IDC_PLAY);
    }
}

bool OnMediaKey(HWND window, int appCommand) {
    switch (appCommand) {
        case APPCOMMAND_MEDIA_PLAY_PAUSE:
            OnPlayPauseKey(window);
            return true;
        case APPCOMMAND_MEDIA_STOP:
            GuardedCommand(window, InCdMode() ? IDC_CD_STOP : IDC_STOP);
            return true;
        case APPCOMMAND_MEDIA_NEXTTRACK:
            if (InCdMode()) {
                GuardedCommand(window, IDC_SKIP_FORWARD);
            } else {
                OnNextFile(window);
            }
            return true;
        case APPCOMMAND_MEDIA_PREVIOUSTRACK:
            if (InCdMode()) {
                GuardedCommand(window, IDC_SKIP_BACK);
            } else {
                ReturnToStart(window);
            }
            return true;
        default:
            return false;
    }
}
