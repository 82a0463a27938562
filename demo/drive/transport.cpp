// The state of the drive and its changes.
#include "demo/drive/transport.h"

#include <algorithm>

static void Rewind(Transport& drive) {
    drive.isPlaying = false;
    drive.isPaused = false;
    drive.position = 0;
    drive.endSector = 0;
}

void ChangeDisc(Transport& drive, std::optional<DiscLayout> disc, uint64_t nowMs,
                uint32_t spinUpMs) {
    Rewind(drive);
    drive.hasDisc = disc.has_value();
    drive.disc = disc ? std::move(*disc) : DiscLayout();
    CloseDoor(drive, nowMs, spinUpMs);
    drive.readyAtMs = nowMs + spinUpMs;
}

void OpenDoor(Transport& drive) {
    Rewind(drive);
    drive.isDoorOpen = true;
}

void CloseDoor(Transport& drive, uint64_t nowMs, uint32_t spinUpMs) {
    if (drive.isDoorOpen) drive.readyAtMs = nowMs + spinUpMs;
    drive.isDoorOpen = false;
}

DriveResult DiscState(const Transport& drive, uint64_t nowMs) {
    if (!drive.hasDisc || drive.isDoorOpen) return DriveResult::kNoDisc;
    return nowMs < drive.readyAtMs ? DriveResult::kSpinningUp : DriveResult::kDone;
}

uint32_t SectorOfDrive(const Transport& drive, uint64_t nowMs) {
    if (!drive.isPlaying) return drive.position;
    const uint64_t elapsed = nowMs > drive.startedAtMs ? nowMs - drive.startedAtMs : 0;
    const uint64_t sector = drive.position + elapsed * kSectorsPerSecond / 1000;
    return static_cast<uint32_t>(std::min<uint64_t>(sector, drive.endSector));
}

DriveMode ModeOfDrive(const Transport& drive, uint64_t nowMs) {
    if (drive.isDoorOpen) return DriveMode::kOpen;
    if (DiscState(drive, nowMs) != DriveResult::kDone) return DriveMode::kNotReady;
    const bool isPlaying = drive.isPlaying && SectorOfDrive(drive, nowMs) < drive.endSector;
    return isPlaying ? DriveMode::kPlaying : DriveMode::kStopped;
}

static void StandAt(Transport& drive, uint32_t sector) {
    drive.isPlaying = false;
    drive.isPaused = false;
    drive.position = sector;
}

static void StartPlay(Transport& drive, uint32_t from, uint32_t to, uint64_t nowMs) {
    StandAt(drive, from);
    drive.isPlaying = true;
    drive.endSector = to;
    drive.startedAtMs = nowMs;
}

DriveResult PlayDisc(Transport& drive, std::optional<uint32_t> from, std::optional<uint32_t> to,
                     uint64_t nowMs) {
    if (const DriveResult state = DiscState(drive, nowMs); state != DriveResult::kDone)
        return state;
    const uint32_t start = from.value_or(SectorOfDrive(drive, nowMs));
    uint32_t end = to.value_or(drive.disc.sectors);
    if (start > end || end > drive.disc.sectors) return DriveResult::kOutOfRange;
    for (const TrackSpan& track : drive.disc.tracks) {
        const uint32_t trackEnd = track.startSector + track.sectors;
        if (track.isAudio || trackEnd <= start) continue;
        if (track.startSector <= start) return DriveResult::kNotAudio;
        end = std::min(end, track.startSector);
    }
    StartPlay(drive, start, end, nowMs);
    return DriveResult::kDone;
}

DriveResult PauseDisc(Transport& drive, uint64_t nowMs) {
    if (const DriveResult state = DiscState(drive, nowMs); state != DriveResult::kDone)
        return state;
    if (ModeOfDrive(drive, nowMs) == DriveMode::kPlaying) {
        StandAt(drive, SectorOfDrive(drive, nowMs));
        drive.isPaused = true;
    }
    return DriveResult::kDone;
}

DriveResult ResumeDisc(Transport& drive, uint64_t nowMs) {
    if (const DriveResult state = DiscState(drive, nowMs); state != DriveResult::kDone)
        return state;
    if (!drive.isPaused) return DriveResult::kNotPaused;
    StartPlay(drive, drive.position, drive.endSector, nowMs);
    return DriveResult::kDone;
}

DriveResult StopDisc(Transport& drive, uint64_t nowMs) {
    if (const DriveResult state = DiscState(drive, nowMs); state != DriveResult::kDone)
        return state;
    Rewind(drive);
    return DriveResult::kDone;
}

DriveResult SeekDisc(Transport& drive, uint32_t sector, uint64_t nowMs) {
    if (const DriveResult state = DiscState(drive, nowMs); state != DriveResult::kDone)
        return state;
    if (sector > drive.disc.sectors) return DriveResult::kOutOfRange;
    StandAt(drive, sector);
    return DriveResult::kDone;
}
