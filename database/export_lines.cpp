// See export_lines.h.
#include "database/export_lines.h"

#include <algorithm>
#include <charconv>
#include <span>
#include <string_view>
#include <utility>

#include "disc/disc_times.h"

constexpr std::string_view kLineEnd = "\r\n";

constexpr const char* kSizeWords[] = {"3 Inch", "5 Inch"};

static const char* Word(std::span<const char* const> words, uint8_t code) {
    return words[std::min<size_t>(code, words.size() - 1)];
}

// The fields of the disc as a whole, all but its length and its tracks.
static std::string_view DiscText(const EntryFields& fields, ExportItem item) {
    switch (item) {
        case kExportArtist:
            return fields.artist;
        case kExportDiscName:
            return fields.discName;
        case kExportCategory:
            return fields.category;
        case kExportLabel:
            return fields.label;
        case kExportNotes:
            return fields.notes;
        case kExportRecording:
            return Word(kRecordingWords, fields.recordingCode);
        case kExportType:
            return Word(kTypeWords, fields.discType);
        case kExportSize:
            return Word(kSizeWords, fields.discSize);
        case kExportYearReleased:
            return fields.yearReleased;
        default:
            return {};
    }
}

static bool HasLength(const DiscToc& disc, const ExportItems& items) {
    return items[kExportDiscLength] && disc.totalSeconds != 0;
}

namespace {

// A text under construction. Room for all of it is made before, because growing piece by piece
// costs more than the pieces.
struct Lines {
    std::string text;
    char* end;
};

}  // namespace

// No text of a disc is longer: its own texts, and numbers, lengths and marks around each.
static Lines StartLines(const DiscToc& disc, const EntryFields& fields) {
    constexpr size_t kAround = 32;
    size_t sizeBytes = kAround * (kExportItemCount + disc.trackCount);
    for (const EntryItem& item : kEntryItems)
        sizeBytes += item.text ? (fields.*item.text).size() : 0;
    for (int track = 0; track < disc.trackCount; ++track)
        sizeBytes += fields.trackNames[track].size();
    Lines lines = {std::string(sizeBytes, '\0'), nullptr};
    lines.end = lines.text.data();
    return lines;
}

static std::string FinishLines(Lines& lines) {
    lines.text.resize(static_cast<size_t>(lines.end - lines.text.data()));
    return std::move(lines.text);
}

static void Put(Lines& lines, char character) {
    *lines.end++ = character;
}

static void Put(Lines& lines, std::string_view text) {
    lines.end = std::copy(text.begin(), text.end(), lines.end);
}

static void PutNumber(Lines& lines, int number) {
    lines.end = std::to_chars(lines.end, lines.end + 8, number).ptr;
}

static void AddPlainTrack(Lines& lines, const DiscToc& disc, const EntryFields& fields,
                          const ExportItems& items, int track) {
    const bool hasNumber = items[kExportTrackNumber];
    const bool hasName = items[kExportTrackName];
    if (hasNumber) PutNumber(lines, track + 1);
    if (hasNumber && hasName) Put(lines, ' ');
    if (hasName) Put(lines, fields.trackNames[track]);
    if (items[kExportTrackLength]) {
        if (hasNumber || hasName) Put(lines, ' ');
        Put(lines, MinutesSecondsText(disc.lengthSeconds[track]));
    }
    Put(lines, kLineEnd);
}

std::string PlainLines(const DiscToc& disc, const EntryFields& fields, const ExportItems& items) {
    Lines lines = StartLines(disc, fields);
    const auto addLine = [&](ExportItem item) {
        if (!items[item]) return;
        Put(lines, DiscText(fields, item));
        Put(lines, kLineEnd);
    };
    addLine(kExportArtist);
    if (items[kExportDiscName]) {
        Put(lines, fields.discName);
        Put(lines, HasLength(disc, items) ? " " : kLineEnd);
    }
    if (HasLength(disc, items)) {
        Put(lines, MinutesSecondsText(disc.totalSeconds));
        Put(lines, kLineEnd);
    }
    if (items[kExportTrackNumber] || items[kExportTrackName] || items[kExportTrackLength]) {
        for (int track = 0; track < disc.trackCount; ++track)
            AddPlainTrack(lines, disc, fields, items, track);
    }
    for (int item = kExportCategory; item <= kExportYearReleased; ++item)
        addLine(static_cast<ExportItem>(item));
    Put(lines, kLineEnd);
    return FinishLines(lines);
}

std::string DelimitedRecord(const DiscToc& disc, const EntryFields& fields,
                            const ExportItems& items) {
    Lines lines = StartLines(disc, fields);
    bool written = false;
    const auto startField = [&] {
        if (written) Put(lines, ',');
        written = true;
    };
    const auto addQuoted = [&](ExportItem item, std::string_view field) {
        if (!items[item]) return;
        startField();
        Put(lines, '"');
        Put(lines, field);
        Put(lines, '"');
    };
    addQuoted(kExportArtist, fields.artist);
    addQuoted(kExportDiscName, fields.discName);
    if (HasLength(disc, items)) {
        startField();
        Put(lines, MinutesSecondsText(disc.totalSeconds));
    }
    for (int track = 0; track < disc.trackCount; ++track) {
        if (items[kExportTrackNumber]) {
            startField();
            PutNumber(lines, track + 1);
        }
        addQuoted(kExportTrackName, fields.trackNames[track]);
        if (items[kExportTrackLength]) {
            startField();
            Put(lines, MinutesSecondsText(disc.lengthSeconds[track]));
            Put(lines, ',');  // a second one is meant: an empty field ends every track
        }
    }
    for (int item = kExportCategory; item <= kExportSize; ++item)
        addQuoted(static_cast<ExportItem>(item), DiscText(fields, static_cast<ExportItem>(item)));
    if (items[kExportYearReleased]) {
        startField();
        Put(lines, fields.yearReleased);
    }
    Put(lines, kLineEnd);
    return FinishLines(lines);
}
