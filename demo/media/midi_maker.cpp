// The standard MIDI file, format 1. Every piece is written down at 120 quarter notes a minute, its
// own beats longer or shorter than quarters: Wine's sequencer reckons with that tempo until it has
// played, and would tell a wrong length for any other.
#include "demo/media/midi_maker.h"

#include <algorithm>
#include <cmath>

static constexpr uint32_t kTicksPerQuarter = 480;
static constexpr uint32_t kQuarterMicroseconds = 500000;

struct TickedEvent {
    uint32_t tick;
    bool isNoteOn;
    uint8_t bytes[3];
};

// Seven bits a byte, most significant first, the top bit set on all but the last.
static void PutVariable(Bytes& bytes, uint32_t value) {
    for (int shift = 21; shift > 0; shift -= 7) {
        if (value >> shift != 0)
            bytes.push_back(static_cast<uint8_t>((value >> shift & 127) | 128));
    }
    bytes.push_back(static_cast<uint8_t>(value & 127));
}

static uint32_t TickOfBeat(const Piece& piece, double beat) {
    const double quarters = beat * 60e6 / piece.beatsPerMinute / kQuarterMicroseconds;
    return static_cast<uint32_t>(std::lround(quarters * kTicksPerQuarter));
}

static void PutTrack(Bytes& file, const Bytes& events) {
    PutText(file, "MTrk");
    PutBig32(file, static_cast<uint32_t>(events.size()));
    file.insert(file.end(), events.begin(), events.end());
}

static void PutMeta(Bytes& events, uint32_t delta, uint8_t kind, const Bytes& content) {
    PutVariable(events, delta);
    events.push_back(0xFF);
    events.push_back(kind);
    PutVariable(events, static_cast<uint32_t>(content.size()));
    events.insert(events.end(), content.begin(), content.end());
}

// The end of every track is the end of the piece, so that the last notes may ring out.
static void PutTrackEnd(Bytes& events, const Piece& piece, uint32_t lastTick) {
    const uint32_t end = TickOfBeat(piece, piece.beats);
    PutMeta(events, end > lastTick ? end - lastTick : 0, 0x2F, {});
}

static Bytes TempoTrack(const Piece& piece) {
    Bytes events;
    PutMeta(events, 0, 0x03, Bytes(piece.title.begin(), piece.title.end()));
    Bytes tempo;
    PutBig32(tempo, kQuarterMicroseconds);
    tempo.erase(tempo.begin());
    PutMeta(events, 0, 0x51, tempo);
    PutTrackEnd(events, piece, 0);
    return events;
}

static std::vector<TickedEvent> EventsOfChannel(const Piece& piece, uint8_t channel) {
    std::vector<TickedEvent> events;
    for (const Note& note : piece.notes) {
        if (note.channel != channel) continue;
        const auto on = static_cast<uint8_t>(0x90 | channel);
        const auto off = static_cast<uint8_t>(0x80 | channel);
        events.push_back({TickOfBeat(piece, note.beat), true, {on, note.key, note.velocity}});
        events.push_back({TickOfBeat(piece, note.beat + note.beats), false, {off, note.key, 64}});
    }
    std::stable_sort(events.begin(), events.end(), [](const auto& a, const auto& b) {
        return a.tick != b.tick ? a.tick < b.tick : !a.isNoteOn && b.isNoteOn;
    });
    return events;
}

static Bytes ChannelTrack(const Piece& piece, uint8_t channel) {
    Bytes bytes;
    if (channel < 4) {
        PutVariable(bytes, 0);
        bytes.push_back(static_cast<uint8_t>(0xC0 | channel));
        bytes.push_back(piece.programs[channel]);
    }
    uint32_t tick = 0;
    for (const TickedEvent& event : EventsOfChannel(piece, channel)) {
        PutVariable(bytes, event.tick - tick);
        bytes.insert(bytes.end(), event.bytes, event.bytes + 3);
        tick = event.tick;
    }
    PutTrackEnd(bytes, piece, tick);
    return bytes;
}

Bytes PackMidi(const Piece& piece) {
    std::vector<Bytes> tracks = {TempoTrack(piece)};
    for (uint8_t channel = 0; channel <= 9; ++channel) {
        const bool used = std::any_of(piece.notes.begin(), piece.notes.end(),
                                      [&](const Note& note) { return note.channel == channel; });
        if (used) tracks.push_back(ChannelTrack(piece, channel));
    }
    Bytes file;
    PutText(file, "MThd");
    PutBig32(file, 6);
    PutBig16(file, 1);
    PutBig16(file, static_cast<uint32_t>(tracks.size()));
    PutBig16(file, kTicksPerQuarter);
    for (const Bytes& track : tracks)
        PutTrack(file, track);
    return file;
}
