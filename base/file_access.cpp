// What the database does with the file calls wherever it uses them: closing, trying again,
// checking.
#include "base/file_access.h"

constexpr int kAttempts = 6;
constexpr uint32_t kPauseMs = 50;

ScopedFile::~ScopedFile() {
    CloseFile(*this);
}

FileStatus CloseFile(ScopedFile& file) {
    if (file.handle == kNoFile) return FileStatus::ok;
    const FileHandle handle = file.handle;
    file.handle = kNoFile;
    return DatabaseFiles.close(handle);
}

// Virus scanners and backup programs hold a file for moments only, right after it was changed.
template <typename Call>
static FileStatus TryPatiently(Call call) {
    FileStatus status = call();
    for (int attempt = 1; attempt < kAttempts && status == FileStatus::held; ++attempt) {
        DatabaseFiles.pause(kPauseMs);
        status = call();
    }
    return status;
}

FileStatus OpenPatiently(const char* path, FileMode mode, ScopedFile& file) {
    return TryPatiently([&] { return DatabaseFiles.open(path, mode, &file.handle); });
}

FileStatus RenamePatiently(const char* from, const char* to) {
    return TryPatiently([&] { return DatabaseFiles.rename(from, to); });
}

FileStatus RemovePatiently(const char* path) {
    return TryPatiently([&] { return DatabaseFiles.remove(path); });
}

FileStatus WriteAt(FileHandle file, uint64_t offset, const void* data, uint32_t sizeBytes) {
    FileStatus status = DatabaseFiles.seek(file, offset);
    if (status != FileStatus::ok) return status;
    uint32_t writtenBytes = 0;
    status = DatabaseFiles.write(file, data, sizeBytes, &writtenBytes);
    if (status != FileStatus::ok) return status;
    return writtenBytes == sizeBytes ? FileStatus::ok : FileStatus::diskFull;
}
