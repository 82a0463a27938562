// Reads CUE sheets: which files hold a disc's tracks, and where in them each track begins.
//
// Understood: FILE "name" WAVE, TRACK nn AUDIO or any other mode (a data track), INDEX 01 mm:ss:ff.
// Two remarks inside a track are our own: REM LENGTH mm:ss:ff makes a track of that length without
// a file, silent, or with REM TONE hertz a tone. Other lines are passed over.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "demo/drive/disc_layout.h"

constexpr size_t kMaxCueBytes = 256 * 1024;
constexpr size_t kMaxCueTracks = 199;

struct CueFile {
    std::string name;      // as the sheet has it
    uint32_t sectors = 0;  // filled in by the caller, for LayOutDisc
};

struct CueTrack {
    bool isAudio = true;
    int file = -1;            // index into files, -1 when REM LENGTH states the length
    uint32_t fileSector = 0;  // where the track begins in its file
    uint32_t sectors = 0;     // with REM LENGTH its length; else filled in by LayOutDisc
    uint32_t toneHertz = 0;   // 0 for silence
};

struct CueSheet {
    std::vector<CueFile> files;
    std::vector<CueTrack> tracks;
};

// False when the text is too long, has no track, numbers its tracks other than 1, 2, 3 ..., has
// more than kMaxCueTracks or gives a track neither file nor length; sheet is untouched then and
// errorLine is the 1-based line at fault, 0 for the sheet as a whole.
bool ParseCueSheet(std::string_view text, CueSheet& sheet, int& errorLine);

// The tracks one behind the other. A track in a file ends where the next one of that file begins,
// else with the file; one that begins behind the end of its file has the length 0.
DiscLayout LayOutDisc(CueSheet& sheet);
