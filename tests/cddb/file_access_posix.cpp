// The database's file calls on the machine that builds, for tests and measurements. Each is one
// system call.
#include "cddb/file_access.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

static FileStatus StatusOf(bool succeeded) {
    if (succeeded) return FileStatus::ok;
    switch (errno) {
        case ENOENT:
        case ENOTDIR:
            return FileStatus::missing;
        case EEXIST:
            return FileStatus::exists;
        case EACCES:
        case EBUSY:
            return FileStatus::held;
        case ENOSPC:
        case EDQUOT:
            return FileStatus::diskFull;
        default:
            return FileStatus::failed;
    }
}

static int Native(FileHandle file) {
    return static_cast<int>(file);
}

static FileStatus Open(const char* path, FileMode mode, FileHandle* file) {
    int flags = O_CLOEXEC | (mode == FileMode::readShared ? O_RDONLY : O_RDWR);
    if (mode == FileMode::createNew) flags |= O_CREAT | O_EXCL;
    if (mode == FileMode::createAlways) flags |= O_CREAT | O_TRUNC;
    const int opened = open(path, flags, 0666);
    if (opened < 0) return StatusOf(false);
    *file = opened;
    return FileStatus::ok;
}

static FileStatus Read(FileHandle file, void* data, uint32_t sizeBytes, uint32_t* readBytes) {
    const ssize_t count = read(Native(file), data, sizeBytes);
    if (count < 0) return StatusOf(false);
    *readBytes = static_cast<uint32_t>(count);
    return FileStatus::ok;
}

static FileStatus Write(FileHandle file, const void* data, uint32_t sizeBytes,
                        uint32_t* writtenBytes) {
    const ssize_t count = write(Native(file), data, sizeBytes);
    if (count < 0) return StatusOf(false);
    *writtenBytes = static_cast<uint32_t>(count);
    return FileStatus::ok;
}

static FileStatus Seek(FileHandle file, uint64_t offset) {
    return StatusOf(lseek(Native(file), static_cast<off_t>(offset), SEEK_SET) >= 0);
}

static FileStatus Size(FileHandle file, uint64_t* sizeBytes) {
    struct stat status;
    if (fstat(Native(file), &status) != 0) return StatusOf(false);
    *sizeBytes = static_cast<uint64_t>(status.st_size);
    return FileStatus::ok;
}

static FileStatus Flush(FileHandle file) {
    return StatusOf(fdatasync(Native(file)) == 0);
}

static FileStatus Truncate(FileHandle file, uint64_t sizeBytes) {
    return StatusOf(ftruncate(Native(file), static_cast<off_t>(sizeBytes)) == 0);
}

static FileStatus Close(FileHandle file) {
    return StatusOf(close(Native(file)) == 0);
}

static FileStatus Rename(const char* from, const char* to) {
    return StatusOf(renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE) == 0);
}

static FileStatus Remove(const char* path) {
    return StatusOf(unlink(path) == 0);
}

static FileStatus Exists(const char* path) {
    return StatusOf(access(path, F_OK) == 0);
}

static void Pause(uint32_t milliseconds) {
    usleep(milliseconds * 1000);
}

FileAccess DatabaseFiles = {
    Open, Read, Write, Seek, Size, Flush, Truncate, Close, Rename, Remove, Exists, Pause,
};
