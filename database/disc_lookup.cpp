// Recognises a disc by its table of contents.
#include "database/disc_lookup.h"

#include <algorithm>

#include "database/database_file.h"
#include "database/database_format.h"
#include "database/database_paths.h"
#include "database/database_walk.h"

void CopyDiscToc(const DiscToc& disc) {
    DatabaseDisc = disc;
    DatabaseDisc.trackCount = std::min<uint16_t>(disc.trackCount, kMaxTracks);
}

// The reader stands before the entry's TrackCount.
static bool TracksMatch(WindowReader& reader, uint16_t trackCount) {
    uint8_t storedCount = 0;
    if (!ReadU8(reader, storedCount) || storedCount != trackCount || trackCount > kMaxTracks) {
        return false;
    }
    for (int track = 0; track < trackCount; ++track) {
        uint16_t lengthSeconds = 0;
        if (!SkipText(reader) || !ReadU16(reader, lengthSeconds) ||
            lengthSeconds != DatabaseDisc.lengthSeconds[track]) {
            return false;
        }
    }
    return true;
}

static uint32_t FindEntry(WindowReader& reader, uint16_t totalSeconds, uint16_t trackCount) {
    const uint32_t key = DiscKey(DatabaseDisc.lengthSeconds[0], totalSeconds);
    uint16_t entryCount = 0;
    if (!ReadEntryCount(reader, entryCount)) return 0;
    uint32_t entryStart = kHeaderBytes;
    for (uint32_t i = 0; i < entryCount; ++i) {
        EntryHeader header;
        if (!ReadEntryHeader(reader, entryStart, header)) return 0;
        if (DiscKey(header.firstTrackSeconds, header.totalSeconds) == key &&
            TracksMatch(reader, trackCount)) {
            return entryStart;
        }
        if (header.nextOffset <= entryStart) return 0;
        entryStart = header.nextOffset;
    }
    return 0;
}

uint32_t FindDiscEntry(FileHandle file) {
    WindowReader reader;
    StartReading(reader, file, kUnknownOffset);
    return FindEntry(reader, DatabaseDisc.totalSeconds, DatabaseDisc.trackCount);
}

DatabaseResult LookUpDisc(uint16_t totalSeconds, uint16_t trackCount, WhenHeld whenHeld) {
    FoundEntryOffset = 0;
    ScopedFile file;
    const FileStatus opened = OpenEnsuredDatabase(file, whenHeld);
    if (opened != FileStatus::kOk) return OpenResult(opened);
    WindowReader reader;
    StartReading(reader, file.handle);
    FoundEntryOffset = FindEntry(reader, totalSeconds, trackCount);
    const bool answered = FoundEntryOffset != 0 || !reader.failed;
    return answered ? DatabaseResult::kOk : DatabaseResult::kReadFailed;
}

bool FindDisc(uint16_t totalSeconds, uint16_t trackCount) {
    LookUpDisc(totalSeconds, trackCount);
    return FoundEntryOffset != 0;
}

// The texts create no file. Whoever may only read the catalogue is shown them too.
static bool OpenAtDisc(ScopedFile& file, WindowReader& reader) {
    FoundEntryOffset = 0;
    const std::string path = DatabasePath();
    if (FileCalls.open(path.c_str(), FileMode::kReadWriteShared, file.handle) != FileStatus::kOk &&
        FileCalls.open(path.c_str(), FileMode::kReadShared, file.handle) != FileStatus::kOk) {
        return false;
    }
    StartReading(reader, file.handle);
    FoundEntryOffset = FindEntry(reader, DatabaseDisc.totalSeconds, DatabaseDisc.trackCount);
    return FoundEntryOffset != 0;
}

std::string DiscTitleText() {
    ScopedFile file;
    WindowReader reader;
    return OpenAtDisc(file, reader) ? ReadTitle(reader, FoundEntryOffset) : std::string();
}

std::string TrackNameText(int trackNumber) {
    ScopedFile file;
    WindowReader reader;
    return OpenAtDisc(file, reader) ? ReadTrackName(reader, FoundEntryOffset, trackNumber)
                                    : std::string();
}
