// A virtual CD drive: an MCI driver for the device type cdaudio. The system loads it as vdrive.dll
// and reaches it through DriverProc. For trying and testing only.
#include <windows.h>

#include <mmsystem.h>

#include <mmddk.h>

#include "demo/device/device_options.h"
#include "demo/drive/drive_state.h"
#include "demo/drive/mci_commands.h"

// The drive's options:
//   Tray      path of a text file whose first line names the CUE sheet of the disc in the drive
//             (UTF-8, relative to the text file); a missing or empty file is an empty drive
//   Log       path of a text file to which every command is added as it arrives; none by default
//   SpinUpMs  how long a disc takes to become ready after it was put in; 0 by default
//   CanEject  0 for a drive whose door stays shut; 1 by default
const wchar_t kOptionsKey[] = L"Software\\Tarnwell Virtual Drive";
const wchar_t kOptionsPrefix[] = L"TARNWELL_DRIVE_";

// What DRV_OPEN returns when the system only wants to know that the driver is there.
static constexpr DWORD_PTR kNoHandle = 1;

static LRESULT OpenHandle(MCI_OPEN_DRIVER_PARMS* parameters) {
    if (!parameters) return kNoHandle;
    auto* handle = new DriveHandle;
    handle->deviceId = parameters->wDeviceID;
    parameters->wType = MCI_DEVTYPE_CD_AUDIO;
    parameters->wCustomCommandTable = MCI_NO_COMMAND_TABLE;
    return reinterpret_cast<LRESULT>(handle);
}

// The sound's thread may outlive the last handle: the library stays loaded to the end of the
// process.
static void StayLoaded() {
    HMODULE self = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                       reinterpret_cast<const char*>(&StayLoaded), &self);
}

extern "C" LRESULT WINAPI DriverProc(DWORD_PTR id, HDRVR driver, UINT message, LPARAM first,
                                     LPARAM second) {
    if (message >= DRV_RESERVED && message < DRV_USER && id > kNoHandle)
        return static_cast<LRESULT>(RunMciCommand(*reinterpret_cast<DriveHandle*>(id), message,
                                                  static_cast<DWORD>(first),
                                                  reinterpret_cast<void*>(second)));
    switch (message) {
        case DRV_LOAD:
            StayLoaded();
            return 1;
        case DRV_OPEN:
            return OpenHandle(reinterpret_cast<MCI_OPEN_DRIVER_PARMS*>(second));
        case DRV_CLOSE:
            if (id > kNoHandle) delete reinterpret_cast<DriveHandle*>(id);
            return 1;
        case DRV_ENABLE:
        case DRV_DISABLE:
        case DRV_FREE:
            return 1;
        default:
            return DefDriverProc(id, driver, message, first, second);
    }
}

extern "C" BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, void* isProcessEnding) {
    if (reason == DLL_PROCESS_ATTACH) {
        DisableThreadLibraryCalls(library);
        CreateDriveLock();
    } else if (reason == DLL_PROCESS_DETACH && !isProcessEnding) {
        DestroyDriveLock();
    }
    return TRUE;
}
