// A virtual projector: an MCI driver for the digital video device that plays QuickTime files. The
// system loads it as vfilm.dll and reaches it through DriverProc. For trying and testing only.
#include <windows.h>

#include <mmsystem.h>

#include <mmddk.h>

#include "demo/device/device_options.h"
#include "demo/projector/film_commands.h"

// The projector's option: Log, the path of a text file to which every command is added as it
// arrives; none by default.
const wchar_t kOptionsKey[] = L"Software\\Tarnwell Virtual Projector";
const wchar_t kOptionsPrefix[] = L"TARNWELL_PROJECTOR_";

// What DRV_OPEN returns when the system only wants to know that the driver is there.
static constexpr DWORD_PTR kNoHandle = 1;

static LRESULT MakeHandle(MCI_OPEN_DRIVER_PARMS* parameters) {
    if (!parameters) return kNoHandle;
    auto* projector = new Projector;
    parameters->wType = MCI_DEVTYPE_DIGITAL_VIDEO;
    parameters->wCustomCommandTable = MCI_NO_COMMAND_TABLE;
    return reinterpret_cast<LRESULT>(projector);
}

static void FreeHandle(DWORD_PTR id) {
    if (id <= kNoHandle) return;
    auto* projector = reinterpret_cast<Projector*>(id);
    CloseProjector(*projector);
    delete projector;
}

extern "C" LRESULT WINAPI DriverProc(DWORD_PTR id, HDRVR driver, UINT message, LPARAM first,
                                     LPARAM second) {
    if (message >= DRV_RESERVED && message < DRV_USER && id > kNoHandle)
        return static_cast<LRESULT>(RunFilmCommand(*reinterpret_cast<Projector*>(id), message,
                                                   static_cast<DWORD>(first),
                                                   reinterpret_cast<void*>(second)));
    switch (message) {
        case DRV_OPEN:
            return MakeHandle(reinterpret_cast<MCI_OPEN_DRIVER_PARMS*>(second));
        case DRV_CLOSE:
            FreeHandle(id);
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

extern "C" BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, void* isProcessEnding) {
    if (reason == DLL_PROCESS_ATTACH) {
        DisableThreadLibraryCalls(library);
        RegisterProjectorWindow(library);
    } else if (reason == DLL_PROCESS_DETACH && !isProcessEnding) {
        UnregisterProjectorWindow(library);
    }
    return TRUE;
}
