// See fake_drive.h.
#include "tests/fake_drive.h"

#include <numeric>
#include <utility>

#include "tests/stand_ins.h"

FakeDrive Drive;

static DWORD PackLength(DWORD seconds) {
    return seconds / 60 | (seconds % 60) << 8 | 74 << 16;
}

static MCIERROR AnswerDisc(MCI_STATUS_PARMS& status, bool ofTrack) {
    const std::vector<DWORD>& tracks = Drive.trackSeconds;
    if (!Drive.present) return MCIERR_HARDWARE;
    if (status.dwItem == MCI_STATUS_NUMBER_OF_TRACKS) {
        if (!Drive.tellsTracks) return MCIERR_HARDWARE;
        status.dwReturn = static_cast<DWORD>(tracks.size());
    } else if (!ofTrack) {
        status.dwReturn = PackLength(std::accumulate(tracks.begin(), tracks.end(), DWORD{0}));
    } else if (!Drive.tellsLengths || status.dwTrack < 1 || status.dwTrack > tracks.size()) {
        return MCIERR_OUTOFRANGE;
    } else {
        status.dwReturn = PackLength(tracks[status.dwTrack - 1]);
    }
    return 0;
}

static MCIERROR AnswerStatus(MCI_STATUS_PARMS& status, bool ofTrack) {
    switch (status.dwItem) {
        case MCI_STATUS_MODE:
            status.dwReturn = Drive.mode;
            return 0;
        case MCI_STATUS_MEDIA_PRESENT:
            status.dwReturn = Drive.present;
            return 0;
        case MCI_STATUS_POSITION:
            status.dwReturn = Drive.position;
            return 0;
        default:
            return AnswerDisc(status, ofTrack);
    }
}

static bool IsBeyondEnd(DWORD place) {
    if (MCI_TMSF_TRACK(place) != Drive.trackSeconds.size()) return false;
    const DWORD seconds = MCI_TMSF_MINUTE(place) * 60u + MCI_TMSF_SECOND(place);
    return seconds * 75 + MCI_TMSF_FRAME(place) > Drive.trackSeconds.back() * 75 + Drive.lastFrame;
}

static MCIERROR Answer(UINT message, DWORD_PTR flags, DWORD_PTR parameters) {
    switch (message) {
        case MCI_OPEN:
            return Drive.openError;
        case MCI_GETDEVCAPS:
            reinterpret_cast<MCI_GETDEVCAPS_PARMS*>(parameters)->dwReturn = TRUE;
            return 0;
        case MCI_STATUS:
            return AnswerStatus(*reinterpret_cast<MCI_STATUS_PARMS*>(parameters),
                                (flags & MCI_TRACK) != 0);
        case MCI_PLAY:
            if (flags == MCI_FROM) {
                const DWORD from = reinterpret_cast<MCI_PLAY_PARMS*>(parameters)->dwFrom;
                if (IsBeyondEnd(from)) return MCIERR_OUTOFRANGE;
                Drive.position = from;
            }
            Drive.mode = MCI_MODE_PLAY;
            return 0;
        case MCI_PAUSE:
        case MCI_STOP:
            Drive.mode = MCI_MODE_STOP;
            return 0;
        default:
            return 0;
    }
}

void InstallFakeDrive(std::vector<DWORD> trackSeconds) {
    Drive = {};
    Drive.trackSeconds = std::move(trackSeconds);
    TheMci.drive = Answer;
}

void InsertDisc(std::vector<DWORD> trackSeconds) {
    Drive.trackSeconds = std::move(trackSeconds);
    Drive.present = true;
    Drive.mode = MCI_MODE_STOP;
}

void RemoveDisc() {
    Drive.present = false;
    Drive.mode = MCI_MODE_OPEN;
}

void SetPlaying(DWORD track, DWORD seconds) {
    Drive.mode = MCI_MODE_PLAY;
    Drive.position = MCI_MAKE_TMSF(track, seconds / 60, seconds % 60, 0);
}
