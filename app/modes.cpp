// The four modes: changing between them, and the layout of the first.
#include "app/modes.h"

#include "app/layout.h"
#include "base/program_state.h"
#include "playback/cd_player.h"
#include "playback/file_list.h"
#include "playback/file_player.h"
#include "playback/media_device.h"
#include "playback/player_timers.h"
#include "resources/ids.h"
#include "ui/animations.h"
#include "ui/click_sounds.h"

// Many controls change at once: the window is drawn when all have. False when there is nothing to
// hold, because the window is not shown yet.
static bool HoldDrawing(HWND window) {
    if (!IsWindowVisible(window)) return false;
    SendMessageA(window, WM_SETREDRAW, FALSE, 0);
    return true;
}

static void ResumeDrawing(HWND window) {
    SendMessageA(window, WM_SETREDRAW, TRUE, 0);
    RedrawWindow(window, nullptr, nullptr, RDW_ERASE | RDW_INVALIDATE | RDW_ALLCHILDREN);
}

static void LeaveCdMode(HWND window) {
    StopCdTimer(window);
    StopAnimationTimer(window);
    ShowCdControls(window, false);
    ShowFileControls(window, true);
    PlaceScrollBar(window, false);
}

static void ShowFileMode(HWND window) {
    ShowModeLabels(window);
    ShowAnimationAreas(window);
    FillModeList(window);
}

static void ChangeToFileMode(HWND window, int mode) {
    if (InCdMode()) LeaveCdMode(window);
    SetPlayMode(mode);
    // Once more, so that the scroll bar is reset when the disc has used it.
    StopAndReset(window);
    ShowFileMode(window);
}

static void ShowCdMode(HWND window) {
    StartCdTimer(window);
    StartAnimationTimer(window);
    ShowFileControls(window, false);
    ShowAnimationAreas(window);
    ShowCdControls(window, true);
    PlaceScrollBar(window, true);
}

static void ChangeToCdPlayer(HWND window) {
    SetPlayMode(IDC_MODE_CDPLAYER);
    ShowCdMode(window);
}

// Hiding the focused control would throw the focus to the first tab. It stays on the tab that was
// clicked; from elsewhere in the window it goes to the mode's Play.
static void PlaceFocus(HWND window, HWND focused) {
    if (!IsChild(window, focused) || focused == GetDlgItem(window, PlayMode)) return;
    SetFocus(GetDlgItem(window, InCdMode() ? IDC_CD_PLAY : IDC_PLAY));
}

void ChangeMode(HWND window, int mode) {
    if (mode == PlayMode) return;
    HWND focused = GetFocus();
    const bool held = HoldDrawing(window);
    CutPlayQueue(window);
    // While the mode is still the one whose file plays: a film is stopped otherwise than a sound.
    StopAndReset(window);
    if (mode == IDC_MODE_CDPLAYER) {
        ChangeToCdPlayer(window);
    } else {
        ChangeToFileMode(window, mode);
    }
    if (held) ResumeDrawing(window);
    PlaceFocus(window, focused);
    if (!InCdMode()) return;
    // The drive may have something to say, and its box must not stand before an undrawn window.
    ShowCdPlayer(window);
    PlayClickSound(IDS_SOUND_CDPLAYER);
}

void EnterStartMode(HWND window) {
    if (InCdMode()) {
        ShowCdMode(window);
        ShowCdPlayer(window);
        return;
    }
    PlaceScrollBar(window, false);
    ShowFileMode(window);
}
