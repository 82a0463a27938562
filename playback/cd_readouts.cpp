// See cd_readouts.h.
#include "playback/cd_readouts.h"

#include <algorithm>
#include <string>

#include "base/program_state.h"
#include "database/disc_lookup.h"
#include "disc/disc_times.h"
#include "playback/cd_device.h"
#include "playback/cd_player_state.h"
#include "playback/position_bar.h"
#include "resources/ids.h"
#include "ui/dialog_helpers.h"

static void SetReadout(int controlId, const std::string& text) {
    SetControlText(MainWindow, controlId, text);
}

static void SetTimeReadout(int controlId, int seconds) {
    SetReadout(controlId, MinutesSecondsText(seconds));
}

void ShowDiscState() {
    static const char* const kWords[] = {"Empty", "Ready", "Playing", "Paused"};
    const auto index = static_cast<int>(CdPlayer.state);
    SetReadout(IDC_CD_STATUS, index < 0 ? "" : kWords[index]);
    if (!CanEjectDisc()) return;
    const bool empty = CdPlayer.state == DiscState::kEmpty;
    // Like every picture button's, this caption is not drawn: keyboard and screen reader go by it.
    SetReadout(IDC_EJECT, empty ? "&Load" : "E&ject");
    SetReadout(IDC_EJECT_LABEL, empty ? "Load" : "Eject");
}

void ShowDiscLength() {
    SetReadout(IDC_DISC_LENGTH,
               CdPlayer.discPresent ? MinutesSecondsText(CdPlayer.toc.totalSeconds) : "");
}

// The file modes use the same scroll bar.
void SetDiscRange(int seconds) {
    if (InCdMode()) SetPositionRange(seconds);
}

void SetDiscThumb(int seconds) {
    if (InCdMode()) SetPositionThumb(seconds);
}

// Another program may hold the catalogue for a moment.
static bool IsKnownDisc() {
    if (!CdPlayer.discPresent) return false;
    CopyDiscToc(CdPlayer.toc);
    const LookupResult result = LookUpDisc(CdPlayer.toc.totalSeconds, CdPlayer.toc.trackCount);
    if (result == LookupResult::kUnreadable) CdPlayer.titlesStale = true;
    return result == LookupResult::kFound;
}

static void ShowTrackTitle(int track) {
    SetReadout(IDC_TRACK_TITLE, IsKnownDisc() ? TrackNameText(track) : "");
}

void ShowTrack() {
    const int length = TrackLengthSeconds(CdPlayer.toc, CdPlayer.currentTrack);
    SetReadout(IDC_TRACK_NUMBER, std::to_string(CdPlayer.currentTrack));
    ShowTrackTitle(CdPlayer.currentTrack);
    SetTimeReadout(IDC_SCROLL_LEFT, 0);
    SetTimeReadout(IDC_SCROLL_RIGHT, length);
    SetTimeReadout(IDC_TRACK_LENGTH, length);
    SetDiscRange(length);
}

void ShowElapsed(int seconds) {
    const DiscReadouts at = ReadoutsAt(CdPlayer.toc, CdPlayer.currentTrack, seconds);
    SetTimeReadout(IDC_TIME, at.time);
    SetTimeReadout(IDC_REMAINING, at.remaining);
    SetTimeReadout(IDC_TOTAL_PLAYING, at.totalPlaying);
    SetTimeReadout(IDC_TOTAL_REMAINING, at.totalRemaining);
}

void ShowElapsedAndThumb(int seconds) {
    ShowElapsed(seconds);
    SetDiscThumb(seconds);
}

void ClearCdReadouts() {
    static const int kReadouts[] = {IDC_TRACK_NUMBER,    IDC_TIME,         IDC_REMAINING,
                                    IDC_TOTAL_PLAYING,   IDC_DISC_LENGTH,  IDC_SCROLL_LEFT,
                                    IDC_TOTAL_REMAINING, IDC_SCROLL_RIGHT, IDC_TRACK_LENGTH,
                                    IDC_DISC_TITLE,      IDC_TRACK_TITLE};
    for (int id : kReadouts)
        SetReadout(id, "");
    SetDiscThumb(0);
}

void ShowDiscTitle() {
    const bool known = IsKnownDisc();
    SetReadout(IDC_DISC_TITLE, known ? DiscTitleText() : "");
    SetReadout(IDC_ENTRY, known ? "Edit &Entry" : "Add &Entry");
    SetReadout(IDC_ENTRY_LABEL, known ? "Edit Entry" : "Add Entry");
}

void RefreshDiscTitles() {
    if (!CdPlayer.discPresent) return;
    ShowDiscTitle();
    ShowTrackTitle(std::max(CdPlayer.currentTrack, 1));
}

void ShowStaleTitles() {
    CdPlayer.titlesStale = false;
    ShowDiscTitle();
    // A stopped disc shows no track.
    if (CdPlayer.state >= DiscState::kPlaying) ShowTrackTitle(CdPlayer.currentTrack);
}

static void ShowDiscControl(int controlId, bool show) {
    // Left to the platform, the focus of a button that goes would land on the first mode's tab.
    if (!show && InCdMode() && GetFocus() == GetDlgItem(MainWindow, controlId)) {
        SetFocus(GetDlgItem(MainWindow, CdPlayer.pageCount >= 2 ? IDC_NEXT_PAGE : IDC_CD_PLAY));
    }
    ShowControl(MainWindow, controlId, show && InCdMode());
}

void ShowDiscButtons() {
    SetReadout(IDC_TOTAL_TRACKS, std::to_string(CdPlayer.toc.trackCount));
    for (int id :
         {IDC_NEXT_PAGE, IDC_NEXT_PAGE_LABEL, IDC_PREVIOUS_PAGE, IDC_PREVIOUS_PAGE_LABEL}) {
        ShowDiscControl(id, CdPlayer.pageCount >= 2);
    }
    const int first = CdPlayer.page * kTrackPageSize;
    for (int i = 0; i < kTrackPageSize; ++i) {
        const bool exists = first + i < CdPlayer.toc.trackCount;
        if (exists) {
            const std::string number = std::to_string(first + i + 1);
            SetReadout(IDC_TRACK_FIRST + i, "Track " + number);
            SetReadout(IDC_TRACK_LABEL_FIRST + i, number);
        }
        ShowDiscControl(IDC_TRACK_FIRST + i, exists);
        ShowDiscControl(IDC_TRACK_LABEL_FIRST + i, exists);
    }
    ShowDiscControl(IDC_EJECT, CanEjectDisc());
    ShowDiscControl(IDC_EJECT_LABEL, CanEjectDisc());
}

static void RepaintTrackButton(int index) {
    HWND button = GetDlgItem(MainWindow, IDC_TRACK_FIRST + index);
    // A null window would mean the whole screen.
    if (button != nullptr) InvalidateRect(button, nullptr, FALSE);
}

void SetCurrentTrack(int track) {
    CdPlayer.currentTrack = track;
    const int button = HighlightedButton(std::max(track, 1));
    if (button == CdPlayer.highlightedButton) return;
    RepaintTrackButton(CdPlayer.highlightedButton);
    CdPlayer.highlightedButton = button;
    RepaintTrackButton(button);
}

bool IsTrackHighlighted(int controlId) {
    return controlId == IDC_TRACK_FIRST + CdPlayer.highlightedButton;
}
