// See video_window.h.
#include "playback/video_window.h"

#include "base/program_state.h"
#include "playback/media_device.h"
#include "playback/play_progress.h"
#include "playback/play_queue.h"
#include "playback/play_readouts.h"
#include "playback/player_timers.h"
#include "playback/video_player.h"
#include "resources/ids.h"
#include "ui/click_sounds.h"
#include "ui/dialog_helpers.h"

constexpr DialogButton kButtons[] = {
    {IDC_VIDEO_PLAY, kFacePlay}, {IDC_VIDEO_PAUSE, kFacePause}, {IDC_VIDEO_STOP, kFaceStop}};

static LargeFilm Film;

static HWND Picture(HWND dialog) {
    return GetDlgItem(dialog, IDC_VIDEO_WINDOW_AREA);
}

static void End(HWND dialog, VideoWindowEnd end) {
    StopPositionTimer(dialog);
    EndDialog(dialog, static_cast<INT_PTR>(end));
}

static void MoveControl(HWND dialog, int id, const VideoPlace& place) {
    SetWindowPos(GetDlgItem(dialog, id), nullptr, place.x, place.y, place.size.width,
                 place.size.height, SWP_NOZORDER | SWP_NOACTIVATE);
}

// As large as the film asks, in the middle of what task bars leave free.
static void FitToFilm(HWND dialog) {
    RECT work = {};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &work, 0);
    RECT window = {};
    RECT client = {};
    GetWindowRect(dialog, &window);
    GetClientRect(dialog, &client);
    POINT origin = {0, 0};
    ClientToScreen(dialog, &origin);
    VideoWindowShape shape;
    shape.window = {window.right - window.left, window.bottom - window.top};
    shape.client = {client.right, client.bottom};
    shape.clientTop = origin.y - window.top;
    shape.barTop = shape.clientTop + ControlRect(dialog, IDC_VIDEO_WINDOW_BAR).top;
    const VideoSize workSize = {work.right - work.left, work.bottom - work.top};
    const VideoWindowPlaces places = PlaceInWindow(shape, workSize, Film.size);
    SetWindowPos(dialog, nullptr, work.left + (workSize.width - places.window.width) / 2,
                 work.top + (workSize.height - places.window.height) / 2, places.window.width,
                 places.window.height, SWP_NOZORDER | SWP_NOACTIVATE);
    MoveControl(dialog, IDC_VIDEO_WINDOW_FRAME, places.frame);
    MoveControl(dialog, IDC_VIDEO_WINDOW_AREA, places.video);
    const RECT bar = ControlRect(dialog, IDC_VIDEO_WINDOW_BAR);
    GetClientRect(dialog, &client);
    MoveControl(dialog, IDC_VIDEO_WINDOW_BAR, {0, bar.top, {client.right, bar.bottom - bar.top}});
}

static void OnInitDialog(HWND dialog) {
    SetWindowTextA(dialog, ("Tarnwell 1.1 - " + Film.name).c_str());
    PrepareDialog(dialog, kButtons);
    FitToFilm(dialog);
    // The film is opened when its window can be seen, so that a box about it has something to stand
    // on.
    PostMessageA(dialog, WM_COMMAND, IDC_VIDEO_PLAY, 0);
}

// A film that is open plays again from its start without being opened a second time.
static void Start(HWND dialog) {
    ShowStatus(dialog, "Playing");
    if (!MediaDevice.open) {
        MediaDevice.seekPause = Film.seekPause;
        if (OpenDevice(dialog, Film.path, Picture(dialog))) StartVideo(dialog, Picture(dialog));
    } else {
        ShowLength(dialog, MediaDevice.length);
        PlayFromStart(dialog);
    }
    if (MediaDevice.open) {
        StartPlayTimers(dialog);
        return;
    }
    StopAndReset(dialog);
    End(dialog, VideoWindowEnd::kFailed);
}

static void OnPlay(HWND dialog) {
    if (MediaDevice.open && MediaDevice.paused) {
        ResumePlay(dialog);
    } else {
        Start(dialog);
    }
}

static void OnPause(HWND dialog) {
    if (MediaDevice.open) TogglePause(dialog);
}

static void OnStop(HWND dialog) {
    StopAndReset(dialog);
    PlayClickSound(IDS_SOUND_STOP);
}

// To the queue's next file, which plays where it fits.
static void OnNext(HWND dialog) {
    if (PlayQueue.filesLeft == 0) return;
    if (StopDevice(dialog) && CloseIfStopped(dialog)) End(dialog, VideoWindowEnd::kEnded);
}

static void OnClose(HWND dialog) {
    StopAndReset(dialog);
    End(dialog, VideoWindowEnd::kClosed);
}

// The film has stopped at its end.
static void OnEnd(HWND dialog) {
    StopPositionTimer(dialog);
    if (!MediaDevice.paused) ShowEnd(dialog);
    const bool goesOn = PlayQueue.filesLeft > 0 || MediaDevice.playAndExit;
    if (!goesOn && !PlayQueue.repeat) {
        ShowStatus(dialog, "Ready");
    } else if (!goesOn && PlayQueue.names.size() == 1) {
        PostMessageA(dialog, WM_COMMAND, IDC_VIDEO_PLAY, 0);
    } else {
        CloseDevice(dialog);
        if (!goesOn) RestartQueue(PlayQueue);
        End(dialog, VideoWindowEnd::kEnded);
    }
}

static void OnTimer(HWND dialog) {
    // A box opened by a tick lets further ticks through; a thumb held at the end holds the film.
    if (!IsPositionTimerRunning(dialog) || MediaDevice.dragging) return;
    DWORD mode = 0;
    if (!QueryDevice(dialog, MCI_STATUS_MODE, mode)) return;
    if (mode == MCI_MODE_STOP) {
        OnEnd(dialog);
    } else {
        ShowProgress(dialog);
    }
}

static bool OnCommand(HWND dialog, WPARAM wParam) {
    switch (MeantButton(dialog, wParam, kButtons, 0, IDCANCEL)) {
        case IDC_VIDEO_PLAY:
            OnPlay(dialog);
            return true;
        case IDC_VIDEO_PAUSE:
            OnPause(dialog);
            return true;
        case IDC_VIDEO_STOP:
            OnStop(dialog);
            return true;
        case IDCANCEL:
            OnClose(dialog);
            return true;
        default:
            return false;
    }
}

// The keyboard's media row means the film while its window is in front.
static bool OnMediaKey(HWND dialog, int appCommand) {
    switch (appCommand) {
        case APPCOMMAND_MEDIA_PLAY_PAUSE:
            // A film that has come to its end is open still, but nothing watches it any more.
            IsPositionTimerRunning(dialog) ? OnPause(dialog) : OnPlay(dialog);
            return true;
        case APPCOMMAND_MEDIA_STOP:
            OnStop(dialog);
            return true;
        case APPCOMMAND_MEDIA_NEXTTRACK:
            OnNext(dialog);
            return true;
        case APPCOMMAND_MEDIA_PREVIOUSTRACK:
            ReturnToStart(dialog);
            return true;
        default:
            return false;
    }
}

static INT_PTR CALLBACK VideoProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    INT_PTR result = FALSE;
    if (HandleDialogLook(dialog, message, wParam, lParam, kButtons, result)) return result;
    switch (message) {
        case WM_INITDIALOG:
            OnInitDialog(dialog);
            return TRUE;
        case WM_COMMAND:
            return OnCommand(dialog, wParam);
        case WM_APPCOMMAND:
            SetWindowLongPtrA(dialog, DWLP_MSGRESULT, TRUE);
            return OnMediaKey(dialog, GET_APPCOMMAND_LPARAM(lParam));
        case WM_HSCROLL:
            OnFileScroll(dialog, LOWORD(wParam), HIWORD(wParam));
            return TRUE;
        case WM_TIMER:
            OnTimer(dialog);
            return TRUE;
        case WM_ERASEBKGND:
            LeaveOutPicture(Picture(dialog), reinterpret_cast<HDC>(wParam));
            return FALSE;
        case WM_CTLCOLORSTATIC:
            return reinterpret_cast<INT_PTR>(PictureGround(reinterpret_cast<HWND>(lParam)));
        case WM_QUERYNEWPALETTE:
            RealizeVideoPalette(Picture(dialog));
            return TRUE;
        case WM_SYSCOMMAND:
            // A handled message is answered with 0, and then nothing follows.
            return HoldsOffSleep(wParam);
        default:
            return FALSE;
    }
}

VideoWindowEnd ShowVideoWindow(HWND owner, const LargeFilm& film) {
    Film = film;
    const INT_PTR end =
        DialogBoxParamA(ProgramInstance, MAKEINTRESOURCEA(IDD_VIDEO), owner, VideoProcedure, 0);
    return end < 0 ? VideoWindowEnd::kFailed : static_cast<VideoWindowEnd>(end);
}
