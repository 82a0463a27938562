// See cd_device.h.
#include "playback/cd_device.h"

#include "playback/mci.h"
#include "playback/media_device.h"

static MCIDEVICEID Device;
static bool CanEject;

MCIDEVICEID CdDevice() {
    return Device;
}

bool IsCdOpen() {
    return Device != 0;
}

bool CanEjectDisc() {
    return Device != 0 && CanEject;
}

template <typename Parameters>
static MCIERROR Send(UINT message, DWORD_PTR flags, Parameters& parameters) {
    return Mci.send(Device, message, flags, reinterpret_cast<DWORD_PTR>(&parameters));
}

static bool Checked(HWND window, MCIERROR error) {
    if (error != 0) ReportDiscError(window, error);
    return error == 0;
}

static bool IsDriverMissing(MCIERROR error) {
    // The high word of an error carries a device id.
    return LOWORD(error) == MCIERR_CANNOT_LOAD_DRIVER;
}

void ResetCdDevice() {
    Device = 0;
    CanEject = false;
}

bool OpenCdDevice(HWND window) {
    ResetCdDevice();
    if (!DriverAvailable.cdAudio) return false;

    MCI_OPEN_PARMSA open = {};
    open.lpstrDeviceType = "cdaudio";
    const MCIERROR error = Send(MCI_OPEN, MCI_OPEN_TYPE | MCI_WAIT, open);
    if (error != 0) {
        if (!IsDriverMissing(error)) ReportDiscError(window, error);
        return false;
    }
    Device = open.wDeviceID;

    MCI_SET_PARMS set = {};
    set.dwTimeFormat = MCI_FORMAT_TMSF;
    Checked(window, Send(MCI_SET, MCI_SET_TIME_FORMAT | MCI_WAIT, set));

    MCI_GETDEVCAPS_PARMS capability = {};
    capability.dwItem = MCI_GETDEVCAPS_CAN_EJECT;
    if (Checked(window, Send(MCI_GETDEVCAPS, MCI_GETDEVCAPS_ITEM | MCI_WAIT, capability))) {
        CanEject = LOWORD(capability.dwReturn) != 0;
    }
    return true;
}

void CloseCdDevice(HWND window) {
    if (Device == 0) return;
    // This one command is used without a parameter block by every platform.
    const MCIERROR error = Mci.send(Device, MCI_CLOSE, 0, 0);
    ResetCdDevice();
    Checked(window, error);
}

static void MoveDoor(DWORD_PTR flag) {
    MCI_SET_PARMS set = {};
    Send(MCI_SET, flag, set);
}

void OpenCdDoor() {
    MoveDoor(MCI_SET_DOOR_OPEN);
}

void CloseCdDoor() {
    MoveDoor(MCI_SET_DOOR_CLOSED);
}

bool SendToCd(HWND window, UINT message, DWORD_PTR flags) {
    // Large enough for every command used without values of its own.
    MCI_PLAY_PARMS parameters = {};
    return Checked(window, Send(message, flags, parameters));
}

MCIERROR PlayCdFrom(DWORD position) {
    MCI_PLAY_PARMS play = {};
    play.dwFrom = position;
    return Send(MCI_PLAY, MCI_FROM, play);
}
