// One disc of the database as bytes and as fields.
#include "database/disc_entry.h"

#include <algorithm>
#include <cstring>

#include "database/database_format.h"

static_assert(kMinEntryBytes == kTracksOffset + std::size(kEntryItems) + kTrailerBytes);

uint32_t DiscKey(uint16_t firstTrackSeconds, uint16_t totalSeconds) {
    return static_cast<uint32_t>(firstTrackSeconds) << 16 | totalSeconds;
}

static void AppendU16(std::vector<uint8_t>& bytes, uint16_t value) {
    uint8_t field[2];
    PutU16(field, value);
    bytes.insert(bytes.end(), field, field + sizeof field);
}

static void AppendU32(std::vector<uint8_t>& bytes, uint32_t value) {
    AppendU16(bytes, static_cast<uint16_t>(value));
    AppendU16(bytes, static_cast<uint16_t>(value >> 16));
}

static void AppendText(std::vector<uint8_t>& bytes, const std::string& text) {
    const size_t length = strnlen(text.c_str(), std::min<size_t>(text.size(), kMaxTextBytes));
    bytes.push_back(static_cast<uint8_t>(length));
    bytes.insert(bytes.end(), text.begin(), text.begin() + static_cast<ptrdiff_t>(length));
}

std::vector<uint8_t> EncodeEntry(const DiscToc& disc, const EntryFields& fields,
                                 uint32_t entryStart) {
    const int trackCount = std::min<int>(disc.trackCount, kMaxTracks);
    std::vector<uint8_t> bytes(kDiscKeyOffset);  // the pointers, known when the length is
    bytes.reserve(kMaxEntryBytes);
    AppendU32(bytes, DiscKey(disc.lengthSeconds[0], disc.totalSeconds));
    bytes.push_back(static_cast<uint8_t>(trackCount));
    for (int track = 0; track < trackCount; ++track) {
        AppendText(bytes, fields.trackNames[track]);
        AppendU16(bytes, disc.lengthSeconds[track]);
    }
    for (const EntryItem& item : kEntryItems) {
        if (item.text) {
            AppendText(bytes, fields.*item.text);
        } else {
            bytes.push_back(fields.*item.code);
        }
    }
    AppendU32(bytes, entryStart);

    const uint32_t sizeBytes = static_cast<uint32_t>(bytes.size());
    PutU32(bytes.data(), entryStart + sizeBytes);
    PutU16(bytes.data() + kEntrySizeOffset, static_cast<uint16_t>(sizeBytes - kNextOffsetBytes));
    return bytes;
}

namespace {

struct ByteCursor {
    const uint8_t* next;
    size_t left;
    bool cutShort;
};

}  // namespace

static const uint8_t* Take(ByteCursor& cursor, size_t sizeBytes) {
    if (cursor.cutShort || cursor.left < sizeBytes) {
        cursor.cutShort = true;
        return nullptr;
    }
    const uint8_t* taken = cursor.next;
    cursor.next += sizeBytes;
    cursor.left -= sizeBytes;
    return taken;
}

static uint8_t TakeU8(ByteCursor& cursor) {
    const uint8_t* field = Take(cursor, 1);
    return field ? *field : uint8_t{0};
}

static uint16_t TakeU16(ByteCursor& cursor) {
    const uint8_t* field = Take(cursor, 2);
    return field ? GetU16(field) : uint16_t{0};
}

static void TakeText(ByteCursor& cursor, std::string& text) {
    const size_t length = TakeU8(cursor);
    const char* stored = reinterpret_cast<const char*>(Take(cursor, length));
    text.assign(stored ? stored : "", stored ? strnlen(stored, length) : 0);
}

static void SkipText(ByteCursor& cursor) {
    Take(cursor, TakeU8(cursor));
}

// What the fields held keeps its memory: a walk over many discs would else spend its time on making
// 99 names anew for each.
DecodeResult DecodeEntry(const uint8_t* bytes, size_t sizeBytes, DiscToc& disc,
                         EntryFields& fields) {
    static const EntryFields kFirstValues;
    ByteCursor cursor = {bytes, sizeBytes, false};
    Take(cursor, kDiscKeyOffset);
    disc.totalSeconds = TakeU16(cursor);
    Take(cursor, 2);  // the first track's length stands in its record too
    const int trackCount = TakeU8(cursor);
    disc.trackCount = static_cast<uint16_t>(std::min(trackCount, kMaxTracks));
    for (int track = 0; track < disc.trackCount; ++track) {
        TakeText(cursor, fields.trackNames[track]);
        disc.lengthSeconds[track] = TakeU16(cursor);
    }
    for (int track = disc.trackCount; track < trackCount; ++track) {
        SkipText(cursor);
        Take(cursor, 2);
    }
    for (int track = disc.trackCount; track < kMaxTracks; ++track) {
        if (!fields.trackNames[track].empty()) fields.trackNames[track].clear();
        disc.lengthSeconds[track] = 0;
    }
    for (const EntryItem& item : kEntryItems) {
        if (item.text) {
            TakeText(cursor, fields.*item.text);
        } else {
            const uint8_t* code = Take(cursor, 1);
            fields.*item.code = code ? *code : kFirstValues.*item.code;
        }
    }
    return cursor.cutShort ? DecodeResult::kCutShort : DecodeResult::kWhole;
}
