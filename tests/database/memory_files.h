// A disk in memory in the place of the database's file calls. Any call can be made to fail, to fall
// short, or to be the last one the program makes; what was not flushed can be lost.
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "base/file_access.h"

enum class Fault {
    kNone,
    kCallFails,
    kFallsShort,   // a read or write does half of its work and answers ok
    kDiskFull,     // from here on no write finds room; the first one still does half
    kHeld,         // from here on another program holds every file
    kHeldBriefly,  // the same for three calls
    kWriteLost,    // a write answers ok and nothing of it is kept
    kEndsBefore,   // the program ends: this call and all later ones have no effect
    kEndsHalfway,  // a write still does half of its work
    kEndsAfter,
    kPowerLoss,  // the program ends after this call, and what was not flushed is lost
    // The same, but files keep their length, the last write reached the disk, and what came before
    // it reads as zeros.
    kPowerLossInPart,
};

// Files by name. Copying a snapshot back starts the program anew on that disk.
using MemorySnapshot = std::map<std::string, std::string>;

// Puts the stand-in in place, with an empty disk.
void UseMemoryFiles();
void StartOnDisk(const MemorySnapshot& disk);
// What a program started now would find. Ends the present one.
MemorySnapshot DiskAfterEnd();

uint64_t& LastWriteTime(const std::string& name);

void ArmFault(Fault fault, int atCall, Fault second = Fault::kNone, int secondAtCall = 0);
int CallsMade();
bool ProgramEnded();
int OpenHandles();
// The stand-in is at work: what it needs itself is none of the program's.
bool InFileCall();

// The bytes of a file; `kNoSuchFile` when it does not exist.
extern const std::string kNoSuchFile;
std::string FileBytes(const MemorySnapshot& disk, const std::string& name);
// The same of the database on DiskAfterEnd, and a disk with a database alone.
std::string Database();
MemorySnapshot DiskWith(const std::string& database);
// UseMemoryFiles, with that disk.
void StartOn(const std::string& database);
