// Recognises a disc by its table of contents.
#pragma once

#include <cstdint>
#include <string>

#include "base/file_access.h"
#include "disc/disc_toc.h"

// Where the entry starts that the last lookup found; 0 when it found none.
extern uint32_t FoundEntryOffset;

// Into DatabaseDisc, all 99 lengths. Called immediately before every lookup.
void CopyDiscToc(const DiscToc& disc);

enum class LookupResult {
    kFound,
    kUnknown,
    kUnreadable,  // the file could not be opened, read or, when there was none, created
};

// Looks for the first entry with this total, this track count and DatabaseDisc's track lengths. A
// missing database is created empty. Sets FoundEntryOffset.
LookupResult LookUpDisc(uint16_t totalSeconds, uint16_t trackCount,
                        WhenHeld whenHeld = WhenHeld::kGiveUp);

// The same, for callers to whom an unreadable database knows no disc.
bool FindDisc(uint16_t totalSeconds, uint16_t trackCount);

// The entry that LookUpDisc would find for DatabaseDisc, in an open file; 0 when there is none.
uint32_t FindDiscEntry(FileHandle file);

// Artist, " - " and disc name of DatabaseDisc, or the empty text when it is not known.
std::string DiscTitleText();

// The name of a track (from 1) of DatabaseDisc, or the empty text.
std::string TrackNameText(int trackNumber);
