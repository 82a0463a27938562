// See database_stamp.h.
#include "database_dialogs/database_stamp.h"

#include <windows.h>

#include "database/database_paths.h"

static uint64_t Joined(DWORD high, DWORD low) {
    return static_cast<uint64_t>(high) << 32 | low;
}

DatabaseStamp StampOfDatabase() {
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    if (!GetFileAttributesExA(DatabasePath().c_str(), GetFileExInfoStandard, &data)) return {};
    return {Joined(data.nFileSizeHigh, data.nFileSizeLow),
            Joined(data.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwLowDateTime)};
}
