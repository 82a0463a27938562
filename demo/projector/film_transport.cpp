// The state of a film and its changes.
#include "demo/projector/film_transport.h"

#include <algorithm>

uint32_t PositionOfFilm(const FilmTransport& film, uint64_t nowMs) {
    if (film.mode != FilmMode::kPlaying) return film.positionMs;
    const uint64_t elapsed = nowMs > film.startedAtMs ? nowMs - film.startedAtMs : 0;
    return static_cast<uint32_t>(std::min<uint64_t>(film.positionMs + elapsed, film.endMs));
}

FilmMode ModeOfFilm(const FilmTransport& film, uint64_t nowMs) {
    const bool isOver =
        film.mode == FilmMode::kPlaying && PositionOfFilm(film, nowMs) >= film.endMs;
    return isOver ? FilmMode::kStopped : film.mode;
}

static void StandAt(FilmTransport& film, FilmMode mode, uint32_t ms) {
    film.mode = mode;
    film.positionMs = ms;
}

bool PlayFilm(FilmTransport& film, std::optional<uint32_t> fromMs, std::optional<uint32_t> toMs,
              uint64_t nowMs) {
    const uint32_t from = fromMs.value_or(PositionOfFilm(film, nowMs));
    const uint32_t to = toMs.value_or(film.lengthMs);
    if (from > to || to > film.lengthMs) return false;
    StandAt(film, FilmMode::kPlaying, from);
    film.endMs = to;
    film.startedAtMs = nowMs;
    return true;
}

void PauseFilm(FilmTransport& film, uint64_t nowMs) {
    if (ModeOfFilm(film, nowMs) == FilmMode::kPlaying)
        StandAt(film, FilmMode::kPaused, PositionOfFilm(film, nowMs));
}

bool ResumeFilm(FilmTransport& film, uint64_t nowMs) {
    return ModeOfFilm(film, nowMs) == FilmMode::kPaused &&
           PlayFilm(film, std::nullopt, film.endMs, nowMs);
}

void StopFilm(FilmTransport& film, uint64_t nowMs) {
    StandAt(film, FilmMode::kStopped, PositionOfFilm(film, nowMs));
}

bool SeekFilm(FilmTransport& film, uint32_t ms) {
    if (ms > film.lengthMs) return false;
    StandAt(film, FilmMode::kStopped, ms);
    return true;
}
