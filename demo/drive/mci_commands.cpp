// Each command checks its flags, asks the transport and lets the sound follow.
#include <windows.h>

#include <mmsystem.h>

#include "demo/drive/mci_commands.h"

#include <mmddk.h>

#include <cstdio>
#include <optional>

#include "demo/device/command_log.h"
#include "demo/device/device_options.h"
#include "demo/drive/drive_state.h"
#include "demo/drive/mci_answers.h"

// Of winmm, for drivers only: the headers leave it out.
extern "C" BOOL WINAPI mciDriverNotify(HANDLE window, UINT device, UINT status);

static DWORD SetFormat(DriveHandle& handle, DWORD format) {
    switch (format) {
        case MCI_FORMAT_MILLISECONDS:
            handle.timeFormat = TimeFormat::kMilliseconds;
            return 0;
        case MCI_FORMAT_MSF:
            handle.timeFormat = TimeFormat::kMsf;
            return 0;
        case MCI_FORMAT_TMSF:
            handle.timeFormat = TimeFormat::kTmsf;
            return 0;
        default:
            return MCIERR_BAD_TIME_FORMAT;
    }
}

static DWORD MoveDoor(DWORD flags) {
    if (ReadNumberOption(L"CanEject", 1) == 0) return MCIERR_UNSUPPORTED_FUNCTION;
    if ((flags & MCI_SET_DOOR_OPEN) != 0)
        OpenDoor(Drive.transport);
    else
        CloseDoor(Drive.transport, NowMs(), ReadNumberOption(L"SpinUpMs", 0));
    LetSoundFollow();
    return 0;
}

static DWORD RunSet(DriveHandle& handle, DWORD flags, const MCI_SET_PARMS& parameters) {
    const DWORD doors = flags & (MCI_SET_DOOR_OPEN | MCI_SET_DOOR_CLOSED);
    const DWORD switches = flags & (MCI_SET_ON | MCI_SET_OFF);
    if (doors == (MCI_SET_DOOR_OPEN | MCI_SET_DOOR_CLOSED) ||
        switches == (MCI_SET_ON | MCI_SET_OFF))
        return MCIERR_FLAGS_NOT_COMPATIBLE;
    if ((flags & MCI_SET_VIDEO) != 0) return MCIERR_UNSUPPORTED_FUNCTION;
    if ((flags & MCI_SET_AUDIO) != 0 && switches == 0) return MCIERR_MISSING_PARAMETER;
    if ((flags & MCI_SET_TIME_FORMAT) != 0) {
        if (const DWORD error = SetFormat(handle, parameters.dwTimeFormat)) return error;
    }
    if ((flags & MCI_SET_AUDIO) != 0) MuteDiscSound((flags & MCI_SET_OFF) != 0);
    return doors != 0 ? MoveDoor(flags) : 0;
}

static DWORD RunPlay(const DriveHandle& handle, DWORD flags, const MCI_PLAY_PARMS& parameters) {
    const DiscLayout& disc = Drive.transport.disc;
    // Nobody watches for the end of play unless the caller waits for it.
    if ((flags & MCI_NOTIFY) != 0 && (flags & MCI_WAIT) == 0) return MCIERR_UNSUPPORTED_FUNCTION;
    if (const DriveResult state = DiscState(Drive.transport, NowMs()); state != DriveResult::kDone)
        return ErrorOfResult(state);
    std::optional<uint32_t> from, to;
    uint32_t sector = 0;
    if ((flags & MCI_FROM) != 0) {
        if (!UnpackPosition(disc, parameters.dwFrom, handle.timeFormat, sector))
            return MCIERR_OUTOFRANGE;
        from = sector;
    }
    if ((flags & MCI_TO) != 0) {
        if (!UnpackPosition(disc, parameters.dwTo, handle.timeFormat, sector))
            return MCIERR_OUTOFRANGE;
        to = sector;
    }
    const DWORD error = ErrorOfResult(PlayDisc(Drive.transport, from, to, NowMs()));
    if (error == 0) LetSoundFollow();
    return error;
}

static DWORD RunSeek(const DriveHandle& handle, DWORD flags, const MCI_SEEK_PARMS& parameters) {
    const DiscLayout& disc = Drive.transport.disc;
    if (const DriveResult state = DiscState(Drive.transport, NowMs()); state != DriveResult::kDone)
        return ErrorOfResult(state);
    uint32_t sector = 0;
    switch (flags & (MCI_SEEK_TO_START | MCI_SEEK_TO_END | MCI_TO)) {
        case MCI_SEEK_TO_START:
            break;
        case MCI_SEEK_TO_END:
            sector = disc.sectors;
            break;
        case MCI_TO:
            if (!UnpackPosition(disc, parameters.dwTo, handle.timeFormat, sector))
                return MCIERR_OUTOFRANGE;
            break;
        case 0:
            return MCIERR_MISSING_PARAMETER;
        default:
            return MCIERR_FLAGS_NOT_COMPATIBLE;
    }
    const DWORD error = ErrorOfResult(SeekDisc(Drive.transport, sector, NowMs()));
    LetSoundFollow();
    return error;
}

static DWORD RunSimple(DriveResult (*change)(Transport&, uint64_t)) {
    const DWORD error = ErrorOfResult(change(Drive.transport, NowMs()));
    LetSoundFollow();
    return error;
}

static DWORD RunInfo(DWORD flags, const MCI_INFO_PARMSW& parameters) {
    static constexpr wchar_t kProduct[] = L"Tarnwell virtual drive";
    if ((flags & MCI_INFO_PRODUCT) == 0) return MCIERR_UNSUPPORTED_FUNCTION;
    if (!parameters.lpstrReturn || parameters.dwRetSize < sizeof kProduct / sizeof kProduct[0])
        return MCIERR_PARAM_OVERFLOW;
    lstrcpyW(parameters.lpstrReturn, kProduct);
    return 0;
}

static DWORD RunOpen(DriveHandle& handle, DWORD flags) {
    const bool isShareable = (flags & MCI_OPEN_SHAREABLE) != 0;
    if (Drive.openCount > 0 && !(isShareable && Drive.isShared)) return MCIERR_MUST_USE_SHAREABLE;
    ++Drive.openCount;
    Drive.isShared = isShareable;
    handle.isOpen = true;
    return 0;
}

// The disc plays on when the drive is closed, as in a real one, until the program ends.
static DWORD RunClose(DriveHandle& handle) {
    if (handle.isOpen) --Drive.openCount;
    handle.isOpen = false;
    return 0;
}

static DWORD RunLocked(DriveHandle& handle, UINT message, DWORD flags, void* parameters) {
    if (message == MCI_CLOSE_DRIVER) return RunClose(handle);
    if (!parameters) return MCIERR_NULL_PARAMETER_BLOCK;
    switch (message) {
        case MCI_OPEN_DRIVER:
            return RunOpen(handle, flags);
        case MCI_STATUS:
            return AnswerStatus(handle, flags, *static_cast<MCI_STATUS_PARMS*>(parameters));
        case MCI_SET:
            return RunSet(handle, flags, *static_cast<MCI_SET_PARMS*>(parameters));
        case MCI_PLAY:
            return RunPlay(handle, flags, *static_cast<MCI_PLAY_PARMS*>(parameters));
        case MCI_SEEK:
            return RunSeek(handle, flags, *static_cast<MCI_SEEK_PARMS*>(parameters));
        case MCI_PAUSE:
            return RunSimple(PauseDisc);
        case MCI_RESUME:
            return RunSimple(ResumeDisc);
        case MCI_STOP:
            return RunSimple(StopDisc);
        case MCI_GETDEVCAPS:
            return AnswerCapability(flags, *static_cast<MCI_GETDEVCAPS_PARMS*>(parameters));
        case MCI_INFO:
            return RunInfo(flags, *static_cast<MCI_INFO_PARMSW*>(parameters));
        case MCI_LOAD:
        case MCI_SAVE:
        case MCI_RECORD:
            return MCIERR_UNSUPPORTED_FUNCTION;
        default:
            return MCIERR_UNRECOGNIZED_COMMAND;
    }
}

static void WaitForEndOfPlay() {
    for (;;) {
        {
            const DriveLock lock = LockDrive();
            RefreshDisc();
            if (ModeOfDrive(Drive.transport, NowMs()) != DriveMode::kPlaying) return;
        }
        Sleep(20);
    }
}

static std::string PackedText(uint32_t packed, TimeFormat format) {
    char text[40];
    const unsigned bytes[4] = {packed & 255, packed >> 8 & 255, packed >> 16 & 255, packed >> 24};
    if (format == TimeFormat::kMilliseconds)
        std::snprintf(text, sizeof text, "%u ms", static_cast<unsigned>(packed));
    else if (format == TimeFormat::kMsf)
        std::snprintf(text, sizeof text, "%02u:%02u:%02u", bytes[0], bytes[1], bytes[2]);
    else
        std::snprintf(text, sizeof text, "%02u:%02u:%02u:%02u", bytes[0], bytes[1], bytes[2],
                      bytes[3]);
    return text;
}

DWORD RunMciCommand(DriveHandle& handle, UINT message, DWORD flags, void* parameters) {
    DWORD result = 0;
    {
        const DriveLock lock = LockDrive();
        RefreshDisc();
        const std::string line = DescribeCommand(
            message, flags, parameters,
            [&](uint32_t position) { return PackedText(position, handle.timeFormat); });
        result = RunLocked(handle, message, flags, parameters);
        LogLine(line + DescribeResult(message, result, parameters));
    }
    if (LOWORD(result) != 0) return result;
    if (message == MCI_PLAY && (flags & MCI_WAIT) != 0) WaitForEndOfPlay();
    if ((flags & MCI_NOTIFY) != 0 && parameters && message != MCI_OPEN_DRIVER) {
        const auto window = static_cast<MCI_GENERIC_PARMS*>(parameters)->dwCallback;
        mciDriverNotify(reinterpret_cast<HANDLE>(window), handle.deviceId, MCI_NOTIFY_SUCCESSFUL);
    }
    return result;
}
