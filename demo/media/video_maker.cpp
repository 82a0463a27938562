// A ball that bounces over hills, a boat on the waves, and the AVI container around the pictures.
#include "demo/media/video_maker.h"

#include <cmath>

#include "demo/media/film_maker.h"

static constexpr int kSoundRate = 22050;
static constexpr uint32_t kKeyFrame = 0x10;

enum Colour : uint8_t {
    kSkyTop = 0,
    kSkySteps = 16,
    kHill = 20,
    kHillShade,
    kBall,
    kBallLight,
    kSun,
    kSea,
    kHull,
    kSail,
    kColourCount
};

// Red in the lowest byte.
static uint32_t Rgb(uint32_t colour) {
    uint32_t red = colour, green = colour, blue = colour;
    if (colour < kSkySteps) {
        red = 90 + colour * 9;
        green = 140 + colour * 6;
        blue = 220 + colour * 2;
    }
    const uint32_t named[kColourCount - kHill][3] = {
        {70, 140, 70},   {50, 110, 60},  {200, 50, 40}, {250, 150, 130},
        {255, 230, 120}, {40, 100, 160}, {130, 80, 40}, {250, 245, 230}};
    if (colour >= kHill && colour < kColourCount) {
        red = named[colour - kHill][0];
        green = named[colour - kHill][1];
        blue = named[colour - kHill][2];
    }
    return red | green << 8 | blue << 16;
}

static void PutPalette(Bytes& bytes) {
    for (uint32_t i = 0; i < 256; ++i) {
        const uint32_t colour = Rgb(i);
        PutLittle32(bytes, colour >> 16 | (colour & 0xFF00) | (colour & 0xFF) << 16);
    }
}

static bool IsInside(double x, double y, double centreX, double centreY, double radius) {
    return (x - centreX) * (x - centreX) + (y - centreY) * (y - centreY) < radius * radius;
}

static uint8_t SkyAt(const Cartoon& cartoon, int column, int row) {
    if (IsInside(column, row, cartoon.width * 0.82, cartoon.height * 0.2, cartoon.height / 9.0))
        return kSun;
    return static_cast<uint8_t>(row * kSkySteps / cartoon.height);
}

static uint8_t BallAt(const Cartoon& cartoon, int frame, int column, int row) {
    const double time = static_cast<double>(frame) / cartoon.framesPerSecond;
    const double width = cartoon.width, height = cartoon.height;
    const double radius = height / 9;
    const double ballX = width * (0.15 + 0.7 * frame / cartoon.frameCount);
    const double ballY = height * (0.72 - 0.5 * std::fabs(std::sin(time * 3.0)));
    if (IsInside(column, row, ballX - radius / 3, ballY - radius / 3, radius / 4))
        return kBallLight;
    if (IsInside(column, row, ballX, ballY, radius)) return kBall;
    const double hill = height * (0.82 - 0.06 * std::sin(column * 9.0 / width + 0.4));
    if (row > hill) return row > hill + height * 0.06 ? kHillShade : kHill;
    return SkyAt(cartoon, column, row);
}

static double SeaLevel(const Cartoon& cartoon, double time, double column) {
    return cartoon.height * (0.7 + 0.04 * std::sin(column * 14.0 / cartoon.width + time * 2.0));
}

static uint8_t BoatAt(const Cartoon& cartoon, int frame, int column, int row) {
    const double time = static_cast<double>(frame) / cartoon.framesPerSecond;
    const double size = cartoon.height / 6.0;
    const double boatX = cartoon.width * (0.2 + 0.6 * frame / cartoon.frameCount);
    const double tilt = 0.15 * std::sin(time * 3.0);
    // In the boat's own system: x to the bow, y down from the waterline, one unit its half length.
    const double offX = (column - boatX) / size;
    const double offY = (row - SeaLevel(cartoon, time, boatX)) / size;
    const double x = offX + offY * tilt, y = offY - offX * tilt;
    if (y > -0.4 && y < 0.2 && std::fabs(x) < 1.0 - (y + 0.4) * 0.6) return kHull;
    if (y < -0.5 && y > -2.2 && x > -0.1 && x < 0.8 * (y + 2.2) / 1.7) return kSail;
    if (row > SeaLevel(cartoon, time, column)) return kSea;
    return SkyAt(cartoon, column, row);
}

// Rows from the top down.
static Bytes DrawPicture(const Cartoon& cartoon, int frame) {
    const auto colourAt = cartoon.scene == Scene::kBall ? BallAt : BoatAt;
    Bytes picture;
    picture.reserve(static_cast<size_t>(cartoon.width) * static_cast<size_t>(cartoon.height));
    for (int row = 0; row < cartoon.height; ++row) {
        for (int column = 0; column < cartoon.width; ++column)
            picture.push_back(colourAt(cartoon, frame, column, row));
    }
    return picture;
}

// Rows from the bottom up, as bitmaps store them; each row is a multiple of four pixels.
static Bytes DrawBitmap(const Cartoon& cartoon, int frame) {
    const Bytes picture = DrawPicture(cartoon, frame);
    const auto width = static_cast<ptrdiff_t>(cartoon.width);
    Bytes bitmap;
    for (auto row = picture.end(); row != picture.begin(); row -= width)
        bitmap.insert(bitmap.end(), row - width, row);
    return bitmap;
}

Bytes PackCartoonFilm(const Cartoon& cartoon, const std::vector<int16_t>& monoSamples) {
    const auto draw = [&cartoon](int frame) {
        Bytes picture;
        for (const uint8_t colour : DrawPicture(cartoon, frame)) {
            for (int shift = 0; shift < 24; shift += 8)
                picture.push_back(static_cast<uint8_t>(Rgb(colour) >> shift & 255));
        }
        return picture;
    };
    return PackFilm({cartoon.width, cartoon.height, cartoon.frameCount, cartoon.framesPerSecond},
                    draw, monoSamples, kSoundRate);
}

static Bytes CodeRuns(const Bytes& picture, size_t width) {
    Bytes coded;
    for (size_t start = 0; start < picture.size(); start += width) {
        for (size_t at = start; at < start + width;) {
            size_t run = 1;
            while (run < 255 && at + run < start + width && picture[at + run] == picture[at])
                ++run;
            coded.push_back(static_cast<uint8_t>(run));
            coded.push_back(picture[at]);
            at += run;
        }
        const bool isLastRow = start + width >= picture.size();
        coded.push_back(0);
        coded.push_back(isLastRow ? 1 : 0);
    }
    return coded;
}

// Starts a chunk and says where its size belongs; EndChunk fills that in.
static size_t BeginChunk(Bytes& file, const char* name) {
    PutText(file, name);
    PutLittle32(file, 0);
    return file.size();
}

static void EndChunk(Bytes& file, size_t start) {
    SetLittle32(file, start - 4, static_cast<uint32_t>(file.size() - start));
    if (file.size() % 2 != 0) file.push_back(0);
}

static size_t BeginList(Bytes& file, const char* kind) {
    const size_t start = BeginChunk(file, "LIST");
    PutText(file, kind);
    return start;
}

static void PutStreamHeader(Bytes& file, const char* type, const char* coder, uint32_t scale,
                            uint32_t rate, uint32_t length, uint32_t sampleSize) {
    const size_t start = BeginChunk(file, "strh");
    PutText(file, type);
    PutText(file, std::string_view(coder, 4));
    for (int i = 0; i < 3; ++i)
        PutLittle32(file, 0);
    PutLittle32(file, scale);
    PutLittle32(file, rate);
    PutLittle32(file, 0);
    PutLittle32(file, length);
    PutLittle32(file, 65536);
    PutLittle32(file, 0xFFFFFFFF);
    PutLittle32(file, sampleSize);
    PutLittle32(file, 0);
    PutLittle32(file, 0);
    EndChunk(file, start);
}

static void PutPictureStream(Bytes& file, const Cartoon& cartoon) {
    const size_t list = BeginList(file, "strl");
    PutStreamHeader(file, "vids", cartoon.runLength ? "MRLE" : "DIB ", 1,
                    static_cast<uint32_t>(cartoon.framesPerSecond),
                    static_cast<uint32_t>(cartoon.frameCount), 0);
    const size_t format = BeginChunk(file, "strf");
    PutLittle32(file, 40);
    PutLittle32(file, static_cast<uint32_t>(cartoon.width));
    PutLittle32(file, static_cast<uint32_t>(cartoon.height));
    PutLittle16(file, 1);
    PutLittle16(file, 8);
    PutLittle32(file, cartoon.runLength ? 1 : 0);
    PutLittle32(file, static_cast<uint32_t>(cartoon.width * cartoon.height));
    PutLittle32(file, 0);
    PutLittle32(file, 0);
    PutLittle32(file, 256);
    PutLittle32(file, 0);
    PutPalette(file);
    EndChunk(file, format);
    EndChunk(file, list);
}

static void PutSoundStream(Bytes& file, uint32_t sampleCount) {
    const size_t list = BeginList(file, "strl");
    PutStreamHeader(file, "auds", "\0\0\0\0", 1, kSoundRate, sampleCount, 2);
    const size_t format = BeginChunk(file, "strf");
    PutLittle16(file, 1);
    PutLittle16(file, 1);
    PutLittle32(file, kSoundRate);
    PutLittle32(file, kSoundRate * 2);
    PutLittle16(file, 2);
    PutLittle16(file, 16);
    EndChunk(file, format);
    EndChunk(file, list);
}

static void PutFileHeader(Bytes& file, const Cartoon& cartoon, bool hasSound) {
    const size_t start = BeginChunk(file, "avih");
    PutLittle32(file, 1000000U / static_cast<uint32_t>(cartoon.framesPerSecond));
    PutLittle32(file, 0);
    PutLittle32(file, 0);
    PutLittle32(file, kKeyFrame);  // here: the file has an index
    PutLittle32(file, static_cast<uint32_t>(cartoon.frameCount));
    PutLittle32(file, 0);
    PutLittle32(file, hasSound ? 2 : 1);
    PutLittle32(file, static_cast<uint32_t>(cartoon.width * cartoon.height));
    PutLittle32(file, static_cast<uint32_t>(cartoon.width));
    PutLittle32(file, static_cast<uint32_t>(cartoon.height));
    for (int i = 0; i < 4; ++i)
        PutLittle32(file, 0);
    EndChunk(file, start);
}

static void PutDataChunk(Bytes& file, Bytes& index, size_t moviStart, const char* name,
                         const Bytes& content) {
    PutText(index, name);
    PutLittle32(index, kKeyFrame);
    PutLittle32(index, static_cast<uint32_t>(file.size() - moviStart));
    PutLittle32(index, static_cast<uint32_t>(content.size()));
    const size_t start = BeginChunk(file, name);
    file.insert(file.end(), content.begin(), content.end());
    EndChunk(file, start);
}

Bytes PackCartoon(const Cartoon& cartoon, const std::vector<int16_t>& monoSamples) {
    const bool hasSound = !monoSamples.empty();
    const auto samplesPerFrame = static_cast<size_t>(kSoundRate / cartoon.framesPerSecond);
    const size_t sampleCount = samplesPerFrame * static_cast<size_t>(cartoon.frameCount);
    Bytes file, index;
    const size_t riff = BeginChunk(file, "RIFF");
    PutText(file, "AVI ");
    const size_t header = BeginList(file, "hdrl");
    PutFileHeader(file, cartoon, hasSound);
    PutPictureStream(file, cartoon);
    if (hasSound) PutSoundStream(file, static_cast<uint32_t>(sampleCount));
    EndChunk(file, header);
    const size_t movie = BeginList(file, "movi");
    for (int frame = 0; frame < cartoon.frameCount; ++frame) {
        const Bytes picture = DrawBitmap(cartoon, frame);
        if (cartoon.runLength)
            PutDataChunk(file, index, movie, "00dc",
                         CodeRuns(picture, static_cast<size_t>(cartoon.width)));
        else
            PutDataChunk(file, index, movie, "00db", picture);
        if (!hasSound) continue;
        Bytes sound;
        for (size_t i = 0; i < samplesPerFrame; ++i) {
            const size_t at = static_cast<size_t>(frame) * samplesPerFrame + i;
            PutLittle16(sound,
                        at < monoSamples.size() ? static_cast<uint32_t>(monoSamples[at]) : 0);
        }
        PutDataChunk(file, index, movie, "01wb", sound);
    }
    EndChunk(file, movie);
    const size_t indexStart = BeginChunk(file, "idx1");
    file.insert(file.end(), index.begin(), index.end());
    EndChunk(file, indexStart);
    EndChunk(file, riff);
    return file;
}
