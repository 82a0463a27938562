// See cd_readouts.h.
#include "playback/cd_readouts.h"

#include <algorithm>
#include <string>

#include "base/program_state.h"
#include "database/database_file.h"
#include "database/disc_lookup.h"
#include "disc/disc_times.h"
#include "playback/cd_device.h"
#include "playback/cd_player_state.h"
#include "playback/play_readouts.h"
#include "resources/ids.h"
#include "ui/dialog_helpers.h"

static void SetTimeReadout(HWND window, int controlId, int seconds) {
    SetControlText(window, controlId, MinutesSecondsText(seconds));
}

void ShowDiscState(HWND window) {
    static const char* const kWords[] = {"Empty", "Ready", "Playing", "Paused"};
    const auto index = static_cast<int>(CdPlayer.state);
    SetControlText(window, IDC_CD_STATUS, index < 0 ? "" : kWords[index]);
    if (!CanEjectDisc()) return;
    const bool empty = CdPlayer.state == DiscState::kEmpty;
    // Like every picture button's, this caption is not drawn: keyboard and screen reader go by it.
    SetControlText(window, IDC_EJECT, empty ? "&Load" : "E&ject");
    SetControlText(window, IDC_EJECT_LABEL, empty ? "Load" : "Eject");
}

void ShowDiscLength(HWND window) {
    SetControlText(window, IDC_DISC_LENGTH,
                   CdPlayer.discPresent ? MinutesSecondsText(CdPlayer.toc.totalSeconds) : "");
}

// The file modes use the same scroll bar.
void SetDiscRange(HWND window, int seconds) {
    if (InCdMode()) SetPositionRange(window, seconds);
}

void SetDiscThumb(HWND window, int seconds) {
    if (InCdMode()) SetPositionThumb(window, seconds);
}

// Another program may hold the catalogue for a moment.
static bool IsKnownDisc() {
    if (!CdPlayer.discPresent) return false;
    CopyDiscToc(CdPlayer.toc);
    const DatabaseResult asked = LookUpDisc(CdPlayer.toc.totalSeconds, CdPlayer.toc.trackCount);
    if (asked != DatabaseResult::kOk) CdPlayer.titlesStale = true;
    return FoundEntryOffset != 0;
}

static void ShowTrackTitle(HWND window, int track) {
    SetControlText(window, IDC_TRACK_TITLE, IsKnownDisc() ? TrackNameText(track) : "");
}

void ShowTrack(HWND window) {
    const int length = TrackLengthSeconds(CdPlayer.toc, CdPlayer.currentTrack);
    SetControlText(window, IDC_TRACK_NUMBER, std::to_string(CdPlayer.currentTrack));
    ShowTrackTitle(window, CdPlayer.currentTrack);
    SetTimeReadout(window, IDC_SCROLL_LEFT, 0);
    SetTimeReadout(window, IDC_SCROLL_RIGHT, length);
    SetTimeReadout(window, IDC_TRACK_LENGTH, length);
    SetDiscRange(window, length);
}

void ShowElapsed(HWND window, int seconds) {
    const DiscReadouts at = ReadoutsAt(CdPlayer.toc, CdPlayer.currentTrack, seconds);
    SetTimeReadout(window, IDC_TIME, at.time);
    SetTimeReadout(window, IDC_REMAINING, at.remaining);
    SetTimeReadout(window, IDC_TOTAL_PLAYING, at.totalPlaying);
    SetTimeReadout(window, IDC_TOTAL_REMAINING, at.totalRemaining);
}

void ShowElapsedAndThumb(HWND window, int seconds) {
    ShowElapsed(window, seconds);
    SetDiscThumb(window, seconds);
}

void ClearCdReadouts(HWND window) {
    static const int kReadouts[] = {IDC_TRACK_NUMBER,    IDC_TIME,         IDC_REMAINING,
                                    IDC_TOTAL_PLAYING,   IDC_DISC_LENGTH,  IDC_SCROLL_LEFT,
                                    IDC_TOTAL_REMAINING, IDC_SCROLL_RIGHT, IDC_TRACK_LENGTH,
                                    IDC_DISC_TITLE,      IDC_TRACK_TITLE};
    for (int id : kReadouts)
        SetControlText(window, id, "");
    SetDiscThumb(window, 0);
}

void ShowDiscTitle(HWND window) {
    const bool known = IsKnownDisc();
    SetControlText(window, IDC_DISC_TITLE, known ? DiscTitleText() : "");
    SetControlText(window, IDC_ENTRY, known ? "Edit &Entry" : "Add &Entry");
    SetControlText(window, IDC_ENTRY_LABEL, known ? "Edit Entry" : "Add Entry");
}

void RefreshDiscTitles(HWND window) {
    if (!CdPlayer.discPresent) return;
    ShowDiscTitle(window);
    ShowTrackTitle(window, std::max(CdPlayer.currentTrack, 1));
}

void ShowStaleTitles(HWND window) {
    CdPlayer.titlesStale = false;
    ShowDiscTitle(window);
    // A stopped disc shows no track.
    if (CdPlayer.state >= DiscState::kPlaying) ShowTrackTitle(window, CdPlayer.currentTrack);
}

static void ShowDiscControl(HWND window, int controlId, bool show) {
    // Left to the platform, the focus of a button that goes would land on the first mode's tab.
    if (!show && InCdMode() && GetFocus() == GetDlgItem(window, controlId)) {
        SetFocus(GetDlgItem(window, CdPlayer.pageCount >= 2 ? IDC_NEXT_PAGE : IDC_CD_PLAY));
    }
    ShowControl(window, controlId, show && InCdMode());
}

void ShowDiscButtons(HWND window) {
    SetControlText(window, IDC_TOTAL_TRACKS, std::to_string(CdPlayer.toc.trackCount));
    for (int id :
         {IDC_NEXT_PAGE, IDC_NEXT_PAGE_LABEL, IDC_PREVIOUS_PAGE, IDC_PREVIOUS_PAGE_LABEL}) {
        ShowDiscControl(window, id, CdPlayer.pageCount >= 2);
    }
    const int first = CdPlayer.page * kTrackPageSize;
    for (int i = 0; i < kTrackPageSize; ++i) {
        const bool exists = first + i < CdPlayer.toc.trackCount;
        if (exists) {
            const std::string number = std::to_string(first + i + 1);
            SetControlText(window, IDC_TRACK_FIRST + i, "Track " + number);
            SetControlText(window, IDC_TRACK_LABEL_FIRST + i, number);
        }
        ShowDiscControl(window, IDC_TRACK_FIRST + i, exists);
        ShowDiscControl(window, IDC_TRACK_LABEL_FIRST + i, exists);
    }
    ShowDiscControl(window, IDC_EJECT, CanEjectDisc());
    ShowDiscControl(window, IDC_EJECT_LABEL, CanEjectDisc());
}

static void RepaintTrackButton(HWND window, int index) {
    HWND button = GetDlgItem(window, IDC_TRACK_FIRST + index);
    // A null window would mean the whole screen.
    if (button != nullptr) InvalidateRect(button, nullptr, FALSE);
}

void SetCurrentTrack(HWND window, int track) {
    CdPlayer.currentTrack = track;
    const int button = HighlightedButton(std::max(track, 1));
    if (button == CdPlayer.highlightedButton) return;
    RepaintTrackButton(window, CdPlayer.highlightedButton);
    CdPlayer.highlightedButton = button;
    RepaintTrackButton(window, button);
}

bool IsTrackHighlighted(int controlId) {
    return controlId == IDC_TRACK_FIRST + CdPlayer.highlightedButton;
}
