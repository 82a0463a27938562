// Playing the selected files of wave and MIDI mode one after another.
#include "playback/file_player.h"

#include <windows.h>

#include <string>

#include "base/file_description.h"
#include "base/program_state.h"
#include "base/settings.h"
#include "playback/file_list.h"
#include "playback/mci.h"
#include "playback/media_device.h"
#include "playback/play_queue.h"
#include "playback/play_readouts.h"
#include "playback/player_timers.h"
#include "resources/ids.h"
#include "ui/animations.h"
#include "ui/boxes.h"
#include "ui/click_sounds.h"
#include "ui/dialog_helpers.h"

void ResetFilePlayer() {
    MediaDevice = {};
    DriverAvailable = {};
    PlayQueue = {};
    ResetPlayerTimers();
}

// Video has no player yet.
static bool HasPlayer() {
    return !CurrentMode().types.empty() && !CurrentMode().showsVideo;
}

static void ReportMissingDriver(HWND window, const char* text) {
    StopPositionTimer(window);
    StopAnimationTimer(window);
    SetRepeat(window, false);
    ShowStatus(window, "Ready");
    ShowMessage(text);
}

static void OpenNextFile(HWND window) {
    const std::string* name = NextQueueName(PlayQueue);
    if (!HasPlayer() || name == nullptr) return;
    const MediaType& type = TypeOfFile(CurrentMode(), *name);
    if (!(DriverAvailable.*type.driver)) {
        ReportMissingDriver(window, type.driverMissing);
        return;
    }
    SetControlText(window, IDC_FILES_LEFT, std::to_string(PlayQueue.filesLeft - 1));
    const std::string path = PlayQueue.directory + *name;
    const std::string shown = DisplayName(path, *name);
    if (!OpenAndPlay(window, path)) {
        // A request to end with the queue does not wait for another queue.
        MediaDevice.playAndExit = false;
        return;
    }
    SetControlText(window, IDC_FILE_NAME, shown);
    AdvanceQueue(PlayQueue);
}

static void StartNewQueue(HWND window) {
    StopPositionTimer(window);
    StopAnimationTimer(window);
    StopAndReset(window);
    SetControlText(window, IDC_SELECTED_COUNT, std::to_string(SelectedFileCount(window)));
    StartQueue(PlayQueue, *ModeDirectory(), SelectedFileNames(window, kMaxQueueFiles));
    if (PlayQueue.filesLeft == 0) return;
    ShowStatus(window, "Playing");
    OpenNextFile(window);
    StartPlayTimers(window);
}

void OnPlay(HWND window) {
    if (MediaDevice.open && MediaDevice.paused) {
        ResumePlay(window);
    } else if (HasPlayer()) {
        StartNewQueue(window);
    }
    // Nothing was selected: the request has nothing to wait for.
    if (!MediaDevice.open) MediaDevice.playAndExit = false;
}

bool SelectStartFile(HWND window, const std::string& name) {
    MediaDevice.playAndExit = SelectFileByName(window, name);
    return MediaDevice.playAndExit;
}

void OnStop(HWND window) {
    StopAndReset(window);
    PlayClickSound(IDS_SOUND_STOP);
    MediaDevice.playAndExit = false;
}

void OnPause(HWND window) {
    if (MediaDevice.open) TogglePause(window);
}

void OnRepeat(HWND window) {
    SetRepeat(window, !PlayQueue.repeat);
}

void OnNextFile(HWND window) {
    MCI_GENERIC_PARMS generic = {};
    if (!MediaDevice.open || PlayQueue.filesLeft == 0) return;
    if (!SendToDevice(window, MCI_STOP, MCI_WAIT, &generic) || !CloseIfStopped(window)) return;
    ShowStatus(window, "Playing");
    OpenNextFile(window);
    StartPlayTimers(window);
}

void CutPlayQueue(HWND window) {
    MediaDevice.playAndExit = false;
    CutQueue(PlayQueue);
    SetControlText(window, IDC_FILES_LEFT, "0");
}

void StopQueue(HWND window) {
    CutPlayQueue(window);
    SetControlText(window, IDC_FILE_NAME, "Stopped!");
    ShowStatus(window, "Stopped!");
}

static void ShowPlayingPosition(HWND window) {
    DWORD position = 0;
    if (!MediaDevice.open || MediaDevice.dragging) return;
    if (QueryStatus(MediaDevice.id, MCI_STATUS_POSITION, position) != 0) return;
    ShowPosition(window, static_cast<int32_t>(position));
    if (!Settings.recreationScroll) {
        SetPositionThumb(window,
                         MillisecondsToScroll(static_cast<int32_t>(position), MediaDevice.scroll));
    }
}

static void ShowProgress(HWND window) {
    if (IsIconic(window)) return;
    ShowPlayingPosition(window);
    StepSprite(window);
}

static TickResult FinishQueue(HWND window) {
    // What the user has open comes first: the program ends once it is closed.
    const bool waits = MediaDevice.playAndExit && !IsWindowEnabled(window);
    if (!waits) StopPositionTimer(window);
    StopAnimationTimer(window);
    // The length itself: the scroll bar's end times its scale may be a millisecond off.
    ShowPosition(window, MediaDevice.lengthMs);
    if (!Settings.recreationScroll) SetPositionThumb(window, MediaDevice.scroll.range);
    ShowStatus(window, "Ready");
    return MediaDevice.playAndExit && !waits ? TickResult::kEndProgram : TickResult::kGoOn;
}

TickResult PositionTick(HWND window) {
    // A thumb held at the end holds the file: the next one would be sent to its end too.
    if (MediaDevice.open && MediaDevice.dragging) return TickResult::kGoOn;
    if (PlayQueue.filesLeft > 0) {
        if (CloseIfStopped(window)) OpenNextFile(window);
        ShowProgress(window);
        return TickResult::kGoOn;
    }
    if (!MediaDevice.open) {
        StopPositionTimer(window);
        StopAnimationTimer(window);
        return TickResult::kGoOn;
    }
    DWORD mode = 0;
    const MCIERROR error = QueryStatus(MediaDevice.id, MCI_STATUS_MODE, mode);
    if (error != 0) {
        ReportMediaError(window, error);
        return TickResult::kGoOn;
    }
    if (mode != MCI_MODE_STOP) {
        ShowProgress(window);
        return TickResult::kGoOn;
    }
    if (PlayQueue.repeat) {
        // The next tick closes the stopped device and opens the first file again.
        RestartQueue(PlayQueue);
        return TickResult::kGoOn;
    }
    return FinishQueue(window);
}

static void ScrollTo(HWND window, int position) {
    MediaDevice.dragging = true;
    if (!MediaDevice.open) return;
    const int32_t milliseconds =
        ScrollToMilliseconds(position, MediaDevice.lengthMs, MediaDevice.scroll);
    ShowPosition(window, milliseconds);
    SeekDevice(window, milliseconds);
}

static void MoveThumbBy(HWND window, int step) {
    const auto position = PositionThumb(window);
    const int moved = MoveScroll(position, step, MediaDevice.scroll.range);
    ScrollTo(window, moved);
    if (MediaDevice.open) SetPositionThumb(window, moved);
}

static void EndScroll(HWND window, int position) {
    if (!MediaDevice.dragging) return;
    MediaDevice.dragging = false;
    if (!MediaDevice.open) return;
    ShowPosition(window, ScrollToMilliseconds(position, MediaDevice.lengthMs, MediaDevice.scroll));
    SetPositionThumb(window, position);
    ShowStatus(window, MediaDevice.paused ? "Paused" : "Playing");
    if (!MediaDevice.paused) StartPlayTimers(window);
}

static void EndScrollAtThumb(HWND window) {
    EndScroll(window, PositionThumb(window));
}

void OnFileScroll(HWND window, int code, int thumb) {
    constexpr int line = 1;
    constexpr int page = 10;
    switch (code) {
        case SB_LINELEFT:
            MoveThumbBy(window, -line);
            break;
        case SB_LINERIGHT:
            MoveThumbBy(window, line);
            break;
        case SB_PAGELEFT:
            MoveThumbBy(window, -page);
            break;
        case SB_PAGERIGHT:
            MoveThumbBy(window, page);
            break;
        case SB_LEFT:
            MoveThumbBy(window, -MediaDevice.scroll.range);
            break;
        case SB_RIGHT:
            MoveThumbBy(window, MediaDevice.scroll.range);
            break;
        case SB_THUMBTRACK:
            ScrollTo(window, thumb);
            return;
        case SB_THUMBPOSITION:
            EndScroll(window, thumb);
            return;
        case SB_ENDSCROLL:
            EndScrollAtThumb(window);
            return;
        default:
            return;
    }
    // The keyboard does not always send an end of scrolling.
    if (GetKeyState(VK_LBUTTON) >= 0) EndScrollAtThumb(window);
}
