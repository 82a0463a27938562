// A virtual projector: an MCI driver for the digital video device that plays QuickTime files. The
// system loads it as vfilm.dll. For trying and testing only.
#include "demo/device/device_options.h"
#include "demo/device/mci_driver.h"
#include "demo/projector/film_commands.h"

// The projector's option: Log, the path of a text file to which every command is added as it
// arrives; none by default.
const wchar_t kOptionsKey[] = L"Software\\Tarnwell Virtual Projector";
const wchar_t kOptionsPrefix[] = L"TARNWELL_PROJECTOR_";

void* OpenDeviceHandle(MCI_OPEN_DRIVER_PARMS& parameters) {
    parameters.wType = MCI_DEVTYPE_DIGITAL_VIDEO;
    return new Projector;
}

void CloseDeviceHandle(void* handle) {
    auto* projector = static_cast<Projector*>(handle);
    CloseProjector(*projector);
    delete projector;
}

DWORD RunDeviceCommand(void* handle, UINT message, DWORD flags, void* parameters) {
    return RunFilmCommand(*static_cast<Projector*>(handle), message, flags, parameters);
}

extern "C" BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, void* isProcessEnding) {
    if (reason == DLL_PROCESS_ATTACH) {
        DisableThreadLibraryCalls(library);
        RegisterProjectorWindow(library);
    } else if (reason == DLL_PROCESS_DETACH && !isProcessEnding) {
        UnregisterProjectorWindow(library);
    }
    return TRUE;
}
