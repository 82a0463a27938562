// Any bytes as a film: no crash, no endless table, and what is accepted keeps its bounds.
#include <cstdlib>
#include <sstream>

#include "demo/projector/film_file.h"

static void Require(bool condition) {
    if (!condition) std::abort();
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::istringstream file(std::string(reinterpret_cast<const char*>(data), size));
    Film film;
    if (!ReadFilm(file, film)) return 0;
    Require(!film.frames.empty() && film.frames.size() <= kMaxFilmFrames);
    Require(film.lengthMs > 0 && film.lengthMs <= INT32_MAX);
    uint32_t time = 0;
    for (const FilmFrame& frame : film.frames) {
        Require(frame.startMs >= time && frame.startMs <= film.lengthMs);
        time = frame.startMs;
    }
    const auto last = static_cast<uint32_t>(film.frames.size() - 1);
    std::vector<uint8_t> rows;
    for (const uint32_t frame : {0U, last})
        Require(ReadPicture(file, film, frame, rows) && rows.size() >= 3 * film.height);
    Require(FrameAt(film, 0xFFFFFFFF) == last && !ReadPicture(file, film, last + 1, rows));
    int16_t samples[2 * 500];
    for (const uint64_t first : {uint64_t{0}, film.sound.frameCount / 2, film.sound.frameCount})
        Require(ReadSound(file, film.sound, first, 500, samples) <= 500);
    return 0;
}
