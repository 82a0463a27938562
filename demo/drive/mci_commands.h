// The MCI commands of the virtual drive.
#pragma once

#include <windows.h>

#include "demo/drive/disc_layout.h"

// One opening of the drive; several may share it.
struct DriveHandle {
    MCIDEVICEID deviceId = 0;
    TimeFormat timeFormat = TimeFormat::kMsf;
    bool isOpen = false;
    bool isShareable = false;
};

// Carries out one MCI message other than the driver's own bookkeeping. Returns an MCI error code, 0
// for success, with flags in the high word that say how a result is to be read.
DWORD RunMciCommand(DriveHandle& handle, UINT message, DWORD flags, void* parameters);
