// One disc of the database as bytes and as fields.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "disc/disc_toc.h"

// What the codes stand for, from 0. The sizes are written in two ways, so each writer has its own.
inline constexpr const char* kRecordingWords[] = {"AAD", "ADD", "DAD", "DDD"};
inline constexpr const char* kTypeWords[] = {"Album", "Single", "CD+MM", "CD+Video"};

// What the user names about a disc. Texts are bytes of the system's code page. The codes are kept
// as stored, so that any value can be here.
struct EntryFields {
    std::string trackNames[kMaxTracks];  // element 0 is track 1
    std::string artist;
    std::string discName;
    std::string category;
    std::string label;
    std::string notes;  // lines end in CR LF
    std::string yearReleased;
    uint8_t recordingCode = 0;  // kRecordingWords
    uint8_t discType = 0;       // kTypeWords
    uint8_t discSize = 1;       // 0 three inch, 1 five inch

    bool operator==(const EntryFields&) const = default;
};

// A disc as the catalogue knows it.
struct Disc {
    DiscToc toc;
    EntryFields fields;

    bool operator==(const Disc&) const = default;
};

// What follows the track records, in the file's order, a text or a code each. Whoever encodes,
// decodes, steps over, searches or exports an entry goes by it.
struct EntryItem {
    std::string EntryFields::*text;
    uint8_t EntryFields::*code = nullptr;

    bool operator==(const EntryItem&) const = default;
};
inline constexpr EntryItem kEntryItems[] = {
    {&EntryFields::artist},
    {&EntryFields::discName},
    {&EntryFields::category},
    {&EntryFields::label},
    {&EntryFields::notes},
    {nullptr, &EntryFields::recordingCode},
    {nullptr, &EntryFields::discType},
    {nullptr, &EntryFields::discSize},
    {&EntryFields::yearReleased},
};

// High half: length of track 1 in seconds; low half: the disc's total.
uint32_t DiscKey(uint16_t firstTrackSeconds, uint16_t totalSeconds);

// The whole entry, pointers included, as it stands in the file from entryStart on; at most
// kMaxEntryBytes. Texts end at a zero byte or after kMaxTextBytes; at most 99 tracks are written.
std::vector<uint8_t> EncodeEntry(const DiscToc& disc, const EntryFields& fields,
                                 uint32_t entryStart);

enum class DecodeResult {
    kWhole,
    kCutShort,  // the bytes end before the entry does
};

// The bytes begin at an entry's start and may reach beyond it. The pointers are not looked at.
// Fills everything anew; of an entry cut short, what is there. Tracks beyond the 99th are stepped
// over.
DecodeResult DecodeEntry(const uint8_t* bytes, size_t sizeBytes, DiscToc& disc,
                         EntryFields& fields);
