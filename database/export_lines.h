// What the export writes about one disc.
#pragma once

#include <array>
#include <string>

#include "database/disc_entry.h"
#include "disc/disc_toc.h"

// In the order in which they are written.
enum ExportItem {
    kExportArtist,
    kExportDiscName,
    kExportDiscLength,
    kExportTrackNumber,
    kExportTrackName,
    kExportTrackLength,
    kExportCategory,
    kExportLabel,
    kExportNotes,
    kExportRecording,
    kExportType,
    kExportSize,
    kExportYearReleased,
    kExportItemCount
};
using ExportItems = std::array<bool, kExportItemCount>;

// Texts are written as they are, empty ones too; a disc of length 0 has no disc length. Codes that
// no word stands for get the last one.

// One field a line, numbers and names of tracks on one line, an empty line behind.
std::string PlainLines(const DiscToc& disc, const EntryFields& fields, const ExportItems& items);

// One record: fields with commas between them, texts between quotes, times, numbers and the year
// without.
std::string DelimitedRecord(const DiscToc& disc, const EntryFields& fields,
                            const ExportItems& items);
