// See file_player.h.
#include "playback/file_player.h"

#include <string>

#include "base/file_description.h"
#include "base/modes.h"
#include "playback/file_list.h"
#include "playback/media_device.h"
#include "playback/play_progress.h"
#include "playback/play_queue.h"
#include "playback/play_readouts.h"
#include "playback/player_timers.h"
#include "playback/video_player.h"
#include "playback/video_window.h"
#include "resources/ids.h"
#include "ui/animations.h"
#include "ui/boxes.h"
#include "ui/click_sounds.h"
#include "ui/dialog_helpers.h"

void ResetFilePlayer() {
    MediaDevice = {};
    DriverAvailable = {};
    PlayQueue = {};
    VideoPlayer = {};
    ResetPlayerTimers();
}

static void ReportMissingDriver(HWND window, const char* text) {
    StopPositionTimer(window);
    StopAnimationTimer(window);
    SetRepeat(window, false);
    ShowStatus(window, "Ready");
    ShowMessage(text);
    MediaDevice.playAndExit = false;
}

static void OpenSound(HWND window, const std::string& path, const std::string& shown) {
    if (OpenDevice(window, path)) {
        SetTimeFormat(window, PlayUnit::kMilliseconds);
        TakeLength(window);
        MCI_SEEK_PARMS seek = {};
        SendToDevice(window, MCI_SEEK, MCI_SEEK_TO_START | MCI_WAIT, &seek);
        MCI_PLAY_PARMS play = {};
        SendToDevice(window, MCI_PLAY, 0, &play);
    }
    if (!MediaDevice.open) {
        // A request to end with the queue does not wait for another queue.
        MediaDevice.playAndExit = false;
        return;
    }
    SetControlText(window, IDC_FILE_NAME, shown);
    AdvanceQueue(PlayQueue);
}

// Other than after a sound, the queue goes on after a film that does not play, and the program may
// still end with it. The next tick does either.
static void GoOnAfterFilm(HWND window, bool playAndExit) {
    MediaDevice.playAndExit = playAndExit;
    if (PlayQueue.filesLeft > 0 || playAndExit) StartPositionTimer(window);
}

static void PlayInOwnWindow(HWND window, const LargeFilm& film) {
    const bool playAndExit = MediaDevice.playAndExit;
    StopPositionTimer(window);
    if (!CloseDevice(window)) {
        GoOnAfterFilm(window, playAndExit);
        return;
    }
    BlankReadouts(window);
    SetPositionRange(window, 0);
    SetControlText(window, IDC_SELECTED_COUNT, std::to_string(PlayQueue.selectedCount));
    SetControlText(window, IDC_FILE_NAME, film.name);
    const VideoWindowEnd end = ShowVideoWindow(window, film);
    if (end == VideoWindowEnd::kClosed) CutPlayQueue(window);
    if (PlayQueue.filesLeft == 0) {
        StopAndReset(window);
        ShowStatus(window, "Ready");
    }
    MediaDevice.seekPause = false;
    ShowWindow(window, SW_SHOW);
    // The film's own Stop takes the request to end back, a failure does not.
    if (end != VideoWindowEnd::kClosed) {
        GoOnAfterFilm(window,
                      end == VideoWindowEnd::kFailed ? playAndExit : MediaDevice.playAndExit);
    }
}

static void OpenFilm(HWND window, const std::string& path, const std::string& shown) {
    const bool playAndExit = MediaDevice.playAndExit;
    SetControlText(window, IDC_SELECTED_COUNT, std::to_string(PlayQueue.selectedCount));
    VideoSize size;
    const bool opened = OpenVideo(window, path, size);
    AdvanceQueue(PlayQueue);
    if (opened && !FitsVideoFrame(window, size)) {
        PlayInOwnWindow(window, {path, shown, size, MediaDevice.seekPause});
        return;
    }
    if (opened) PlacePicture(window, size);
    if (!opened || !StartVideo(window, GetDlgItem(window, IDC_VIDEO_AREA))) {
        GoOnAfterFilm(window, playAndExit);
        return;
    }
    ShowStatus(window, "Playing");
    SetControlText(window, IDC_FILE_NAME, shown);
}

static void OpenNextFile(HWND window) {
    const std::string* name = NextQueueName(PlayQueue);
    if (name == nullptr) return;
    const MediaType& type = TypeOfFile(CurrentMode(), *name);
    if (!(DriverAvailable.*type.driver)) {
        ReportMissingDriver(window, type.driverMissing);
        return;
    }
    SetControlText(window, IDC_FILES_LEFT, std::to_string(PlayQueue.filesLeft - 1));
    const std::string path = PlayQueue.directory + *name;
    const std::string shown = DisplayName(path, *name);
    if (CurrentMode().showsVideo) {
        MediaDevice.seekPause = type.driver == &DriverFlags::quickTime;
        OpenFilm(window, path, shown);
    } else {
        OpenSound(window, path, shown);
    }
}

static void StartNewQueue(HWND window) {
    StopPositionTimer(window);
    StopAnimationTimer(window);
    StopAndReset(window);
    StartQueue(PlayQueue, *ModeDirectory(), SelectedFileNames(window, kMaxQueueFiles));
    PlayQueue.selectedCount = SelectedFileCount(window);
    SetControlText(window, IDC_SELECTED_COUNT, std::to_string(PlayQueue.selectedCount));
    if (PlayQueue.filesLeft == 0) return;
    ShowStatus(window, "Playing");
    OpenNextFile(window);
    StartPlayTimers(window);
}

void OnPlay(HWND window) {
    if (MediaDevice.open && MediaDevice.paused) {
        ResumePlay(window);
    } else {
        StartNewQueue(window);
    }
    // A request to end with the queue does not wait for another one.
    if (!IsPositionTimerRunning(window) && !MediaDevice.open) MediaDevice.playAndExit = false;
}

bool SelectStartFile(HWND window, const std::string& name) {
    MediaDevice.playAndExit = SelectFileByName(window, name);
    return MediaDevice.playAndExit;
}

void OnStop(HWND window) {
    StopAndReset(window);
    // It runs on without a device when a film has failed and another one is next.
    StopPositionTimer(window);
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
    if (!MediaDevice.open || PlayQueue.filesLeft == 0) return;
    if (!StopDevice(window) || !CloseIfStopped(window)) return;
    ShowStatus(window, "Playing");
    OpenNextFile(window);
    StartPlayTimers(window);
}

void OnSound(HWND window) {
    if (CurrentMode().showsVideo) SwitchVideoSound(window);
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

static void ShowTick(HWND window) {
    if (IsIconic(window)) return;
    ShowProgress(window);
    StepSprite(window);
}

static TickResult FinishQueue(HWND window) {
    // What the user has open comes first: the program ends once it is closed.
    const bool waits = MediaDevice.playAndExit && !IsWindowEnabled(window);
    if (!waits) StopPositionTimer(window);
    StopAnimationTimer(window);
    if (MediaDevice.open) ShowEnd(window);
    ShowPicture(window, false);
    ShowStatus(window, "Ready");
    return MediaDevice.playAndExit && !waits ? TickResult::kEndProgram : TickResult::kGoOn;
}

TickResult PositionTick(HWND window) {
    // A thumb held at the end holds the file: the next one would be sent to its end too.
    if (MediaDevice.open && MediaDevice.dragging) return TickResult::kGoOn;
    if (PlayQueue.filesLeft > 0) {
        if (CloseIfStopped(window)) OpenNextFile(window);
        ShowTick(window);
        return TickResult::kGoOn;
    }
    // Without a device the last film has been seen in its own window, or it has failed.
    DWORD mode = MCI_MODE_STOP;
    if (MediaDevice.open && !QueryDevice(window, MCI_STATUS_MODE, mode)) return TickResult::kGoOn;
    if (mode != MCI_MODE_STOP) {
        ShowTick(window);
        return TickResult::kGoOn;
    }
    if (PlayQueue.repeat && (MediaDevice.open || MediaDevice.playAndExit)) {
        // The next tick closes the stopped device and opens the first file again.
        RestartQueue(PlayQueue);
        return TickResult::kGoOn;
    }
    return FinishQueue(window);
}
