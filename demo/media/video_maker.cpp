// A ball that bounces over hills, and the AVI container around its pictures.
#include "demo/media/video_maker.h"

#include <cmath>

static constexpr int kSoundRate = 22050;
static constexpr uint32_t kKeyFrame = 0x10;

enum Colour : uint8_t {
    kSkyTop = 0,
    kSkySteps = 16,
    kHill = 20,
    kHillShade,
    kBall,
    kBallLight,
    kSun
};

static void PutPalette(Bytes& bytes) {
    for (uint32_t i = 0; i < 256; ++i) {
        uint32_t red = i, green = i, blue = i;
        if (i < kSkySteps) {
            red = 90 + i * 9;
            green = 140 + i * 6;
            blue = 220 + i * 2;
        }
        const uint32_t named[5][3] = {
            {70, 140, 70}, {50, 110, 60}, {200, 50, 40}, {250, 150, 130}, {255, 230, 120}};
        if (i >= kHill && i <= kSun) {
            red = named[i - kHill][0];
            green = named[i - kHill][1];
            blue = named[i - kHill][2];
        }
        PutLittle32(bytes, blue | green << 8 | red << 16);
    }
}

static bool IsInside(double x, double y, double centreX, double centreY, double radius) {
    return (x - centreX) * (x - centreX) + (y - centreY) * (y - centreY) < radius * radius;
}

// Rows from the bottom up, as bitmaps store them; each row is a multiple of four pixels.
static Bytes DrawPicture(const Cartoon& cartoon, int frame) {
    const double time = static_cast<double>(frame) / cartoon.framesPerSecond;
    const double width = cartoon.width, height = cartoon.height;
    const double radius = height / 9;
    const double ballX = width * (0.15 + 0.7 * frame / cartoon.frameCount);
    const double ballY = height * (0.72 - 0.5 * std::fabs(std::sin(time * 3.0)));
    Bytes picture;
    picture.reserve(static_cast<size_t>(cartoon.width) * static_cast<size_t>(cartoon.height));
    for (int row = cartoon.height - 1; row >= 0; --row) {
        for (int column = 0; column < cartoon.width; ++column) {
            const double hill = height * (0.82 - 0.06 * std::sin(column * 9.0 / width + 0.4));
            auto colour = static_cast<uint8_t>(row * kSkySteps / cartoon.height);
            if (IsInside(column, row, width * 0.82, height * 0.2, radius)) colour = kSun;
            if (row > hill) colour = row > hill + height * 0.06 ? kHillShade : kHill;
            if (IsInside(column, row, ballX, ballY, radius)) colour = kBall;
            if (IsInside(column, row, ballX - radius / 3, ballY - radius / 3, radius / 4))
                colour = kBallLight;
            picture.push_back(colour);
        }
    }
    return picture;
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
        const Bytes picture = DrawPicture(cartoon, frame);
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
