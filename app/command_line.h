// What the command line asks for. The whole text is one argument; quotes are not handled.
#pragma once

#include <cstdint>
#include <string>

struct CommandLineRequest {
    bool playDisc = false;
    uint16_t track = 0;  // where the disc starts

    bool mediaFile = false;
    int mode = 0;           // the file's mode, as the control id of its tab
    std::string directory;  // with its separator; the first character alone when there is none
    std::string fileName;
};

// "/p" plays the disc, "-p..." plays it from the track whose number stands before the extension of
// a track file; anything else is the path of a media file or means nothing.
CommandLineRequest ParseCommandLine(const std::string& text);

// The track that a second start hands to the running program: its digits stand at a fixed place of
// the form "-play D:\TrackNN.cda". False when the text does not ask for the disc.
bool ForwardedTrack(const std::string& text, uint16_t& track);
