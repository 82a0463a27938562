// Copies or moves one file through the file calls; has no face of its own.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

enum class CopyResult {
    kDone,
    kDeclined,    // there is a file of the target's name, and it stays; or no memory
    kOverItself,  // source and target are one file, whatever they are called
    kUnreadable,  // the source cannot be opened, or not be read to its end
    kFailed,      // the target is not the whole source; it stays as far as it was written
    kNotRemoved,  // moved, but the source could not be deleted
};

// What the copy tells and asks meanwhile.
struct CopyWatcher {
    std::function<bool()> mayOverwrite;  // asked at most once, before anything is written
    std::function<void()> started;       // the target is open
    // Twice for each block, before and after it is read.
    std::function<void(uint64_t doneBytes, uint64_t totalBytes)> step;
};

// The target gets the source's last-write time where that can be set.
CopyResult CopyOneFile(const std::string& source, const std::string& target,
                       const CopyWatcher& watcher);

// The same, then deletes the source, but only when every byte of it has reached the target's disk.
CopyResult MoveOneFile(const std::string& source, const std::string& target,
                       const CopyWatcher& watcher);
