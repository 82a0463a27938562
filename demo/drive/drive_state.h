// The one drive of this process: its transport, the disc in it and who has it open.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>

#include "demo/device/device_clock.h"
#include "demo/drive/disc_player.h"
#include "demo/drive/transport.h"

struct DriveState {
    Transport transport;
    std::shared_ptr<const Disc> disc;  // null while the drive is empty
    std::wstring discPath;             // what the tray file named at the last look
    bool wasAsked = false;             // the tray file has been looked at
    int openCount = 0;
    bool isShared = false;
};

extern DriveState Drive;

struct LeaveDrive {
    void operator()(CRITICAL_SECTION* lock) const { LeaveCriticalSection(lock); }
};
using DriveLock = std::unique_ptr<CRITICAL_SECTION, LeaveDrive>;

// Before the first and after the last use of the drive, from the library's own start and end.
void CreateDriveLock();
void DestroyDriveLock();

// Everything in Drive is read and changed under this lock.
DriveLock LockDrive();

// Looks at the tray file: another disc there is inserted, none takes the disc out.
void RefreshDisc();

// Lets be heard what the transport plays, or silence.
void LetSoundFollow();
