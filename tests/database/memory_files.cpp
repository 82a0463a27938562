// A disk in memory in the place of the database's file calls.
#include "memory_files.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

#include "base/app_directory.h"
#include "database/database_file.h"
#include "database/database_format.h"

const std::string kNoSuchFile = "(no such file)";

#ifndef _WIN32
// Only the product's system has calls of its own.
FileAccess FileCalls;
#endif

namespace {

struct MemoryFile {
    std::string bytes;
    std::string flushedBytes;
    std::string lastWrite = {};
    size_t lastWriteAt = 0;
    uint64_t lastWriteTime = 0;
    int openHandles = 0;
};

struct Handle {
    std::shared_ptr<MemoryFile> file;
    uint64_t offset = 0;
    bool writes = false;
};

std::map<std::string, std::shared_ptr<MemoryFile>> disk;
std::vector<Handle> handles;
std::pair<Fault, int> armed[2];
int calls = 0;
bool diskIsFull = false;
bool everythingHeld = false;
bool inFileCall = false;
Fault endedBy = Fault::kNone;

// One call: whether a fault strikes it, and what it answers when it has no effect for that reason.
struct Call {
    Fault fault = Fault::kNone;
    FileStatus status = FileStatus::kOk;
    ~Call() { inFileCall = false; }
};

}  // namespace

static Fault NextFault() {
    if (endedBy != Fault::kNone) return Fault::kEndsBefore;
    ++calls;
    for (const auto& [fault, atCall] : armed) {
        const int last = fault == Fault::kHeldBriefly ? atCall + 2 : atCall;
        if (fault == Fault::kNone || calls < atCall || calls > last) continue;
        diskIsFull |= fault == Fault::kDiskFull;
        everythingHeld |= fault == Fault::kHeld;
        if (fault >= Fault::kEndsBefore) endedBy = fault;
        return fault;
    }
    return Fault::kNone;
}

static Call NextCall(bool opensOrNames = false) {
    inFileCall = true;
    const Fault fault = NextFault();
    const bool held = everythingHeld || fault == Fault::kHeldBriefly;
    const bool fails =
        fault == Fault::kCallFails || fault == Fault::kEndsBefore || fault == Fault::kEndsHalfway;
    if (fails) return {fault, FileStatus::kFailed};
    // A file deleted while another program has it open is denied until that one lets go.
    const FileStatus refused =
        fault == Fault::kHeldBriefly && calls % 2 == 0 ? FileStatus::kDenied : FileStatus::kHeld;
    return {fault, held && opensOrNames ? refused : FileStatus::kOk};
}

static Handle* Find(FileHandle file) {
    const size_t index = static_cast<size_t>(file);
    return index < handles.size() && handles[index].file ? &handles[index] : nullptr;
}

static FileStatus Open(const char* path, FileMode mode, FileHandle& file) {
    const Call call = NextCall(true);
    if (call.status != FileStatus::kOk) return call.status;
    const bool creates = mode == FileMode::kCreateNew || mode == FileMode::kCreateAlways;
    const bool exists = disk.count(path) > 0;
    if (!creates && !exists) return FileStatus::kMissing;
    if (mode == FileMode::kCreateNew && exists) return FileStatus::kExists;
    std::shared_ptr<MemoryFile>& found = disk[path];
    if (!exists) found = std::make_shared<MemoryFile>();
    MemoryFile& opened = *found;
    if (creates) opened.bytes = opened.flushedBytes = opened.lastWrite = "";
    ++opened.openHandles;
    const bool reads = mode == FileMode::kReadShared || mode == FileMode::kReadGuarded;
    handles.push_back({found, 0, !reads});
    file = static_cast<FileHandle>(handles.size() - 1);
    return FileStatus::kOk;
}

static FileStatus Read(FileHandle file, void* data, uint32_t sizeBytes, uint32_t& readBytes) {
    const Call call = NextCall();
    Handle* handle = Find(file);
    if (call.status != FileStatus::kOk || !handle) return FileStatus::kFailed;
    if (call.fault == Fault::kFallsShort) sizeBytes = (sizeBytes + 1) / 2;
    const std::string& bytes = handle->file->bytes;
    const uint64_t offset = std::min<uint64_t>(handle->offset, bytes.size());
    const uint64_t count = std::min<uint64_t>(sizeBytes, bytes.size() - offset);
    std::memcpy(data, bytes.data() + offset, static_cast<size_t>(count));
    handle->offset += count;
    readBytes = static_cast<uint32_t>(count);
    return FileStatus::kOk;
}

static void Put(Handle& handle, const void* data, uint32_t sizeBytes) {
    MemoryFile& file = *handle.file;
    const size_t offset = static_cast<size_t>(handle.offset);
    file.bytes.resize(std::max(file.bytes.size(), offset + sizeBytes));
    std::memcpy(file.bytes.data() + offset, data, sizeBytes);
    handle.offset += sizeBytes;
    file.lastWrite = file.bytes.substr(offset, sizeBytes);
    file.lastWriteAt = offset;
}

static FileStatus Write(FileHandle file, const void* data, uint32_t sizeBytes,
                        uint32_t& writtenBytes) {
    const bool wasFull = diskIsFull;
    const Call call = NextCall();
    Handle* handle = Find(file);
    if (!handle || !handle->writes) return FileStatus::kFailed;
    const bool doesHalf = call.fault == Fault::kEndsHalfway || (diskIsFull && !wasFull);
    if (doesHalf) Put(*handle, data, sizeBytes / 2);
    if (call.status != FileStatus::kOk) return call.status;
    if (diskIsFull) return FileStatus::kDiskFull;
    if (call.fault == Fault::kFallsShort) sizeBytes /= 2;
    if (call.fault != Fault::kWriteLost) Put(*handle, data, sizeBytes);
    if (call.fault == Fault::kWriteLost) handle->offset += sizeBytes;
    writtenBytes = sizeBytes;
    return FileStatus::kOk;
}

// A call on an open file that fails or is done whole.
template <typename Work>
static FileStatus OnHandle(FileHandle file, Work work) {
    const Call call = NextCall();
    Handle* handle = Find(file);
    if (call.status != FileStatus::kOk || !handle) return FileStatus::kFailed;
    work(*handle);
    return FileStatus::kOk;
}

static FileStatus Seek(FileHandle file, uint64_t offset) {
    return OnHandle(file, [=](Handle& handle) { handle.offset = offset; });
}

static FileStatus Size(FileHandle file, uint64_t& sizeBytes) {
    return OnHandle(file, [&](Handle& handle) { sizeBytes = handle.file->bytes.size(); });
}

static FileStatus Flush(FileHandle file) {
    return OnHandle(file, [](const Handle& handle) {
        handle.file->flushedBytes = handle.file->bytes;
        handle.file->lastWrite.clear();
    });
}

static FileStatus Truncate(FileHandle file, uint64_t sizeBytes) {
    return OnHandle(
        file, [=](Handle& handle) { handle.file->bytes.resize(static_cast<size_t>(sizeBytes)); });
}

// A close that fails has still given the handle back.
static FileStatus Close(FileHandle file) {
    if (Handle* handle = Find(file)) {
        --handle->file->openHandles;
        handle->file.reset();
    }
    return NextCall().status;
}

static FileStatus Facts(FileHandle file, FileFacts& facts) {
    return OnHandle(file, [&](Handle& handle) {
        const auto index = reinterpret_cast<uintptr_t>(handle.file.get());
        facts = {true, 1, index, handle.file->lastWriteTime};
    });
}

static FileStatus SetLastWrite(FileHandle file, uint64_t lastWrite) {
    return OnHandle(file, [=](Handle& handle) { handle.file->lastWriteTime = lastWrite; });
}

// Takes a name off the disk and, unless it is removed for good, gives its file another.
static FileStatus Rename(const char* from, const char* to) {
    const Call call = NextCall(true);
    if (call.status != FileStatus::kOk) return call.status;
    const auto found = disk.find(from);
    if (found == disk.end()) return FileStatus::kMissing;
    if (to && disk.count(to) > 0) return FileStatus::kExists;
    if (found->second->openHandles > 0) return FileStatus::kHeld;
    if (to) disk[to] = found->second;
    disk.erase(found);
    return FileStatus::kOk;
}

static FileStatus Exists(const char* path) {
    const Call call = NextCall();
    if (call.status != FileStatus::kOk) return call.status;
    return disk.count(path) > 0 ? FileStatus::kOk : FileStatus::kMissing;
}

void UseMemoryFiles() {
    const auto remove = [](const char* path) { return Rename(path, nullptr); };
    const auto pause = [](uint32_t) {};
    FileCalls = {Open,  Read,  Write,        Seek,   Size,   Flush,  Truncate,
                 Close, Facts, SetLastWrite, Rename, remove, Exists, pause};
    AppDirectory.clear();
    ResetDatabaseState();
    StartOnDisk({});
}

void StartOnDisk(const MemorySnapshot& snapshot) {
    disk.clear();
    handles.clear();
    for (const auto& [name, bytes] : snapshot)
        disk[name] = std::make_shared<MemoryFile>(MemoryFile{bytes, bytes});
    ArmFault(Fault::kNone, 0);
}

MemorySnapshot DiskAfterEnd() {
    MemorySnapshot snapshot;
    for (const auto& [name, file] : disk) {
        std::string& bytes = snapshot[name] = file->bytes;
        if (endedBy < Fault::kPowerLoss) continue;
        const size_t sizeBytes = bytes.size();
        bytes = file->flushedBytes;
        if (endedBy == Fault::kPowerLoss) continue;
        bytes.resize(sizeBytes);
        const size_t at = std::min(sizeBytes, file->lastWriteAt);
        const size_t kept = std::min(file->lastWrite.size(), sizeBytes - at);
        bytes.replace(at, kept, file->lastWrite, 0, kept);
    }
    return snapshot;
}

void ArmFault(Fault fault, int atCall, Fault second, int secondAtCall) {
    armed[0] = {fault, atCall};
    armed[1] = {second, secondAtCall};
    calls = 0;
    diskIsFull = everythingHeld = false;
    endedBy = Fault::kNone;
}

uint64_t& LastWriteTime(const std::string& name) {
    return disk.at(name)->lastWriteTime;
}

int CallsMade() {
    return calls;
}

bool ProgramEnded() {
    return endedBy != Fault::kNone;
}

int OpenHandles() {
    const auto isOpen = [](const Handle& handle) { return handle.file != nullptr; };
    return static_cast<int>(std::count_if(handles.begin(), handles.end(), isOpen));
}

bool InFileCall() {
    return inFileCall;
}

std::string FileBytes(const MemorySnapshot& snapshot, const std::string& name) {
    const auto found = snapshot.find(name);
    return found == snapshot.end() ? kNoSuchFile : found->second;
}

std::string Database() {
    return FileBytes(DiskAfterEnd(), kDatabaseName);
}

MemorySnapshot DiskWith(const std::string& database) {
    return {{kDatabaseName, database}};
}

void StartOn(const std::string& database) {
    UseMemoryFiles();
    StartOnDisk(DiskWith(database));
}
