// Whether the database file has been written since somebody looked.
#pragma once

#include <cstdint>

struct DatabaseStamp {
    uint64_t sizeBytes = 0;
    uint64_t writtenAt = 0;  // in the system's own units

    bool operator==(const DatabaseStamp&) const = default;
};

// Zeros for a file that is not there.
DatabaseStamp StampOfDatabase();
