// make_media DIR: writes the files that the demo and the tests play into DIR/wave, DIR/midi,
// DIR/video and DIR/discs. The same program always writes the same bytes.
#include <cstdio>
#include <filesystem>

#include "demo/media/catalogue_maker.h"
#include "demo/media/disc_maker.h"
#include "demo/media/midi_maker.h"
#include "demo/media/pieces.h"
#include "demo/media/video_maker.h"
#include "demo/media/wave_maker.h"

using std::filesystem::path;

static std::vector<int16_t> RenderMilliseconds(const Sketch& sketch, int sampleRate,
                                               uint32_t milliseconds) {
    const auto frames = static_cast<size_t>(sampleRate) * milliseconds / 1000;
    return RenderPiece(ComposePiece(sketch), sampleRate, frames);
}

static bool WriteWaves(const path& directory) {
    for (const WaveSketch& wave : WaveSketches()) {
        const auto samples = RenderMilliseconds(wave.sketch, wave.sampleRate, wave.milliseconds);
        const WaveForm form = {wave.sampleRate, wave.channels, wave.bitsPerSample};
        if (!WriteFile(directory / wave.fileName, PackWave(samples, form))) return false;
    }
    // The header of a wave file, cut off before it says what kind of samples follow.
    Bytes broken;
    PutText(broken, "RIFF");
    PutLittle32(broken, 4000);
    PutText(broken, "WAVEfmt ");
    return WriteFile(directory / "Broken on Purpose.wav", broken);
}

static bool WriteMidis(const path& directory) {
    for (const MidiSketch& midi : MidiSketches()) {
        if (!WriteFile(directory / midi.fileName, PackMidi(ComposePiece(midi.sketch))))
            return false;
    }
    Bytes broken;
    PutText(broken, "This is a line of text and no music.\r\n");
    return WriteFile(directory / "Broken on Purpose.mid", broken);
}

static bool WriteVideos(const path& directory) {
    const Cartoon small = {160, 120, 90, 15, false};
    const Cartoon large = {400, 300, 45, 15, true};
    const Sketch& tune = MidiSketches()[0].sketch;
    const auto stereo = RenderMilliseconds(tune, 22050, 6000);
    std::vector<int16_t> mono;
    for (size_t i = 0; i + 1 < stereo.size(); i += 2)
        mono.push_back(static_cast<int16_t>((stereo[i] + stereo[i + 1]) / 2));
    const Cartoon boat = {160, 120, 60, 15, false, Scene::kBoat};
    Bytes broken;
    PutText(broken, "RIFF");
    PutLittle32(broken, 40);
    PutText(broken, "AVI LIST");
    // A movie atom that claims more than the file has.
    Bytes brokenFilm;
    PutBig32(brokenFilm, 4000);
    PutText(brokenFilm, "moov");
    return WriteFile(directory / "Bouncing Ball.avi", PackCartoon(small, mono)) &&
           WriteFile(directory / "Over the Hills.avi", PackCartoon(large, {})) &&
           WriteFile(directory / "Paper Boat.mov", PackCartoonFilm(boat, mono)) &&
           WriteFile(directory / "Broken on Purpose.avi", broken) &&
           WriteFile(directory / "Broken on Purpose.mov", brokenFilm);
}

static bool WriteDiscs(const path& directory) {
    for (const DemoDisc& disc : DemoDiscs()) {
        if (!WriteDisc(directory / disc.folder, disc)) return false;
    }
    return WriteFile(directory / "tarnwell.dat", PackCatalogue(DemoDiscs().front()));
}

int main(int argumentCount, char** arguments) {
    if (argumentCount != 2) {
        std::fprintf(stderr, "usage: make_media DIR\n");
        return 2;
    }
    const path root = arguments[1];
    const bool written = WriteWaves(root / "wave") && WriteMidis(root / "midi") &&
                         WriteVideos(root / "video") && WriteDiscs(root / "discs");
    return written ? 0 : 1;
}
