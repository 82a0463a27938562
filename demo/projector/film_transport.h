// Where a film stands: play, pause, seek. Time comes from the caller, in milliseconds of any steady
// clock, so that nothing here waits.
#pragma once

#include <cstdint>
#include <optional>

enum class FilmMode { kStopped, kPlaying, kPaused };

struct FilmTransport {
    uint32_t lengthMs = 0;
    FilmMode mode = FilmMode::kStopped;
    uint32_t positionMs = 0;  // while playing, where play started
    uint32_t endMs = 0;       // where play is to stop
    uint64_t startedAtMs = 0;
};

// 0 to lengthMs.
uint32_t PositionOfFilm(const FilmTransport& film, uint64_t nowMs);
// Play that has reached its end has stopped.
FilmMode ModeOfFilm(const FilmTransport& film, uint64_t nowMs);

// Plays from a place (default: where the film stands) to another (default: its end). Nothing
// changes and false is returned when the places are not in the film, or in the wrong order. A film
// that stands at its end stops at once.
bool PlayFilm(FilmTransport& film, std::optional<uint32_t> fromMs, std::optional<uint32_t> toMs,
              uint64_t nowMs);
// A film that does not play stays as it was.
void PauseFilm(FilmTransport& film, uint64_t nowMs);
// Goes on after a pause, to the end that was asked for before it. False when it is not paused.
bool ResumeFilm(FilmTransport& film, uint64_t nowMs);
// Ends play where it is.
void StopFilm(FilmTransport& film, uint64_t nowMs);
// Goes to a place and stands there. False, and nothing changes, when it is not in the film.
bool SeekFilm(FilmTransport& film, uint32_t ms);
