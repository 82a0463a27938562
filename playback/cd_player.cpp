// See cd_player.h.
#include "playback/cd_player.h"

#include <algorithm>

#include "base/program_state.h"
#include "disc/disc_times.h"
#include "playback/cd_device.h"
#include "playback/cd_player_state.h"
#include "playback/cd_readouts.h"
#include "playback/mci.h"
#include "playback/media_device.h"

CdPlayerState CdPlayer;

void ResetCdPlayer() {
    CdPlayer = {};
    ResetCdDevice();
}

static bool QueryReportedOnce(HWND window, DWORD item, bool& failing, DWORD& value) {
    const MCIERROR error = QueryStatus(CdDevice(), item, value);
    const bool first = error != 0 && !failing;
    failing = error != 0;
    if (first) ReportDiscError(window, error);
    return error == 0;
}

bool QueryDriveMode(HWND window, DWORD& mode) {
    return IsCdOpen() && QueryReportedOnce(window, MCI_STATUS_MODE, CdPlayer.modeFailing, mode);
}

static bool QueryMediumPresent(HWND window, DWORD& present) {
    return QueryReportedOnce(window, MCI_STATUS_MEDIA_PRESENT, CdPlayer.mediumFailing, present);
}

// Reading the disc

// A disc that hides a track's length would be taken for another one: it is read again, but not for
// ever.
constexpr int kLengthReads = 3;

// Tracks whose length the drive does not tell count as empty. False when there are such tracks.
static bool ReadTrackLengths() {
    bool complete = true;
    DiscToc toc;
    toc.trackCount = static_cast<uint16_t>(std::min<DWORD>(CdPlayer.deviceTrackCount, kMaxTracks));
    for (uint16_t track = 1; track <= toc.trackCount; ++track) {
        DWORD length = 0;
        if (QueryTrackStatus(CdDevice(), MCI_STATUS_LENGTH, track, length) != 0) complete = false;
        toc.lengthSeconds[track - 1] = UnpackLengthSeconds(length);
        toc.totalSeconds = static_cast<uint16_t>(toc.totalSeconds + toc.lengthSeconds[track - 1]);
    }
    CdPlayer.toc = toc;
    return complete;
}

static void ReadToc(HWND window) {
    CdPlayer.deviceTrackCount = 0;
    CdPlayer.deviceLength = 0;
    CdPlayer.toc = {};
    CdPlayer.lengthReadsLeft = 0;
    // Taken even from a drive that does not tell its tracks: as long as both answers stay, it is
    // the same disc.
    QueryStatus(CdDevice(), MCI_STATUS_LENGTH, CdPlayer.deviceLength);
    const MCIERROR error =
        QueryStatus(CdDevice(), MCI_STATUS_NUMBER_OF_TRACKS, CdPlayer.deviceTrackCount);
    if (error == 0 && !ReadTrackLengths()) CdPlayer.lengthReadsLeft = kLengthReads - 1;
    CdPlayer.page = 0;
    CdPlayer.pageCount = PageCount(CdPlayer.toc.trackCount);
    CdPlayer.trackStale = true;
    // A drive that still spins up knows its medium before it can read it. The first tick after that
    // finds another length and reads again.
    if (error != 0 && CdPlayer.state == DiscState::kEmpty) {
        CdPlayer.deviceLength = 0;
        return;
    }
    const bool first = error != 0 && !CdPlayer.tracksFailing;
    CdPlayer.tracksFailing = error != 0;
    if (first) ReportDiscError(window, error);
}

static void TakeDisc(HWND window) {
    CdPlayer.discPresent = true;
    CdPlayer.dragging = false;
    CdPlayer.paused = false;
    ReadToc(window);
}

static void ForgetDisc(HWND window) {
    CdPlayer.discPresent = false;
    CdPlayer.dragging = false;
    CdPlayer.paused = false;
    CdPlayer.titlesStale = false;
    CdPlayer.lengthReadsLeft = 0;
    CdPlayer.toc = {};
    CdPlayer.page = 0;
    CdPlayer.pageCount = 0;
    SetCurrentTrack(window, 1);
}

// A query that fails says nothing about the disc.
static bool IsSameDisc() {
    DWORD tracks = CdPlayer.deviceTrackCount;
    DWORD length = CdPlayer.deviceLength;
    QueryStatus(CdDevice(), MCI_STATUS_NUMBER_OF_TRACKS, tracks);
    QueryStatus(CdDevice(), MCI_STATUS_LENGTH, length);
    return tracks == CdPlayer.deviceTrackCount && length == CdPlayer.deviceLength;
}

// Ticks

static DiscState StateOfMode(DWORD mode) {
    switch (mode) {
        case MCI_MODE_NOT_READY:
        case MCI_MODE_OPEN:
            return DiscState::kEmpty;
        case MCI_MODE_PLAY:
            return DiscState::kPlaying;
        // A paused disc reports that it has stopped.
        case MCI_MODE_STOP:
            return CdPlayer.paused ? DiscState::kPaused : DiscState::kReady;
        default:
            return DiscState::kReady;
    }
}

static void EnterState(HWND window, DiscState state) {
    const DiscState before = CdPlayer.state;
    if (state == before) return;
    CdPlayer.state = state;
    ShowDiscState(window);
    if (state == DiscState::kReady) {
        ClearCdReadouts(window);
        ShowDiscLength(window);
        // Stopping clears the titles; a disc that has come in keeps its own.
        const bool stopped = before == DiscState::kPlaying || before == DiscState::kPaused;
        if (!stopped && CdPlayer.discPresent) ShowDiscTitle(window);
    } else if (state == DiscState::kPlaying) {
        ShowDiscLength(window);
        ShowDiscTitle(window);
        CdPlayer.trackStale = true;
    }
}

static void ShowTakenDisc(HWND window) {
    ShowDiscTitle(window);
    ShowDiscButtons(window);
    ShowDiscLength(window);
}

// The same disc once more, because some of its lengths are still missing.
static void ReadMissingLengths(HWND window) {
    --CdPlayer.lengthReadsLeft;
    const uint16_t before = CdPlayer.toc.totalSeconds;
    if (ReadTrackLengths()) CdPlayer.lengthReadsLeft = 0;
    if (CdPlayer.toc.totalSeconds == before) return;
    // By its new lengths the disc may be one that the catalogue knows.
    CdPlayer.trackStale = true;
    CdPlayer.titlesStale = true;
    ShowDiscLength(window);
}

static void LoseDisc(HWND window) {
    ForgetDisc(window);
    ClearCdReadouts(window);
    ShowDiscTitle(window);
    ShowDiscButtons(window);
}

static void ExchangeDisc(HWND window) {
    ForgetDisc(window);
    ClearCdReadouts(window);
    // The pause belonged to the disc that is gone.
    if (CdPlayer.state == DiscState::kPaused) EnterState(window, DiscState::kReady);
    TakeDisc(window);
    ShowTakenDisc(window);
}

static void CdPositionTick(HWND window) {
    DWORD packed = 0;
    if (QueryStatus(CdDevice(), MCI_STATUS_POSITION, packed) != 0) return;
    const DiscPosition position = UnpackPosition(packed);
    if (position.track != CdPlayer.currentTrack || CdPlayer.trackStale) {
        SetCurrentTrack(window, position.track);
        CdPlayer.trackStale = false;
        ShowTrack(window);
    }
    if (!CdPlayer.dragging) ShowElapsedAndThumb(window, SecondsIntoTrack(position));
}

// Whether the disc may have become another one unseen. Nothing exchanges a disc without stopping
// it, so a disc that plays on is spared the two queries, and a drive that is not ready has no
// answer to them. A stopped or paused disc is asked every time: a swap between two looks leaves no
// other trace.
static bool MayBeExchanged(bool playedBefore) {
    if (CdPlayer.state == DiscState::kPlaying) return !playedBefore;
    return CdPlayer.state != DiscState::kEmpty;
}

static void LookForDisc(HWND window, bool playedBefore) {
    DWORD present = CdPlayer.discPresent;
    QueryMediumPresent(window, present);
    if (present == 0) {
        if (CdPlayer.discPresent) LoseDisc(window);
        return;
    }
    if (!CdPlayer.discPresent) {
        TakeDisc(window);
        ShowTakenDisc(window);
    } else if (MayBeExchanged(playedBefore) && !IsSameDisc()) {
        ExchangeDisc(window);
    } else if (CdPlayer.lengthReadsLeft > 0) {
        ReadMissingLengths(window);
    }
    if (CdPlayer.state == DiscState::kPlaying) CdPositionTick(window);
    if (CdPlayer.titlesStale) ShowStaleTitles(window);
}

void CdStatusTick(HWND window) {
    DWORD mode = 0;
    if (!QueryDriveMode(window, mode)) return;
    const bool playedBefore = CdPlayer.state == DiscState::kPlaying;
    const DiscState state = StateOfMode(mode);
    // The drive may have been set going, or not have taken the pause, behind the player's back.
    if (state == DiscState::kPlaying) CdPlayer.paused = false;
    // A disc that has played to its end begins again with its first track.
    const bool ended = playedBefore && mode == MCI_MODE_STOP && state == DiscState::kReady;
    if (ended || state == DiscState::kEmpty) SetCurrentTrack(window, 1);
    EnterState(window, state);
    LookForDisc(window, playedBefore);
}

// Opening, showing, closing

bool OpenDriveAndReadDisc(HWND window) {
    ForgetDisc(window);
    CdPlayer.state = DiscState::kNone;
    if (!OpenCdDevice(window)) return false;
    DWORD present = 0;
    if (QueryStatus(CdDevice(), MCI_STATUS_MEDIA_PRESENT, present) == 0 && present != 0) {
        TakeDisc(window);
        ShowDiscTitle(window);
    }
    return true;
}

void OpenCdPlayer(HWND window) {
    OpenDriveAndReadDisc(window);
    SetCurrentTrack(window, 0);
}

void CloseCdPlayer(HWND window) {
    if (!IsCdOpen()) return;
    // Without an answer, what the last tick saw.
    DWORD mode = CdPlayer.state == DiscState::kPlaying ? MCI_MODE_PLAY : MCI_MODE_STOP;
    QueryStatus(CdDevice(), MCI_STATUS_MODE, mode);
    // Closing alone would leave the drive playing.
    if (mode == MCI_MODE_PLAY || CdPlayer.paused) SendToCd(window, MCI_STOP, MCI_WAIT);
    CloseCdDevice(window);
}

void ShowCdPlayer(HWND window) {
    CdPlayer.dragging = false;
    if (!CdPlayer.paused) SetCurrentTrack(window, 0);
    // Everything the state shows is shown anew.
    CdPlayer.state = DiscState::kNone;
    ShowDiscState(window);
    CdStatusTick(window);
    if (CdPlayer.state != DiscState::kPlaying) {
        SetDiscRange(window, 0);
        SetDiscThumb(window, 0);
    }
    ShowDiscButtons(window);
}
