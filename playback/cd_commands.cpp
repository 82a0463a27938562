// See cd_commands.h.
#include "playback/cd_commands.h"

#include <algorithm>

#include "base/program_state.h"
#include "disc/disc_times.h"
#include "playback/cd_device.h"
#include "playback/cd_player.h"
#include "playback/cd_player_state.h"
#include "playback/cd_readouts.h"
#include "playback/mci.h"
#include "playback/media_device.h"
#include "playback/play_readouts.h"
#include "resources/ids.h"
#include "ui/boxes.h"

// A page has a button and a label for each of its tracks.
static_assert(IDC_TRACK_LAST - IDC_TRACK_FIRST + 1 == kTrackPageSize);
static_assert(IDC_TRACK_LABEL_LAST - IDC_TRACK_LABEL_FIRST + 1 == kTrackPageSize);

constexpr int kPageScrollSeconds = 8;
// Seeks land in the middle of the second, also a seek to 0:00. It is meant.
constexpr int kSeekFrame = 30;

// True when the drive is open and holds nothing to play. While no device is open a command goes on
// and asks for one.
static bool IsDiscMissing() {
    return IsCdOpen() && (CdPlayer.state == DiscState::kEmpty || !CdPlayer.discPresent);
}

// True when there is a device, perhaps after asking the user.
static bool GetDevice(HWND window) {
    if (!DriverAvailable.cdAudio) {
        ShowMessage("No MCI CD audio driver installed!");
        return false;
    }
    if (IsCdOpen()) return true;
    if (!AskQuestion("Could not open CD device when starting Tarnwell. Try it again?"))
        return false;
    if (OpenDriveAndReadDisc(window)) ShowDiscButtons(window);
    if (IsCdOpen() && CdPlayer.discPresent) return true;
    ShowMessage("Still can't open CD device. Make sure there is a disc in your CD-ROM drive.");
    return false;
}

static void PlayFromTrack(HWND window, int track) {
    if (!GetDevice(window)) return;
    CdPlayer.dragging = false;
    const MCIERROR error = PlayCdFrom(PackPosition(track, 0, 0, 0));
    if (error != 0) {
        // The disc is where it was, and so is everything that shows it.
        ReportDiscError(window, error);
        return;
    }
    CdPlayer.paused = false;
    SetCurrentTrack(window, track);
    ShowTrack(window);
    ShowDiscTitle(window);
    SetDiscThumb(window, 0);
}

static void Resume(HWND window) {
    CdPlayer.paused = false;
    SendToCd(window, MCI_PLAY, 0);
    SetDiscRange(window, TrackLengthSeconds(CdPlayer.toc, CdPlayer.currentTrack));
}

static bool IsTrackNumber(int track) {
    return track >= 1 && track <= kMaxTracks;
}

static int TrackToStart(int startTrack) {
    return IsTrackNumber(startTrack) ? startTrack : std::max(CdPlayer.currentTrack, 1);
}

void OnCdPlay(HWND window, int startTrack) {
    if (IsDiscMissing()) return;
    if (!CdPlayer.paused) {
        PlayFromTrack(window, TrackToStart(startTrack));
    } else if (GetDevice(window)) {
        Resume(window);
    }
}

void OnCdPlayRequest(HWND window, int startTrack, bool behindDialog) {
    if (behindDialog && !IsCdOpen()) return;
    // In the file modes the last look may be long ago: what it saw says nothing.
    if (!InCdMode()) CdPlayer.state = DiscState::kNone;
    CdStatusTick(window);
    OnCdPlay(window, startTrack);
}

void OnCdPause(HWND window) {
    if (IsDiscMissing() || !GetDevice(window)) return;
    if (CdPlayer.paused) {
        Resume(window);
        return;
    }
    DWORD mode = 0;
    const MCIERROR error = QueryStatus(CdDevice(), MCI_STATUS_MODE, mode);
    if (error != 0) ReportDiscError(window, error);
    if (mode != MCI_MODE_PLAY) return;
    CdPlayer.paused = SendToCd(window, MCI_PAUSE, 0);
}

static void StopDisc(HWND window) {
    if (CdPlayer.paused) {
        // Some drives stay paused through a stop.
        CdPlayer.paused = false;
        SendToCd(window, MCI_PLAY, 0);
    }
    SendToCd(window, MCI_STOP, MCI_WAIT);
    SetCurrentTrack(window, 1);
}

void OnCdStop(HWND window) {
    if (IsDiscMissing() || !GetDevice(window)) return;
    StopDisc(window);
}

void OnSkipBack(HWND window) {
    if (IsDiscMissing()) return;
    if (!IsCdOpen()) {
        PlayFromTrack(window, 1);
        return;
    }
    DWORD packed = 0;
    const MCIERROR error = QueryStatus(CdDevice(), MCI_STATUS_POSITION, packed);
    if (error != 0) {
        ReportDiscError(window, error);
        return;
    }
    const DiscPosition position = UnpackPosition(packed);
    // A track that has begun since the last tick is the current one already.
    const bool plays = CdPlayer.state == DiscState::kPlaying;
    const int target = SkipBackTarget(plays ? position.track : CdPlayer.currentTrack,
                                      CdPlayer.toc.trackCount, SecondsIntoTrack(position));
    if (target != 0) PlayFromTrack(window, target);
}

void OnSkipForward(HWND window) {
    if (IsDiscMissing()) return;
    const int target =
        IsCdOpen() ? SkipForwardTarget(CdPlayer.currentTrack, CdPlayer.toc.trackCount) : 1;
    if (target != 0) PlayFromTrack(window, target);
}

void OnTrackButton(HWND window, int controlId) {
    const int track = CdPlayer.page * kTrackPageSize + controlId - IDC_TRACK_FIRST + 1;
    if (IsDiscMissing() || track > CdPlayer.toc.trackCount) return;
    PlayFromTrack(window, track);
}

static void TurnPage(HWND window, int page) {
    if (IsDiscMissing()) return;
    CdPlayer.page = page;
    ShowDiscButtons(window);
}

void OnNextPage(HWND window) {
    TurnPage(window, PageAfter(CdPlayer.page, CdPlayer.pageCount));
}

void OnPreviousPage(HWND window) {
    TurnPage(window, PageBefore(CdPlayer.page, CdPlayer.pageCount));
}

void OnEject(HWND window) {
    if (CdPlayer.state == DiscState::kEmpty && CanEjectDisc()) {
        CloseCdDoor();
        return;
    }
    if (!IsCdOpen() && !OpenCdDevice(window)) return;
    if (!IsDiscMissing()) StopDisc(window);
    OpenCdDoor();
}

bool PrepareEntry(HWND window, DiscToc& disc) {
    if (IsDiscMissing() || !GetDevice(window) || CdPlayer.toc.trackCount == 0) return false;
    disc = CdPlayer.toc;
    return true;
}

// The scroll bar

static bool IsDiscPlaying(HWND window) {
    DWORD mode = 0;
    return QueryDriveMode(window, mode) && mode == MCI_MODE_PLAY;
}

static int CurrentLengthSeconds() {
    return TrackLengthSeconds(CdPlayer.toc, CdPlayer.currentTrack);
}

static MCIERROR PlayFromSecond(int seconds) {
    return PlayCdFrom(PackPosition(CdPlayer.currentTrack, seconds / 60, seconds % 60, kSeekFrame));
}

static void SeekInTrack(HWND window, int seconds) {
    MCIERROR error = PlayFromSecond(seconds);
    // The last second of the disc may be too short to hold the frame.
    if (LOWORD(error) == MCIERR_OUTOFRANGE && seconds > 0) {
        --seconds;
        error = PlayFromSecond(seconds);
    }
    if (error != 0) ReportDiscError(window, error);
    ShowElapsedAndThumb(window, seconds);
}

// The release ends the dragging also when the disc has stopped meanwhile.
static void ReleaseThumb(HWND window, int seconds) {
    if (!CdPlayer.dragging) return;
    CdPlayer.dragging = false;
    if (IsDiscPlaying(window)) SeekInTrack(window, std::clamp(seconds, 0, CurrentLengthSeconds()));
}

static void DragThumb(HWND window, int seconds) {
    if (!IsDiscPlaying(window)) return;
    CdPlayer.dragging = true;
    ShowElapsed(window, std::clamp(seconds, 0, CurrentLengthSeconds()));
}

static void MoveThumb(HWND window, int bySeconds) {
    if (!IsDiscPlaying(window)) return;
    CdPlayer.dragging = true;
    ShowElapsedAndThumb(window,
                        MovedPosition(PositionThumb(window), bySeconds, CurrentLengthSeconds()));
    // Arrow keys are not followed by an end of scroll everywhere.
    if (GetKeyState(VK_LBUTTON) >= 0) ReleaseThumb(window, PositionThumb(window));
}

void OnCdScroll(HWND window, int code, int thumb) {
    switch (code) {
        case SB_LINELEFT:
            MoveThumb(window, -1);
            break;
        case SB_LINERIGHT:
            MoveThumb(window, 1);
            break;
        case SB_PAGELEFT:
            MoveThumb(window, -kPageScrollSeconds);
            break;
        case SB_PAGERIGHT:
            MoveThumb(window, kPageScrollSeconds);
            break;
        case SB_LEFT:
            MoveThumb(window, -CurrentLengthSeconds());
            break;
        case SB_RIGHT:
            MoveThumb(window, CurrentLengthSeconds());
            break;
        case SB_THUMBTRACK:
            DragThumb(window, thumb);
            break;
        case SB_THUMBPOSITION:
            ReleaseThumb(window, thumb);
            break;
        case SB_ENDSCROLL:
            ReleaseThumb(window, PositionThumb(window));
            break;
        default:
            break;
    }
}
