// The melody repeats two rhythmic motifs over the chords in the order A B A C and comes home at the
// end; everything is decided by the sketch, so the same sketch always gives the same piece.
#include "demo/media/composer.h"

#include <algorithm>
#include <cstdlib>

static constexpr uint8_t kLead = 0;
static constexpr uint8_t kChords = 1;
static constexpr uint8_t kBass = 2;
static constexpr uint8_t kDrums = 9;

using Rhythm = std::vector<double>;

struct Motif {
    Rhythm rhythm;           // beats of each note; fills one bar
    std::vector<int> steps;  // scale steps of each note away from the first
};

static uint32_t Random(uint32_t& state, uint32_t below) {
    state = state * 1664525U + 1013904223U;
    return (state >> 16) % below;
}

static const Rhythm& PickRhythm(uint32_t& state, int beatsPerBar) {
    static const Rhythm kThree[] = {
        {1, 1, 1}, {2, 1}, {1.5, 0.5, 1}, {1, 0.5, 0.5, 1}, {0.5, 0.5, 1, 1}};
    static const Rhythm kFour[] = {{1, 1, 2},          {1.5, 0.5, 1, 1},        {1, 0.5, 0.5, 2},
                                   {1, 1, 1, 1},       {0.5, 0.5, 1, 1.5, 0.5}, {1.5, 1.5, 1},
                                   {0.5, 1, 0.5, 1, 1}};
    return beatsPerBar == 3 ? kThree[Random(state, 5)] : kFour[Random(state, 7)];
}

static Motif MakeMotif(uint32_t& state, int beatsPerBar) {
    Motif motif;
    motif.rhythm = PickRhythm(state, beatsPerBar);
    const int direction = Random(state, 2) == 0 ? 1 : -1;
    int step = 0;
    for (size_t i = 0; i < motif.rhythm.size(); ++i) {
        motif.steps.push_back(step);
        // Mostly on in one direction, now and then a step back or a small leap.
        const uint32_t choice = Random(state, 6);
        step += choice < 3 ? direction : choice == 3 ? -direction : choice == 4 ? 2 * direction : 0;
    }
    return motif;
}

// The key of a scale degree counted from the tonic (0 is the tonic itself, 7 the octave). Over the
// fifth degree's chord the seventh of a minor scale is raised, as ears expect.
static uint8_t KeyOfDegree(const Sketch& sketch, int degree, int root) {
    static const int kMajor[7] = {0, 2, 4, 5, 7, 9, 11};
    static const int kMinor[7] = {0, 2, 3, 5, 7, 8, 10};
    const int octave = (degree + 70) / 7 - 10;
    const int inOctave = degree - octave * 7;
    int key = sketch.tonic + octave * 12 + (sketch.minor ? kMinor : kMajor)[inOctave];
    if (sketch.minor && root == 4 && inOctave == 6) ++key;
    return static_cast<uint8_t>(std::clamp(key, 0, 127));
}

static int RootOfBar(const Sketch& sketch, int bar) {
    if (bar == sketch.bars - 1) return 0;
    if (bar == sketch.bars - 2) return 4;
    int count = 0;
    while (sketch.progression[count] != '\0')
        ++count;
    return sketch.progression[bar % count] - '1';
}

// The note of the chord that lies nearest to a degree.
static int NearestChordDegree(int degree, int root) {
    int best = root;
    for (int candidate = degree - 4; candidate <= degree + 4; ++candidate) {
        const int above = (candidate - root + 70) % 7;
        const bool inChord = above == 0 || above == 2 || above == 4;
        if (inChord && std::abs(candidate - degree) < std::abs(best - degree)) best = candidate;
    }
    return best;
}

static void AddNote(Piece& piece, double beat, double beats, uint8_t channel, uint8_t key,
                    int velocity) {
    piece.notes.push_back({beat, beats, channel, key, static_cast<uint8_t>(velocity)});
}

static void AddMelody(Piece& piece, const Sketch& sketch) {
    uint32_t state = sketch.seed * 2654435761U + 12345U;
    const Motif motifs[3] = {MakeMotif(state, sketch.beatsPerBar),
                             MakeMotif(state, sketch.beatsPerBar),
                             MakeMotif(state, sketch.beatsPerBar)};
    static const int kOrder[4] = {0, 1, 0, 2};
    int previous = 4 + static_cast<int>(Random(state, 4));
    for (int bar = 0; bar < sketch.bars - 1; ++bar) {
        const Motif& motif = motifs[kOrder[bar % 4]];
        const int root = RootOfBar(sketch, bar);
        const int first = NearestChordDegree(previous > 9 ? 7 : previous < 1 ? 3 : previous, root);
        double beat = bar * sketch.beatsPerBar;
        for (size_t i = 0; i < motif.rhythm.size(); ++i) {
            int degree = std::clamp(first + motif.steps[i], -1, 11);
            if (motif.rhythm[i] > 1) degree = NearestChordDegree(degree, root);
            AddNote(piece, beat, motif.rhythm[i] * 0.92, kLead, KeyOfDegree(sketch, degree, root),
                    i == 0 ? 104 : 92);
            beat += motif.rhythm[i];
            previous = degree;
        }
    }
    const int last = previous > 3 ? 7 : 0;
    AddNote(piece, (sketch.bars - 1) * sketch.beatsPerBar, sketch.beatsPerBar * 0.8, kLead,
            KeyOfDegree(sketch, last, 0), 100);
}

static void AddChord(Piece& piece, const Sketch& sketch, int root, double beat, double beats,
                     int velocity) {
    // Close position around the tonic: a chord on a high degree is turned over.
    const int lowest = root > 3 ? root - 7 : root;
    for (int note = 0; note < 3; ++note)
        AddNote(piece, beat, beats, kChords, KeyOfDegree(sketch, lowest + 2 * note, root),
                velocity);
}

static void AddFigure(Piece& piece, const Sketch& sketch, int root, double start,
                      const int* degrees, int count) {
    for (int i = 0; i < count; ++i) {
        const int lowest = root > 3 ? root - 7 : root;
        AddNote(piece, start + 0.5 * i, 0.48, kChords,
                KeyOfDegree(sketch, lowest + degrees[i], root), i == 0 ? 76 : 66);
    }
}

static void AddAccompanimentBar(Piece& piece, const Sketch& sketch, int bar) {
    static const int kUpAndDown[8] = {0, 2, 4, 7, 4, 2, 4, 2};
    static const int kBroken[8] = {0, 4, 2, 4, 0, 4, 2, 4};
    const int root = RootOfBar(sketch, bar);
    const double start = bar * sketch.beatsPerBar;
    switch (sketch.accompaniment) {
        case Accompaniment::kArpeggio:
            AddFigure(piece, sketch, root, start, kUpAndDown, sketch.beatsPerBar * 2);
            break;
        case Accompaniment::kBroken:
            AddFigure(piece, sketch, root, start, kBroken, sketch.beatsPerBar * 2);
            break;
        case Accompaniment::kWaltz:
            for (int beat = 1; beat < sketch.beatsPerBar; ++beat)
                AddChord(piece, sketch, root, start + beat, 0.6, 64);
            break;
        case Accompaniment::kMarch:
            for (int beat = 1; beat < sketch.beatsPerBar; beat += 2)
                AddChord(piece, sketch, root, start + beat, 0.4, 70);
            break;
        case Accompaniment::kChords:
            AddChord(piece, sketch, root, start, sketch.beatsPerBar * 0.95, 62);
            break;
    }
}

static void AddBassBar(Piece& piece, const Sketch& sketch, int bar) {
    const int root = RootOfBar(sketch, bar);
    const double start = bar * sketch.beatsPerBar;
    const int low = (root > 3 ? root - 7 : root) - 14;
    if (sketch.beatsPerBar == 3) {
        AddNote(piece, start, 2.5, kBass, KeyOfDegree(sketch, low, root), 96);
        return;
    }
    AddNote(piece, start, 1.8, kBass, KeyOfDegree(sketch, low, root), 98);
    AddNote(piece, start + 2, 1.8, kBass, KeyOfDegree(sketch, low + 4, root), 88);
}

static void AddDrumBar(Piece& piece, const Sketch& sketch, int bar) {
    const double start = bar * sketch.beatsPerBar;
    for (int half = 0; half < sketch.beatsPerBar * 2; ++half)
        AddNote(piece, start + 0.5 * half, 0.2, kDrums, 42, half % 2 == 0 ? 70 : 52);
    for (int beat = 0; beat < sketch.beatsPerBar; ++beat) {
        const bool strong = sketch.beatsPerBar == 3 ? beat == 0 : beat % 2 == 0;
        AddNote(piece, start + beat, 0.2, kDrums, strong ? 36 : 38, strong ? 104 : 78);
    }
}

static void AddFinalBar(Piece& piece, const Sketch& sketch) {
    const double start = (sketch.bars - 1) * sketch.beatsPerBar;
    AddChord(piece, sketch, 0, start, sketch.beatsPerBar * 0.8, 66);
    AddNote(piece, start, sketch.beatsPerBar * 0.8, kBass, KeyOfDegree(sketch, -14, 0), 98);
    if (sketch.drums) AddNote(piece, start, 0.2, kDrums, 36, 104);
}

Piece ComposePiece(const Sketch& sketch) {
    Piece piece;
    piece.title = sketch.title;
    piece.beatsPerMinute = sketch.beatsPerMinute;
    piece.beats = sketch.bars * sketch.beatsPerBar;
    piece.programs[kLead] = sketch.leadProgram;
    piece.programs[kChords] = sketch.chordProgram;
    piece.programs[kBass] = 33;
    piece.programs[3] = 0;
    AddMelody(piece, sketch);
    for (int bar = 0; bar < sketch.bars - 1; ++bar) {
        AddAccompanimentBar(piece, sketch, bar);
        AddBassBar(piece, sketch, bar);
        if (sketch.drums) AddDrumBar(piece, sketch, bar);
    }
    AddFinalBar(piece, sketch);
    return piece;
}

double PieceSeconds(const Piece& piece) {
    return piece.beats * 60 / piece.beatsPerMinute;
}
