// See export_lines.h.
#include "database/export_lines.h"

#include <algorithm>
#include <span>

#include "disc/disc_times.h"

constexpr const char* kLineEnd = "\r\n";

constexpr const char* kSizeWords[] = {"3 Inch", "5 Inch"};

static const char* Word(std::span<const char* const> words, uint8_t code) {
    return words[std::min<size_t>(code, words.size() - 1)];
}

// The fields of the disc as a whole, all but its length and its tracks.
static std::string DiscText(const EntryFields& fields, ExportItem item) {
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

static void AddPlainTrack(std::string& text, const DiscToc& disc, const EntryFields& fields,
                          const ExportItems& items, int track) {
    const char* blank = "";
    if (items[kExportTrackNumber]) {
        text += std::to_string(track + 1);
        blank = " ";
    }
    if (items[kExportTrackName]) {
        text += blank;
        text += fields.trackNames[track];
        blank = " ";
    }
    if (items[kExportTrackLength]) {
        text += blank;
        text += MinutesSecondsText(disc.lengthSeconds[track]);
    }
    text += kLineEnd;
}

std::string PlainLines(const DiscToc& disc, const EntryFields& fields, const ExportItems& items) {
    std::string text;
    const auto addLine = [&](ExportItem item) {
        if (items[item]) text += DiscText(fields, item) + kLineEnd;
    };
    addLine(kExportArtist);
    if (items[kExportDiscName]) {
        text += fields.discName + (HasLength(disc, items) ? " " : kLineEnd);
    }
    if (HasLength(disc, items)) text += MinutesSecondsText(disc.totalSeconds) + kLineEnd;
    if (items[kExportTrackNumber] || items[kExportTrackName] || items[kExportTrackLength]) {
        for (int track = 0; track < disc.trackCount; ++track)
            AddPlainTrack(text, disc, fields, items, track);
    }
    for (int item = kExportCategory; item <= kExportYearReleased; ++item)
        addLine(static_cast<ExportItem>(item));
    return text + kLineEnd;
}

std::string DelimitedRecord(const DiscToc& disc, const EntryFields& fields,
                            const ExportItems& items) {
    std::string text;
    bool written = false;
    const auto addField = [&](bool wanted, const std::string& field, const char* quote = "") {
        if (!wanted) return;
        if (written) text += ',';
        text.append(quote).append(field).append(quote);
        written = true;
    };
    const auto addQuoted = [&](ExportItem item, const std::string& field) {
        addField(items[item], field, "\"");
    };
    addQuoted(kExportArtist, fields.artist);
    addQuoted(kExportDiscName, fields.discName);
    addField(HasLength(disc, items), MinutesSecondsText(disc.totalSeconds));
    for (int track = 0; track < disc.trackCount; ++track) {
        addField(items[kExportTrackNumber], std::to_string(track + 1));
        addQuoted(kExportTrackName, fields.trackNames[track]);
        // The second comma is meant: an empty field ends every track.
        addField(items[kExportTrackLength], MinutesSecondsText(disc.lengthSeconds[track]) + ',');
    }
    for (int item = kExportCategory; item <= kExportSize; ++item)
        addQuoted(static_cast<ExportItem>(item), DiscText(fields, static_cast<ExportItem>(item)));
    addField(items[kExportYearReleased], fields.yearReleased);
    return text + kLineEnd;
}
