// Each command checks its flags, asks the transport and lets picture and sound follow.
#include <windows.h>

#include <mmsystem.h>

#include "demo/projector/film_commands.h"

#include <digitalv.h>
#include <mmddk.h>

#include "demo/device/command_log.h"
#include "demo/device/device_clock.h"

// A result that command strings show as a word and programs read as its number.
static DWORD AnswerWord(DWORD_PTR& answer, DWORD value, DWORD word) {
    answer = static_cast<DWORD>(MAKEMCIRESOURCE(value, word));
    return MCI_RESOURCE_RETURNED;
}

static DWORD AnswerTruth(DWORD_PTR& answer, bool value) {
    return AnswerWord(answer, value ? 1 : 0, value ? MCI_TRUE : MCI_FALSE);
}

// Milliseconds in the caller's units: a frame counts from when it is shown.
static DWORD ToUnits(const Projector& projector, uint32_t ms) {
    if (!projector.inFrames) return ms;
    const auto count = static_cast<DWORD>(projector.film->frames.size());
    return ms >= projector.film->lengthMs ? count : FrameAt(*projector.film, ms);
}

static bool FromUnits(const Projector& projector, DWORD position, uint32_t& ms) {
    if (projector.inFrames && position > projector.film->frames.size()) return false;
    ms = projector.inFrames ? FrameStart(*projector.film, position) : position;
    return true;
}

static DWORD AnswerMode(const Projector& projector, DWORD_PTR& answer) {
    switch (ModeOfFilm(projector.transport, NowMs())) {
        case FilmMode::kPlaying:
            return AnswerWord(answer, MCI_MODE_PLAY, MCI_MODE_PLAY);
        case FilmMode::kPaused:
            return AnswerWord(answer, MCI_MODE_PAUSE, MCI_MODE_PAUSE);
        case FilmMode::kStopped:
            break;
    }
    return AnswerWord(answer, MCI_MODE_STOP, MCI_MODE_STOP);
}

static DWORD AnswerStatus(const Projector& projector, DWORD flags, MCI_STATUS_PARMS& parameters) {
    if ((flags & MCI_STATUS_ITEM) == 0) return MCIERR_MISSING_PARAMETER;
    const FilmTransport& transport = projector.transport;
    switch (parameters.dwItem) {
        case MCI_STATUS_LENGTH:
            parameters.dwReturn = ToUnits(projector, transport.lengthMs);
            return 0;
        case MCI_STATUS_POSITION:
            parameters.dwReturn = (flags & MCI_STATUS_START) != 0
                                      ? 0
                                      : ToUnits(projector, PositionOfFilm(transport, NowMs()));
            return 0;
        case MCI_STATUS_NUMBER_OF_TRACKS:
        case MCI_STATUS_CURRENT_TRACK:
            parameters.dwReturn = 1;
            return 0;
        case MCI_STATUS_MODE:
            return AnswerMode(projector, parameters.dwReturn);
        case MCI_STATUS_MEDIA_PRESENT:
        case MCI_STATUS_READY:
            return AnswerTruth(parameters.dwReturn, true);
        case MCI_STATUS_TIME_FORMAT:
            return projector.inFrames
                       ? AnswerWord(parameters.dwReturn, MCI_FORMAT_FRAMES, MCI_FORMAT_FRAMES_S)
                       : AnswerWord(parameters.dwReturn, MCI_FORMAT_MILLISECONDS,
                                    MCI_FORMAT_MILLISECONDS_S);
        case MCI_DGV_STATUS_HWND:
            parameters.dwReturn = reinterpret_cast<DWORD_PTR>(projector.window);
            return 0;
        case MCI_DGV_STATUS_AUDIO:
            return AnswerTruth(parameters.dwReturn, !*projector.isMuted);
        default:
            return MCIERR_UNSUPPORTED_FUNCTION;
    }
}

static DWORD RunSet(Projector& projector, DWORD flags, const MCI_SET_PARMS& parameters) {
    const DWORD switches = flags & (MCI_SET_ON | MCI_SET_OFF);
    if (switches == (MCI_SET_ON | MCI_SET_OFF)) return MCIERR_FLAGS_NOT_COMPATIBLE;
    if ((flags & (MCI_SET_VIDEO | MCI_SET_DOOR_OPEN | MCI_SET_DOOR_CLOSED)) != 0)
        return MCIERR_UNSUPPORTED_FUNCTION;
    if ((flags & MCI_SET_AUDIO) != 0 && switches == 0) return MCIERR_MISSING_PARAMETER;
    if ((flags & MCI_SET_TIME_FORMAT) != 0) {
        const bool inFrames = parameters.dwTimeFormat == MCI_FORMAT_FRAMES;
        if (!inFrames && parameters.dwTimeFormat != MCI_FORMAT_MILLISECONDS)
            return MCIERR_BAD_TIME_FORMAT;
        projector.inFrames = inFrames;
    }
    if ((flags & MCI_SET_AUDIO) != 0) *projector.isMuted = (flags & MCI_SET_OFF) != 0;
    return 0;
}

static DWORD RunPlay(Projector& projector, DWORD flags, const MCI_PLAY_PARMS& parameters) {
    // Nobody watches for the end of play unless the caller waits for it.
    if ((flags & MCI_NOTIFY) != 0 && (flags & MCI_WAIT) == 0) return MCIERR_UNSUPPORTED_FUNCTION;
    std::optional<uint32_t> from, to;
    uint32_t ms = 0;
    if ((flags & MCI_FROM) != 0) {
        if (!FromUnits(projector, parameters.dwFrom, ms)) return MCIERR_OUTOFRANGE;
        from = ms;
    }
    if ((flags & MCI_TO) != 0) {
        if (!FromUnits(projector, parameters.dwTo, ms)) return MCIERR_OUTOFRANGE;
        to = ms;
    }
    if (!PlayFilm(projector.transport, from, to, NowMs())) return MCIERR_OUTOFRANGE;
    if (projector.window) ShowWindow(projector.window, SW_SHOWNA);
    return 0;
}

static DWORD RunSeek(Projector& projector, DWORD flags, const MCI_SEEK_PARMS& parameters) {
    uint32_t ms = 0;
    switch (flags & (MCI_SEEK_TO_START | MCI_SEEK_TO_END | MCI_TO)) {
        case MCI_SEEK_TO_START:
            break;
        case MCI_SEEK_TO_END:
            ms = projector.film->lengthMs;
            break;
        case MCI_TO:
            if (!FromUnits(projector, parameters.dwTo, ms)) return MCIERR_OUTOFRANGE;
            break;
        case 0:
            return MCIERR_MISSING_PARAMETER;
        default:
            return MCIERR_FLAGS_NOT_COMPATIBLE;
    }
    return SeekFilm(projector.transport, ms) ? 0 : MCIERR_OUTOFRANGE;
}

// MCI gives a rectangle's width and height where others have its right and bottom.
static RECT AsPlaceAndSize(const RECT& place) {
    return {place.left, place.top, place.right - place.left, place.bottom - place.top};
}

static DWORD AnswerWhere(const Projector& projector, DWORD flags, MCI_DGV_RECT_PARMS& parameters) {
    RECT place = {0, 0, static_cast<LONG>(projector.film->width),
                  static_cast<LONG>(projector.film->height)};
    switch (flags & (MCI_DGV_WHERE_SOURCE | MCI_DGV_WHERE_DESTINATION | MCI_DGV_WHERE_WINDOW)) {
        case MCI_DGV_WHERE_SOURCE:
            break;
        case MCI_DGV_WHERE_DESTINATION:
            place = projector.destination;
            break;
        case MCI_DGV_WHERE_WINDOW:
            if (!GetWindowRect(projector.window, &place)) return MCIERR_NO_WINDOW;
            MapWindowPoints(nullptr, GetParent(projector.window), reinterpret_cast<POINT*>(&place),
                            2);
            break;
        case 0:
            return MCIERR_MISSING_PARAMETER;
        default:
            return MCIERR_FLAGS_NOT_COMPATIBLE;
    }
    parameters.rc = AsPlaceAndSize(place);
    return 0;
}

static DWORD RunPut(Projector& projector, DWORD flags, const MCI_DGV_RECT_PARMS& parameters) {
    if (!projector.window) return MCIERR_NO_WINDOW;
    const RECT& given = parameters.rc;
    const DWORD place = flags & (MCI_DGV_PUT_DESTINATION | MCI_DGV_PUT_WINDOW);
    if (place == 0) return MCIERR_UNSUPPORTED_FUNCTION;
    if ((flags & MCI_DGV_RECT) != 0 && (given.right < 0 || given.bottom < 0))
        return MCIERR_OUTOFRANGE;
    if ((flags & MCI_DGV_PUT_WINDOW) != 0 && (flags & MCI_DGV_RECT) != 0) {
        MoveWindow(projector.window, given.left, given.top, given.right, given.bottom, TRUE);
    }
    if ((flags & MCI_DGV_PUT_DESTINATION) != 0) {
        GetClientRect(projector.window, &projector.destination);
        if ((flags & MCI_DGV_RECT) != 0) {
            projector.destination = {given.left, given.top, given.left + given.right,
                                     given.top + given.bottom};
        }
    }
    InvalidateRect(projector.window, nullptr, FALSE);
    return 0;
}

static DWORD AnswerCapability(DWORD flags, MCI_GETDEVCAPS_PARMS& parameters) {
    if ((flags & MCI_GETDEVCAPS_ITEM) == 0) return MCIERR_MISSING_PARAMETER;
    switch (parameters.dwItem) {
        case MCI_GETDEVCAPS_CAN_PLAY:
        case MCI_GETDEVCAPS_HAS_AUDIO:
        case MCI_GETDEVCAPS_HAS_VIDEO:
        case MCI_GETDEVCAPS_USES_FILES:
        case MCI_GETDEVCAPS_COMPOUND_DEVICE:
            return AnswerTruth(parameters.dwReturn, true);
        case MCI_GETDEVCAPS_CAN_EJECT:
        case MCI_GETDEVCAPS_CAN_RECORD:
        case MCI_GETDEVCAPS_CAN_SAVE:
            return AnswerTruth(parameters.dwReturn, false);
        case MCI_GETDEVCAPS_DEVICE_TYPE:
            return AnswerWord(parameters.dwReturn, MCI_DEVTYPE_DIGITAL_VIDEO,
                              MCI_DEVTYPE_DIGITAL_VIDEO);
        default:
            return MCIERR_UNSUPPORTED_FUNCTION;
    }
}

static DWORD RunOpen(Projector& projector, DWORD flags, const MCI_DGV_OPEN_PARMSW& parameters) {
    if ((flags & MCI_OPEN_ELEMENT) == 0 || !parameters.lpstrElementName)
        return MCIERR_NO_ELEMENT_ALLOWED;
    const DWORD attributes = GetFileAttributesW(parameters.lpstrElementName);
    if (attributes == INVALID_FILE_ATTRIBUTES) return MCIERR_FILE_NOT_FOUND;
    const bool hasParent = (flags & MCI_DGV_OPEN_PARENT) != 0;
    const bool hasStyle = (flags & MCI_DGV_OPEN_WS) != 0;
    const HWND parent = hasParent ? parameters.hWndParent : nullptr;
    const DWORD style = hasStyle ? parameters.dwStyle : WS_OVERLAPPEDWINDOW;
    const bool isOpen = OpenProjector(projector, parameters.lpstrElementName, parent, style);
    return isOpen ? 0 : MCIERR_INVALID_FILE;
}

static DWORD RunTransport(Projector& projector, UINT message, DWORD flags, void* parameters) {
    FilmTransport& transport = projector.transport;
    DWORD error = 0;
    switch (message) {
        case MCI_PLAY:
            error = RunPlay(projector, flags, *static_cast<MCI_PLAY_PARMS*>(parameters));
            break;
        case MCI_SEEK:
            error = RunSeek(projector, flags, *static_cast<MCI_SEEK_PARMS*>(parameters));
            break;
        case MCI_PAUSE:
            PauseFilm(transport, NowMs());
            break;
        case MCI_RESUME:
            if (!ResumeFilm(transport, NowMs())) error = MCIERR_NONAPPLICABLE_FUNCTION;
            break;
        default:
            StopFilm(transport, NowMs());
            break;
    }
    if (error == 0) ProjectorFollows(projector);
    return error;
}

static DWORD RunCommand(Projector& projector, UINT message, DWORD flags, void* parameters) {
    if (message == MCI_CLOSE_DRIVER) {
        CloseProjector(projector);
        return 0;
    }
    if (!parameters) return MCIERR_NULL_PARAMETER_BLOCK;
    if (message == MCI_OPEN_DRIVER)
        return RunOpen(projector, flags, *static_cast<MCI_DGV_OPEN_PARMSW*>(parameters));
    if (!projector.isOpen) return MCIERR_DEVICE_NOT_READY;
    switch (message) {
        case MCI_PLAY:
        case MCI_SEEK:
        case MCI_PAUSE:
        case MCI_RESUME:
        case MCI_STOP:
            return RunTransport(projector, message, flags, parameters);
        case MCI_STATUS:
            return AnswerStatus(projector, flags, *static_cast<MCI_STATUS_PARMS*>(parameters));
        case MCI_SET:
            return RunSet(projector, flags, *static_cast<MCI_SET_PARMS*>(parameters));
        case MCI_WHERE:
            return AnswerWhere(projector, flags, *static_cast<MCI_DGV_RECT_PARMS*>(parameters));
        case MCI_PUT:
            return RunPut(projector, flags, *static_cast<MCI_DGV_RECT_PARMS*>(parameters));
        case MCI_GETDEVCAPS:
            return AnswerCapability(flags, *static_cast<MCI_GETDEVCAPS_PARMS*>(parameters));
        case MCI_REALIZE:  // pictures of true colours need no palette
        case MCI_CUE:
            return 0;
        case MCI_LOAD:
        case MCI_SAVE:
        case MCI_RECORD:
            return MCIERR_UNSUPPORTED_FUNCTION;
        default:
            return MCIERR_UNRECOGNIZED_COMMAND;
    }
}

static void WaitForEndOfPlay(Projector& projector) {
    while (ModeOfFilm(projector.transport, NowMs()) == FilmMode::kPlaying) {
        ShowFrameOfNow(projector);
        Sleep(10);
    }
}

DWORD RunFilmCommand(Projector& projector, UINT message, DWORD flags, void* parameters) {
    const std::string line = DescribeCommand(message, flags, parameters, [&](uint32_t position) {
        return std::to_string(position) + (projector.inFrames ? " frames" : " ms");
    });
    const DWORD result = RunCommand(projector, message, flags, parameters);
    LogLine(line + DescribeResult(message, result, parameters));
    if (LOWORD(result) == 0 && message == MCI_PLAY && (flags & MCI_WAIT) != 0)
        WaitForEndOfPlay(projector);
    return result;
}
