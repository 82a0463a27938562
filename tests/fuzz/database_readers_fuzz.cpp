// Every question to a database of any bytes: answers are bounded, the file stays as it is, and no
// walk runs on for ever.
#include "cddb/database_file.h"
#include "cddb/database_format.h"
#include "cddb/disc_lookup.h"
#include "tests/cddb/memory_files.h"

static void Require(bool holds) {
    if (!holds) __builtin_trap();
}

static void AskAbout(uint32_t entryStart) {
    Require(ReadArtist(entryStart).size() <= 255);
    Require(ReadDiscName(entryStart).size() <= 255);
    for (const int track : {-1, 0, 1, 2, 99, 100, 255, 256}) {
        Require(ReadTrackName(entryStart, track).size() <= 255);
    }
    EntryFields fields;
    LoadEntryFields(entryStart, &fields);
    Require(fields.notes.size() <= 255);
    LoadEntryDisc(entryStart);
    Require(DatabaseDisc.trackCount <= kMaxTracks);
    // The disc of the entry itself, so that the comparison of the tracks is reached.
    if (FindDisc(DatabaseDisc.totalSeconds, DatabaseDisc.trackCount)) {
        Require(FoundEntryOffset >= kHeaderBytes);
    }
    Require(DiscTitleText().size() <= 513);
    Require(TrackNameText(DatabaseDisc.trackCount).size() <= 255);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const bool ready = (UseMemoryFiles(), true);
    Require(ready);
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    StartOnDisk({{kDatabaseName, bytes}});
    const uint32_t entryCount = DatabaseEntryCount();
    for (const uint32_t index : {0u, 1u, entryCount}) {
        const uint32_t entryStart = FindEntryOffset(index);
        Require(entryStart < size || entryStart == 0);
        AskAbout(entryStart);
    }
    Require(ReadArtist(UINT32_MAX).empty() && ReadTrackName(UINT32_MAX, 1).empty());
    Require(FileBytes(DiskAfterEnd(), kDatabaseName) == bytes);
    Require(CallsMade() < 3'000'000 && OpenHandles() == 0);
    return 0;
}
