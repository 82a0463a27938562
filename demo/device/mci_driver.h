// What makes a device an MCI driver: the entry point DriverProc, which the system reaches by its
// plain name, for a device that says how it is opened, closed and commanded.
#pragma once

#include <windows.h>

#include <mmsystem.h>

#include <mmddk.h>

// Every device defines these three.

// Makes what stands for one opening and names the device's type; never null.
void* OpenDeviceHandle(MCI_OPEN_DRIVER_PARMS& parameters);
void CloseDeviceHandle(void* handle);
DWORD RunDeviceCommand(void* handle, UINT message, DWORD flags, void* parameters);
