// What a CD drive does with its disc: door, spin-up, play, pause, seek. Time comes from the caller,
// in milliseconds of any steady clock, so that nothing here waits.
#pragma once

#include <cstdint>
#include <optional>

#include "demo/drive/disc_layout.h"

enum class DriveMode { kNotReady, kOpen, kStopped, kPlaying };

enum class DriveResult { kDone, kNoDisc, kSpinningUp, kOutOfRange, kNotAudio, kNotPaused };

struct Transport {
    bool isDoorOpen = false;
    bool hasDisc = false;
    DiscLayout disc;
    uint64_t readyAtMs = 0;
    bool isPlaying = false;
    bool isPaused = false;
    uint32_t position = 0;     // sector; while playing, where play started
    uint32_t endSector = 0;    // where play is to stop
    uint64_t startedAtMs = 0;  // when play started
};

// Puts a disc in or takes it out (nullopt); the door is closed afterwards. The disc is ready after
// spinUpMs.
void ChangeDisc(Transport& drive, std::optional<DiscLayout> disc, uint64_t nowMs,
                uint32_t spinUpMs);

void OpenDoor(Transport& drive);

void CloseDoor(Transport& drive, uint64_t nowMs, uint32_t spinUpMs);

// Whether the drive can read a disc now: done, noDisc or spinningUp.
DriveResult DiscState(const Transport& drive, uint64_t nowMs);

// A paused drive reads as stopped, like real ones. Play that has reached its end is over.
DriveMode ModeOfDrive(const Transport& drive, uint64_t nowMs);

// The sector under the laser, 0 to disc.sectors.
uint32_t SectorOfDrive(const Transport& drive, uint64_t nowMs);

// Plays from a sector (default: where the drive stands) to another (default: the end of the disc),
// but not into a data track. Nothing changes unless the answer is done.
DriveResult PlayDisc(Transport& drive, std::optional<uint32_t> from, std::optional<uint32_t> to,
                     uint64_t nowMs);

// Stays where it is. A drive that does not play stays as it was.
DriveResult PauseDisc(Transport& drive, uint64_t nowMs);

// Goes on after a pause, to the end that was asked for before it.
DriveResult ResumeDisc(Transport& drive, uint64_t nowMs);

// Ends play and goes back to the start of the disc.
DriveResult StopDisc(Transport& drive, uint64_t nowMs);

// Goes to a sector, 0 to disc.sectors, and stands there.
DriveResult SeekDisc(Transport& drive, uint32_t sector, uint64_t nowMs);
