// Titles, keys, tempi and chords.
#include "demo/media/pieces.h"

using enum Accompaniment;

std::span<const WaveSketch> WaveSketches() {
    static const WaveSketch kSketches[] = {
        {"Morning Walk.wav",
         44100,
         2,
         16,
         9250,
         {"Morning Walk", 67, false, 4, 126, 4, "1645", kArpeggio, 73, 24, true, 5}},
        {"Little Waltz.wav",
         22050,
         1,
         16,
         7800,
         {"Little Waltz", 65, false, 3, 150, 6, "1425", kWaltz, 11, 0, false, 8}},
        {"Lantern.wav",
         11025,
         1,
         8,
         4600,
         {"Lantern", 69, true, 4, 116, 2, "16", kBroken, 0, 24, false, 21}},
        {"Clockwork.wav",
         32000,
         2,
         16,
         12000,
         {"Clockwork", 62, true, 4, 132, 6, "1634", kMarch, 13, 16, true, 34}},
        {"One Second and Five.wav",
         48000,
         2,
         16,
         1005,
         {"One Second and Five", 72, false, 4, 300, 1, "1", kArpeggio, 8, 8, false, 3}},
        {"Doorbell.wav",
         22050,
         2,
         8,
         640,
         {"Doorbell", 76, false, 3, 320, 1, "1", kChords, 14, 8, false, 2}},
    };
    return kSketches;
}

std::span<const MidiSketch> MidiSketches() {
    static const MidiSketch kSketches[] = {
        {"River Song.mid",
         {"River Song", 67, false, 4, 112, 6, "1564", kArpeggio, 73, 0, false, 13}},
        {"Night Train.mid", {"Night Train", 64, true, 4, 144, 8, "1167", kMarch, 56, 24, true, 55}},
        {"Harvest Dance.mid",
         {"Harvest Dance", 62, false, 3, 168, 10, "1415", kWaltz, 40, 0, true, 89}},
        {"Lullaby.rmi", {"Lullaby", 65, false, 3, 88, 5, "1641", kBroken, 8, 0, false, 7}},
    };
    return kSketches;
}

static const DiscTrack kHarbourTracks[] = {
    {15100, {"First Light", 65, false, 4, 104, 6, "1564", kArpeggio, 73, 24, false, 101}},
    {14200, {"Nets and Floats", 62, false, 3, 156, 11, "1425", kWaltz, 24, 0, true, 102}},
    {16800, {"Grey Water", 64, true, 4, 92, 6, "1637", kBroken, 40, 0, false, 103}},
    {12300, {"The Ferry Bell", 67, false, 4, 128, 6, "1454", kMarch, 14, 16, true, 104}},
    {19800, {"Breakwater", 60, true, 4, 116, 9, "1465", kArpeggio, 0, 24, true, 105}},
    {14300, {"Lamps Going On", 69, false, 3, 112, 8, "1634", kChords, 11, 48, false, 106}},
    {11100, {"Last Boat Home", 65, false, 4, 120, 5, "1645", kBroken, 71, 0, false, 107}},
};

static const DiscTrack kMiniatureTracks[] = {
    {10900, {"Prelude", 60, false, 4, 120, 5, "1456", kArpeggio, 0, 0, false, 201}},
    {11400, {"Paper Kite", 67, false, 3, 150, 8, "1645", kWaltz, 73, 24, false, 202}},
    {10600, {"Wooden Soldiers", 62, false, 4, 132, 5, "1415", kMarch, 56, 16, true, 203}},
    {12800, {"Rain on Slate", 64, true, 4, 108, 5, "1637", kBroken, 11, 24, false, 204}},
    {10300, {"Cat Asleep", 65, false, 3, 96, 5, "1465", kChords, 71, 48, false, 205}},
    {11900, {"Market Day", 69, false, 4, 144, 6, "1415", kMarch, 40, 24, true, 206}},
    {10800, {"The Old Clock", 62, true, 3, 138, 7, "1467", kWaltz, 13, 0, false, 207}},
    {12100, {"Skipping Stones", 67, false, 4, 126, 6, "1645", kArpeggio, 12, 24, false, 208}},
    {10500, {"Smoke Rings", 60, true, 4, 100, 4, "1654", kChords, 66, 48, false, 209}},
    {11200, {"Tin Whistle", 74, false, 3, 168, 9, "1514", kWaltz, 72, 24, true, 210}},
    {10900, {"Empty Swing", 65, true, 3, 92, 5, "1637", kBroken, 24, 0, false, 211}},
    {12400, {"Hurdy-gurdy", 62, false, 4, 138, 6, "1155", kArpeggio, 20, 40, true, 212}},
    {10100, {"Blue Tile", 64, false, 4, 112, 4, "1564", kBroken, 8, 24, false, 213}},
    {11700, {"Stairs Down", 69, true, 4, 130, 6, "1765", kMarch, 0, 16, true, 214}},
    {10700, {"Feather", 72, false, 3, 108, 6, "1465", kArpeggio, 14, 0, false, 215}},
    {12600, {"Round Dance", 67, false, 3, 174, 11, "1425", kWaltz, 40, 24, true, 216}},
    {12100, {"Good Night", 60, false, 4, 88, 4, "1641", kChords, 73, 48, false, 217}},
};

std::span<const DemoDisc> DemoDiscs() {
    static const DemoDisc kDiscs[] = {
        {"Harbour Lights", "The Quay Street Players", "Harbour Lights", kHarbourTracks},
        {"Seventeen Miniatures", "Small Hours Ensemble", "Seventeen Miniatures", kMiniatureTracks},
    };
    return kDiscs;
}
