// Questions to the disc database.
#include "database/database_file.h"

#include <algorithm>
#include <vector>

#include "database/database_format.h"
#include "database/database_paths.h"
#include "database/database_recovery.h"
#include "database/database_walk.h"

DiscToc DatabaseDisc;
uint32_t FoundEntryOffset = 0;

void ResetDatabaseState() {
    DatabaseDisc = {};
    FoundEntryOffset = 0;
}

static FileStatus OpenDatabase(ScopedFile& file, WhenHeld whenHeld = WhenHeld::kGiveUp) {
    const std::string path = DatabasePath();
    return whenHeld == WhenHeld::kTryAgain
               ? OpenPatiently(path.c_str(), FileMode::kReadShared, file)
               : FileCalls.open(path.c_str(), FileMode::kReadShared, file.handle);
}

bool OpenDatabaseToRead(ScopedFile& file) {
    return OpenDatabase(file, WhenHeld::kTryAgain) == FileStatus::kOk;
}

static FileStatus CreateEmptyDatabase() {
    const std::string path = DatabasePath();
    ScopedFile file;
    const FileStatus created = FileCalls.open(path.c_str(), FileMode::kCreateNew, file.handle);
    if (created != FileStatus::kOk) return created;
    const FileStatus written = WriteEmptyHeader(file.handle);
    CloseFile(file);
    if (written != FileStatus::kOk) FileCalls.remove(path.c_str());
    return written;
}

FileStatus OpenEnsuredDatabase(ScopedFile& file, WhenHeld whenHeld) {
    FileStatus status = OpenDatabase(file, whenHeld);
    if (status != FileStatus::kMissing) return status;
    // An empty file in the place of a database that waits under its backup name would hide it.
    status = FileCalls.exists(BackupPath().c_str());
    if (status == FileStatus::kOk) {
        RecoverDatabase();
    } else if (status != FileStatus::kMissing) {
        return status;
    } else {
        status = CreateEmptyDatabase();
        if (status != FileStatus::kOk && status != FileStatus::kExists) return status;
    }
    return OpenDatabase(file, whenHeld);
}

void EnsureDatabase() {
    ScopedFile file;
    OpenEnsuredDatabase(file);
}

static DatabaseResult CountEntries(WhenHeld whenHeld, uint16_t& entryCount) {
    entryCount = 0;
    ScopedFile file;
    const FileStatus opened = OpenDatabase(file, whenHeld);
    if (opened == FileStatus::kMissing) return DatabaseResult::kOk;
    if (opened != FileStatus::kOk) return OpenResult(opened);
    WindowReader reader;
    StartReading(reader, file.handle);
    ReadEntryCount(reader, entryCount);
    return reader.failed ? DatabaseResult::kReadFailed : DatabaseResult::kOk;
}

uint16_t DatabaseEntryCount() {
    uint16_t entryCount = 0;
    CountEntries(WhenHeld::kGiveUp, entryCount);
    return entryCount;
}

DatabaseResult ReadDatabaseEntryCount(uint16_t& entryCount) {
    return CountEntries(WhenHeld::kTryAgain, entryCount);
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

std::string ReadTrackName(WindowReader& reader, uint32_t entryStart, int trackNumber) {
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

std::string TitleOf(const std::string& artist, const std::string& discName) {
    return artist + " - " + discName;
}

std::string ReadTitle(WindowReader& reader, uint32_t entryStart) {
    const std::string artist = Artist(reader, entryStart);
    std::string discName;
    ReadText(reader, discName);
    return TitleOf(artist, discName);
}

std::string ReadTrackName(uint32_t entryStart, int trackNumber) {
    ScopedFile file;
    if (OpenDatabase(file) != FileStatus::kOk) return {};
    WindowReader reader;
    StartReading(reader, file.handle);
    return ReadTrackName(reader, entryStart, trackNumber);
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

// EntrySize says how much is read at first, so that a walk over the entries goes straight on; an
// entry whose size is damaged is read on window by window until it is whole.
DecodeResult ReadEntry(WindowReader& reader, uint32_t entryStart, DiscToc& disc,
                       EntryFields& fields) {
    EntryHeader header;
    if (!ReadEntryHeader(reader, entryStart, header)) {
        disc = {};
        fields = {};
        return DecodeResult::kCutShort;
    }
    reader.position = entryStart;
    uint32_t wanted =
        std::clamp(kNextOffsetBytes + header.entrySize, kMinEntryBytes, kMaxEntryBytes);
    const uint8_t* inWindow = PeekInWindow(reader, wanted);
    if (inWindow && DecodeEntry(inWindow, wanted, disc, fields) == DecodeResult::kWhole) {
        reader.position += wanted;
        return DecodeResult::kWhole;
    }
    std::vector<uint8_t> bytes;
    DecodeResult result = DecodeResult::kCutShort;
    uint32_t readBytes = wanted;
    while (result == DecodeResult::kCutShort && readBytes == wanted) {
        if (!bytes.empty()) wanted = kFirstWindowBytes;
        const size_t before = bytes.size();
        bytes.resize(before + wanted);
        readBytes = ReadUpTo(reader, bytes.data() + before, wanted);
        bytes.resize(before + readBytes);
        result = DecodeEntry(bytes.data(), bytes.size(), disc, fields);
    }
    return result;
}

static bool LoadEntry(uint32_t entryStart, DiscToc& disc, EntryFields& fields) {
    disc = {};
    fields = {};
    ScopedFile file;
    if (!OpenDatabaseToRead(file)) return false;
    WindowReader reader;
    StartReading(reader, file.handle);
    return ReadEntry(reader, entryStart, disc, fields) == DecodeResult::kWhole;
}

bool LoadEntryFields(uint32_t entryStart, EntryFields& fields) {
    DiscToc disc;
    return LoadEntry(entryStart, disc, fields);
}

bool LoadEntryDisc(uint32_t entryStart) {
    EntryFields fields;
    return LoadEntry(entryStart, DatabaseDisc, fields);
}

DatabaseResult LoadNumberedEntry(uint32_t entryIndex, NumberedEntry& entry) {
    entry = {};
    ScopedFile file;
    const FileStatus opened = OpenDatabase(file, WhenHeld::kTryAgain);
    if (opened != FileStatus::kOk) return OpenResult(opened);
    WindowReader reader;
    StartReading(reader, file.handle);
    uint64_t sizeBytes = 0;
    uint64_t entryEnd = 0;
    // Where a damaged pointer leads, anything may read like an entry, but its ends do not agree.
    if (FileCalls.size(file.handle, sizeBytes) != FileStatus::kOk)
        return DatabaseResult::kReadFailed;
    if (!StepToEntry(reader, entryIndex, entry.start) ||
        ReadEntry(reader, entry.start, entry.disc, entry.fields) != DecodeResult::kWhole ||
        !FindEntryEnd(reader, entry.start, sizeBytes, entryEnd)) {
        return reader.failed ? DatabaseResult::kReadFailed : DatabaseResult::kDamaged;
    }
    return DatabaseResult::kOk;
}

DatabaseTotals SumDatabase() {
    DatabaseTotals totals;
    ScopedFile file;
    if (!OpenDatabaseToRead(file)) return totals;
    WindowReader reader;
    StartReading(reader, file.handle);
    ReadEntryCount(reader, totals.entries);
    uint32_t entryStart = kHeaderBytes;
    for (uint32_t i = 0; i < totals.entries; ++i) {
        EntryHeader header;
        uint8_t trackCount = 0;
        if (!ReadEntryHeader(reader, entryStart, header) || !ReadU8(reader, trackCount)) break;
        totals.seconds += header.totalSeconds;
        totals.tracks += trackCount;
        if (header.nextOffset <= entryStart) break;
        entryStart = header.nextOffset;
    }
    return totals;
}
