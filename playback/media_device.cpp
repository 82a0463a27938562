// See media_device.h.
#include "playback/media_device.h"

#include <digitalv.h>

#include <algorithm>

#include "base/handles.h"
#include "base/program_state.h"
#include "playback/mci.h"
#include "playback/media_header.h"
#include "playback/play_queue.h"
#include "playback/play_readouts.h"
#include "playback/player_timers.h"
#include "resources/ids.h"
#include "ui/boxes.h"
#include "ui/dialog_helpers.h"

MediaDeviceState MediaDevice;
DriverFlags DriverAvailable;

// The thread in which the platform plays a film may leave after Stop has returned, and still uses
// the device then: a close in that moment would end the program. At the film's own end it has left
// before the device says so.
constexpr DWORD kFilmLeavesMs = 50;

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

// The device is open.
static MCIERROR Stop() {
    MCI_GENERIC_PARMS generic = {};
    const MCIERROR error =
        Mci.send(MediaDevice.id, MCI_STOP, MCI_WAIT, reinterpret_cast<DWORD_PTR>(&generic));
    if (CurrentMode().showsVideo) Sleep(kFilmLeavesMs);
    return error;
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

static MCIERROR Open(const std::string& path, HWND picture) {
    if (IsRefusedByItsHeader(path)) return MCIERR_INVALID_FILE;
    // The sound drivers know the first half of this block and are told by the flags.
    MCI_DGV_OPEN_PARMSA open = {};
    std::string element = path;
    open.lpstrElementName = element.data();
    DWORD_PTR flags = MCI_OPEN_ELEMENT | MCI_WAIT;
    if (picture != nullptr) {
        open.dwStyle = WS_CHILD;
        open.hWndParent = picture;
        flags |= MCI_DGV_OPEN_PARENT | MCI_DGV_OPEN_WS;
    }
    const MCIERROR error = Mci.send(0, MCI_OPEN, flags, reinterpret_cast<DWORD_PTR>(&open));
    if (error == 0) MediaDevice.id = open.wDeviceID;
    return error;
}

bool OpenDevice(HWND window, const std::string& path, HWND picture) {
    const MCIERROR error = Open(path, picture);
    MediaDevice.open = error == 0;
    if (MediaDevice.open) return true;
    ShowStatus(window, "Ready");
    ReportMediaError(window, error);
    ForgetDevice();
    return false;
}

void CloseUnplayedDevice() {
    if (!MediaDevice.open) return;
    MCI_GENERIC_PARMS generic = {};
    Mci.send(MediaDevice.id, MCI_CLOSE, MCI_WAIT, reinterpret_cast<DWORD_PTR>(&generic));
    ForgetDevice();
}

bool SetTimeFormat(HWND window, PlayUnit unit) {
    MCI_SET_PARMS set = {};
    set.dwTimeFormat = unit == PlayUnit::kFrames ? MCI_FORMAT_FRAMES : MCI_FORMAT_MILLISECONDS;
    MediaDevice.length.unit = unit;
    return SendToDevice(window, MCI_SET, MCI_SET_TIME_FORMAT | MCI_WAIT, &set);
}

void TakeLength(HWND window) {
    DWORD answer = 0;
    if (!QueryDevice(window, MCI_STATUS_LENGTH, answer)) return;
    const auto length = static_cast<int32_t>(answer);
    const bool frames = MediaDevice.length.unit == PlayUnit::kFrames;
    MediaDevice.length = frames ? LengthInFrames(length) : LengthInMilliseconds(length);
    MediaDevice.dragging = false;
    ShowLength(window, MediaDevice.length);
}

void PlayFromStart(HWND window) {
    MCI_PLAY_PARMS play = {};
    SendToDevice(window, MCI_PLAY, MCI_FROM, &play);
}

void ShowPicture(HWND window, bool show) {
    if (CurrentMode().showsVideo) ShowControl(window, IDC_VIDEO_AREA, show);
}

void StopAndReset(HWND window) {
    if (MediaDevice.open) {
        Stop();
        MCI_GENERIC_PARMS generic = {};
        Mci.send(MediaDevice.id, MCI_CLOSE, MCI_WAIT, reinterpret_cast<DWORD_PTR>(&generic));
        ForgetDevice();
        ShowStatus(window, "Ready");
        ShowPicture(window, false);
        // The CD player's own timers run on: its disc is no business of this device.
        if (IsPositionTimerRunning(window)) StopAnimationTimer(window);
        StopPositionTimer(window);
        MediaDevice.playAndExit = false;
    }
    BlankReadouts(window);
    MediaDevice.dragging = false;
    if (!InCdMode()) {
        MediaDevice.length = {};
        SetPositionRange(window, 0);
        SetPositionThumb(window, 0);
    }
    MediaDevice.seekPause = false;
}

bool StopDevice(HWND window) {
    if (!MediaDevice.open) return false;
    const MCIERROR error = Stop();
    if (error != 0) ReportMediaError(window, error);
    return error == 0;
}

bool CloseDevice(HWND window) {
    MCI_GENERIC_PARMS generic = {};
    if (!SendToDevice(window, MCI_CLOSE, MCI_WAIT, &generic)) return false;
    ShowPicture(window, false);
    ForgetDevice();
    return true;
}

bool CloseIfStopped(HWND window) {
    if (!MediaDevice.open) return true;
    DWORD mode = 0;
    if (!QueryDevice(window, MCI_STATUS_MODE, mode) || mode != MCI_MODE_STOP) return false;
    return CloseDevice(window);
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
    ShowPicture(window, true);
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

void SeekDevice(HWND window, int32_t position) {
    MCI_GENERIC_PARMS generic = {};
    if (MediaDevice.seekPause && !SendToDevice(window, MCI_PAUSE, 0, &generic)) return;
    MCI_PLAY_PARMS play = {};
    const int32_t end = std::max(MediaDevice.length.length, 0);
    play.dwFrom = static_cast<DWORD>(std::clamp(position, 0, end));
    play.dwTo = play.dwFrom;
    const DWORD_PTR flags = MediaDevice.paused ? MCI_FROM | MCI_TO : MCI_FROM;
    // A film that had ended is seen again.
    if (SendToDevice(window, MCI_PLAY, flags, &play)) ShowPicture(window, true);
}

void SetRepeat(HWND window, bool repeat) {
    if (PlayQueue.repeat == repeat) return;
    PlayQueue.repeat = repeat;
    // The button is the main window's; the window of a large film has none.
    HWND owner = GetWindow(window, GW_OWNER);
    HWND button = GetDlgItem(owner != nullptr ? owner : window, IDC_REPEAT);
    // A null window would mean the whole screen.
    if (button != nullptr) InvalidateRect(button, nullptr, FALSE);
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
