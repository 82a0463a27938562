// Discs to fill databases with, and the file they must make.
#include "sample_discs.h"

static void SetLengths(DiscToc& toc, int trackCount, int firstSeconds) {
    toc.trackCount = static_cast<uint16_t>(trackCount);
    for (int track = 0; track < trackCount; ++track) {
        toc.lengthSeconds[track] = static_cast<uint16_t>(firstSeconds + track);
        toc.totalSeconds = static_cast<uint16_t>(toc.totalSeconds + toc.lengthSeconds[track]);
    }
}

Disc SampleDisc(int number, int trackCount) {
    Disc disc;
    SetLengths(disc.toc, trackCount, 60 + number);
    const std::string name = std::to_string(number);
    for (int track = 0; track < trackCount; ++track)
        disc.fields.trackNames[track] = "Track " + std::to_string(track + 1) + " of " + name;
    disc.fields.artist = "Artist " + name;
    disc.fields.discName = "Disc " + name;
    disc.fields.category = "Category";
    disc.fields.label = "Label";
    disc.fields.notes = "First line\r\nsecond line";
    disc.fields.yearReleased = "1997";
    disc.fields.recordingCode = static_cast<uint8_t>(number % 4);
    disc.fields.discType = static_cast<uint8_t>(number / 4 % 4);
    return disc;
}

Disc RandomDisc(std::mt19937& random) {
    const auto below = [&](uint32_t bound) { return static_cast<int>(random() % bound); };
    const auto text = [&](uint32_t bound) {
        std::string bytes;
        for (int length = below(bound); length > 0; --length)
            bytes.push_back(static_cast<char>(1 + below(255)));
        return bytes;
    };
    // Few different lengths, so that equal tables of contents happen.
    Disc disc;
    SetLengths(disc.toc, 1 + below(below(8) == 0 ? 99 : 4), 100 + below(3));
    for (int track = 0; track < disc.toc.trackCount; ++track)
        disc.fields.trackNames[track] = text(below(20) == 0 ? 255 : 30);
    disc.fields.artist = text(255);
    disc.fields.discName = text(40);
    disc.fields.category = text(2);
    disc.fields.label = text(20);
    disc.fields.notes = text(255);
    disc.fields.yearReleased = text(5);
    disc.fields.recordingCode = static_cast<uint8_t>(below(4));
    disc.fields.discType = static_cast<uint8_t>(below(4));
    disc.fields.discSize = static_cast<uint8_t>(below(2));
    return disc;
}

Disc LargestDisc() {
    Disc disc;
    SetLengths(disc.toc, kMaxTracks, 4000);
    for (std::string& name : disc.fields.trackNames)
        name.assign(254, 'n');
    EntryFields& f = disc.fields;
    f.artist = f.discName = f.category = f.label = f.notes = f.yearReleased = std::string(254, 't');
    return disc;
}

static std::string Number(uint64_t value, int bytes) {
    std::string field;
    for (int i = 0; i < bytes; ++i)
        field.push_back(static_cast<char>(value >> (8 * i)));
    return field;
}

static std::string Text(const std::string& text) {
    return Number(text.size(), 1) + text;
}

static std::string Body(const Disc& disc) {
    std::string body = Number(disc.toc.totalSeconds, 2) + Number(disc.toc.lengthSeconds[0], 2) +
                       Number(disc.toc.trackCount, 1);
    for (int track = 0; track < disc.toc.trackCount; ++track)
        body += Text(disc.fields.trackNames[track]) + Number(disc.toc.lengthSeconds[track], 2);
    const EntryFields& f = disc.fields;
    return body + Text(f.artist) + Text(f.discName) + Text(f.category) + Text(f.label) +
           Text(f.notes) + Number(f.recordingCode, 1) + Number(f.discType, 1) +
           Number(f.discSize, 1) + Text(f.yearReleased);
}

std::string DatabaseImage(const std::vector<Disc>& discs) {
    std::string image = std::string("\xFFQMR\0\n", 6) + Number(discs.size(), 2);
    for (const Disc& disc : discs) {
        const std::string body = Body(disc);
        const size_t start = image.size();
        image += Number(start + 4 + 2 + body.size() + 4, 4) + Number(2 + body.size() + 4, 2);
        image += body + Number(start, 4);
    }
    return image;
}

std::vector<uint32_t> EntryStarts(const std::vector<Disc>& discs) {
    std::vector<uint32_t> starts = {8};
    for (const Disc& disc : discs)
        starts.push_back(starts.back() + static_cast<uint32_t>(Body(disc).size()) + 4 + 2 + 4);
    return starts;
}
