// A virtual CD drive: an MCI driver for the device type cdaudio. The system loads it as
// vdrive.dll. For trying and testing only.
#include "demo/device/device_options.h"
#include "demo/device/mci_driver.h"
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

// The sound's thread may outlive the last handle: the library stays loaded to the end of the
// process.
static void StayLoaded() {
    HMODULE self = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                       reinterpret_cast<const char*>(&StayLoaded), &self);
}

void* OpenDeviceHandle(MCI_OPEN_DRIVER_PARMS& parameters) {
    StayLoaded();
    auto* handle = new DriveHandle;
    handle->deviceId = parameters.wDeviceID;
    parameters.wType = MCI_DEVTYPE_CD_AUDIO;
    return handle;
}

void CloseDeviceHandle(void* handle) {
    delete static_cast<DriveHandle*>(handle);
}

DWORD RunDeviceCommand(void* handle, UINT message, DWORD flags, void* parameters) {
    return RunMciCommand(*static_cast<DriveHandle*>(handle), message, flags, parameters);
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
