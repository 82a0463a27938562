// See play_readouts.h.
#include "playback/play_readouts.h"

#include "resources/ids.h"
#include "ui/dialog_helpers.h"

void ShowStatus(HWND window, const char* text) {
    SetControlText(window, IDC_STATUS, text);
}

void ShowLength(HWND window, const PlayLength& length) {
    SetControlText(window, IDC_POSITION_UNIT, "0");
    SetControlText(window, IDC_LENGTH, PositionText(length.length, length.unit));
    SetPositionRange(window, length.range);
    SetPositionThumb(window, 0);
    ShowPosition(window, 0, length.unit);
}

void ShowPosition(HWND window, int64_t position, PlayUnit unit) {
    SetControlText(window, IDC_POSITION, PositionText(position, unit));
}

void BlankReadouts(HWND window) {
    for (int id : {IDC_POSITION, IDC_POSITION_UNIT, IDC_LENGTH, IDC_FILE_NAME})
        SetControlText(window, id, "");
    SetControlText(window, IDC_SELECTED_COUNT, "0");
}

static HWND Bar(HWND window) {
    return GetDlgItem(window, IDC_SCROLL);
}

void SetPositionRange(HWND window, int end) {
    int low = 0;
    int high = 0;
    GetScrollRange(Bar(window), SB_CTL, &low, &high);
    if (low != 0 || high != end) SetScrollRange(Bar(window), SB_CTL, 0, end, TRUE);
}

void SetPositionThumb(HWND window, int position) {
    if (PositionThumb(window) != position) SetScrollPos(Bar(window), SB_CTL, position, TRUE);
}

int PositionThumb(HWND window) {
    return GetScrollPos(Bar(window), SB_CTL);
}
