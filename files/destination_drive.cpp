// The disk half of where copied and moved files go.
#include "files/destination_drive.h"

#include <windows.h>

#include "files/path_check.h"

constexpr size_t kRootLength = 3;

uint64_t FreeBytes(const std::string& path) {
    if (path.empty() || path[0] < 'a' || path[0] > 'z') return 0;
    const std::string root = {path[0], ':', '\\'};
    DWORD sectorsPerCluster = 0;
    DWORD bytesPerSector = 0;
    DWORD freeClusters = 0;
    DWORD clusters = 0;
    if (!GetDiskFreeSpaceA(root.c_str(), &sectorsPerCluster, &bytesPerSector, &freeClusters,
                           &clusters)) {
        return 0;
    }
    return static_cast<uint64_t>(freeClusters) * sectorsPerCluster * bytesPerSector;
}

bool IsDirectoryThere(const std::string& directory) {
    std::string entered;
    return TryDirectory(directory, entered);
}

DirectoryWalk CreateMissingDirectories(const std::string& directory,
                                       bool (*mayCreate)(const std::string& missing)) {
    std::string path = directory;
    CharUpperA(path.data());
    for (size_t end = path.find('\\', kRootLength); end != std::string::npos;
         end = path.find('\\', end + 1)) {
        const std::string prefix = path.substr(0, end);
        if (IsDirectoryThere(prefix)) continue;
        if (!mayCreate(prefix)) return DirectoryWalk::kDeclined;
        if (!CreateDirectoryA(prefix.c_str(), nullptr)) return DirectoryWalk::kImpossible;
    }
    return DirectoryWalk::kDone;
}
