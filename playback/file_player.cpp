// Playing the selected files of wave and MIDI mode one after another.
#include "playback/file_player.h"

#include <windows.h>

#include <string>

#include "base/program_state.h"
#include "base/settings.h"
#include "playback/file_list.h"
#include "playback/mci.h"
#include "playback/media_device.h"
#include "playback/media_error.h"
#include "playback/play_queue.h"
#include "playback/player_timers.h"
#include "playback/position_bar.h"
#include "resources/ids.h"
#include "ui/animations.h"
#include "ui/boxes.h"
#include "ui/click_sounds.h"
#include "ui/dialog_helpers.h"

// Video has no player yet.
static bool HasPlayer() {
    return !CurrentMode().types.empty() && !CurrentMode().showsVideo;
}

static void ReportMissingDriver(const char* text) {
    StopPositionTimer();
    StopAnimationTimer();
    SetRepeat(false);
    ShowStatus("Ready");
    ShowMessage(text);
}

static void OpenNextFile() {
    const std::string* name = NextQueueName(PlayQueue);
    if (!HasPlayer() || name == nullptr) return;
    const MediaType& type = TypeOfFile(CurrentMode(), *name);
    if (!(DriverAvailable.*type.driver)) {
        ReportMissingDriver(type.driverMissing);
        return;
    }
    SetControlText(MainWindow, IDC_FILES_LEFT, std::to_string(PlayQueue.filesLeft - 1));
    const std::string path = PlayQueue.directory + *name;
    const std::string shown = DisplayName(path, *name);
    if (!OpenAndPlay(path)) return;
    SetControlText(MainWindow, IDC_FILE_NAME, shown);
    AdvanceQueue(PlayQueue);
}

static void StartNewQueue() {
    StopPositionTimer();
    StopAnimationTimer();
    StopAndReset();
    SetControlText(MainWindow, IDC_SELECTED_COUNT, std::to_string(SelectedFileCount()));
    StartQueue(PlayQueue, *ModeDirectory(), SelectedFileNames(kMaxQueueFiles));
    if (PlayQueue.filesLeft == 0) return;
    ShowStatus("Playing");
    OpenNextFile();
    StartPlayTimers();
}

void OnPlay() {
    if (MediaDevice.open && MediaDevice.paused) {
        ResumePlay();
    } else if (HasPlayer()) {
        StartNewQueue();
    }
    // A request to end with the queue does not wait for another queue.
    if (!MediaDevice.open) MediaDevice.playAndExit = false;
}

bool SelectStartFile(const std::string& name) {
    MediaDevice.playAndExit = SelectFileByName(name);
    return MediaDevice.playAndExit;
}

void OnStop() {
    StopAndReset();
    PlayClickSound(IDS_SOUND_STOP);
    MediaDevice.playAndExit = false;
}

void OnPause() {
    if (MediaDevice.open) TogglePause();
}

void OnRepeat() {
    SetRepeat(!PlayQueue.repeat);
}

void CutPlayQueue() {
    MediaDevice.playAndExit = false;
    CutQueue(PlayQueue);
    SetControlText(MainWindow, IDC_FILES_LEFT, "0");
}

static void ShowPlayingPosition() {
    DWORD position = 0;
    if (!MediaDevice.open || MediaDevice.dragging) return;
    if (QueryStatus(MediaDevice.id, MCI_STATUS_POSITION, position) != 0) return;
    ShowPosition(static_cast<int32_t>(position));
    if (!Settings.recreationScroll) {
        SetPositionThumb(MillisecondsToScroll(static_cast<int32_t>(position), MediaDevice.scroll));
    }
}

static void ShowProgress() {
    if (IsIconic(MainWindow)) return;
    ShowPlayingPosition();
    StepSprite(MainWindow);
}

static TickResult FinishQueue() {
    StopPositionTimer();
    StopAnimationTimer();
    // The length itself: the scroll bar's end times its scale may be a millisecond off.
    ShowPosition(MediaDevice.lengthMs);
    if (!Settings.recreationScroll) SetPositionThumb(MediaDevice.scroll.range);
    ShowStatus("Ready");
    return MediaDevice.playAndExit ? TickResult::kEndProgram : TickResult::kGoOn;
}

TickResult PositionTick() {
    if (PlayQueue.filesLeft > 0) {
        if (CloseIfStopped()) OpenNextFile();
        ShowProgress();
        return TickResult::kGoOn;
    }
    if (!MediaDevice.open) {
        StopPositionTimer();
        StopAnimationTimer();
        return TickResult::kGoOn;
    }
    DWORD mode = 0;
    const MCIERROR error = QueryStatus(MediaDevice.id, MCI_STATUS_MODE, mode);
    if (error != 0) {
        ReportMediaError(error);
        return TickResult::kGoOn;
    }
    if (mode != MCI_MODE_STOP) {
        ShowProgress();
        return TickResult::kGoOn;
    }
    if (PlayQueue.repeat) {
        // The next tick closes the stopped device and opens the first file again.
        RestartQueue(PlayQueue);
        return TickResult::kGoOn;
    }
    return FinishQueue();
}

static void ScrollTo(int position) {
    MediaDevice.dragging = true;
    if (!MediaDevice.open) return;
    const int32_t milliseconds =
        ScrollToMilliseconds(position, MediaDevice.lengthMs, MediaDevice.scroll);
    ShowPosition(milliseconds);
    SeekDevice(milliseconds);
}

static void MoveThumbBy(int step) {
    const auto position = PositionThumb();
    const int moved = MoveScroll(position, step, MediaDevice.scroll.range);
    ScrollTo(moved);
    if (MediaDevice.open) SetPositionThumb(moved);
}

static void EndScroll(int position) {
    if (!MediaDevice.dragging) return;
    MediaDevice.dragging = false;
    if (!MediaDevice.open) return;
    ShowPosition(ScrollToMilliseconds(position, MediaDevice.lengthMs, MediaDevice.scroll));
    SetPositionThumb(position);
    ShowStatus(MediaDevice.paused ? "Paused" : "Playing");
    if (!MediaDevice.paused) StartPlayTimers();
}

static void EndScrollAtThumb() {
    EndScroll(PositionThumb());
}

void OnFileScroll(int code, int thumb) {
    constexpr int line = 1;
    constexpr int page = 10;
    switch (code) {
        case SB_LINELEFT:
            MoveThumbBy(-line);
            break;
        case SB_LINERIGHT:
            MoveThumbBy(line);
            break;
        case SB_PAGELEFT:
            MoveThumbBy(-page);
            break;
        case SB_PAGERIGHT:
            MoveThumbBy(page);
            break;
        case SB_LEFT:
            MoveThumbBy(-MediaDevice.scroll.range);
            break;
        case SB_RIGHT:
            MoveThumbBy(MediaDevice.scroll.range);
            break;
        case SB_THUMBTRACK:
            ScrollTo(thumb);
            return;
        case SB_THUMBPOSITION:
            EndScroll(thumb);
            return;
        case SB_ENDSCROLL:
            EndScrollAtThumb();
            return;
        default:
            return;
    }
    // The keyboard does not always send an end of scrolling.
    if (GetKeyState(VK_LBUTTON) >= 0) EndScrollAtThumb();
}
