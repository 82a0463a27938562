// The CD player's buttons and its scroll bar.
#include <algorithm>

#include "base/program_state.h"
#include "disc/disc_times.h"
#include "playback/cd_device.h"
#include "playback/cd_player.h"
#include "playback/cd_player_state.h"
#include "playback/cd_readouts.h"
#include "playback/mci.h"
#include "playback/media_device.h"
#include "playback/media_error.h"
#include "playback/position_bar.h"
#include "resources/ids.h"
#include "ui/boxes.h"

constexpr int kPageScrollSeconds = 8;
// Seeks land in the middle of the second, also a seek to 0:00. It is meant.
constexpr int kSeekFrame = 30;

// True when the drive is open and holds nothing to play. While no device is open a command goes on
// and asks for one.
static bool IsDiscMissing() {
    return IsCdOpen() && (CdPlayer.state == DiscState::kEmpty || !CdPlayer.discPresent);
}

// True when there is a device, perhaps after asking the user.
static bool GetDevice() {
    if (!DriverAvailable.cdAudio) {
        ShowMessage("No MCI CD audio driver installed!");
        return false;
    }
    if (IsCdOpen()) return true;
    if (!AskQuestion("Could not open CD device when starting Tarnwell. Try it again?"))
        return false;
    if (OpenDriveAndReadDisc()) ShowDiscButtons();
    if (IsCdOpen() && CdPlayer.discPresent) return true;
    ShowMessage("Still can't open CD device. Make sure there is a disc in your CD-ROM drive.");
    return false;
}

static void PlayFromTrack(int track) {
    if (!GetDevice()) return;
    CdPlayer.paused = false;
    CdPlayer.dragging = false;
    SetCurrentTrack(track);
    PlayCdFrom(PackPosition(track, 0, 0, 0));
    ShowTrack();
    ShowDiscTitle();
    SetDiscThumb(0);
}

static void Resume() {
    CdPlayer.paused = false;
    SendToCd(MCI_PLAY, 0);
    SetDiscRange(TrackLengthSeconds(CdPlayer.toc, CdPlayer.currentTrack));
}

static bool IsTrackNumber(int track) {
    return track >= 1 && track <= kMaxTracks;
}

static int TrackToStart(int startTrack) {
    return IsTrackNumber(startTrack) ? startTrack : std::max(CdPlayer.currentTrack, 1);
}

void OnCdPlay(int startTrack) {
    if (IsDiscMissing()) return;
    if (!CdPlayer.paused) {
        PlayFromTrack(TrackToStart(startTrack));
    } else if (GetDevice()) {
        Resume();
    }
}

void OnCdPlayRequest(int startTrack, bool behindDialog) {
    if (behindDialog && !IsCdOpen()) return;
    // In the file modes the last look may be long ago: what it saw says nothing.
    if (!InCdMode()) CdPlayer.state = DiscState::kNone;
    CdStatusTick();
    OnCdPlay(startTrack);
}

void OnCdPause() {
    if (IsDiscMissing() || !GetDevice()) return;
    if (CdPlayer.paused) {
        Resume();
        return;
    }
    DWORD mode = 0;
    const MCIERROR error = QueryStatus(CdDevice(), MCI_STATUS_MODE, mode);
    if (error != 0) ReportDiscError(error);
    if (mode != MCI_MODE_PLAY) return;
    CdPlayer.paused = SendToCd(MCI_PAUSE, 0);
}

static void StopDisc() {
    if (CdPlayer.paused) {
        // Some drives stay paused through a stop.
        CdPlayer.paused = false;
        SendToCd(MCI_PLAY, 0);
    }
    SendToCd(MCI_STOP, MCI_WAIT);
    SetCurrentTrack(1);
}

void OnCdStop() {
    if (IsDiscMissing() || !GetDevice()) return;
    StopDisc();
}

void OnSkipBack() {
    if (IsDiscMissing()) return;
    if (!IsCdOpen()) {
        PlayFromTrack(1);
        return;
    }
    DWORD packed = 0;
    const MCIERROR error = QueryStatus(CdDevice(), MCI_STATUS_POSITION, packed);
    if (error != 0) {
        ReportDiscError(error);
        return;
    }
    const DiscPosition position = UnpackPosition(packed);
    // A track that has begun since the last tick is the current one already.
    const bool plays = CdPlayer.state == DiscState::kPlaying;
    const int target = SkipBackTarget(plays ? position.track : CdPlayer.currentTrack,
                                      CdPlayer.toc.trackCount, SecondsIntoTrack(position));
    if (target != 0) PlayFromTrack(target);
}

void OnSkipForward() {
    if (IsDiscMissing()) return;
    const int target =
        IsCdOpen() ? SkipForwardTarget(CdPlayer.currentTrack, CdPlayer.toc.trackCount) : 1;
    if (target != 0) PlayFromTrack(target);
}

void OnTrackButton(int controlId) {
    const int track = CdPlayer.page * kTrackPageSize + controlId - IDC_TRACK_FIRST + 1;
    if (IsDiscMissing() || track > CdPlayer.toc.trackCount) return;
    PlayFromTrack(track);
}

static void TurnPage(int page) {
    if (IsDiscMissing()) return;
    CdPlayer.page = page;
    ShowDiscButtons();
}

void OnNextPage() {
    TurnPage(PageAfter(CdPlayer.page, CdPlayer.pageCount));
}

void OnPreviousPage() {
    TurnPage(PageBefore(CdPlayer.page, CdPlayer.pageCount));
}

void OnEject() {
    if (CdPlayer.state == DiscState::kEmpty && CanEjectDisc()) {
        CloseCdDoor();
        return;
    }
    if (!IsCdOpen() && !OpenCdDevice()) return;
    if (!IsDiscMissing()) StopDisc();
    OpenCdDoor();
}

bool PrepareEntry(DiscToc& disc) {
    if (IsDiscMissing() || !GetDevice() || CdPlayer.toc.trackCount == 0) return false;
    disc = CdPlayer.toc;
    return true;
}

// The scroll bar

static bool IsDiscPlaying() {
    DWORD mode = 0;
    return IsCdOpen() && QueryDriveMode(mode) && mode == MCI_MODE_PLAY;
}

static int CurrentLengthSeconds() {
    return TrackLengthSeconds(CdPlayer.toc, CdPlayer.currentTrack);
}

static MCIERROR PlayFromSecond(int seconds) {
    return TryPlayCdFrom(
        PackPosition(CdPlayer.currentTrack, seconds / 60, seconds % 60, kSeekFrame));
}

static void SeekInTrack(int seconds) {
    MCIERROR error = PlayFromSecond(seconds);
    // The last second of the disc may be too short to hold the frame.
    if (LOWORD(error) == MCIERR_OUTOFRANGE && seconds > 0) {
        --seconds;
        error = PlayFromSecond(seconds);
    }
    if (error != 0) ReportDiscError(error);
    ShowElapsedAndThumb(seconds);
}

// The release ends the dragging also when the disc has stopped meanwhile.
static void ReleaseThumb(int seconds) {
    if (!CdPlayer.dragging) return;
    CdPlayer.dragging = false;
    if (IsDiscPlaying()) SeekInTrack(std::clamp(seconds, 0, CurrentLengthSeconds()));
}

static void DragThumb(int seconds) {
    if (!IsDiscPlaying()) return;
    CdPlayer.dragging = true;
    ShowElapsed(std::clamp(seconds, 0, CurrentLengthSeconds()));
}

static void MoveThumb(int bySeconds) {
    if (!IsDiscPlaying()) return;
    CdPlayer.dragging = true;
    ShowElapsedAndThumb(MovedPosition(PositionThumb(), bySeconds, CurrentLengthSeconds()));
    // Arrow keys are not followed by an end of scroll everywhere.
    if (GetKeyState(VK_LBUTTON) >= 0) ReleaseThumb(PositionThumb());
}

void OnCdScroll(int code, int thumb) {
    switch (code) {
        case SB_LINELEFT:
            MoveThumb(-1);
            break;
        case SB_LINERIGHT:
            MoveThumb(1);
            break;
        case SB_PAGELEFT:
            MoveThumb(-kPageScrollSeconds);
            break;
        case SB_PAGERIGHT:
            MoveThumb(kPageScrollSeconds);
            break;
        case SB_LEFT:
            MoveThumb(-CurrentLengthSeconds());
            break;
        case SB_RIGHT:
            MoveThumb(CurrentLengthSeconds());
            break;
        case SB_THUMBTRACK:
            DragThumb(thumb);
            break;
        case SB_THUMBPOSITION:
            ReleaseThumb(thumb);
            break;
        case SB_ENDSCROLL:
            ReleaseThumb(PositionThumb());
            break;
        default:
            break;
    }
}
