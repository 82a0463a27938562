// Copies or moves one file through the file calls.
#include "files/file_copy.h"

#include <memory>
#include <new>

#include "base/file_access.h"

constexpr uint32_t kCopyBlockBytes = 65534;
// One byte is never read into.
constexpr size_t kBufferBytes = kCopyBlockBytes + 1;

enum class AfterCopy { kKeepSource, kRemoveSource };

namespace {

struct Source {
    ScopedFile file;
    bool guarded = false;  // nobody, this program included, can open it for writing meanwhile
    FileFacts facts;
    uint64_t totalBytes = 0;
};

enum class TargetState { kAbsent, kPresent, kIsSource, kImpossible };

}  // namespace

static bool OpenSource(const std::string& path, Source& source) {
    FileHandle& handle = source.file.handle;
    source.guarded =
        FileCalls.open(path.c_str(), FileMode::kReadGuarded, handle) == FileStatus::kOk;
    if (!source.guarded &&
        FileCalls.open(path.c_str(), FileMode::kReadShared, handle) != FileStatus::kOk) {
        return false;
    }
    // Where the system tells nothing about a file, its copy has no time stamp.
    FileCalls.facts(handle, source.facts);
    return FileCalls.size(handle, source.totalBytes) == FileStatus::kOk;
}

// Creating the target empties it, so it must not be the source under another name.
static TargetState LookAtTarget(const std::string& path, const Source& source) {
    ScopedFile target;
    const FileStatus status = FileCalls.open(path.c_str(), FileMode::kReadShared, target.handle);
    if (status == FileStatus::kMissing) return TargetState::kAbsent;
    FileFacts facts;
    const bool told =
        status == FileStatus::kOk && FileCalls.facts(target.handle, facts) == FileStatus::kOk;
    if (told && !facts.onDisk) return TargetState::kImpossible;
    if (told && facts.index != 0 && source.facts.index != 0) {
        const bool same = facts.volume == source.facts.volume && facts.index == source.facts.index;
        return same ? TargetState::kIsSource : TargetState::kPresent;
    }
    // Nothing tells the two apart. Of a guarded source creation fails by itself.
    return source.guarded ? TargetState::kPresent : TargetState::kImpossible;
}

// Reads to the end of the source. Done only when what arrived is as long as the source was at
// first; a source that grows is given up, however long it would go on.
static CopyResult CopyBlocks(const Source& source, FileHandle target, uint8_t* buffer,
                             const CopyWatcher& watcher) {
    uint64_t doneBytes = 0;
    for (;;) {
        watcher.step(doneBytes, source.totalBytes);
        uint32_t readBytes = 0;
        if (FileCalls.read(source.file.handle, buffer, kCopyBlockBytes, readBytes) !=
            FileStatus::kOk) {
            return CopyResult::kUnreadable;
        }
        doneBytes += readBytes;
        watcher.step(doneBytes, source.totalBytes);
        if (readBytes == 0) break;
        uint32_t writtenBytes = 0;
        if (FileCalls.write(target, buffer, readBytes, writtenBytes) != FileStatus::kOk ||
            writtenBytes != readBytes || doneBytes > source.totalBytes) {
            return CopyResult::kFailed;
        }
    }
    return doneBytes == source.totalBytes ? CopyResult::kDone : CopyResult::kFailed;
}

static CopyResult WriteTarget(const Source& source, const std::string& path, AfterCopy after,
                              const CopyWatcher& watcher) {
    const std::unique_ptr<uint8_t[]> buffer(new (std::nothrow) uint8_t[kBufferBytes]());
    if (!buffer) return CopyResult::kDeclined;
    ScopedFile target;
    FileFacts facts;
    if (FileCalls.open(path.c_str(), FileMode::kCreateAlways, target.handle) != FileStatus::kOk ||
        FileCalls.facts(target.handle, facts) != FileStatus::kOk || !facts.onDisk) {
        return CopyResult::kFailed;
    }
    watcher.started();
    const CopyResult result = CopyBlocks(source, target.handle, buffer.get(), watcher);
    if (result != CopyResult::kDone) return result;
    if (source.facts.lastWrite != 0) FileCalls.setLastWrite(target.handle, source.facts.lastWrite);
    const bool kept =
        after == AfterCopy::kKeepSource || FileCalls.flush(target.handle) == FileStatus::kOk;
    const bool closed = CloseFile(target) == FileStatus::kOk;
    return kept && closed ? CopyResult::kDone : CopyResult::kFailed;
}

static CopyResult Copy(const std::string& sourcePath, const std::string& targetPath,
                       AfterCopy after, const CopyWatcher& watcher) {
    if (sourcePath == targetPath) return CopyResult::kOverItself;
    Source source;
    if (!OpenSource(sourcePath, source)) return CopyResult::kUnreadable;
    switch (LookAtTarget(targetPath, source)) {
        case TargetState::kIsSource:
            return CopyResult::kOverItself;
        case TargetState::kImpossible:
            return CopyResult::kFailed;
        case TargetState::kPresent:
            if (!watcher.mayOverwrite()) return CopyResult::kDeclined;
            break;
        case TargetState::kAbsent:
            break;
    }
    return WriteTarget(source, targetPath, after, watcher);
}

CopyResult CopyOneFile(const std::string& source, const std::string& target,
                       const CopyWatcher& watcher) {
    return Copy(source, target, AfterCopy::kKeepSource, watcher);
}

CopyResult MoveOneFile(const std::string& source, const std::string& target,
                       const CopyWatcher& watcher) {
    const CopyResult result = Copy(source, target, AfterCopy::kRemoveSource, watcher);
    if (result != CopyResult::kDone) return result;
    return FileCalls.remove(source.c_str()) == FileStatus::kOk ? CopyResult::kDone
                                                               : CopyResult::kNotRemoved;
}
