// What is done with the file calls wherever they are used: telling what an error means, closing,
// trying again, checking.
#include "base/file_access.h"

#ifdef _WIN32
#include <windows.h>
#define ERROR_NUMBER(onWindows, elsewhere) onWindows
#else
#include <cerrno>
#define ERROR_NUMBER(onWindows, elsewhere) elsewhere
#endif

constexpr int kAttempts = 6;
constexpr uint32_t kPauseMs = 50;

static const struct {
    uint32_t error;
    FileStatus status;
} kStatuses[] = {
    {ERROR_NUMBER(ERROR_FILE_NOT_FOUND, ENOENT), FileStatus::kMissing},
    {ERROR_NUMBER(ERROR_PATH_NOT_FOUND, ENOTDIR), FileStatus::kMissing},
    {ERROR_NUMBER(ERROR_FILE_EXISTS, EEXIST), FileStatus::kExists},
    {ERROR_NUMBER(ERROR_ALREADY_EXISTS, ENOTEMPTY), FileStatus::kExists},
    {ERROR_NUMBER(ERROR_SHARING_VIOLATION, EBUSY), FileStatus::kHeld},
    {ERROR_NUMBER(ERROR_LOCK_VIOLATION, ETXTBSY), FileStatus::kHeld},
    {ERROR_NUMBER(ERROR_ACCESS_DENIED, EACCES), FileStatus::kDenied},
    {ERROR_NUMBER(ERROR_CANNOT_MAKE, EPERM), FileStatus::kDenied},
    {ERROR_NUMBER(ERROR_WRITE_PROTECT, EROFS), FileStatus::kDenied},
    {ERROR_NUMBER(ERROR_DISK_FULL, ENOSPC), FileStatus::kDiskFull},
    {ERROR_NUMBER(ERROR_HANDLE_DISK_FULL, EDQUOT), FileStatus::kDiskFull},
};

FileStatus StatusOfSystemError(uint32_t error) {
    for (const auto& each : kStatuses) {
        if (each.error == error) return each.status;
    }
    return FileStatus::kFailed;
}

ScopedFile::~ScopedFile() {
    CloseFile(*this);
}

FileStatus CloseFile(ScopedFile& file) {
    if (file.handle == kNoFile) return FileStatus::kOk;
    const FileHandle handle = file.handle;
    file.handle = kNoFile;
    return FileCalls.close(handle);
}

// Virus scanners and backup programs hold a file for moments only, right after it was changed. A
// file that was deleted while one of them had it open is denied until it lets go.
template <typename Call>
static FileStatus TryPatiently(Call call) {
    FileStatus status = call();
    for (int attempt = 1; attempt < kAttempts; ++attempt) {
        if (status != FileStatus::kHeld && status != FileStatus::kDenied) break;
        FileCalls.pause(kPauseMs);
        status = call();
    }
    return status;
}

FileStatus OpenPatiently(const char* path, FileMode mode, ScopedFile& file) {
    return TryPatiently([&] { return FileCalls.open(path, mode, file.handle); });
}

FileStatus RenamePatiently(const char* from, const char* to) {
    return TryPatiently([&] { return FileCalls.rename(from, to); });
}

FileStatus RemovePatiently(const char* path) {
    return TryPatiently([&] { return FileCalls.remove(path); });
}

FileStatus WriteAt(FileHandle file, uint64_t offset, const void* data, uint32_t sizeBytes) {
    FileStatus status = FileCalls.seek(file, offset);
    if (status != FileStatus::kOk) return status;
    uint32_t writtenBytes = 0;
    status = FileCalls.write(file, data, sizeBytes, writtenBytes);
    if (status != FileStatus::kOk) return status;
    return writtenBytes == sizeBytes ? FileStatus::kOk : FileStatus::kDiskFull;
}
