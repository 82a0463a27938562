// Mono at half the disc's own rate keeps the files small; the drive expands them.
#include "demo/media/disc_maker.h"

#include <cstdio>

#include "demo/media/wave_maker.h"

static size_t TrackFrames(const DiscTrack& track) {
    return static_cast<size_t>(TrackSectors(track)) * kTrackSampleRate / kSectorsPerSecond;
}

uint32_t TrackSectors(const DiscTrack& track) {
    return (track.milliseconds * kSectorsPerSecond + 999) / 1000;
}

bool WriteDisc(const std::filesystem::path& directory, const DemoDisc& disc) {
    Bytes sheet;
    PutText(sheet,
            std::string("PERFORMER \"") + disc.artist + "\"\r\nTITLE \"" + disc.title + "\"\r\n");
    int number = 0;
    for (const DiscTrack& track : disc.tracks) {
        char line[200];
        char fileName[32];
        std::snprintf(fileName, sizeof fileName, "track%02d.wav", ++number);
        const Piece piece = ComposePiece(track.sketch);
        const auto samples = RenderPiece(piece, kTrackSampleRate, TrackFrames(track));
        if (!WriteFile(directory / fileName, PackWave(samples, {kTrackSampleRate, 1, 16})))
            return false;
        std::snprintf(line, sizeof line,
                      "FILE \"%s\" WAVE\r\n  TRACK %02d AUDIO\r\n    TITLE \"%s\"\r\n"
                      "    INDEX 01 00:00:00\r\n",
                      fileName, number, track.sketch.title);
        PutText(sheet, line);
    }
    return WriteFile(directory / "disc.cue", sheet);
}
