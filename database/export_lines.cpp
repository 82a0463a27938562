// See export_lines.h.
#include "database/export_lines.h"

#include <algorithm>
#include <span>
#include <string_view>

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

// Room for about all of it is made before, because growing piece by piece costs more than the
// pieces: a disc's own texts, and numbers, lengths and marks around each.
static std::string StartLines(const DiscToc& disc, const EntryFields& fields) {
    constexpr size_t kAround = 32;
    size_t sizeBytes = kAround * (kExportItemCount + disc.trackCount);
    for (const EntryItem& item : kEntryItems)
        sizeBytes += item.text ? (fields.*item.text).size() : 0;
    for (int track = 0; track < disc.trackCount; ++track)
        sizeBytes += fields.trackNames[track].size();
    std::string lines;
    lines.reserve(sizeBytes);
    return lines;
}

static void AddPlainTrack(std::string& lines, const DiscToc& disc, const EntryFields& fields,
                          const ExportItems& items, int track) {
    const bool hasNumber = items[kExportTrackNumber];
    const bool hasName = items[kExportTrackName];
    if (hasNumber) lines += std::to_string(track + 1);
    if (hasNumber && hasName) lines += ' ';
    if (hasName) lines += fields.trackNames[track];
    if (items[kExportTrackLength]) {
        if (hasNumber || hasName) lines += ' ';
        lines += MinutesSecondsText(disc.lengthSeconds[track]);
    }
    lines += kLineEnd;
}

std::string PlainLines(const DiscToc& disc, const EntryFields& fields, const ExportItems& items) {
    std::string lines = StartLines(disc, fields);
    const auto addLine = [&](ExportItem item) {
        if (!items[item]) return;
        lines += DiscText(fields, item);
        lines += kLineEnd;
    };
    addLine(kExportArtist);
    if (items[kExportDiscName]) {
        lines += fields.discName;
        lines += HasLength(disc, items) ? " " : kLineEnd;
    }
    if (HasLength(disc, items)) {
        lines += MinutesSecondsText(disc.totalSeconds);
        lines += kLineEnd;
    }
    if (items[kExportTrackNumber] || items[kExportTrackName] || items[kExportTrackLength]) {
        for (int track = 0; track < disc.trackCount; ++track)
            AddPlainTrack(lines, disc, fields, items, track);
    }
    for (int item = kExportCategory; item <= kExportYearReleased; ++item)
        addLine(static_cast<ExportItem>(item));
    lines += kLineEnd;
    return lines;
}

std::string DelimitedRecord(const DiscToc& disc, const EntryFields& fields,
                            const ExportItems& items) {
    std::string lines = StartLines(disc, fields);
    bool written = false;
    const auto startField = [&] {
        if (written) lines += ',';
        written = true;
    };
    const auto addQuoted = [&](ExportItem item, std::string_view field) {
        if (!items[item]) return;
        startField();
        lines += '"';
        lines += field;
        lines += '"';
    };
    addQuoted(kExportArtist, fields.artist);
    addQuoted(kExportDiscName, fields.discName);
    if (HasLength(disc, items)) {
        startField();
        lines += MinutesSecondsText(disc.totalSeconds);
    }
    for (int track = 0; track < disc.trackCount; ++track) {
        if (items[kExportTrackNumber]) {
            startField();
            lines += std::to_string(track + 1);
        }
        addQuoted(kExportTrackName, fields.trackNames[track]);
        if (items[kExportTrackLength]) {
            startField();
            lines += MinutesSecondsText(disc.lengthSeconds[track]);
            lines += ',';  // a second one is meant: an empty field ends every track
        }
    }
    for (int item = kExportCategory; item <= kExportSize; ++item)
        addQuoted(static_cast<ExportItem>(item), DiscText(fields, static_cast<ExportItem>(item)));
    if (items[kExportYearReleased]) {
        startField();
        lines += fields.yearReleased;
    }
    lines += kLineEnd;
    return lines;
}
