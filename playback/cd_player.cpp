// The CD player's view of the drive: which state it is in, which disc it holds, where it plays.
// Commands are in cd_commands.cpp, what the window shows in cd_readouts.cpp.
#include "playback/cd_player.h"

#include <algorithm>

#include "base/program_state.h"
#include "disc/disc_times.h"
#include "playback/cd_device.h"
#include "playback/cd_player_state.h"
#include "playback/cd_readouts.h"
#include "playback/mci.h"
#include "playback/media_error.h"

CdPlayerState CdPlayer;

DiscState CurrentDiscState() {
    return CdPlayer.state;
}

const DiscToc& PlayerDiscToc() {
    return CdPlayer.toc;
}

// A query repeated every second must not raise a box every second.
static bool QueryReportedOnce(DWORD item, bool& failing, DWORD& value) {
    const MCIERROR error = QueryStatus(CdDevice(), item, value);
    const bool first = error != 0 && !failing;
    failing = error != 0;
    if (first) ReportDiscError(error);
    return error == 0;
}

bool QueryDriveMode(DWORD& mode) {
    static bool failing;
    return QueryReportedOnce(MCI_STATUS_MODE, failing, mode);
}

static bool QueryMediumPresent(DWORD& present) {
    static bool failing;
    return QueryReportedOnce(MCI_STATUS_MEDIA_PRESENT, failing, present);
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

static void ReadToc() {
    CdPlayer.deviceTrackCount = 0;
    CdPlayer.deviceLength = 0;
    CdPlayer.toc = {};
    CdPlayer.lengthReadsLeft = 0;
    const MCIERROR error =
        QueryStatus(CdDevice(), MCI_STATUS_NUMBER_OF_TRACKS, CdPlayer.deviceTrackCount);
    if (error == 0) {
        QueryStatus(CdDevice(), MCI_STATUS_LENGTH, CdPlayer.deviceLength);
        if (!ReadTrackLengths()) CdPlayer.lengthReadsLeft = kLengthReads - 1;
    }
    CdPlayer.page = 0;
    CdPlayer.pageCount = PageCount(CdPlayer.toc.trackCount);
    CdPlayer.trackStale = true;
    // A drive that still spins up knows its medium before it can read it. The first tick after that
    // finds another number of tracks and reads again.
    if (error != 0 && CdPlayer.state != DiscState::kEmpty) ReportDiscError(error);
}

static void TakeDisc() {
    CdPlayer.discPresent = true;
    CdPlayer.dragging = false;
    CdPlayer.paused = false;
    ReadToc();
}

static void ForgetDisc() {
    CdPlayer.discPresent = false;
    CdPlayer.dragging = false;
    CdPlayer.paused = false;
    CdPlayer.titlesStale = false;
    CdPlayer.lengthReadsLeft = 0;
    CdPlayer.toc = {};
    CdPlayer.page = 0;
    CdPlayer.pageCount = 0;
    SetCurrentTrack(1);
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

static void EnterState(DiscState state) {
    const DiscState before = CdPlayer.state;
    if (state == before) return;
    CdPlayer.state = state;
    ShowDiscState();
    if (state == DiscState::kReady) {
        ClearCdReadouts();
        ShowDiscLength();
        // Stopping clears the titles; a disc that has come in keeps its own.
        const bool stopped = before == DiscState::kPlaying || before == DiscState::kPaused;
        if (!stopped && CdPlayer.discPresent) ShowDiscTitle();
    } else if (state == DiscState::kPlaying) {
        ShowDiscLength();
        ShowDiscTitle();
        CdPlayer.trackStale = true;
    }
}

static void ShowTakenDisc() {
    ShowDiscTitle();
    ShowDiscButtons();
    ShowDiscLength();
}

// The same disc once more, because some of its lengths are still missing.
static void ReadMissingLengths() {
    --CdPlayer.lengthReadsLeft;
    const uint16_t before = CdPlayer.toc.totalSeconds;
    if (ReadTrackLengths()) CdPlayer.lengthReadsLeft = 0;
    if (CdPlayer.toc.totalSeconds == before) return;
    // By its new lengths the disc may be one that the catalogue knows.
    CdPlayer.trackStale = true;
    CdPlayer.titlesStale = true;
    ShowDiscLength();
}

static void LoseDisc() {
    ForgetDisc();
    ClearCdReadouts();
    ShowDiscTitle();
    ShowDiscButtons();
}

static void ExchangeDisc() {
    ForgetDisc();
    ClearCdReadouts();
    // The pause belonged to the disc that is gone.
    if (CdPlayer.state == DiscState::kPaused) EnterState(DiscState::kReady);
    TakeDisc();
    ShowTakenDisc();
}

static void CdPositionTick() {
    DWORD packed = 0;
    if (QueryStatus(CdDevice(), MCI_STATUS_POSITION, packed) != 0) return;
    const DiscPosition position = UnpackPosition(packed);
    if (position.track != CdPlayer.currentTrack || CdPlayer.trackStale) {
        SetCurrentTrack(position.track);
        CdPlayer.trackStale = false;
        ShowTrack();
    }
    if (!CdPlayer.dragging) ShowElapsedAndThumb(SecondsIntoTrack(position));
}

// Whether the disc may have become another one unseen. Nothing exchanges a disc without stopping
// it, so a disc that plays on is spared the two queries, and a drive that is not ready has no
// answer to them. A stopped or paused disc is asked every time: a swap between two looks leaves no
// other trace.
static bool MayBeExchanged(bool playedBefore) {
    if (CdPlayer.state == DiscState::kPlaying) return !playedBefore;
    return CdPlayer.state != DiscState::kEmpty;
}

static void LookForDisc(bool playedBefore) {
    DWORD present = CdPlayer.discPresent;
    QueryMediumPresent(present);
    if (present == 0) {
        if (CdPlayer.discPresent) LoseDisc();
        return;
    }
    if (!CdPlayer.discPresent) {
        TakeDisc();
        ShowTakenDisc();
    } else if (MayBeExchanged(playedBefore) && !IsSameDisc()) {
        ExchangeDisc();
    } else if (CdPlayer.lengthReadsLeft > 0) {
        ReadMissingLengths();
    }
    if (CdPlayer.state == DiscState::kPlaying) CdPositionTick();
    if (CdPlayer.titlesStale) ShowStaleTitles();
}

void CdStatusTick() {
    DWORD mode = 0;
    if (!IsCdOpen() || !QueryDriveMode(mode)) return;
    const bool playedBefore = CdPlayer.state == DiscState::kPlaying;
    const DiscState state = StateOfMode(mode);
    // The drive may have been set going, or not have taken the pause, behind the player's back.
    if (state == DiscState::kPlaying) CdPlayer.paused = false;
    if (state == DiscState::kEmpty) SetCurrentTrack(1);
    EnterState(state);
    LookForDisc(playedBefore);
}

// Opening, showing, closing

bool OpenDriveAndReadDisc() {
    ForgetDisc();
    CdPlayer.state = DiscState::kNone;
    if (!OpenCdDevice()) return false;
    DWORD present = 0;
    if (QueryStatus(CdDevice(), MCI_STATUS_MEDIA_PRESENT, present) == 0 && present != 0) {
        TakeDisc();
        ShowDiscTitle();
    }
    return true;
}

void OpenCdPlayer() {
    OpenDriveAndReadDisc();
    SetCurrentTrack(0);
}

void CloseCdPlayer() {
    if (!IsCdOpen()) return;
    // Without an answer, what the last tick saw.
    DWORD mode = CdPlayer.state == DiscState::kPlaying ? MCI_MODE_PLAY : MCI_MODE_STOP;
    QueryStatus(CdDevice(), MCI_STATUS_MODE, mode);
    // Closing alone would leave the drive playing.
    if (mode == MCI_MODE_PLAY || CdPlayer.paused) SendToCd(MCI_STOP, MCI_WAIT);
    CloseCdDevice();
}

void ShowCdPlayer() {
    CdPlayer.dragging = false;
    if (!CdPlayer.paused) SetCurrentTrack(0);
    // Everything the state shows is shown anew.
    CdPlayer.state = DiscState::kNone;
    ShowDiscState();
    CdStatusTick();
    if (CdPlayer.state != DiscState::kPlaying) {
        SetDiscRange(0);
        SetDiscThumb(0);
    }
    ShowDiscButtons();
}
