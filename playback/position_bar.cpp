// The position scroll bar of the main window.
#include "playback/position_bar.h"

#include "base/program_state.h"
#include "resources/ids.h"

static HWND Bar() {
    return GetDlgItem(MainWindow, IDC_SCROLL);
}

void SetPositionRange(int end) {
    int low = 0;
    int high = 0;
    GetScrollRange(Bar(), SB_CTL, &low, &high);
    if (low != 0 || high != end) SetScrollRange(Bar(), SB_CTL, 0, end, TRUE);
}

void SetPositionThumb(int position) {
    if (PositionThumb() != position) SetScrollPos(Bar(), SB_CTL, position, TRUE);
}

int PositionThumb() {
    return GetScrollPos(Bar(), SB_CTL);
}
