// The way to the file system for everything that must not lose data: a table of calls, so that
// tests can put in a stand-in that fails, falls short or stops at any call.
#pragma once

#include <cstdint>

enum class FileStatus {
    kOk,
    kMissing,   // there is no file of that name
    kExists,    // there already is a file of that name
    kHeld,      // another program holds the file
    kDenied,    // read-only file, folder or disk; also a file that waits to be deleted
    kDiskFull,  // the disk, or the user's share of it, is used up
    kFailed,
};

enum class FileMode {
    kReadShared,       // existing file, others may read and write
    kReadGuarded,      // existing file, others may only read; on Windows alone
    kReadWriteShared,  // existing file, others may read and write
    kReadWrite,        // existing file, others may only read
    kCreateNew,        // read and write; fails when the file exists
    kCreateAlways,     // read and write; an older file of that name is emptied
};

using FileHandle = intptr_t;
constexpr FileHandle kNoFile = -1;

// What the system tells of an open file. 0 where it tells nothing.
struct FileFacts {
    bool onDisk = false;  // else a device, a console, a pipe
    // Together the same for two names of one file, and for no other.
    uint64_t volume = 0;
    uint64_t index = 0;
    uint64_t lastWrite = 0;  // in the system's own units
};

// Every call leaves its outputs untouched unless it answers kOk. After `open` the file position is
// 0.
struct FileAccess {
    FileStatus (*open)(const char* path, FileMode mode, FileHandle& file);
    // At the end of the file: kOk with 0 bytes.
    FileStatus (*read)(FileHandle file, void* data, uint32_t sizeBytes, uint32_t& readBytes);
    // May write less than asked and still answer kOk.
    FileStatus (*write)(FileHandle file, const void* data, uint32_t sizeBytes,
                        uint32_t& writtenBytes);
    FileStatus (*seek)(FileHandle file, uint64_t offset);
    FileStatus (*size)(FileHandle file, uint64_t& sizeBytes);
    // Returns when what was written has reached the disk.
    FileStatus (*flush)(FileHandle file);
    // Cuts the file; the file position afterwards is not defined.
    FileStatus (*truncate)(FileHandle file, uint64_t sizeBytes);
    FileStatus (*close)(FileHandle file);
    FileStatus (*facts)(FileHandle file, FileFacts& facts);
    FileStatus (*setLastWrite)(FileHandle file, uint64_t lastWrite);
    // Never replaces: answers kExists when there is a file named `to`.
    FileStatus (*rename)(const char* from, const char* to);
    FileStatus (*remove)(const char* path);
    // kOk, kMissing, or another status when it cannot be told.
    FileStatus (*exists)(const char* path);
    void (*pause)(uint32_t milliseconds);
};

// The calls in use; at first the system's own.
extern FileAccess FileCalls;

// What an error number of the system means: one table for all forms of the calls.
FileStatus StatusOfSystemError(uint32_t error);

// Closes the file at the end of the scope.
struct ScopedFile {
    FileHandle handle = kNoFile;

    ScopedFile() = default;
    ScopedFile(const ScopedFile&) = delete;
    ScopedFile& operator=(const ScopedFile&) = delete;
    ~ScopedFile();
};

FileStatus CloseFile(ScopedFile& file);

enum class WhenHeld { kGiveUp, kTryAgain };

// The same as the calls of the table, but while the file is held or access to it denied they try
// again a few times, for a quarter of a second altogether.
FileStatus OpenPatiently(const char* path, FileMode mode, ScopedFile& file);
FileStatus RenamePatiently(const char* from, const char* to);
FileStatus RemovePatiently(const char* path);

// Writes at an offset in one call; a write that falls short counts as a full disk.
FileStatus WriteAt(FileHandle file, uint64_t offset, const void* data, uint32_t sizeBytes);
