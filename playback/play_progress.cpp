// See play_progress.h.
#include "playback/play_progress.h"

#include "base/settings.h"
#include "playback/mci.h"
#include "playback/media_device.h"
#include "playback/play_readouts.h"

void ShowProgress(HWND window) {
    DWORD answer = 0;
    if (IsIconic(window) || !MediaDevice.open || MediaDevice.dragging) return;
    if (QueryStatus(MediaDevice.id, MCI_STATUS_POSITION, answer) != 0) return;
    const auto position = static_cast<int32_t>(answer);
    ShowPosition(window, position, MediaDevice.length.unit);
    if (!Settings.recreationScroll) {
        SetPositionThumb(window, PositionToScroll(position, MediaDevice.length));
    }
}

void ShowEnd(HWND window) {
    // The length itself: the scroll bar's end times its scale may be a millisecond off.
    ShowPosition(window, MediaDevice.length.length, MediaDevice.length.unit);
    if (!Settings.recreationScroll) SetPositionThumb(window, MediaDevice.length.range);
}

static void ScrollTo(HWND window, int thumb) {
    MediaDevice.dragging = true;
    if (!MediaDevice.open) return;
    const int32_t target = ScrollToPosition(thumb, MediaDevice.length);
    ShowPosition(window, target, MediaDevice.length.unit);
    SeekDevice(window, target);
}

static void MoveThumbBy(HWND window, int step) {
    const int moved = MoveScroll(PositionThumb(window), step, MediaDevice.length.range);
    ScrollTo(window, moved);
    if (MediaDevice.open) SetPositionThumb(window, moved);
}

static void EndScroll(HWND window, int thumb) {
    if (!MediaDevice.dragging) return;
    MediaDevice.dragging = false;
    if (!MediaDevice.open) return;
    ShowPosition(window, ScrollToPosition(thumb, MediaDevice.length), MediaDevice.length.unit);
    SetPositionThumb(window, thumb);
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
            MoveThumbBy(window, -MediaDevice.length.range);
            break;
        case SB_RIGHT:
            MoveThumbBy(window, MediaDevice.length.range);
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

void ReturnToStart(HWND window) {
    OnFileScroll(window, SB_LEFT, 0);
    OnFileScroll(window, SB_ENDSCROLL, 0);
}
