// check: every rule of the format, one line a fault.
#include <algorithm>

#include "companion/commands.h"
#include "database/database_format.h"

namespace {

// What was found: told line by line, or counted alone.
struct Faults {
    bool told;
    int count = 0;
};

// The entry that is looked at, as its pointers and its place say.
struct CheckedEntry {
    uint32_t number;  // from 1
    uint64_t start;
    std::vector<uint8_t> bytes;
};

// How an item is called here, and what its codes are.
struct ItemRule {
    EntryItem item;
    const char* name;
    uint32_t largestCode = 0;
};

// Reads an entry's contents; stops where the entry does.
struct ContentsReader {
    const CheckedEntry& entry;
    size_t position;
    bool shortOf = false;  // something was cut by the entry's end
};

}  // namespace

static constexpr ItemRule kItemRules[] = {
    {{&EntryFields::artist}, "the artist"},
    {{&EntryFields::discName}, "the disc name"},
    {{&EntryFields::category}, "the category"},
    {{&EntryFields::label}, "the label"},
    {{&EntryFields::notes}, "the notes"},
    {{nullptr, &EntryFields::recordingCode}, "the recording code", std::size(kRecordingWords) - 1},
    {{nullptr, &EntryFields::discType}, "the disc type", std::size(kTypeWords) - 1},
    {{nullptr, &EntryFields::discSize}, "the disc size", 1},
    {{&EntryFields::yearReleased}, "the year"},
};
static_assert(std::ranges::equal(kItemRules, kEntryItems, {}, &ItemRule::item));

static void TellFault(Faults& faults, uint64_t offset, const std::string& what) {
    ++faults.count;
    if (!faults.told) return;
    Print("offset " + std::to_string(offset) + ": " + what + "\n");
}

static void TellFault(Faults& faults, const CheckedEntry& entry, size_t position,
                      const std::string& what) {
    TellFault(faults, entry.start + position,
              "entry " + std::to_string(entry.number) + ": " + what);
}

static std::string Instead(const char* field, uint64_t value, uint64_t right) {
    return std::string(field) + " is " + std::to_string(value) + " instead of " +
           std::to_string(right);
}

static void CheckPointers(Faults& faults, const CheckedEntry& entry) {
    const size_t size = entry.bytes.size();
    const uint32_t next = GetU32(entry.bytes.data());
    const uint16_t entrySize = GetU16(entry.bytes.data() + kEntrySizeOffset);
    const uint32_t trailer = GetU32(entry.bytes.data() + size - kTrailerBytes);
    if (next != entry.start + size) {
        TellFault(faults, entry, 0, Instead("NextOffset", next, entry.start + size));
    }
    if (entrySize != size - kNextOffsetBytes) {
        TellFault(faults, entry, kEntrySizeOffset,
                  Instead("EntrySize", entrySize, size - kNextOffsetBytes));
    }
    if (trailer != entry.start) {
        TellFault(faults, entry, size - kTrailerBytes, Instead("EntryStart", trailer, entry.start));
    }
}

static size_t EndOfContents(const CheckedEntry& entry) {
    return entry.bytes.size() - kTrailerBytes;
}

static uint32_t TakeNumber(ContentsReader& reader, size_t sizeBytes) {
    if (reader.position + sizeBytes > EndOfContents(reader.entry)) {
        reader.shortOf = true;
        reader.position = EndOfContents(reader.entry);
        return 0;
    }
    const uint8_t* bytes = reader.entry.bytes.data() + reader.position;
    reader.position += sizeBytes;
    return sizeBytes == 1 ? bytes[0] : GetU16(bytes);
}

static void CheckText(Faults& faults, ContentsReader& reader, const std::string& field) {
    const size_t place = reader.position;
    const uint32_t length = TakeNumber(reader, 1);
    if (reader.shortOf) return;
    if (length > kMaxTextBytes) {
        TellFault(faults, reader.entry, place, field + " has " + std::to_string(length) + " bytes");
    }
    if (reader.position + length > EndOfContents(reader.entry)) {
        reader.shortOf = true;
        return;
    }
    const auto text = reader.entry.bytes.begin() + static_cast<std::ptrdiff_t>(reader.position);
    if (std::find(text, text + length, 0) != text + length) {
        TellFault(faults, reader.entry, place, field + " holds a zero byte, which ends it");
    }
    reader.position += length;
}

static void CheckCode(Faults& faults, ContentsReader& reader, const char* field, uint32_t largest) {
    const size_t place = reader.position;
    const uint32_t value = TakeNumber(reader, 1);
    if (!reader.shortOf && value > largest) {
        TellFault(faults, reader.entry, place, std::string(field) + " is " + std::to_string(value));
    }
}

// Names and lengths; they must add up to what the key says.
static void CheckTracks(Faults& faults, ContentsReader& reader) {
    const CheckedEntry& entry = reader.entry;
    const uint32_t count = TakeNumber(reader, 1);
    if (count < 1 || count > kMaxTracks) {
        TellFault(faults, entry, kTrackCountOffset, std::to_string(count) + " tracks");
    }
    uint32_t total = 0;
    uint32_t first = 0;
    for (uint32_t track = 1; track <= count && !reader.shortOf; ++track) {
        CheckText(faults, reader, "the name of track " + std::to_string(track));
        const uint32_t seconds = TakeNumber(reader, 2);
        if (track == 1) first = seconds;
        total += seconds;
    }
    if (reader.shortOf) return;
    const uint16_t storedTotal = GetU16(entry.bytes.data() + kDiscKeyOffset);
    const uint16_t storedFirst = GetU16(entry.bytes.data() + kDiscKeyOffset + 2);
    if (storedTotal != (total & 0xFFFF)) {
        TellFault(faults, entry, kDiscKeyOffset,
                  Instead("the key's total", storedTotal, total & 0xFFFF));
    }
    if (storedFirst != first) {
        TellFault(faults, entry, kDiscKeyOffset + 2,
                  Instead("the key's length of track 1", storedFirst, first));
    }
}

static void CheckContents(Faults& faults, const CheckedEntry& entry) {
    ContentsReader reader{entry, kTrackCountOffset};
    CheckTracks(faults, reader);
    for (const ItemRule& rule : kItemRules) {
        if (reader.shortOf) break;
        if (rule.item.text) {
            CheckText(faults, reader, rule.name);
        } else {
            CheckCode(faults, reader, rule.name, rule.largestCode);
        }
    }
    if (reader.shortOf) {
        TellFault(faults, entry, EndOfContents(entry), "the entry ends inside its contents");
    } else if (reader.position != EndOfContents(entry)) {
        TellFault(faults, entry, reader.position,
                  std::to_string(EndOfContents(entry) - reader.position) +
                      " bytes more than the contents need");
    }
}

// False when no two of the entry's three pointers say where it ends.
static bool ReadEntry(Catalogue& catalogue, CheckedEntry& entry) {
    uint64_t end = 0;
    if (!FindEntryEnd(catalogue.reader, entry.start, catalogue.sizeBytes, end)) return false;
    entry.bytes.resize(static_cast<size_t>(end - entry.start));
    catalogue.reader.position = entry.start;
    const auto size = static_cast<uint32_t>(entry.bytes.size());
    return ReadUpTo(catalogue.reader, entry.bytes.data(), size) == size;
}

// Where an entry follows, it is the mark that is damaged and not another kind of file.
static void CheckMark(Faults& faults, const Catalogue& catalogue) {
    if (catalogue.markIsRight) return;
    TellFault(faults, 0, "the six bytes that mark a catalogue are not FF 51 4D 52 00 0A");
}

// Leaves `entry` behind the last one that can be found.
static void CheckEntries(Faults& faults, Catalogue& catalogue, CheckedEntry& entry) {
    while (entry.number <= catalogue.entryCount && ReadEntry(catalogue, entry)) {
        if (entry.number == 1) CheckMark(faults, catalogue);
        CheckPointers(faults, entry);
        CheckContents(faults, entry);
        entry.start += entry.bytes.size();
        ++entry.number;
        ShowProgress("entry", entry.number, catalogue.entryCount);
    }
    ClearProgress();
}

static void CheckEnd(Faults& faults, const Catalogue& catalogue, const CheckedEntry& entry) {
    if (entry.number <= catalogue.entryCount) {
        TellFault(faults, entry.start,
                  "entry " + std::to_string(entry.number) + " of " +
                      std::to_string(catalogue.entryCount) +
                      " cannot be found, nor what follows it");
    } else if (entry.start != catalogue.sizeBytes) {
        TellFault(faults, entry.start,
                  std::to_string(catalogue.sizeBytes - entry.start) +
                      " bytes behind the last entry that is counted");
    }
}

bool IsFaultless(Catalogue& catalogue) {
    Faults faults{false};
    CheckedEntry entry{1, kHeaderBytes, {}};
    CheckEntries(faults, catalogue, entry);
    CheckEnd(faults, catalogue, entry);
    return faults.count == 0;
}

ExitCode CheckCatalogue(const CommonOptions& options) {
    Catalogue catalogue;
    if (const Refusal why = OpenCatalogue(catalogue, HeaderMark::kAny); !why.empty()) {
        return Fail(options.file, why);
    }
    Faults faults{true};
    CheckedEntry entry{1, kHeaderBytes, {}};
    CheckEntries(faults, catalogue, entry);
    const uint32_t read = entry.number - 1;
    if (read == 0 && !catalogue.markIsRight) {
        return Fail(options.file,
                    "this is no disc catalogue: neither its beginning nor a first entry "
                    "is there (salvage looks for discs in it all the same)");
    }
    CheckEnd(faults, catalogue, entry);
    Print(std::to_string(read) + " of " + std::to_string(catalogue.entryCount) + " entries, " +
          std::to_string(faults.count) + (faults.count == 1 ? " fault\n" : " faults\n"));
    return faults.count > 0 ? kFound : kDone;
}
