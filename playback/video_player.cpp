// See video_player.h.
#include "playback/video_player.h"

#include <mmsystem.h>

#include <digitalv.h>

#include "base/handles.h"
#include "base/settings.h"
#include "playback/mci.h"
#include "playback/media_device.h"
#include "resources/ids.h"
#include "ui/dialog_helpers.h"

VideoPlayerState VideoPlayer;

bool QueryPictureSize(HWND window, VideoSize& size) {
    MCI_DGV_RECT_PARMS where = {};
    if (!SendToDevice(window, MCI_WHERE, MCI_DGV_WHERE_SOURCE | MCI_WAIT, &where)) return false;
    // In place of the right and bottom edges stand width and height.
    size = {static_cast<int>(where.rc.right), static_cast<int>(where.rc.bottom)};
    return true;
}

bool OpenVideo(HWND window, const std::string& path, VideoSize& size) {
    ShowPicture(window, true);
    if (!OpenDevice(window, path, GetDlgItem(window, IDC_VIDEO_AREA))) {
        ShowPicture(window, false);
        return false;
    }
    VideoSize answer;
    if (!QueryPictureSize(window, answer)) return false;
    if (TakeVideoSize(answer.width, answer.height, size)) return true;
    ReportMediaError(window, MCIERR_INTERNAL);
    return false;
}

static VideoSize FrameSize(HWND window) {
    RECT client = {};
    GetClientRect(GetDlgItem(window, IDC_VIDEO_FRAME), &client);
    return {client.right, client.bottom};
}

bool FitsVideoFrame(HWND window, VideoSize size) {
    return FitsFrame(size, FrameSize(window));
}

void PlacePicture(HWND window, VideoSize size) {
    const RECT frame = ControlRect(window, IDC_VIDEO_FRAME);
    const VideoPlace place = PlaceInFrame(frame.left, frame.top, FrameSize(window), size);
    SetWindowPos(GetDlgItem(window, IDC_VIDEO_AREA), nullptr, place.x, place.y, place.size.width,
                 place.size.height, SWP_NOZORDER | SWP_NOACTIVATE);
}

static void SetSound(HWND window) {
    MCI_DGV_SET_PARMS set = {};
    set.dwAudio = MCI_SET_AUDIO_ALL;
    const DWORD_PTR onOff = VideoPlayer.muted ? MCI_SET_OFF : MCI_SET_ON;
    SendToDevice(window, MCI_SET, MCI_SET_AUDIO | onOff | MCI_WAIT, &set);
}

// The platform's film player plays in a thread of its own, which may still be on its way out when
// the device is closed: its code stays loaded from the first film on.
static void KeepFilmPlayerLoaded() {
    static HMODULE player = nullptr;
    if (player == nullptr) player = LoadLibraryA("mciavi32.dll");
}

bool StartVideo(HWND window, HWND picture) {
    KeepFilmPlayerLoaded();
    SetTimeFormat(window, Settings.videoFrames ? PlayUnit::kFrames : PlayUnit::kMilliseconds);
    SetSound(window);
    TakeLength(window);
    PlayFromStart(window);
    if (!MediaDevice.open) return false;
    RealizeVideoPalette(picture);
    return true;
}

void SwitchVideoSound(HWND window) {
    VideoPlayer.muted = !VideoPlayer.muted;
    SetSound(window);
    HWND button = GetDlgItem(window, IDC_SOUND);
    if (button != nullptr) InvalidateRect(button, nullptr, FALSE);
}

void LeaveOutPicture(HWND picture, HDC dc) {
    if (!IsWindowVisible(picture)) return;
    RECT place = {};
    GetWindowRect(picture, &place);
    MapWindowPoints(nullptr, GetParent(picture), reinterpret_cast<POINT*>(&place), 2);
    ExcludeClipRect(dc, place.left, place.top, place.right, place.bottom);
}

HBRUSH PictureGround(HWND control) {
    // A black rectangle among the static controls would be as black as the user's colours have it.
    const int id = GetDlgCtrlID(control);
    const bool picture = id == IDC_VIDEO_AREA || id == IDC_VIDEO_WINDOW_AREA;
    return picture ? static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)) : nullptr;
}

void RealizeVideoPalette(HWND picture) {
    if (!MediaDevice.open || picture == nullptr) return;
    const UniqueWindowDc dc = GetUniqueDc(picture);
    if (!(GetDeviceCaps(dc.get(), RASTERCAPS) & RC_PALETTE)) return;
    DWORD palette = 0;
    if (QueryStatus(MediaDevice.id, MCI_DGV_STATUS_HPAL, palette) != 0 || palette == 0) return;
    SelectPalette(dc.get(), reinterpret_cast<HPALETTE>(static_cast<UINT_PTR>(palette)), FALSE);
    RealizePalette(dc.get());
    SelectPalette(dc.get(), static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE)), FALSE);
}
