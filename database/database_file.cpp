// Questions to the disc database.
#include "database/database_file.h"

#include <vector>

#include "database/database_format.h"
#include "database/database_paths.h"
#include "database/database_recovery.h"
#include "database/database_walk.h"

DiscToc DatabaseDisc;

static FileStatus OpenDatabase(ScopedFile& file, WhenHeld whenHeld = WhenHeld::kGiveUp) {
    const std::string path = DatabasePath();
    return whenHeld == WhenHeld::kTryAgain
               ? OpenPatiently(path.c_str(), FileMode::kReadShared, file)
               : FileCalls.open(path.c_str(), FileMode::kReadShared, file.handle);
}

static void CreateEmptyDatabase() {
    const std::string path = DatabasePath();
    ScopedFile file;
    if (FileCalls.open(path.c_str(), FileMode::kCreateNew, file.handle) != FileStatus::kOk) {
        return;
    }
    const bool written = WriteEmptyHeader(file.handle) == FileStatus::kOk;
    CloseFile(file);
    if (!written) FileCalls.remove(path.c_str());
}

bool OpenEnsuredDatabase(ScopedFile& file, WhenHeld whenHeld) {
    const FileStatus status = OpenDatabase(file, whenHeld);
    if (status != FileStatus::kMissing) return status == FileStatus::kOk;
    // An empty file in the place of a database that waits under its backup name would hide it.
    const FileStatus backup = FileCalls.exists(BackupPath().c_str());
    if (backup == FileStatus::kOk) {
        RecoverDatabase();
    } else if (backup == FileStatus::kMissing) {
        CreateEmptyDatabase();
    }
    return OpenDatabase(file, whenHeld) == FileStatus::kOk;
}

void EnsureDatabase() {
    ScopedFile file;
    OpenEnsuredDatabase(file);
}

uint16_t DatabaseEntryCount() {
    ScopedFile file;
    if (OpenDatabase(file) != FileStatus::kOk) return 0;
    WindowReader reader;
    StartReading(reader, file.handle);
    uint16_t entryCount = 0;
    return ReadEntryCount(reader, entryCount) ? entryCount : uint16_t{0};
}

uint32_t FindEntryOffset(uint32_t entryIndex) {
    ScopedFile file;
    if (OpenDatabase(file) != FileStatus::kOk) return 0;
    WindowReader reader;
    StartReading(reader, file.handle);
    uint32_t entryStart = 0;
    EntryHeader header;
    if (!StepToEntry(reader, entryIndex, entryStart)) return 0;
    return ReadEntryHeader(reader, entryStart, header) ? entryStart : 0;
}

static std::string TrackName(WindowReader& reader, uint32_t entryStart, int trackNumber) {
    reader.position = uint64_t{entryStart} + kTrackCountOffset;
    uint8_t trackCount = 0;
    if (!ReadU8(reader, trackCount) || trackNumber < 1 || trackNumber > trackCount) return {};
    for (int track = 1; track < trackNumber; ++track) {
        if (!SkipText(reader)) return {};
        reader.position += 2;
    }
    std::string name;
    ReadText(reader, name);
    return name;
}

static std::string Artist(WindowReader& reader, uint32_t entryStart) {
    reader.position = uint64_t{entryStart} + kTrackCountOffset;
    std::string artist;
    if (SkipTracks(reader)) ReadText(reader, artist);
    return artist;
}

std::string ReadTitle(FileHandle file, uint32_t entryStart) {
    WindowReader reader;
    StartReading(reader, file, kUnknownOffset);
    const std::string artist = Artist(reader, entryStart);
    std::string discName;
    ReadText(reader, discName);
    return artist + " - " + discName;
}

std::string ReadTrackName(FileHandle file, uint32_t entryStart, int trackNumber) {
    WindowReader reader;
    StartReading(reader, file, kUnknownOffset);
    return TrackName(reader, entryStart, trackNumber);
}

std::string ReadTrackName(uint32_t entryStart, int trackNumber) {
    ScopedFile file;
    if (OpenDatabase(file) != FileStatus::kOk) return {};
    return ReadTrackName(file.handle, entryStart, trackNumber);
}

std::string ReadArtist(uint32_t entryStart) {
    ScopedFile file;
    if (OpenDatabase(file) != FileStatus::kOk) return {};
    WindowReader reader;
    StartReading(reader, file.handle);
    return Artist(reader, entryStart);
}

std::string ReadDiscName(uint32_t entryStart) {
    ScopedFile file;
    if (OpenDatabase(file) != FileStatus::kOk) return {};
    WindowReader reader;
    StartReading(reader, file.handle);
    reader.position = uint64_t{entryStart} + kTrackCountOffset;
    std::string discName;
    if (SkipTracks(reader) && SkipText(reader)) ReadText(reader, discName);
    return discName;
}

// Reads on window by window until the entry is whole; EntrySize is not asked, because an entry
// whose size is damaged can still be read.
static bool LoadEntry(uint32_t entryStart, DiscToc& disc, EntryFields& fields) {
    disc = {};
    fields = {};
    ScopedFile file;
    if (OpenDatabase(file, WhenHeld::kTryAgain) != FileStatus::kOk) return false;
    WindowReader reader;
    StartReading(reader, file.handle);
    reader.position = entryStart;
    std::vector<uint8_t> bytes;
    DecodeResult result = DecodeResult::kCutShort;
    uint32_t readBytes = kWindowBytes;
    while (result == DecodeResult::kCutShort && readBytes == kWindowBytes) {
        const size_t before = bytes.size();
        bytes.resize(before + kWindowBytes);
        readBytes = ReadUpTo(reader, bytes.data() + before, kWindowBytes);
        bytes.resize(before + readBytes);
        result = DecodeEntry(bytes.data(), bytes.size(), disc, fields);
    }
    return result == DecodeResult::kWhole;
}

bool LoadEntryFields(uint32_t entryStart, EntryFields& fields) {
    DiscToc disc;
    return LoadEntry(entryStart, disc, fields);
}

bool LoadEntryDisc(uint32_t entryStart) {
    EntryFields fields;
    return LoadEntry(entryStart, DatabaseDisc, fields);
}
