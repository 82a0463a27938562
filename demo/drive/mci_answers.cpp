// What the drive answers to MCI's questions.
#include <windows.h>

#include <mmsystem.h>

#include "demo/drive/mci_answers.h"

#include <mmddk.h>

#include "demo/device/device_options.h"
#include "demo/drive/drive_state.h"

DWORD ErrorOfResult(DriveResult result) {
    switch (result) {
        case DriveResult::kDone:
            return 0;
        case DriveResult::kNoDisc:
        case DriveResult::kNotAudio:
            return MCIERR_HARDWARE;
        case DriveResult::kSpinningUp:
            return MCIERR_DEVICE_NOT_READY;
        case DriveResult::kOutOfRange:
            return MCIERR_OUTOFRANGE;
        case DriveResult::kNotPaused:
            return MCIERR_NONAPPLICABLE_FUNCTION;
    }
    return MCIERR_DRIVER_INTERNAL;
}

// A result that command strings show as a word and programs read as its number.
static DWORD AnswerWord(DWORD_PTR& answer, DWORD value, DWORD word) {
    answer = static_cast<DWORD>(MAKEMCIRESOURCE(value, word));
    return MCI_RESOURCE_RETURNED;
}

static DWORD AnswerTruth(DWORD_PTR& answer, bool value) {
    return AnswerWord(answer, value ? 1 : 0, value ? MCI_TRUE : MCI_FALSE);
}

// A packed time: command strings show its bytes with colons between them.
static DWORD AnswerTime(DWORD_PTR& answer, uint32_t packed, TimeFormat format) {
    answer = packed;
    switch (format) {
        case TimeFormat::kMsf:
            return MCI_COLONIZED3_RETURN;
        case TimeFormat::kTmsf:
            return MCI_COLONIZED4_RETURN;
        case TimeFormat::kMilliseconds:
            break;
    }
    return 0;
}

static DWORD AnswerMode(DWORD_PTR& answer) {
    DWORD mode = MCI_MODE_NOT_READY;
    switch (ModeOfDrive(Drive.transport, NowMs())) {
        case DriveMode::kNotReady:
            break;
        case DriveMode::kOpen:
            mode = MCI_MODE_OPEN;
            break;
        case DriveMode::kStopped:
            mode = MCI_MODE_STOP;
            break;
        case DriveMode::kPlaying:
            mode = MCI_MODE_PLAY;
            break;
    }
    return AnswerWord(answer, mode, mode);
}

static DWORD AnswerTimeFormat(const DriveHandle& handle, DWORD_PTR& answer) {
    switch (handle.timeFormat) {
        case TimeFormat::kMsf:
            return AnswerWord(answer, MCI_FORMAT_MSF, MCI_FORMAT_MSF_S);
        case TimeFormat::kTmsf:
            return AnswerWord(answer, MCI_FORMAT_TMSF, MCI_FORMAT_TMSF_S);
        case TimeFormat::kMilliseconds:
            break;
    }
    return AnswerWord(answer, MCI_FORMAT_MILLISECONDS, MCI_FORMAT_MILLISECONDS_S);
}

static DWORD AnswerPosition(const DriveHandle& handle, DWORD flags, const TrackSpan* track,
                            DWORD_PTR& answer) {
    const DiscLayout& disc = Drive.transport.disc;
    if ((flags & MCI_TRACK) != 0 && (flags & MCI_STATUS_START) != 0)
        return MCIERR_FLAGS_NOT_COMPATIBLE;
    uint32_t packed = 0;
    if (track && handle.timeFormat == TimeFormat::kTmsf) {
        // By number and not by sector: an empty track begins where the next one does.
        packed = static_cast<uint32_t>(track - disc.tracks.data()) + 1;
    } else {
        uint32_t sector = SectorOfDrive(Drive.transport, NowMs());
        if (track)
            sector = track->startSector;
        else if ((flags & MCI_STATUS_START) != 0)
            sector = 0;
        packed = PackPosition(disc, sector, handle.timeFormat);
    }
    return AnswerTime(answer, packed, handle.timeFormat);
}

// The items that speak of the disc and fail without one.
static DWORD AnswerDiscItem(const DriveHandle& handle, DWORD flags, MCI_STATUS_PARMS& parameters) {
    const DiscLayout& disc = Drive.transport.disc;
    if (const DriveResult state = DiscState(Drive.transport, NowMs()); state != DriveResult::kDone)
        return ErrorOfResult(state);
    const TrackSpan* track = nullptr;
    if ((flags & MCI_TRACK) != 0) {
        if (parameters.dwTrack == 0 || parameters.dwTrack > disc.tracks.size())
            return MCIERR_OUTOFRANGE;
        track = &disc.tracks[parameters.dwTrack - 1];
    }
    const TimeFormat lengthFormat =
        handle.timeFormat == TimeFormat::kTmsf ? TimeFormat::kMsf : handle.timeFormat;
    switch (parameters.dwItem) {
        case MCI_STATUS_NUMBER_OF_TRACKS:
            parameters.dwReturn = disc.tracks.size();
            return 0;
        case MCI_STATUS_CURRENT_TRACK:
            parameters.dwReturn = TrackOfSector(disc, SectorOfDrive(Drive.transport, NowMs()));
            return 0;
        case MCI_STATUS_LENGTH:
            return AnswerTime(parameters.dwReturn,
                              PackLength(track ? track->sectors : disc.sectors, lengthFormat),
                              lengthFormat);
        case MCI_STATUS_POSITION:
            return AnswerPosition(handle, flags, track, parameters.dwReturn);
        case MCI_CDA_STATUS_TYPE_TRACK: {
            if (!track) return MCIERR_MISSING_PARAMETER;
            const DWORD type = track->isAudio ? MCI_CDA_TRACK_AUDIO : MCI_CDA_TRACK_OTHER;
            return AnswerWord(parameters.dwReturn, type, type);
        }
        default:
            return MCIERR_UNSUPPORTED_FUNCTION;
    }
}

DWORD AnswerStatus(const DriveHandle& handle, DWORD flags, MCI_STATUS_PARMS& parameters) {
    if ((flags & MCI_STATUS_ITEM) == 0) return MCIERR_MISSING_PARAMETER;
    switch (parameters.dwItem) {
        case MCI_STATUS_MODE:
            return AnswerMode(parameters.dwReturn);
        case MCI_STATUS_MEDIA_PRESENT:
            return AnswerTruth(parameters.dwReturn,
                               DiscState(Drive.transport, NowMs()) != DriveResult::kNoDisc);
        case MCI_STATUS_READY:
            return AnswerTruth(parameters.dwReturn,
                               DiscState(Drive.transport, NowMs()) == DriveResult::kDone);
        case MCI_STATUS_TIME_FORMAT:
            return AnswerTimeFormat(handle, parameters.dwReturn);
        default:
            return AnswerDiscItem(handle, flags, parameters);
    }
}

DWORD AnswerCapability(DWORD flags, MCI_GETDEVCAPS_PARMS& parameters) {
    if ((flags & MCI_GETDEVCAPS_ITEM) == 0) return MCIERR_MISSING_PARAMETER;
    switch (parameters.dwItem) {
        case MCI_GETDEVCAPS_CAN_EJECT:
            return AnswerTruth(parameters.dwReturn, ReadNumberOption(L"CanEject", 1) != 0);
        case MCI_GETDEVCAPS_CAN_PLAY:
        case MCI_GETDEVCAPS_HAS_AUDIO:
            return AnswerTruth(parameters.dwReturn, true);
        case MCI_GETDEVCAPS_CAN_RECORD:
        case MCI_GETDEVCAPS_CAN_SAVE:
        case MCI_GETDEVCAPS_COMPOUND_DEVICE:
        case MCI_GETDEVCAPS_HAS_VIDEO:
        case MCI_GETDEVCAPS_USES_FILES:
            return AnswerTruth(parameters.dwReturn, false);
        case MCI_GETDEVCAPS_DEVICE_TYPE:
            return AnswerWord(parameters.dwReturn, MCI_DEVTYPE_CD_AUDIO, MCI_DEVTYPE_CD_AUDIO);
        default:
            return MCIERR_UNSUPPORTED_FUNCTION;
    }
}
