// A QuickTime file is a tree of atoms; the one called "moov" holds everything but the media and is
// taken into memory whole.
#include "demo/projector/film_file.h"

#include <algorithm>
#include <cstring>
#include <span>
#include <string_view>

using Atom = std::span<const uint8_t>;

static constexpr uint64_t kMaxMovieBytes = 64U << 20;
static constexpr int kMaxAtoms = 1000;  // side by side
static constexpr uint32_t kMaxSide = 16384;

// A number of up to eight bytes; 0 where the atom ends before it.
static uint64_t Number(Atom atom, uint64_t at, uint64_t size) {
    if (at > atom.size() || size > atom.size() - at) return 0;
    uint64_t value = 0;
    for (uint64_t i = 0; i < size; ++i)
        value = value << 8 | atom[static_cast<size_t>(at + i)];
    return value;
}

static bool IsNamed(Atom atom, uint64_t at, std::string_view name) {
    return at <= atom.size() && name.size() <= atom.size() - at &&
           std::memcmp(atom.data() + at, name.data(), name.size()) == 0;
}

// The content of the n-th atom of that name; empty when there is none.
static Atom Child(Atom parent, std::string_view name, int n = 0) {
    uint64_t at = 0;
    for (int i = 0; i < kMaxAtoms && at + 8 <= parent.size(); ++i) {
        const uint64_t size = Number(parent, at, 4);
        if (size < 8 || size > parent.size() - at) return {};
        if (IsNamed(parent, at + 4, name) && n-- == 0)
            return parent.subspan(static_cast<size_t>(at + 8), static_cast<size_t>(size - 8));
        at += size;
    }
    return {};
}

static uint64_t SizeOf(std::istream& file) {
    file.clear();
    file.seekg(0, std::ios::end);
    return static_cast<uint64_t>(std::max<std::streamoff>(file.tellg(), 0));
}

static bool ReadBytes(std::istream& file, uint64_t at, uint8_t* bytes, size_t count) {
    file.clear();
    file.seekg(static_cast<std::streamoff>(at));
    file.read(reinterpret_cast<char*>(bytes), static_cast<std::streamsize>(count));
    return file.good();
}

static bool ReadMovieAtom(std::istream& file, uint64_t fileBytes, std::vector<uint8_t>& movie) {
    uint64_t at = 0;
    for (int i = 0; i < kMaxAtoms && at + 8 <= fileBytes; ++i) {
        uint8_t head[16] = {};
        if (!ReadBytes(file, at, head, 8)) return false;
        uint64_t headBytes = 8;
        uint64_t size = Number(head, 0, 4);
        if (size == 1) {
            headBytes = 16;
            if (!ReadBytes(file, at, head, 16)) return false;
            size = Number(head, 8, 8);
        }
        if (size == 0) size = fileBytes - at;  // the last one may leave it open
        if (size < headBytes || size > fileBytes - at) return false;
        if (IsNamed(head, 4, "moov")) {
            if (size - headBytes > kMaxMovieBytes) return false;
            movie.resize(static_cast<size_t>(size - headBytes));
            return ReadBytes(file, at + headBytes, movie.data(), movie.size());
        }
        at += size;
    }
    return false;
}

// A table: a count, then that many entries of equal size. False when the count is more than the
// atom holds.
struct Table {
    Atom entries;
    uint64_t count = 0;
    uint64_t entryBytes = 0;
};

static bool OpenTable(Atom atom, uint64_t countAt, uint64_t entryBytes, Table& table) {
    if (atom.size() < countAt + 4) return false;
    table.count = Number(atom, countAt, 4);
    table.entryBytes = entryBytes;
    table.entries = atom.subspan(static_cast<size_t>(countAt + 4));
    return table.count <= table.entries.size() / entryBytes;
}

static uint64_t Entry(const Table& table, uint64_t index, uint64_t at, uint64_t size) {
    return Number(table.entries, index * table.entryBytes + at, size);
}

// A stretch of a track that lies together in the file.
struct Chunk {
    uint64_t offset;
    uint32_t samples;
};

static bool ReadChunks(Atom samples, std::vector<Chunk>& chunks) {
    Table offsets, runs;
    const bool isWide = Child(samples, "stco").empty();
    const uint64_t offsetBytes = isWide ? 8 : 4;
    if (!OpenTable(Child(samples, isWide ? "co64" : "stco"), 4, offsetBytes, offsets)) return false;
    if (!OpenTable(Child(samples, "stsc"), 4, 12, runs) || runs.count == 0) return false;
    if (offsets.count > kMaxFilmFrames) return false;
    uint64_t run = 0;
    for (uint64_t i = 0; i < offsets.count; ++i) {
        // A run counts from its first chunk, numbered from 1, to the next run's.
        if (run + 1 < runs.count && Entry(runs, run + 1, 0, 4) <= i + 1) ++run;
        chunks.push_back(
            {Entry(offsets, i, 0, offsetBytes), static_cast<uint32_t>(Entry(runs, run, 4, 4))});
    }
    return true;
}

static bool IsInFile(uint64_t offset, uint64_t size, uint64_t fileBytes) {
    return offset <= fileBytes && size <= fileBytes - offset;
}

// Where every picture lies.
static bool PlaceFrames(Atom samples, uint64_t fileBytes, Film& film) {
    std::vector<Chunk> chunks;
    const Atom sizes = Child(samples, "stsz");
    const uint64_t commonSize = Number(sizes, 4, 4);
    const uint64_t count = Number(sizes, 8, 4);
    Table table;
    if (count == 0 || count > kMaxFilmFrames || !ReadChunks(samples, chunks)) return false;
    if (commonSize == 0 && !OpenTable(sizes, 8, 4, table)) return false;
    const uint64_t pictureBytes = uint64_t{film.width} * film.height * film.bytesPerPixel;
    for (const Chunk& chunk : chunks) {
        uint64_t offset = chunk.offset;
        for (uint32_t i = 0; i < chunk.samples && film.frames.size() < count; ++i) {
            const uint64_t size =
                commonSize != 0 ? commonSize : Entry(table, film.frames.size(), 0, 4);
            if (size < pictureBytes || !IsInFile(offset, size, fileBytes)) return false;
            film.frames.push_back({offset, 0});
            offset += size;
        }
    }
    return film.frames.size() == count;
}

// When every picture is shown.
static bool TimeFrames(Atom media, Atom samples, Film& film) {
    const Atom header = Child(media, "mdhd");
    const bool isWide = Number(header, 0, 1) == 1;
    const uint64_t unitsPerSecond = Number(header, isWide ? 20 : 12, 4);
    Table runs;
    if (unitsPerSecond == 0 || !OpenTable(Child(samples, "stts"), 4, 8, runs)) return false;
    uint64_t units = 0;
    size_t frame = 0;
    for (uint64_t run = 0; run < runs.count && frame < film.frames.size(); ++run) {
        const uint64_t count =
            std::min<uint64_t>(Entry(runs, run, 0, 4), film.frames.size() - frame);
        for (uint64_t i = 0; i < count; ++i) {
            film.frames[frame++].startMs = static_cast<uint32_t>(units * 1000 / unitsPerSecond);
            units += Entry(runs, run, 4, 4);
            if (units * 1000 / unitsPerSecond > INT32_MAX) return false;
        }
    }
    film.lengthMs = static_cast<uint32_t>(units * 1000 / unitsPerSecond);
    return frame == film.frames.size() && film.lengthMs > 0;
}

static bool ReadPictureTrack(Atom media, Atom samples, uint64_t fileBytes, Film& film) {
    const Atom description = Child(samples, "stsd");
    const uint64_t entry = 8;
    if (!IsNamed(description, entry + 4, "raw ")) return false;
    film.width = static_cast<uint32_t>(Number(description, entry + 32, 2));
    film.height = static_cast<uint32_t>(Number(description, entry + 34, 2));
    const uint64_t bits = Number(description, entry + 82, 2);
    film.bytesPerPixel = static_cast<uint32_t>(bits / 8);
    const bool isSizeSane =
        film.width >= 1 && film.width <= kMaxSide && film.height >= 1 && film.height <= kMaxSide;
    return (bits == 24 || bits == 32) && isSizeSane && PlaceFrames(samples, fileBytes, film) &&
           TimeFrames(media, samples, film);
}

static bool ReadSoundTrack(Atom samples, uint64_t fileBytes, FilmSound& sound) {
    const Atom description = Child(samples, "stsd");
    const uint64_t entry = 8;
    const bool isBytes = IsNamed(description, entry + 4, "raw ");
    sound.isLittleEndian = IsNamed(description, entry + 4, "sowt");
    if (!isBytes && !sound.isLittleEndian && !IsNamed(description, entry + 4, "twos")) return false;
    sound.channels = static_cast<uint32_t>(Number(description, entry + 24, 2));
    const uint64_t bits = Number(description, entry + 26, 2);
    sound.sampleRate = static_cast<uint32_t>(Number(description, entry + 32, 2));
    sound.bytesPerSample = static_cast<uint32_t>(bits / 8);
    if (bits != (isBytes ? 8U : 16U) || sound.channels < 1 || sound.channels > 2 ||
        sound.sampleRate < 4000 || sound.sampleRate > 192000)
        return false;
    std::vector<Chunk> chunks;
    if (!ReadChunks(samples, chunks)) return false;
    for (const Chunk& chunk : chunks) {
        const uint64_t bytes = uint64_t{chunk.samples} * sound.channels * sound.bytesPerSample;
        if (!IsInFile(chunk.offset, bytes, fileBytes)) return false;
        sound.pieces.push_back({chunk.offset, sound.frameCount});
        sound.frameCount += chunk.samples;
    }
    return true;
}

bool ReadFilm(std::istream& file, Film& film) {
    const uint64_t fileBytes = SizeOf(file);
    std::vector<uint8_t> movie;
    if (!ReadMovieAtom(file, fileBytes, movie)) return false;
    Film found;
    bool hasPictures = false, hasSound = false;
    for (int i = 0; i < kMaxAtoms; ++i) {
        const Atom track = Child(movie, "trak", i);
        if (track.empty()) break;
        const Atom media = Child(track, "mdia");
        const Atom samples = Child(Child(media, "minf"), "stbl");
        const Atom handler = Child(media, "hdlr");
        if (IsNamed(handler, 8, "vide") && !hasPictures) {
            hasPictures = true;
            if (!ReadPictureTrack(media, samples, fileBytes, found)) return false;
        } else if (IsNamed(handler, 8, "soun") && !hasSound) {
            hasSound = true;
            if (!ReadSoundTrack(samples, fileBytes, found.sound)) found.sound = {};
        }
    }
    if (hasPictures) film = std::move(found);
    return hasPictures;
}

uint32_t FrameAt(const Film& film, uint32_t milliseconds) {
    const auto next = std::upper_bound(
        film.frames.begin(), film.frames.end(), milliseconds,
        [](uint32_t time, const FilmFrame& frame) { return time < frame.startMs; });
    return static_cast<uint32_t>(std::max<ptrdiff_t>(next - film.frames.begin(), 1) - 1);
}

uint32_t FrameStart(const Film& film, uint32_t frame) {
    return frame < film.frames.size() ? film.frames[frame].startMs : film.lengthMs;
}

bool ReadPicture(std::istream& file, const Film& film, uint32_t frame, std::vector<uint8_t>& rows) {
    if (frame >= film.frames.size()) return false;
    const size_t pixel = film.bytesPerPixel;
    std::vector<uint8_t> picture(size_t{film.width} * film.height * pixel);
    if (!ReadBytes(file, film.frames[frame].offset, picture.data(), picture.size())) return false;
    const size_t rowBytes = (size_t{film.width} * 3 + 3) / 4 * 4;
    rows.assign(rowBytes * film.height, 0);
    const uint8_t* from = picture.data() + (pixel - 3);
    for (size_t y = 0; y < film.height; ++y) {
        uint8_t* to = rows.data() + y * rowBytes;
        for (size_t x = 0; x < film.width; ++x, from += pixel, to += 3) {
            to[0] = from[2];
            to[1] = from[1];
            to[2] = from[0];
        }
    }
    return true;
}

static int16_t Sample(const FilmSound& sound, const uint8_t* bytes) {
    if (sound.bytesPerSample == 1) return static_cast<int16_t>((bytes[0] - 128) * 256);
    const int high = bytes[sound.isLittleEndian ? 1 : 0];
    const int low = bytes[sound.isLittleEndian ? 0 : 1];
    return static_cast<int16_t>(high << 8 | low);
}

uint32_t ReadSound(std::istream& file, const FilmSound& sound, uint64_t first, uint32_t count,
                   int16_t* samples) {
    if (first >= sound.frameCount) return 0;
    const auto frames = static_cast<uint32_t>(std::min<uint64_t>(count, sound.frameCount - first));
    const uint32_t frameBytes = sound.channels * sound.bytesPerSample;
    auto piece = std::upper_bound(
        sound.pieces.begin(), sound.pieces.end(), first,
        [](uint64_t frame, const SoundPiece& one) { return frame < one.firstFrame; });
    std::vector<uint8_t> bytes;
    for (uint32_t done = 0; done < frames;) {
        const uint64_t pieceEnd =
            piece == sound.pieces.end() ? sound.frameCount : piece->firstFrame;
        const SoundPiece& here = *(piece++ - 1);
        const uint64_t at = first + done;
        const auto part = static_cast<uint32_t>(std::min<uint64_t>(frames - done, pieceEnd - at));
        bytes.assign(size_t{part} * frameBytes, sound.bytesPerSample == 1 ? 128 : 0);
        ReadBytes(file, here.offset + (at - here.firstFrame) * frameBytes, bytes.data(),
                  bytes.size());
        for (size_t i = 0; i < size_t{part} * sound.channels; ++i)
            *samples++ = Sample(sound, bytes.data() + i * sound.bytesPerSample);
        done += part;
    }
    return frames;
}
