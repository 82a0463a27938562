// The file calls on the machine that builds, for tests, measurements and tarndisc. Each is one
// system call.
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
    const bool reads = mode == FileMode::kReadShared || mode == FileMode::kReadGuarded;
    int flags = O_CLOEXEC | (reads ? O_RDONLY : O_RDWR);
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

constexpr uint64_t kNanoseconds = 1'000'000'000;

static FileStatus Facts(FileHandle file, FileFacts& facts) {
    struct stat status;
    if (fstat(Native(file), &status) != 0) return StatusOf(false);
    facts.onDisk = S_ISREG(status.st_mode);
    facts.volume = static_cast<uint64_t>(status.st_dev);
    facts.index = static_cast<uint64_t>(status.st_ino);
    facts.lastWrite = static_cast<uint64_t>(status.st_mtim.tv_sec) * kNanoseconds +
                      static_cast<uint64_t>(status.st_mtim.tv_nsec);
    return FileStatus::kOk;
}

static FileStatus SetLastWrite(FileHandle file, uint64_t lastWrite) {
    timespec times[2] = {};
    times[0].tv_nsec = UTIME_OMIT;
    times[1].tv_sec = static_cast<time_t>(lastWrite / kNanoseconds);
    times[1].tv_nsec = static_cast<long>(lastWrite % kNanoseconds);
    return StatusOf(futimens(Native(file), times) == 0);
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
    .facts = Facts,
    .setLastWrite = SetLastWrite,
    .rename =
        [](const char* from, const char* to) {
            return StatusOf(renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE) == 0);
        },
    .remove = [](const char* path) { return StatusOf(unlink(path) == 0); },
    .exists = [](const char* path) { return StatusOf(access(path, F_OK) == 0); },
    .pause = [](uint32_t milliseconds) { usleep(milliseconds * 1000); },
};
