// The edge to the platform's media control interface: every command of every player goes through
// this table, so that tests can put a recording stand-in there.
#pragma once

#include <windows.h>

#include <mmsystem.h>

struct MciCalls {
    MCIERROR(WINAPI* send)(MCIDEVICEID device, UINT message, DWORD_PTR flags, DWORD_PTR parameters);
    BOOL(WINAPI* errorText)(MCIERROR code, LPSTR text, UINT textSize);
};
extern MciCalls Mci;

// One MCI_STATUS query of an item, waiting for the answer. On failure `value` is left alone.
MCIERROR QueryStatus(MCIDEVICEID device, DWORD item, DWORD& value);
// The same for one track (1 to 99) of a disc.
MCIERROR QueryTrackStatus(MCIDEVICEID device, DWORD item, DWORD track, DWORD& value);
