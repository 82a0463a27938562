// Writing the database's header. Both answer ok when the bytes have reached the disk.
#pragma once

#include <cstdint>

#include "base/file_access.h"

FileStatus WriteEntryCount(FileHandle file, uint32_t entryCount);

// The header of a database without entries.
FileStatus WriteEmptyHeader(FileHandle file);
