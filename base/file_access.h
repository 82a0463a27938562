// The database's way to the file system: a table of calls, so that tests can put in a stand-in that
// fails, falls short or stops at any call.
#pragma once

#include <cstdint>

enum class FileStatus {
    ok,
    missing,   // there is no file of that name
    exists,    // there already is a file of that name
    held,      // another program holds the file, or access to it is refused
    diskFull,  // the disk, or the user's share of it, is used up
    failed,
};

enum class FileMode {
    readShared,       // existing file, others may read and write
    readWriteShared,  // existing file, others may read and write
    readWrite,        // existing file, others may only read
    createNew,        // read and write; fails when the file exists
    createAlways,     // read and write; an older file of that name is emptied
};

using FileHandle = intptr_t;
constexpr FileHandle kNoFile = -1;

// Every call leaves its outputs untouched unless it answers ok. After `open` the file position is
// 0.
struct FileAccess {
    FileStatus (*open)(const char* path, FileMode mode, FileHandle* file);
    // At the end of the file: ok with 0 bytes.
    FileStatus (*read)(FileHandle file, void* data, uint32_t sizeBytes, uint32_t* readBytes);
    // May write less than asked and still answer ok.
    FileStatus (*write)(FileHandle file, const void* data, uint32_t sizeBytes,
                        uint32_t* writtenBytes);
    FileStatus (*seek)(FileHandle file, uint64_t offset);
    FileStatus (*size)(FileHandle file, uint64_t* sizeBytes);
    // Returns when what was written has reached the disk.
    FileStatus (*flush)(FileHandle file);
    // Cuts the file; the file position afterwards is not defined.
    FileStatus (*truncate)(FileHandle file, uint64_t sizeBytes);
    FileStatus (*close)(FileHandle file);
    // Never replaces: answers `exists` when there is a file named `to`.
    FileStatus (*rename)(const char* from, const char* to);
    FileStatus (*remove)(const char* path);
    // ok, missing, or another status when it cannot be told.
    FileStatus (*exists)(const char* path);
    void (*pause)(uint32_t milliseconds);
};

// The calls in use; at first the system's own.
extern FileAccess DatabaseFiles;

// Closes the file at the end of the scope.
struct ScopedFile {
    FileHandle handle = kNoFile;

    ScopedFile() = default;
    ScopedFile(const ScopedFile&) = delete;
    ScopedFile& operator=(const ScopedFile&) = delete;
    ~ScopedFile();
};

FileStatus CloseFile(ScopedFile& file);

enum class WhenHeld { giveUp, tryAgain };

// The same as the calls of the table, but while another program holds the file they try again a few
// times, for a quarter of a second altogether.
FileStatus OpenPatiently(const char* path, FileMode mode, ScopedFile& file);
FileStatus RenamePatiently(const char* from, const char* to);
FileStatus RemovePatiently(const char* path);

// Writes at an offset in one call; a write that falls short counts as a full disk.
FileStatus WriteAt(FileHandle file, uint64_t offset, const void* data, uint32_t sizeBytes);
