// A disk in memory in the place of the database's file calls.
#include "memory_files.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "app/app_directory.h"

const std::string kNoSuchFile = "(no such file)";

namespace {

struct Handle {
    std::shared_ptr<MemoryFile> file;
    uint64_t offset = 0;
    bool writes = false;
};

struct ArmedFault {
    Fault fault = Fault::none;
    int atCall = 0;
};

const FileAccess kSystemFiles = DatabaseFiles;
std::map<std::string, std::shared_ptr<MemoryFile>> disk;
std::vector<Handle> handles;
ArmedFault armed[2];
int calls = 0;
bool ended = false;
bool diskIsFull = false;
bool everythingHeld = false;
Fault endedBy = Fault::none;

}  // namespace

// Counts a call and answers the fault that strikes it, if one does.
static Fault NextCall() {
    if (ended) return Fault::endsBefore;
    ++calls;
    for (const ArmedFault& each : armed) {
        const int last = each.fault == Fault::heldBriefly ? each.atCall + 2 : each.atCall;
        if (each.fault == Fault::none || calls < each.atCall || calls > last) continue;
        if (each.fault == Fault::diskFull) diskIsFull = true;
        if (each.fault == Fault::held) everythingHeld = true;
        if (each.fault >= Fault::endsBefore) {
            ended = true;
            endedBy = each.fault;
        }
        return each.fault;
    }
    return Fault::none;
}

// The answer of a struck call that has no effect; ok when the call goes on.
static FileStatus Struck(Fault fault, bool opensOrNames) {
    if (fault == Fault::callFails) return FileStatus::failed;
    if (fault == Fault::endsBefore || fault == Fault::endsHalfway) return FileStatus::failed;
    const bool held = everythingHeld || fault == Fault::heldBriefly;
    return held && opensOrNames ? FileStatus::held : FileStatus::ok;
}

static Handle* Find(FileHandle file) {
    const size_t index = static_cast<size_t>(file);
    return index < handles.size() && handles[index].file ? &handles[index] : nullptr;
}

static FileStatus Open(const char* path, FileMode mode, FileHandle* file) {
    const FileStatus struck = Struck(NextCall(), true);
    if (struck != FileStatus::ok) return struck;
    const bool creates = mode == FileMode::createNew || mode == FileMode::createAlways;
    auto found = disk.find(path);
    if (!creates && found == disk.end()) return FileStatus::missing;
    if (mode == FileMode::createNew && found != disk.end()) return FileStatus::exists;
    if (creates) disk[path] = std::make_shared<MemoryFile>();
    std::shared_ptr<MemoryFile> opened = disk[path];
    ++opened->openHandles;
    handles.push_back({opened, 0, mode != FileMode::readShared});
    *file = static_cast<FileHandle>(handles.size() - 1);
    return FileStatus::ok;
}

static FileStatus Read(FileHandle file, void* data, uint32_t sizeBytes, uint32_t* readBytes) {
    const Fault fault = NextCall();
    const FileStatus struck = Struck(fault, false);
    if (struck != FileStatus::ok) return struck;
    Handle* handle = Find(file);
    if (!handle) return FileStatus::failed;
    if (fault == Fault::fallsShort) sizeBytes = (sizeBytes + 1) / 2;
    const std::string& bytes = handle->file->bytes;
    const uint64_t offset = std::min<uint64_t>(handle->offset, bytes.size());
    const uint64_t count = std::min<uint64_t>(sizeBytes, bytes.size() - offset);
    std::memcpy(data, bytes.data() + offset, static_cast<size_t>(count));
    handle->offset += count;
    *readBytes = static_cast<uint32_t>(count);
    return FileStatus::ok;
}

static void Put(Handle& handle, const void* data, uint32_t sizeBytes) {
    std::string& bytes = handle.file->bytes;
    const size_t offset = static_cast<size_t>(handle.offset);
    if (bytes.size() < offset + sizeBytes) bytes.resize(offset + sizeBytes);
    std::memcpy(bytes.data() + offset, data, sizeBytes);
    handle.offset += sizeBytes;
    handle.file->lastWrite = bytes.substr(offset, sizeBytes);
    handle.file->lastWriteAt = offset;
}

static FileStatus Write(FileHandle file, const void* data, uint32_t sizeBytes,
                        uint32_t* writtenBytes) {
    const bool wasFull = diskIsFull;
    const Fault fault = NextCall();
    Handle* handle = Find(file);
    if (handle && fault == Fault::endsHalfway) Put(*handle, data, sizeBytes / 2);
    const FileStatus struck = Struck(fault, false);
    if (struck != FileStatus::ok) return struck;
    if (!handle || !handle->writes) return FileStatus::failed;
    if (diskIsFull) {
        if (!wasFull) Put(*handle, data, sizeBytes / 2);
        return FileStatus::diskFull;
    }
    if (fault == Fault::fallsShort) sizeBytes /= 2;
    if (fault == Fault::writeLost) {
        handle->offset += sizeBytes;
    } else {
        Put(*handle, data, sizeBytes);
    }
    *writtenBytes = sizeBytes;
    return FileStatus::ok;
}

static FileStatus Seek(FileHandle file, uint64_t offset) {
    const FileStatus struck = Struck(NextCall(), false);
    Handle* handle = Find(file);
    if (struck != FileStatus::ok || !handle) return FileStatus::failed;
    handle->offset = offset;
    return FileStatus::ok;
}

static FileStatus Size(FileHandle file, uint64_t* sizeBytes) {
    const FileStatus struck = Struck(NextCall(), false);
    Handle* handle = Find(file);
    if (struck != FileStatus::ok || !handle) return FileStatus::failed;
    *sizeBytes = handle->file->bytes.size();
    return FileStatus::ok;
}

static FileStatus Flush(FileHandle file) {
    const FileStatus struck = Struck(NextCall(), false);
    Handle* handle = Find(file);
    if (struck != FileStatus::ok || !handle) return FileStatus::failed;
    handle->file->flushedBytes = handle->file->bytes;
    handle->file->lastWrite.clear();
    return FileStatus::ok;
}

static FileStatus Truncate(FileHandle file, uint64_t sizeBytes) {
    const FileStatus struck = Struck(NextCall(), false);
    Handle* handle = Find(file);
    if (struck != FileStatus::ok || !handle || !handle->writes) return FileStatus::failed;
    handle->file->bytes.resize(static_cast<size_t>(sizeBytes));
    return FileStatus::ok;
}

// A close that fails has still given the handle back.
static FileStatus Close(FileHandle file) {
    Handle* handle = Find(file);
    if (handle) {
        --handle->file->openHandles;
        handle->file.reset();
    }
    return Struck(NextCall(), false);
}

static FileStatus Rename(const char* from, const char* to) {
    const FileStatus struck = Struck(NextCall(), true);
    if (struck != FileStatus::ok) return struck;
    auto found = disk.find(from);
    if (found == disk.end()) return FileStatus::missing;
    if (disk.count(to) > 0) return FileStatus::exists;
    if (found->second->openHandles > 0) return FileStatus::held;
    disk[to] = found->second;
    disk.erase(from);
    return FileStatus::ok;
}

static FileStatus Remove(const char* path) {
    const FileStatus struck = Struck(NextCall(), true);
    if (struck != FileStatus::ok) return struck;
    auto found = disk.find(path);
    if (found == disk.end()) return FileStatus::missing;
    if (found->second->openHandles > 0) return FileStatus::held;
    disk.erase(found);
    return FileStatus::ok;
}

static FileStatus Exists(const char* path) {
    const FileStatus struck = Struck(NextCall(), false);
    if (struck != FileStatus::ok) return struck;
    return disk.count(path) > 0 ? FileStatus::ok : FileStatus::missing;
}

static void Pause(uint32_t) {}

void UseMemoryFiles() {
    DatabaseFiles = {Open,     Read,  Write,  Seek,   Size,   Flush,
                     Truncate, Close, Rename, Remove, Exists, Pause};
    AppDirectory.clear();
    StartOnDisk({});
}

void UseSystemFiles() {
    DatabaseFiles = kSystemFiles;
}

void StartOnDisk(const MemorySnapshot& snapshot) {
    disk.clear();
    handles.clear();
    for (const auto& [name, bytes] : snapshot) {
        disk[name] = std::make_shared<MemoryFile>(MemoryFile{bytes, bytes, {}, 0, 0});
    }
    ArmFault(Fault::none, 0);
}

MemorySnapshot DiskAfterEnd() {
    MemorySnapshot snapshot;
    for (const auto& [name, file] : disk) {
        std::string bytes = file->bytes;
        if (endedBy == Fault::powerLoss) bytes = file->flushedBytes;
        if (endedBy == Fault::powerLossInPart) {
            bytes = file->flushedBytes;
            bytes.resize(file->bytes.size());
            const size_t kept = std::min(file->lastWrite.size(),
                                         bytes.size() - std::min(bytes.size(), file->lastWriteAt));
            if (kept > 0) bytes.replace(file->lastWriteAt, kept, file->lastWrite, 0, kept);
        }
        snapshot[name] = bytes;
    }
    return snapshot;
}

void ArmFault(Fault fault, int atCall, Fault second, int secondAtCall) {
    armed[0] = {fault, atCall};
    armed[1] = {second, secondAtCall};
    calls = 0;
    ended = false;
    diskIsFull = false;
    everythingHeld = false;
    endedBy = Fault::none;
}

int CallsMade() {
    return calls;
}
bool ProgramEnded() {
    return ended;
}

int OpenHandles() {
    int count = 0;
    for (const Handle& handle : handles)
        count += handle.file ? 1 : 0;
    return count;
}

std::string FileBytes(const MemorySnapshot& snapshot, const std::string& name) {
    const auto found = snapshot.find(name);
    return found == snapshot.end() ? kNoSuchFile : found->second;
}
