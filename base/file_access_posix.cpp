// The database's file calls on the machine that builds, for measurements. Each is one system call.
#include "base/file_access.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

static FileStatus StatusOf(bool succeeded) {
    return succeeded ? FileStatus::kOk : StatusOfSystemError(static_cast<uint32_t>(errno));
}

static int Native(FileHandle file) {
    return static_cast<int>(file);
}

static FileStatus Open(const char* path, FileMode mode, FileHandle& file) {
    int flags = O_CLOEXEC | (mode == FileMode::kReadShared ? O_RDONLY : O_RDWR);
    if (mode == FileMode::kCreateNew) flags |= O_CREAT | O_EXCL;
    if (mode == FileMode::kCreateAlways) flags |= O_CREAT | O_TRUNC;
    const int opened = open(path, flags, 0666);
    if (opened < 0) return StatusOf(false);
    file = opened;
    return FileStatus::kOk;
}

static FileStatus Counted(ssize_t count, uint32_t& bytes) {
    if (count < 0) return StatusOf(false);
    bytes = static_cast<uint32_t>(count);
    return FileStatus::kOk;
}

static FileStatus Read(FileHandle file, void* data, uint32_t sizeBytes, uint32_t& readBytes) {
    return Counted(read(Native(file), data, sizeBytes), readBytes);
}

static FileStatus Write(FileHandle file, const void* data, uint32_t sizeBytes,
                        uint32_t& writtenBytes) {
    return Counted(write(Native(file), data, sizeBytes), writtenBytes);
}

static FileStatus Size(FileHandle file, uint64_t& sizeBytes) {
    struct stat status;
    if (fstat(Native(file), &status) != 0) return StatusOf(false);
    sizeBytes = static_cast<uint64_t>(status.st_size);
    return FileStatus::kOk;
}

FileAccess FileCalls = {
    .open = Open,
    .read = Read,
    .write = Write,
    .seek =
        [](FileHandle file, uint64_t offset) {
            return StatusOf(lseek(Native(file), static_cast<off_t>(offset), SEEK_SET) >= 0);
        },
    .size = Size,
    .flush = [](FileHandle file) { return StatusOf(fdatasync(Native(file)) == 0); },
    .truncate =
        [](FileHandle file, uint64_t sizeBytes) {
            return StatusOf(ftruncate(Native(file), static_cast<off_t>(sizeBytes)) == 0);
        },
    .close = [](FileHandle file) { return StatusOf(close(Native(file)) == 0); },
    .rename =
        [](const char* from, const char* to) {
            return StatusOf(renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE) == 0);
        },
    .remove = [](const char* path) { return StatusOf(unlink(path) == 0); },
    .exists = [](const char* path) { return StatusOf(access(path, F_OK) == 0); },
    .pause = [](uint32_t milliseconds) { usleep(milliseconds * 1000); },
};
