// The file calls on Windows.
#include <windows.h>

#include "base/file_access.h"

static FileStatus StatusOfLastError() {
    return StatusOfSystemError(GetLastError());
}

static FileStatus StatusOf(BOOL succeeded) {
    return succeeded ? FileStatus::kOk : StatusOfLastError();
}

static HANDLE Native(FileHandle file) {
    return reinterpret_cast<HANDLE>(file);
}

static FileStatus OpenFileWindows(const char* path, FileMode mode, FileHandle& file) {
    const bool shared = mode == FileMode::kReadShared || mode == FileMode::kReadWriteShared;
    const bool reads = mode == FileMode::kReadShared || mode == FileMode::kReadGuarded;
    const DWORD access = reads ? GENERIC_READ : GENERIC_READ | GENERIC_WRITE;
    const DWORD sharing = shared ? FILE_SHARE_READ | FILE_SHARE_WRITE : FILE_SHARE_READ;
    const DWORD creation = mode == FileMode::kCreateNew      ? CREATE_NEW
                           : mode == FileMode::kCreateAlways ? CREATE_ALWAYS
                                                             : OPEN_EXISTING;
    const HANDLE handle =
        CreateFileA(path, access, sharing, nullptr, creation, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return StatusOfLastError();
    file = reinterpret_cast<FileHandle>(handle);
    return FileStatus::kOk;
}

static FileStatus ReadFileWindows(FileHandle file, void* data, uint32_t sizeBytes,
                                  uint32_t& readBytes) {
    DWORD count = 0;
    if (!ReadFile(Native(file), data, sizeBytes, &count, nullptr)) return StatusOfLastError();
    readBytes = count;
    return FileStatus::kOk;
}

static FileStatus WriteFileWindows(FileHandle file, const void* data, uint32_t sizeBytes,
                                   uint32_t& writtenBytes) {
    DWORD count = 0;
    if (!WriteFile(Native(file), data, sizeBytes, &count, nullptr)) return StatusOfLastError();
    writtenBytes = count;
    return FileStatus::kOk;
}

static FileStatus SeekFileWindows(FileHandle file, uint64_t offset) {
    LARGE_INTEGER distance;
    distance.QuadPart = static_cast<LONGLONG>(offset);
    return StatusOf(SetFilePointerEx(Native(file), distance, nullptr, FILE_BEGIN));
}

static FileStatus SizeOfFileWindows(FileHandle file, uint64_t& sizeBytes) {
    LARGE_INTEGER size;
    if (!GetFileSizeEx(Native(file), &size)) return StatusOfLastError();
    sizeBytes = static_cast<uint64_t>(size.QuadPart);
    return FileStatus::kOk;
}

static FileStatus FlushFileWindows(FileHandle file) {
    return StatusOf(FlushFileBuffers(Native(file)));
}

static FileStatus TruncateFileWindows(FileHandle file, uint64_t sizeBytes) {
    const FileStatus status = SeekFileWindows(file, sizeBytes);
    return status == FileStatus::kOk ? StatusOf(SetEndOfFile(Native(file))) : status;
}

static FileStatus CloseFileWindows(FileHandle file) {
    return StatusOf(CloseHandle(Native(file)));
}

static uint64_t Joined(DWORD high, DWORD low) {
    return static_cast<uint64_t>(high) << 32 | low;
}

static FileStatus FactsOfFileWindows(FileHandle file, FileFacts& facts) {
    FileFacts told;
    told.onDisk = GetFileType(Native(file)) == FILE_TYPE_DISK;
    BY_HANDLE_FILE_INFORMATION information;
    if (told.onDisk && GetFileInformationByHandle(Native(file), &information)) {
        told.volume = information.dwVolumeSerialNumber;
        told.index = Joined(information.nFileIndexHigh, information.nFileIndexLow);
        told.lastWrite = Joined(information.ftLastWriteTime.dwHighDateTime,
                                information.ftLastWriteTime.dwLowDateTime);
    }
    facts = told;
    return FileStatus::kOk;
}

static FileStatus SetLastWriteWindows(FileHandle file, uint64_t lastWrite) {
    const FILETIME time = {static_cast<DWORD>(lastWrite), static_cast<DWORD>(lastWrite >> 32)};
    return StatusOf(SetFileTime(Native(file), nullptr, nullptr, &time));
}

static FileStatus RenameFileWindows(const char* from, const char* to) {
    return StatusOf(MoveFileA(from, to));
}

static FileStatus RemoveFileWindows(const char* path) {
    return StatusOf(DeleteFileA(path));
}

static FileStatus ExistsFileWindows(const char* path) {
    return StatusOf(GetFileAttributesA(path) != INVALID_FILE_ATTRIBUTES);
}

static void PauseWindows(uint32_t milliseconds) {
    Sleep(milliseconds);
}

FileAccess FileCalls = {
    OpenFileWindows,    ReadFileWindows,     WriteFileWindows,    SeekFileWindows,
    SizeOfFileWindows,  FlushFileWindows,    TruncateFileWindows, CloseFileWindows,
    FactsOfFileWindows, SetLastWriteWindows, RenameFileWindows,   RemoveFileWindows,
    ExistsFileWindows,  PauseWindows,
};
