// The edge to the platform's media control interface.
#include "playback/mci.h"

MciCalls Mci = {mciSendCommandA, mciGetErrorStringA};

static MCIERROR Query(MCIDEVICEID device, DWORD_PTR flags, MCI_STATUS_PARMS& parameters,
                      DWORD& value) {
    const MCIERROR error = Mci.send(device, MCI_STATUS, flags | MCI_STATUS_ITEM | MCI_WAIT,
                                    reinterpret_cast<DWORD_PTR>(&parameters));
    if (error == 0) value = static_cast<DWORD>(parameters.dwReturn);
    return error;
}

MCIERROR QueryStatus(MCIDEVICEID device, DWORD item, DWORD& value) {
    MCI_STATUS_PARMS parameters = {};
    parameters.dwItem = item;
    return Query(device, 0, parameters, value);
}

MCIERROR QueryTrackStatus(MCIDEVICEID device, DWORD item, DWORD track, DWORD& value) {
    MCI_STATUS_PARMS parameters = {};
    parameters.dwItem = item;
    parameters.dwTrack = track;
    return Query(device, MCI_TRACK, parameters, value);
}
