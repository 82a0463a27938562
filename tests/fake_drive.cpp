// See fake_drive.h.
#include "tests/fake_drive.h"

#include <numeric>
#include <utility>

#include "tests/stand_ins.h"

FakeDrive Drive;

static DWORD PackLength(DWORD seconds) {
    return seconds / 60 | (seconds % 60) << 8 | 74 << 16;
}

static MCIERROR AnswerStatus(MCI_STATUS_PARMS& status, bool ofTrack) {
    const std::vector<DWORD>& tracks = Drive.trackSeconds;
    const auto answer = [&](size_t value) {
        status.dwReturn = static_cast<DWORD>(value);
        return MCIERROR{0};
    };
    if (status.dwItem == MCI_STATUS_MODE) return answer(Drive.mode);
    if (status.dwItem == MCI_STATUS_MEDIA_PRESENT) return answer(Drive.present);
    if (status.dwItem == MCI_STATUS_POSITION) return answer(Drive.position);
    if (!Drive.present) return MCIERR_HARDWARE;
    if (status.dwItem == MCI_STATUS_NUMBER_OF_TRACKS)
        return Drive.tellsTracks ? answer(tracks.size()) : MCIERR_HARDWARE;
    if (!ofTrack)
        return answer(PackLength(std::accumulate(tracks.begin(), tracks.end(), DWORD{0})));
    if (!Drive.tellsLengths || status.dwTrack < 1 || status.dwTrack > tracks.size())
        return MCIERR_OUTOFRANGE;
    return answer(PackLength(tracks[status.dwTrack - 1]));
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
