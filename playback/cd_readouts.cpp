// See cd_readouts.h.
#include "playback/cd_readouts.h"

#include <algorithm>
#include <string>

#include "app/program_state.h"
#include "cddb/disc_lookup.h"
#include "playback/cd_device.h"
#include "playback/cd_player_state.h"
#include "playback/disc_times.h"
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
    SetTimeReadout(IDC_DISC_LENGTH, CdPlayer.toc.totalSeconds);
}

// The file modes use the same scroll bar.
void SetDiscRange(int seconds) {
    if (InCdMode()) SetPositionRange(seconds);
}

void SetDiscThumb(int seconds) {
    if (InCdMode()) SetPositionThumb(seconds);
}

static void ShowTrackTitle(int track) {
    CopyDiscToc(CdPlayer.toc);
    SetReadout(IDC_TRACK_TITLE, TrackNameText(track));
}

void ShowTrack() {
    const int length = TrackLengthSeconds(CdPlayer.toc, CdPlayer.currentTrack);
    SetReadout(IDC_TRACK_NUMBER, std::to_string(CdPlayer.currentTrack));
    ShowTrackTitle(CdPlayer.currentTrack);
    SetTimeReadout(IDC_SCROLL_LEFT, 0);
    SetTimeReadout(IDC_SCROLL_RIGHT, length);
    SetTimeReadout(IDC_TRACK_LENGTH, length);
    SetDiscRange(length);
    HighlightCurrentTrack();
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
    CopyDiscToc(CdPlayer.toc);
    SetReadout(IDC_DISC_TITLE, CdPlayer.discPresent ? DiscTitleText() : "");
    const bool known =
        CdPlayer.discPresent && FindDisc(CdPlayer.toc.totalSeconds, CdPlayer.toc.trackCount);
    SetReadout(IDC_ENTRY, known ? "Edit &Entry" : "Add &Entry");
    SetReadout(IDC_ENTRY_LABEL, known ? "Edit Entry" : "Add Entry");
}

void RefreshDiscTitles() {
    if (!CdPlayer.discPresent) return;
    ShowDiscTitle();
    ShowTrackTitle(std::max(CdPlayer.currentTrack, 1));
}

static void ShowDiscControl(int controlId, bool show) {
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

void HighlightButton(int index) {
    if (index == CdPlayer.highlightedButton) return;
    RepaintTrackButton(CdPlayer.highlightedButton);
    CdPlayer.highlightedButton = index;
    RepaintTrackButton(index);
}

void HighlightCurrentTrack() {
    HighlightButton(HighlightedButton(CdPlayer.currentTrack));
}

bool IsTrackHighlighted(int controlId) {
    return controlId == IDC_TRACK_FIRST + CdPlayer.highlightedButton;
}
