// Recognises a disc by its table of contents.
#pragma once

#include <cstdint>
#include <string>

#include "base/file_access.h"
#include "database/database_result.h"
#include "disc/disc_toc.h"

// Into DatabaseDisc, all 99 lengths. Called immediately before every lookup.
void CopyDiscToc(const DiscToc& disc);

// Looks for the first entry with this total, this track count and DatabaseDisc's track lengths, and
// sets FoundEntryOffset, to 0 for a disc that is not known. Anything but kOk: the file could not be
// opened, read or, when there was none, created, and who knows.
DatabaseResult LookUpDisc(uint16_t totalSeconds, uint16_t trackCount,
                          WhenHeld whenHeld = WhenHeld::kGiveUp);

// The same, for callers to whom an unreadable database knows no disc.
bool FindDisc(uint16_t totalSeconds, uint16_t trackCount);

// The entry that LookUpDisc would find for DatabaseDisc, in an open file; 0 when there is none.
uint32_t FindDiscEntry(FileHandle file);

// Artist, " - " and disc name of DatabaseDisc, or the empty text when it is not known.
std::string DiscTitleText();

// The name of a track (from 1) of DatabaseDisc, or the empty text.
std::string TrackNameText(int trackNumber);
