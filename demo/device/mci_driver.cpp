// See mci_driver.h.
#include "demo/device/mci_driver.h"

// What DRV_OPEN returns when the system only wants to know that the driver is there.
static constexpr DWORD_PTR kNoHandle = 1;

static LRESULT OpenHandle(MCI_OPEN_DRIVER_PARMS* parameters) {
    if (!parameters) return kNoHandle;
    parameters->wCustomCommandTable = MCI_NO_COMMAND_TABLE;
    return reinterpret_cast<LRESULT>(OpenDeviceHandle(*parameters));
}

extern "C" LRESULT WINAPI DriverProc(DWORD_PTR id, HDRVR driver, UINT message, LPARAM first,
                                     LPARAM second) {
    if (message >= DRV_RESERVED && message < DRV_USER && id > kNoHandle)
        return static_cast<LRESULT>(RunDeviceCommand(reinterpret_cast<void*>(id), message,
                                                     static_cast<DWORD>(first),
                                                     reinterpret_cast<void*>(second)));
    switch (message) {
        case DRV_OPEN:
            return OpenHandle(reinterpret_cast<MCI_OPEN_DRIVER_PARMS*>(second));
        case DRV_CLOSE:
            if (id > kNoHandle) CloseDeviceHandle(reinterpret_cast<void*>(id));
            return 1;
        case DRV_LOAD:
        case DRV_ENABLE:
        case DRV_DISABLE:
        case DRV_FREE:
            return 1;
        default:
            return DefDriverProc(id, driver, message, first, second);
    }
}
