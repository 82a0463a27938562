// A MIDI mapper for machines without a MIDI device: the system loads it as midimap.dll and sends it
// what a sequencer plays. One program at a time may have it open, and once.
#include <windows.h>

#include <mmsystem.h>

#include <mmddk.h>

#include "demo/midi_mapper/wave_engine.h"

// Of winmm, for drivers only: the headers leave it out.
extern "C" BOOL WINAPI DriverCallback(DWORD_PTR callback, DWORD flags, HDRVR device, DWORD message,
                                      DWORD_PTR instance, DWORD_PTR first, DWORD_PTR second);

struct OpenMapper {
    MIDIOPENDESC description;
    DWORD callbackFlags;
    bool isOpen;
};

static OpenMapper Mapper;

static void NotifyClient(DWORD message, DWORD_PTR parameter) {
    if (Mapper.description.dwCallback == 0) return;
    DriverCallback(Mapper.description.dwCallback, HIWORD(Mapper.callbackFlags),
                   reinterpret_cast<HDRVR>(Mapper.description.hMidi), message,
                   Mapper.description.dwInstance, parameter, 0);
}

static DWORD OpenMidi(const MIDIOPENDESC* description, DWORD flags) {
    if (!description) return MMSYSERR_INVALPARAM;
    if (Mapper.isOpen) return MMSYSERR_ALLOCATED;
    if (!StartEngine()) return MMSYSERR_NODRIVER;
    Mapper = {*description, flags, true};
    NotifyClient(MOM_OPEN, 0);
    return MMSYSERR_NOERROR;
}

static DWORD CloseMidi() {
    if (!Mapper.isOpen) return MMSYSERR_INVALHANDLE;
    StopEngine();
    NotifyClient(MOM_CLOSE, 0);
    Mapper = {};
    return MMSYSERR_NOERROR;
}

static DWORD DescribeDevice(MIDIOUTCAPSW* caps, DWORD_PTR size) {
    if (!caps) return MMSYSERR_INVALPARAM;
    MIDIOUTCAPSW own = {};
    own.wMid = 0xFFFF;  // a maker without a registered number
    own.vDriverVersion = 0x0100;
    lstrcpynW(own.szPname, L"Demo synthesizer", MAXPNAMELEN);
    own.wTechnology = MOD_MAPPER;
    own.wChannelMask = 0xFFFF;
    CopyMemory(caps, &own, size < sizeof own ? size : sizeof own);
    return MMSYSERR_NOERROR;
}

static DWORD SetPrepared(MIDIHDR* header, bool prepared) {
    if (!header || !header->lpData) return MMSYSERR_INVALPARAM;
    if ((header->dwFlags & MHDR_INQUEUE) != 0) return MIDIERR_STILLPLAYING;
    if (prepared)
        header->dwFlags = (header->dwFlags | MHDR_PREPARED) & ~static_cast<DWORD>(MHDR_DONE);
    else
        header->dwFlags &= ~static_cast<DWORD>(MHDR_PREPARED);
    return MMSYSERR_NOERROR;
}

// System-exclusive data means nothing to the synthesizer: it is taken and given back.
static DWORD TakeLongData(MIDIHDR* header) {
    if (!header || !header->lpData) return MMSYSERR_INVALPARAM;
    if ((header->dwFlags & MHDR_PREPARED) == 0) return MIDIERR_UNPREPARED;
    header->dwFlags |= MHDR_DONE;
    NotifyClient(MOM_DONE, reinterpret_cast<DWORD_PTR>(header));
    return MMSYSERR_NOERROR;
}

extern "C" DWORD WINAPI modMessage(UINT /*device*/, UINT message, DWORD_PTR /*user*/,
                                   DWORD_PTR first, DWORD_PTR second) {
    switch (message) {
        case DRVM_INIT:
        case DRVM_EXIT:
        case DRVM_ENABLE:
        case DRVM_DISABLE:
            return MMSYSERR_NOERROR;
        case MODM_GETNUMDEVS:
            return 1;
        case MODM_GETDEVCAPS:
            return DescribeDevice(reinterpret_cast<MIDIOUTCAPSW*>(first), second);
        case MODM_OPEN:
            return OpenMidi(reinterpret_cast<const MIDIOPENDESC*>(first),
                            static_cast<DWORD>(second));
        case MODM_CLOSE:
            return CloseMidi();
        case MODM_DATA:
            SendToEngine(static_cast<uint32_t>(first));
            return MMSYSERR_NOERROR;
        case MODM_LONGDATA:
            return TakeLongData(reinterpret_cast<MIDIHDR*>(first));
        case MODM_PREPARE:
            return SetPrepared(reinterpret_cast<MIDIHDR*>(first), true);
        case MODM_UNPREPARE:
            return SetPrepared(reinterpret_cast<MIDIHDR*>(first), false);
        case MODM_RESET:
            QuietEngine();
            return MMSYSERR_NOERROR;
        default:
            return MMSYSERR_NOTSUPPORTED;
    }
}

// There is no MIDI input.
extern "C" DWORD WINAPI midMessage(UINT /*device*/, UINT message, DWORD_PTR /*user*/,
                                   DWORD_PTR /*first*/, DWORD_PTR /*second*/) {
    switch (message) {
        case DRVM_INIT:
        case DRVM_EXIT:
        case DRVM_ENABLE:
        case DRVM_DISABLE:
            return MMSYSERR_NOERROR;
        case MIDM_GETNUMDEVS:
            return 0;
        default:
            return MMSYSERR_NOTSUPPORTED;
    }
}

extern "C" LRESULT WINAPI DriverProc(DWORD_PTR id, HDRVR driver, UINT message, LPARAM first,
                                     LPARAM second) {
    switch (message) {
        case DRV_LOAD:
        case DRV_ENABLE:
        case DRV_OPEN:
        case DRV_CLOSE:
        case DRV_DISABLE:
        case DRV_FREE:
            return 1;
        default:
            return DefDriverProc(id, driver, message, first, second);
    }
}
