// See media_device.h.
#include "playback/media_device.h"

#include <algorithm>

#include "base/program_state.h"
#include "playback/mci.h"
#include "playback/media_header.h"
#include "playback/play_queue.h"
#include "playback/play_readouts.h"
#include "playback/player_timers.h"
#include "resources/ids.h"
#include "ui/boxes.h"
#include "ui/dialog_helpers.h"
#include "ui/handles.h"

MediaDeviceState MediaDevice;
DriverFlags DriverAvailable;

bool SendToDevice(HWND window, UINT message, DWORD_PTR flags, void* parameters) {
    if (!MediaDevice.open) return false;
    const MCIERROR error =
        Mci.send(MediaDevice.id, message, flags, reinterpret_cast<DWORD_PTR>(parameters));
    if (error != 0) ReportMediaError(window, error);
    return error == 0;
}

bool QueryDevice(HWND window, DWORD item, DWORD& value) {
    if (!MediaDevice.open) return false;
    const MCIERROR error = QueryStatus(MediaDevice.id, item, value);
    if (error != 0) ReportMediaError(window, error);
    return error == 0;
}

static void ForgetDevice() {
    MediaDevice.id = 0;
    MediaDevice.open = false;
    MediaDevice.paused = false;
    MediaDevice.dragging = false;
}

static bool IsRefusedByItsHeader(const std::string& path) {
    const UniqueFile file = OpenToRead(path);
    if (!file) return false;
    return WouldDivideByZero([&](uint64_t offset, void* bytes, size_t size) -> size_t {
        LARGE_INTEGER place = {};
        place.QuadPart = static_cast<LONGLONG>(offset);
        DWORD count = 0;
        if (!SetFilePointerEx(file.get(), place, nullptr, FILE_BEGIN)) return 0;
        return ReadFile(file.get(), bytes, static_cast<DWORD>(size), &count, nullptr) ? count : 0;
    });
}

static MCIERROR Open(const std::string& path, MCIDEVICEID& id) {
    if (IsRefusedByItsHeader(path)) return MCIERR_INVALID_FILE;
    MCI_OPEN_PARMSA open = {};
    open.lpstrElementName = path.c_str();
    const MCIERROR error =
        Mci.send(0, MCI_OPEN, MCI_OPEN_ELEMENT | MCI_WAIT, reinterpret_cast<DWORD_PTR>(&open));
    if (error == 0) id = open.wDeviceID;
    return error;
}

bool OpenDevice(HWND window, const std::string& path) {
    const MCIERROR error = Open(path, MediaDevice.id);
    MediaDevice.open = error == 0;
    if (MediaDevice.open) return true;
    ReportMediaError(window, error);
    ForgetDevice();
    ShowStatus(window, "Ready");
    return false;
}

void CloseDevice() {
    if (!MediaDevice.open) return;
    MCI_GENERIC_PARMS generic = {};
    Mci.send(MediaDevice.id, MCI_CLOSE, MCI_WAIT, reinterpret_cast<DWORD_PTR>(&generic));
    ForgetDevice();
}

bool OpenAndPlay(HWND window, const std::string& path) {
    if (!OpenDevice(window, path)) return false;

    MCI_SET_PARMS set = {};
    set.dwTimeFormat = MCI_FORMAT_MILLISECONDS;
    SendToDevice(window, MCI_SET, MCI_SET_TIME_FORMAT | MCI_WAIT, &set);
    DWORD length = 0;
    if (QueryDevice(window, MCI_STATUS_LENGTH, length))
        SetLengthDisplay(window, static_cast<int32_t>(length));
    MCI_SEEK_PARMS seek = {};
    SendToDevice(window, MCI_SEEK, MCI_SEEK_TO_START | MCI_WAIT, &seek);
    MCI_PLAY_PARMS play = {};
    SendToDevice(window, MCI_PLAY, 0, &play);
    return MediaDevice.open;
}

void StopAndReset(HWND window) {
    if (MediaDevice.open) {
        MCI_GENERIC_PARMS generic = {};
        Mci.send(MediaDevice.id, MCI_STOP, MCI_WAIT, reinterpret_cast<DWORD_PTR>(&generic));
        Mci.send(MediaDevice.id, MCI_CLOSE, MCI_WAIT, reinterpret_cast<DWORD_PTR>(&generic));
        ForgetDevice();
        ShowStatus(window, "Ready");
        if (CurrentMode().showsVideo) ShowControl(window, IDC_VIDEO_AREA, false);
        // The CD player's own timers run on: its disc is no business of this device.
        if (IsPositionTimerRunning(window)) StopAnimationTimer(window);
        StopPositionTimer(window);
        MediaDevice.playAndExit = false;
    }
    BlankReadouts(window);
    MediaDevice.dragging = false;
    if (!InCdMode()) {
        MediaDevice.lengthMs = 0;
        MediaDevice.scroll = {};
        SetPositionRange(window, 0);
        SetPositionThumb(window, 0);
    }
    MediaDevice.seekPause = false;
}

bool CloseIfStopped(HWND window) {
    if (!MediaDevice.open) return true;
    DWORD mode = 0;
    if (!QueryDevice(window, MCI_STATUS_MODE, mode) || mode != MCI_MODE_STOP) return false;
    MCI_GENERIC_PARMS generic = {};
    if (!SendToDevice(window, MCI_CLOSE, MCI_WAIT, &generic)) return false;
    if (CurrentMode().showsVideo) ShowControl(window, IDC_VIDEO_AREA, false);
    ForgetDevice();
    return true;
}

void StartPlayTimers(HWND window) {
    if (!MediaDevice.open) return;
    StartPositionTimer(window);
    if (!CurrentMode().showsVideo) StartAnimationTimer(window);
}

void ResumePlay(HWND window) {
    MediaDevice.paused = false;
    MCI_PLAY_PARMS play = {};
    if (!SendToDevice(window, MCI_PLAY, 0, &play)) return;
    ShowStatus(window, "Playing");
    StartPlayTimers(window);
}

static void PausePlay(HWND window) {
    DWORD mode = 0;
    if (!QueryDevice(window, MCI_STATUS_MODE, mode)) return;
    MCI_GENERIC_PARMS generic = {};
    if (mode == MCI_MODE_PLAY && !SendToDevice(window, MCI_PAUSE, 0, &generic)) return;
    // A device that has already stopped counts as paused all the same.
    MediaDevice.paused = true;
    ShowStatus(window, "Paused");
    StopPositionTimer(window);
    StopAnimationTimer(window);
}

void TogglePause(HWND window) {
    if (MediaDevice.paused) {
        ResumePlay(window);
    } else {
        PausePlay(window);
    }
}

void SeekDevice(HWND window, int32_t milliseconds) {
    MCI_GENERIC_PARMS generic = {};
    if (MediaDevice.seekPause && !SendToDevice(window, MCI_PAUSE, 0, &generic)) return;
    MCI_PLAY_PARMS play = {};
    play.dwFrom =
        static_cast<DWORD>(std::clamp(milliseconds, 0, std::max(MediaDevice.lengthMs, 0)));
    play.dwTo = play.dwFrom;
    SendToDevice(window, MCI_PLAY, MediaDevice.paused ? MCI_FROM | MCI_TO : MCI_FROM, &play);
}

void SetLengthDisplay(HWND window, int32_t lengthMs) {
    MediaDevice.lengthMs = lengthMs;
    MediaDevice.dragging = false;
    MediaDevice.scroll = ScaleForLength(lengthMs);
    ShowLength(window, lengthMs, MediaDevice.scroll);
}

void SetRepeat(HWND window, bool repeat) {
    if (PlayQueue.repeat == repeat) return;
    PlayQueue.repeat = repeat;
    InvalidateRect(GetDlgItem(window, IDC_REPEAT), nullptr, FALSE);
}

// Errors

static void FetchErrorText(MCIERROR code) {
    MessageText[0] = '\0';
    Mci.errorText(code, MessageText, kMessageTextSize - 1);
    if (MessageText[0] == '\0') Mci.errorText(MCIERR_INTERNAL, MessageText, kMessageTextSize - 1);
}

void ReportMediaError(HWND window, MCIERROR code) {
    FetchErrorText(code);
    if (!InCdMode()) SetRepeat(window, false);
    StopPlayerTimers(window);
    StopAndReset(window);
    ShowMessageText();
    // The disc is watched again once the user has read the message; a file queue has ended.
    if (InCdMode() && IsWindow(window) && !ShuttingDown) {
        StartCdTimer(window);
        StartAnimationTimer(window);
    }
}

void ReportDiscError(HWND window, MCIERROR code) {
    if (InCdMode()) {
        ReportMediaError(window, code);
        return;
    }
    FetchErrorText(code);
    ShowMessageText();
}
