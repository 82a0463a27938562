// See fake_drive.h.
#include "tests/playback/fake_drive.h"

#include <cstdio>
#include <utility>

#include "playback/mci.h"

FakeDrive Drive;

constexpr MCIDEVICEID kDeviceId = 7;

static DWORD PackLength(DWORD seconds) {
    return seconds / 60 | (seconds % 60) << 8 | 74 << 16;
}

static DWORD DiscLength() {
    DWORD seconds = 0;
    for (DWORD track : Drive.trackSeconds)
        seconds += track;
    return PackLength(seconds);
}

// The name of a command as the log has it; flags other than those it must have are told.
static std::string Describe(UINT message, DWORD_PTR flags, DWORD_PTR parameters) {
    const auto named = [flags](const std::string& name, DWORD_PTR expected) {
        return flags == expected ? name : name + " with flags " + std::to_string(flags);
    };
    if (message == MCI_CLOSE) return named("close", 0);
    if (parameters == 0) return "command without parameters";
    switch (message) {
        case MCI_OPEN:
            return named("open", MCI_OPEN_TYPE | MCI_WAIT);
        case MCI_GETDEVCAPS:
            return named("can eject", MCI_GETDEVCAPS_ITEM | MCI_WAIT);
        case MCI_PAUSE:
            return named("pause", 0);
        case MCI_STOP:
            return named("stop", MCI_WAIT);
        case MCI_SET:
            if (flags == MCI_SET_DOOR_OPEN) return "door open";
            if (flags == MCI_SET_DOOR_CLOSED) return "door closed";
            return named(
                "format " +
                    std::to_string(reinterpret_cast<MCI_SET_PARMS*>(parameters)->dwTimeFormat),
                MCI_SET_TIME_FORMAT | MCI_WAIT);
        case MCI_PLAY: {
            if (flags != MCI_FROM) return named("play", 0);
            const DWORD from = reinterpret_cast<MCI_PLAY_PARMS*>(parameters)->dwFrom;
            char text[40];
            snprintf(text, sizeof text, "play %d %d:%02d.%02d", MCI_TMSF_TRACK(from),
                     MCI_TMSF_MINUTE(from), MCI_TMSF_SECOND(from), MCI_TMSF_FRAME(from));
            return text;
        }
        case MCI_STATUS: {
            const auto& status = *reinterpret_cast<MCI_STATUS_PARMS*>(parameters);
            constexpr DWORD_PTR kFlags = MCI_STATUS_ITEM | MCI_WAIT;
            switch (status.dwItem) {
                case MCI_STATUS_MODE:
                    return named("mode", kFlags);
                case MCI_STATUS_MEDIA_PRESENT:
                    return named("present", kFlags);
                case MCI_STATUS_NUMBER_OF_TRACKS:
                    return named("tracks", kFlags);
                case MCI_STATUS_POSITION:
                    return named("position", kFlags);
                case MCI_STATUS_LENGTH:
                    if (flags == kFlags) return "length";
                    return named("length " + std::to_string(status.dwTrack), kFlags | MCI_TRACK);
                default:
                    break;
            }
            return "status " + std::to_string(status.dwItem);
        }
        default:
            return "message " + std::to_string(message);
    }
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
            break;
    }
    if (!Drive.present) return MCIERR_HARDWARE;
    if (status.dwItem == MCI_STATUS_NUMBER_OF_TRACKS) {
        status.dwReturn = static_cast<DWORD>(Drive.trackSeconds.size());
    } else if (!ofTrack) {
        status.dwReturn = DiscLength();
    } else if (status.dwTrack < 1 || status.dwTrack > Drive.trackSeconds.size()) {
        return MCIERR_OUTOFRANGE;
    } else {
        status.dwReturn = PackLength(Drive.trackSeconds[status.dwTrack - 1]);
    }
    return 0;
}

static MCIERROR Answer(UINT message, DWORD_PTR flags, DWORD_PTR parameters) {
    switch (message) {
        case MCI_OPEN:
            if (Drive.openError != 0) return Drive.openError;
            reinterpret_cast<MCI_OPEN_PARMSA*>(parameters)->wDeviceID = kDeviceId;
            return 0;
        case MCI_GETDEVCAPS:
            reinterpret_cast<MCI_GETDEVCAPS_PARMS*>(parameters)->dwReturn = Drive.canEject;
            return 0;
        case MCI_STATUS:
            return AnswerStatus(*reinterpret_cast<MCI_STATUS_PARMS*>(parameters),
                                (flags & MCI_TRACK) != 0);
        case MCI_PLAY:
            if (flags == MCI_FROM) {
                Drive.position = reinterpret_cast<MCI_PLAY_PARMS*>(parameters)->dwFrom;
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

static MCIERROR WINAPI Send(MCIDEVICEID device, UINT message, DWORD_PTR flags,
                            DWORD_PTR parameters) {
    std::string entry = Describe(message, flags, parameters);
    if (message != MCI_OPEN && device != kDeviceId) entry += " to no device";
    Drive.log.push_back(std::move(entry));
    if (static_cast<int>(Drive.log.size()) - 1 == Drive.failAt) return Drive.failure;
    return Answer(message, flags, parameters);
}

static BOOL WINAPI ErrorText(MCIERROR code, LPSTR text, UINT textSize) {
    snprintf(text, textSize, "error %lu", static_cast<unsigned long>(code));
    return TRUE;
}

void InstallFakeDrive(std::vector<DWORD> trackSeconds) {
    Drive = {};
    Drive.trackSeconds = std::move(trackSeconds);
    Mci = {Send, ErrorText};
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

std::vector<std::string> TakeLog() {
    return std::exchange(Drive.log, {});
}
