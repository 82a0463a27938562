// The one open wave, MIDI or video device.
#include "playback/media_device.h"

#include <algorithm>

#include "base/program_state.h"
#include "playback/mci.h"
#include "playback/media_error.h"
#include "playback/play_queue.h"
#include "playback/play_time.h"
#include "playback/player_timers.h"
#include "playback/position_bar.h"
#include "resources/ids.h"
#include "ui/dialog_helpers.h"

MediaDeviceState MediaDevice;
DriverFlags DriverAvailable;

bool SendToDevice(UINT message, DWORD_PTR flags, void* parameters) {
    if (!MediaDevice.open) return false;
    const MCIERROR error =
        Mci.send(MediaDevice.id, message, flags, reinterpret_cast<DWORD_PTR>(parameters));
    if (error != 0) ReportMediaError(error);
    return error == 0;
}

static bool QueryDevice(DWORD item, DWORD& value) {
    if (!MediaDevice.open) return false;
    const MCIERROR error = QueryStatus(MediaDevice.id, item, value);
    if (error != 0) ReportMediaError(error);
    return error == 0;
}

static void ForgetDevice() {
    MediaDevice.id = 0;
    MediaDevice.open = false;
    MediaDevice.paused = false;
    MediaDevice.dragging = false;
}

bool OpenAndPlay(const std::string& path) {
    MCI_OPEN_PARMSA open = {};
    open.lpstrElementName = path.c_str();
    const MCIERROR error =
        Mci.send(0, MCI_OPEN, MCI_OPEN_ELEMENT | MCI_WAIT, reinterpret_cast<DWORD_PTR>(&open));
    if (error != 0) {
        ReportMediaError(error);
        ForgetDevice();
        ShowStatus("Ready");
        return false;
    }
    MediaDevice.id = open.wDeviceID;
    MediaDevice.open = true;

    MCI_SET_PARMS set = {};
    set.dwTimeFormat = MCI_FORMAT_MILLISECONDS;
    SendToDevice(MCI_SET, MCI_SET_TIME_FORMAT | MCI_WAIT, &set);
    DWORD length = 0;
    if (QueryDevice(MCI_STATUS_LENGTH, length)) SetLengthDisplay(static_cast<int32_t>(length));
    MCI_SEEK_PARMS seek = {};
    SendToDevice(MCI_SEEK, MCI_SEEK_TO_START | MCI_WAIT, &seek);
    MCI_PLAY_PARMS play = {};
    SendToDevice(MCI_PLAY, 0, &play);
    return MediaDevice.open;
}

void StopAndReset() {
    if (MediaDevice.open) {
        MCI_GENERIC_PARMS generic = {};
        Mci.send(MediaDevice.id, MCI_STOP, MCI_WAIT, reinterpret_cast<DWORD_PTR>(&generic));
        Mci.send(MediaDevice.id, MCI_CLOSE, MCI_WAIT, reinterpret_cast<DWORD_PTR>(&generic));
        ForgetDevice();
        ShowStatus("Ready");
        if (CurrentMode().showsVideo) ShowControl(MainWindow, IDC_VIDEO_AREA, false);
        // The CD player's own timers run on: its disc is no business of this device.
        if (IsPositionTimerRunning()) StopAnimationTimer();
        StopPositionTimer();
        MediaDevice.playAndExit = false;
    }
    for (int id : {IDC_POSITION, IDC_POSITION_UNIT, IDC_LENGTH, IDC_FILE_NAME}) {
        SetControlText(MainWindow, id, "");
    }
    SetControlText(MainWindow, IDC_SELECTED_COUNT, "0");
    MediaDevice.dragging = false;
    if (!InCdMode()) {
        MediaDevice.lengthMs = 0;
        MediaDevice.scroll = {};
        SetPositionRange(0);
        SetPositionThumb(0);
    }
    MediaDevice.seekPause = false;
}

bool CloseIfStopped() {
    if (!MediaDevice.open) return true;
    DWORD mode = 0;
    if (!QueryDevice(MCI_STATUS_MODE, mode) || mode != MCI_MODE_STOP) return false;
    MCI_GENERIC_PARMS generic = {};
    if (!SendToDevice(MCI_CLOSE, MCI_WAIT, &generic)) return false;
    if (CurrentMode().showsVideo) ShowControl(MainWindow, IDC_VIDEO_AREA, false);
    ForgetDevice();
    return true;
}

void StartPlayTimers() {
    if (!MediaDevice.open) return;
    StartPositionTimer();
    if (!CurrentMode().showsVideo) StartAnimationTimer();
}

void ResumePlay() {
    MediaDevice.paused = false;
    MCI_PLAY_PARMS play = {};
    if (!SendToDevice(MCI_PLAY, 0, &play)) return;
    ShowStatus("Playing");
    StartPlayTimers();
}

static void PausePlay() {
    DWORD mode = 0;
    if (!QueryDevice(MCI_STATUS_MODE, mode)) return;
    MCI_GENERIC_PARMS generic = {};
    if (mode == MCI_MODE_PLAY && !SendToDevice(MCI_PAUSE, 0, &generic)) return;
    // A device that has already stopped counts as paused all the same.
    MediaDevice.paused = true;
    ShowStatus("Paused");
    StopPositionTimer();
    StopAnimationTimer();
}

void TogglePause() {
    if (MediaDevice.paused) {
        ResumePlay();
    } else {
        PausePlay();
    }
}

void SeekDevice(int32_t milliseconds) {
    MCI_GENERIC_PARMS generic = {};
    if (MediaDevice.seekPause && !SendToDevice(MCI_PAUSE, 0, &generic)) return;
    MCI_PLAY_PARMS play = {};
    play.dwFrom =
        static_cast<DWORD>(std::clamp(milliseconds, 0, std::max(MediaDevice.lengthMs, 0)));
    play.dwTo = play.dwFrom;
    SendToDevice(MCI_PLAY, MediaDevice.paused ? MCI_FROM | MCI_TO : MCI_FROM, &play);
}

void SetLengthDisplay(int32_t lengthMs) {
    MediaDevice.lengthMs = lengthMs;
    MediaDevice.dragging = false;
    MediaDevice.scroll = ScaleForLength(lengthMs);
    SetControlText(MainWindow, IDC_POSITION_UNIT, "0");
    SetControlText(MainWindow, IDC_LENGTH, PlayTimeText(lengthMs));
    SetPositionRange(MediaDevice.scroll.range);
    SetPositionThumb(0);
    ShowPosition(0);
}

void ShowPosition(int64_t milliseconds) {
    SetControlText(MainWindow, IDC_POSITION, PlayTimeText(milliseconds));
}

void ShowStatus(const char* text) {
    SetControlText(MainWindow, IDC_STATUS, text);
}

void SetRepeat(bool repeat) {
    if (PlayQueue.repeat == repeat) return;
    PlayQueue.repeat = repeat;
    InvalidateRect(GetDlgItem(MainWindow, IDC_REPEAT), nullptr, FALSE);
}
