// The program's icon: the emblem at three sizes, in the sixteen common colours and in 256.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "resources/art/glyph_kit.h"
#include "resources/art/skin_pictures.h"

namespace {

// One picture of the icon, rows from the top. Indices refer to `colours`.
struct IconImage {
    int size;
    int bitsPerPixel;
    std::vector<Colour> colours;
    std::vector<std::uint8_t> pixels;
    std::vector<bool> opaque;
};

}  // namespace

static Layer DrawEmblemLayer(int size, const EmblemColours& colours) {
    Layer layer = MakeLayer(size, size);
    const double middle = size / 2.0;
    PaintEmblem(layer, {middle, middle}, middle, size > 40 ? 1.5 : 1, colours);
    return layer;
}

// Counts the samples of each colour in one pixel.
static std::vector<int> CountSamples(const Layer& layer, int column, int row) {
    std::vector<int> counts(256, 0);
    for (int i = 0; i < kSamples * kSamples; ++i) {
        const int x = column * kSamples + i % kSamples;
        const int y = row * kSamples + i / kSamples;
        ++counts[layer.samples[static_cast<std::size_t>(y * layer.width * kSamples + x)]];
    }
    return counts;
}

// In the common colours there is nothing to mix: the most frequent colour of a pixel stands.
static IconImage DrawCommonImage(int size) {
    const EmblemColours colours = {kBlack,       {kPureRed, kDarkYellow, kPureYellow},
                                   kReliefLight, kFaceGrey,
                                   kDarkRed,     {kDarkCyan, kDarkBlue},
                                   kPureCyan};
    const Layer layer = DrawEmblemLayer(size, colours);
    const Palette palette = CommonPalette();
    IconImage image = {size, 4, {palette.begin(), palette.end()}, {}, {}};
    for (int i = 0; i < size * size; ++i) {
        const std::vector<int> counts = CountSamples(layer, i % size, i / size);
        const bool opaque = counts[kClear] <= kSamples * kSamples / 2;
        const auto most = std::max_element(counts.begin(), counts.begin() + 16);
        image.opaque.push_back(opaque);
        image.pixels.push_back(opaque ? static_cast<std::uint8_t>(most - counts.begin())
                                      : static_cast<std::uint8_t>(kBlack));
    }
    return image;
}

static std::uint8_t AddColour(std::vector<Colour>& colours, const Colour& wanted) {
    std::size_t best = 0;
    int bestDistance = 1 << 30;
    for (std::size_t i = 0; i < colours.size(); ++i) {
        const int red = colours[i].red - wanted.red;
        const int green = colours[i].green - wanted.green;
        const int blue = colours[i].blue - wanted.blue;
        const int distance = red * red + green * green + blue * blue;
        if (distance < bestDistance) {
            bestDistance = distance;
            best = i;
        }
    }
    if (bestDistance == 0 || colours.size() == 256) return static_cast<std::uint8_t>(best);
    colours.push_back(wanted);
    return static_cast<std::uint8_t>(colours.size() - 1);
}

// Keeps a few of a channel's steps, so that mixtures of the emblem's colours fit in the table.
static std::uint8_t Coarse(int sum, int count) {
    const int value = (sum + count / 2) / count;
    return static_cast<std::uint8_t>(std::min(255, (value + 4) / 8 * 8));
}

static IconImage DrawSmoothImage(int size) {
    const Layer layer = DrawEmblemLayer(size, HouseEmblem());
    const Palette palette = HousePalette();
    IconImage image = {size, 8, {{0, 0, 0}}, {}, {}};
    for (int i = 0; i < size * size; ++i) {
        const std::vector<int> counts = CountSamples(layer, i % size, i / size);
        int red = 0;
        int green = 0;
        int blue = 0;
        int count = 0;
        for (std::size_t k = 0; k < palette.size(); ++k) {
            red += counts[k] * palette[k].red;
            green += counts[k] * palette[k].green;
            blue += counts[k] * palette[k].blue;
            count += counts[k];
        }
        const bool opaque = count >= kSamples * kSamples / 2;
        image.opaque.push_back(opaque);
        if (!opaque) {
            image.pixels.push_back(0);
            continue;
        }
        const Colour mixed = {Coarse(red, count), Coarse(green, count), Coarse(blue, count)};
        image.pixels.push_back(AddColour(image.colours, mixed));
    }
    return image;
}

// Bytes of one row, padded to four.
static int Stride(int size, int bitsPerPixel) {
    return (size * bitsPerPixel + 31) / 32 * 4;
}

static std::vector<std::uint8_t> ImageBytes(const IconImage& image) {
    const int size = image.size;
    const int stride = Stride(size, image.bitsPerPixel);
    const int maskStride = Stride(size, 1);
    const int tableSize = 1 << image.bitsPerPixel;
    std::vector<std::uint8_t> bytes;
    AppendLittleEndian(bytes, 40, 4);
    AppendLittleEndian(bytes, static_cast<std::uint32_t>(size), 4);
    AppendLittleEndian(bytes, static_cast<std::uint32_t>(2 * size), 4);  // picture and mask
    AppendLittleEndian(bytes, 1, 2);
    AppendLittleEndian(bytes, static_cast<std::uint32_t>(image.bitsPerPixel), 2);
    AppendLittleEndian(bytes, 0, 4);
    AppendLittleEndian(bytes, static_cast<std::uint32_t>(size * (stride + maskStride)), 4);
    for (int i = 0; i < 4; ++i)
        AppendLittleEndian(bytes, 0, 4);
    for (int i = 0; i < tableSize; ++i) {
        const auto slot = static_cast<std::size_t>(i);
        const Colour colour = slot < image.colours.size() ? image.colours[slot] : Colour{0, 0, 0};
        bytes.insert(bytes.end(), {colour.blue, colour.green, colour.red, 0});
    }
    for (int row = size - 1; row >= 0; --row) {
        std::vector<std::uint8_t> line(static_cast<std::size_t>(stride), 0);
        for (int column = 0; column < size; ++column) {
            const int bit = column * image.bitsPerPixel;
            const int shift = 8 - image.bitsPerPixel - bit % 8;
            const int index = image.pixels[static_cast<std::size_t>(row * size + column)];
            auto& byte = line[static_cast<std::size_t>(bit / 8)];
            byte = static_cast<std::uint8_t>(byte | index << shift);
        }
        bytes.insert(bytes.end(), line.begin(), line.end());
    }
    for (int row = size - 1; row >= 0; --row) {
        std::vector<std::uint8_t> line(static_cast<std::size_t>(maskStride), 0);
        for (int column = 0; column < size; ++column) {
            if (image.opaque[static_cast<std::size_t>(row * size + column)]) continue;
            auto& byte = line[static_cast<std::size_t>(column / 8)];
            byte = static_cast<std::uint8_t>(byte | 0x80 >> column % 8);
        }
        bytes.insert(bytes.end(), line.begin(), line.end());
    }
    return bytes;
}

bool WriteIcon(const std::string& path) {
    std::vector<IconImage> images;
    for (const int size : {16, 32, 48})
        images.push_back(DrawCommonImage(size));
    for (const int size : {16, 32, 48})
        images.push_back(DrawSmoothImage(size));

    const auto count = static_cast<std::uint32_t>(images.size());
    std::vector<std::uint8_t> bytes;
    AppendLittleEndian(bytes, 0, 2);
    AppendLittleEndian(bytes, 1, 2);
    AppendLittleEndian(bytes, count, 2);
    std::uint32_t offset = 6 + 16 * count;
    std::vector<std::uint8_t> bodies;
    for (const IconImage& image : images) {
        const std::vector<std::uint8_t> body = ImageBytes(image);
        const auto size = static_cast<std::uint32_t>(image.size);
        AppendLittleEndian(bytes, size, 1);
        AppendLittleEndian(bytes, size, 1);
        AppendLittleEndian(bytes, image.bitsPerPixel == 4 ? 16 : 0, 1);
        AppendLittleEndian(bytes, 0, 1);
        AppendLittleEndian(bytes, 1, 2);
        AppendLittleEndian(bytes, static_cast<std::uint32_t>(image.bitsPerPixel), 2);
        AppendLittleEndian(bytes, static_cast<std::uint32_t>(body.size()), 4);
        AppendLittleEndian(bytes, offset, 4);
        offset += static_cast<std::uint32_t>(body.size());
        bodies.insert(bodies.end(), body.begin(), body.end());
    }
    bytes.insert(bytes.end(), bodies.begin(), bodies.end());
    return WriteBytes(path, bytes);
}
