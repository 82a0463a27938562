// Writing the database's header.
#include "database/database_format.h"

#include <cstring>

static FileStatus WriteAndFlush(FileHandle file, uint64_t offset, const uint8_t* data,
                                uint32_t sizeBytes) {
    const FileStatus status = WriteAt(file, offset, data, sizeBytes);
    return status == FileStatus::kOk ? FileCalls.flush(file) : status;
}

FileStatus WriteEntryCount(FileHandle file, uint32_t entryCount) {
    uint8_t field[2];
    PutU16(field, static_cast<uint16_t>(entryCount));
    return WriteAndFlush(file, kCountOffset, field, sizeof field);
}

FileStatus WriteEmptyHeader(FileHandle file) {
    uint8_t header[kHeaderBytes] = {};
    std::memcpy(header, kHeaderMark, sizeof kHeaderMark);
    return WriteAndFlush(file, 0, header, sizeof header);
}
