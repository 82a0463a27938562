// A chunk of the file is one picture, or the sound that belongs to it.
#include "demo/media/film_maker.h"

static constexpr uint32_t kMillisecond = 1000;  // units a second of the whole movie

struct Track {
    bool isSound = false;
    uint32_t unitsPerSecond = 0;
    uint32_t samples = 0;
    uint32_t sampleBytes = 0;
    uint32_t samplesPerChunk = 0;
    std::vector<uint32_t> chunks;  // where each begins in the file
};

static size_t BeginAtom(Bytes& file, const char* name) {
    const size_t start = file.size();
    PutBig32(file, 0);
    PutText(file, name);
    return start;
}

static void EndAtom(Bytes& file, size_t start) {
    SetBig32(file, start, static_cast<uint32_t>(file.size() - start));
}

static void PutZeros(Bytes& file, size_t count) {
    file.insert(file.end(), count, uint8_t{0});
}

// The identity; the last number has two bits before the point, the others sixteen.
static void PutMatrix(Bytes& file) {
    for (const uint32_t number : {0x10000U, 0U, 0U, 0U, 0x10000U, 0U, 0U, 0U, 0x40000000U})
        PutBig32(file, number);
}

static uint32_t UnitsPerSample(const Track& track, const FilmSketch& film) {
    return track.isSound ? 1 : track.unitsPerSecond / static_cast<uint32_t>(film.framesPerSecond);
}

static void PutMovieHeader(Bytes& file, uint32_t lengthMs, uint32_t tracks) {
    const size_t atom = BeginAtom(file, "mvhd");
    PutZeros(file, 12);
    PutBig32(file, kMillisecond);
    PutBig32(file, lengthMs);
    PutBig32(file, 0x10000);  // plays at its own speed
    PutBig16(file, 0x100);    // at full volume
    PutZeros(file, 10);
    PutMatrix(file);
    PutZeros(file, 24);
    PutBig32(file, tracks + 1);
    EndAtom(file, atom);
}

static void PutTrackHeader(Bytes& file, const Track& track, const FilmSketch& film,
                           uint32_t lengthMs) {
    const size_t atom = BeginAtom(file, "tkhd");
    PutBig32(file, 0xF);  // in use
    PutZeros(file, 8);
    PutBig32(file, track.isSound ? 2 : 1);
    PutZeros(file, 4);
    PutBig32(file, lengthMs);
    PutZeros(file, 12);
    PutBig16(file, track.isSound ? 0x100 : 0);
    PutZeros(file, 2);
    PutMatrix(file);
    PutBig32(file, track.isSound ? 0 : static_cast<uint32_t>(film.width) << 16);
    PutBig32(file, track.isSound ? 0 : static_cast<uint32_t>(film.height) << 16);
    EndAtom(file, atom);
}

static void PutHandler(Bytes& file, const char* component, const char* type) {
    const size_t atom = BeginAtom(file, "hdlr");
    PutBig32(file, 0);
    PutText(file, component);
    PutText(file, type);
    PutZeros(file, 13);
    EndAtom(file, atom);
}

static void PutDescription(Bytes& file, const Track& track, const FilmSketch& film) {
    const size_t table = BeginAtom(file, "stsd");
    PutBig32(file, 0);
    PutBig32(file, 1);
    const size_t entry = BeginAtom(file, track.isSound ? "twos" : "raw ");
    PutZeros(file, 6);
    PutBig16(file, 1);
    PutZeros(file, 8);
    if (track.isSound) {
        PutBig16(file, 1);   // channel
        PutBig16(file, 16);  // bits
        PutZeros(file, 4);
        PutBig32(file, track.unitsPerSecond << 16);
    } else {
        PutZeros(file, 8);
        PutBig16(file, static_cast<uint32_t>(film.width));
        PutBig16(file, static_cast<uint32_t>(film.height));
        PutBig32(file, 72U << 16);  // dots per inch
        PutBig32(file, 72U << 16);
        PutBig32(file, 0);
        PutBig16(file, 1);
        PutZeros(file, 32);
        PutBig16(file, 24);  // bits
        PutBig16(file, 0xFFFF);
    }
    EndAtom(file, entry);
    EndAtom(file, table);
}

static void PutTables(Bytes& file, const Track& track, const FilmSketch& film) {
    const size_t samples = BeginAtom(file, "stbl");
    PutDescription(file, track, film);
    const size_t times = BeginAtom(file, "stts");
    for (const uint32_t number : {0U, 1U, track.samples, UnitsPerSample(track, film)})
        PutBig32(file, number);
    EndAtom(file, times);
    const size_t chunks = BeginAtom(file, "stsc");
    for (const uint32_t number : {0U, 1U, 1U, track.samplesPerChunk, 1U})
        PutBig32(file, number);
    EndAtom(file, chunks);
    const size_t sizes = BeginAtom(file, "stsz");
    for (const uint32_t number : {0U, track.sampleBytes, track.samples})
        PutBig32(file, number);
    EndAtom(file, sizes);
    const size_t places = BeginAtom(file, "stco");
    PutBig32(file, 0);
    PutBig32(file, static_cast<uint32_t>(track.chunks.size()));
    for (const uint32_t place : track.chunks)
        PutBig32(file, place);
    EndAtom(file, places);
    EndAtom(file, samples);
}

static void PutTrack(Bytes& file, const Track& track, const FilmSketch& film, uint32_t lengthMs) {
    const size_t trak = BeginAtom(file, "trak");
    PutTrackHeader(file, track, film, lengthMs);
    const size_t media = BeginAtom(file, "mdia");
    const size_t header = BeginAtom(file, "mdhd");
    PutZeros(file, 12);
    PutBig32(file, track.unitsPerSecond);
    PutBig32(file, track.samples * UnitsPerSample(track, film));
    PutZeros(file, 4);
    EndAtom(file, header);
    PutHandler(file, "mhlr", track.isSound ? "soun" : "vide");
    const size_t information = BeginAtom(file, "minf");
    const size_t kind = BeginAtom(file, track.isSound ? "smhd" : "vmhd");
    PutBig32(file, track.isSound ? 0 : 1);
    PutZeros(file, track.isSound ? 4 : 8);
    EndAtom(file, kind);
    PutHandler(file, "dhlr", "alis");
    const size_t data = BeginAtom(file, "dinf");
    const size_t references = BeginAtom(file, "dref");
    PutBig32(file, 0);
    PutBig32(file, 1);
    const size_t reference = BeginAtom(file, "alis");
    PutBig32(file, 1);  // the media are in this file
    EndAtom(file, reference);
    EndAtom(file, references);
    EndAtom(file, data);
    PutTables(file, track, film);
    EndAtom(file, information);
    EndAtom(file, media);
    EndAtom(file, trak);
}

Bytes PackFilm(const FilmSketch& film, const DrawFilmFrame& draw,
               const std::vector<int16_t>& monoSamples, int sampleRate) {
    const auto frames = static_cast<uint32_t>(film.frameCount);
    const auto rate = static_cast<uint32_t>(film.framesPerSecond);
    const auto pictureBytes = static_cast<uint32_t>(film.width * film.height * 3);
    const uint32_t soundPerFrame = static_cast<uint32_t>(sampleRate) / rate;
    Track pictures = {false, rate * 1000, frames, pictureBytes, 1, {}};
    Track sound = {
        true, static_cast<uint32_t>(sampleRate), frames * soundPerFrame, 2, soundPerFrame, {}};
    Bytes file;
    const size_t type = BeginAtom(file, "ftyp");
    PutText(file, "qt  ");
    PutBig32(file, 0);
    PutText(file, "qt  ");
    EndAtom(file, type);
    const size_t media = BeginAtom(file, "mdat");
    for (uint32_t frame = 0; frame < frames; ++frame) {
        pictures.chunks.push_back(static_cast<uint32_t>(file.size()));
        const Bytes picture = draw(static_cast<int>(frame));
        file.insert(file.end(), picture.begin(), picture.end());
        if (monoSamples.empty()) continue;
        sound.chunks.push_back(static_cast<uint32_t>(file.size()));
        for (size_t i = 0; i < soundPerFrame; ++i) {
            const size_t at = size_t{frame} * soundPerFrame + i;
            PutBig16(file, at < monoSamples.size() ? static_cast<uint32_t>(monoSamples[at]) : 0);
        }
    }
    EndAtom(file, media);
    const auto lengthMs = static_cast<uint32_t>(uint64_t{frames} * 1000 / rate);
    const size_t movie = BeginAtom(file, "moov");
    PutMovieHeader(file, lengthMs, monoSamples.empty() ? 1 : 2);
    PutTrack(file, pictures, film, lengthMs);
    if (!monoSamples.empty()) PutTrack(file, sound, film, lengthMs);
    EndAtom(file, movie);
    return file;
}
