// The demo's catalogue, packed by the product's own encoder.
#include "demo/media/catalogue_maker.h"

#include <iterator>
#include <string>

#include "database/database_format.h"
#include "database/disc_entry.h"
#include "demo/media/disc_maker.h"

struct CatalogueTrack {
    std::string name;
    uint32_t seconds;
};

struct CatalogueDisc {
    std::string artist, title, category, label, notes, year;
    uint8_t recording;  // 0 AAD, 1 ADD, 2 DAD, 3 DDD
    uint8_t type;       // 0 album, 1 single
    uint8_t size;       // 0 three inch, 1 five inch
    std::vector<CatalogueTrack> tracks;
};

static void PutDisc(Bytes& file, const CatalogueDisc& disc) {
    DiscToc toc;
    EntryFields fields;
    for (const CatalogueTrack& track : disc.tracks) {
        const auto seconds = static_cast<uint16_t>(track.seconds);
        toc.lengthSeconds[toc.trackCount] = seconds;
        toc.totalSeconds = static_cast<uint16_t>(toc.totalSeconds + seconds);
        fields.trackNames[toc.trackCount++] = track.name;
    }
    fields.artist = disc.artist;
    fields.discName = disc.title;
    fields.category = disc.category;
    fields.label = disc.label;
    fields.notes = disc.notes;
    fields.yearReleased = disc.year;
    fields.recordingCode = disc.recording;
    fields.discType = disc.type;
    fields.discSize = disc.size;
    const Bytes entry = EncodeEntry(toc, fields, static_cast<uint32_t>(file.size()));
    file.insert(file.end(), entry.begin(), entry.end());
}

static CatalogueDisc EntryOfDemoDisc(const DemoDisc& demo) {
    CatalogueDisc disc = {demo.artist,
                          demo.title,
                          "Demonstration",
                          "Demo Disc",
                          "Composed and played by the demo's own programs.\r\nPut it into the "
                          "virtual drive to hear it.",
                          "2024",
                          3,
                          0,
                          1,
                          {}};
    for (const DiscTrack& track : demo.tracks)
        disc.tracks.push_back({track.sketch.title, TrackSectors(track) / kSectorsPerSecond});
    return disc;
}

static std::vector<CatalogueDisc> InventedShelf() {
    return {
        {"Ada Merriweather",
         "Songs for a Tall House",
         "Folk",
         "Attic Records",
         "Signed on the back of the booklet.",
         "1994",
         1,
         0,
         1,
         {{"Up the Stair", 201},
          {"The Window Seat", 187},
          {"Coal and Candle", 243},
          {"Letters Home", 222},
          {"The Long Landing", 305}}},
        {"Pollard & Finch",
         "Brass Button Blues",
         "Jazz",
         "Corner House",
         "",
         "1988",
         0,
         0,
         1,
         {{"Brass Button Blues", 312},
          {"Two Stops Early", 264},
          {"Rain Check", 418},
          {"Finch's Fancy", 199}}},
        {"The Ordnance Survey",
         "Contour Lines",
         "Rock",
         "Trig Point",
         "Lent to Martin in spring.",
         "1996",
         3,
         0,
         1,
         {{"Spot Height", 228},
          {"Footpath (Undefined)", 251},
          {"Marsh", 334},
          {"Church with Spire", 207},
          {"Cutting", 178},
          {"Disused", 296}}},
        {"Ludmila Horn",
         "Nocturnes by Lamplight",
         "Classical",
         "Nightjar",
         "",
         "1991",
         3,
         0,
         1,
         {{"Nocturne in D", 322}, {"Nocturne in F minor", 287}, {"Berceuse", 241}}},
        {"The Quay Street Players",
         "Tide Table",
         "Demonstration",
         "Demo Disc",
         "",
         "1995",
         2,
         1,
         0,
         {{"Tide Table", 214}, {"Slack Water", 188}}},
        {"Velvet Parade",
         "Confetti Machine",
         "Pop",
         "Big Shop",
         "Second track skips on the car player.",
         "1997",
         3,
         0,
         1,
         {{"Confetti Machine", 219},
          {"Balcony", 203},
          {"Seven Umbrellas", 231},
          {"Goodbye, Balloon", 247}}},
    };
}

Bytes PackCatalogue(const DemoDisc& knownDisc) {
    std::vector<CatalogueDisc> discs = InventedShelf();
    discs.insert(discs.begin() + 3, EntryOfDemoDisc(knownDisc));
    Bytes file(std::begin(kHeaderMark), std::end(kHeaderMark));
    PutLittle16(file, static_cast<uint32_t>(discs.size()));
    for (const CatalogueDisc& disc : discs)
        PutDisc(file, disc);
    return file;
}
