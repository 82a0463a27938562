// The pictures of the skin against the table of rectangles and what the eye expects.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "resources/skin_map.h"
#include "tests/art/file_bytes.h"

// A 4-bit bitmap, rows from the top.
struct SkinFile {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> colours;  // 0xRRGGBB
    std::vector<std::uint8_t> pixels;

    int At(int x, int y) const { return pixels.at(static_cast<std::size_t>(y * width + x)); }
};

// `name` as in the skin's folder, without the extension.
static SkinFile ReadSkinFile(const std::string& name) {
    const Bytes bytes = ReadFileBytes(std::string(RESOURCES_FOLDER "/skin/") + name + ".bmp");
    SkinFile file;
    file.width = static_cast<int>(ReadNumber(bytes, 18, 4));
    file.height = static_cast<int>(ReadNumber(bytes, 22, 4));
    for (std::size_t i = 0; i < 16; ++i)
        file.colours.push_back(ReadNumber(bytes, 54 + 4 * i, 4));
    const int stride = (file.width + 7) / 8 * 4;
    for (int y = file.height - 1; y >= 0; --y) {
        for (int x = 0; x < file.width; ++x) {
            const int pair = bytes.at(static_cast<std::size_t>(118 + y * stride + x / 2));
            file.pixels.push_back(static_cast<std::uint8_t>(x % 2 ? pair & 15 : pair >> 4));
        }
    }
    return file;
}

struct NamedStrip {
    const char* name;
    SkinStrip strip;
};
static const NamedStrip kStrips[] = {
    {"cd_strip", kCdStrip},       {"midi_strip", kMidiStrip},   {"wave_strip", kWaveStrip},
    {"about_strip", kAboutStrip}, {"copy_strip", kCopyStrip},   {"cd_sprite", kCdSprite},
    {"wave_sprite", kWaveSprite}, {"midi_sprite", kMidiSprite}, {"video_sprite", kVideoSprite}};

static const struct {
    const char* name;
    SkinGrid grid;
    int faces;
} kGrids[] = {{"main_buttons", kMainButtonGrid, 21},
              {"dialog_buttons", kDialogButtonGrid, 8},
              {"small_buttons", kSmallButtonGrid, 11},
              {"tabs", kTabGrid, 8},
              {"menu_buttons", kMenuButtonGrid, 4}};

static void ExpectPicture(const std::string& name, int width, int height) {
    const SkinFile file = ReadSkinFile(name);
    EXPECT_EQ(file.width, width) << name;
    EXPECT_EQ(file.height, height) << name;
    const std::vector<std::uint32_t> reserved = {0xC0C0C0, 0xFFFFFF, 0x808080};
    EXPECT_TRUE(std::equal(reserved.begin(), reserved.end(), file.colours.begin())) << name;
    EXPECT_EQ(std::set(file.colours.begin(), file.colours.end()).size(), 16u) << name;
}

TEST(Skin, EveryPictureHasTheSizeAndTheColoursThatTheProgramTrusts) {
    for (const std::string icons : {"icons", "icons_highlight"}) {
        ExpectPicture(icons, kSkinIconCount * kSmallIconSize, kSmallIconSize);
        ExpectPicture(icons + "_large", kSkinIconCount * kLargeIconSize, kLargeIconSize);
    }
    ExpectPicture("frame_corners", kCornerCount * kCornerSize, kCornerSize);
    for (const auto& [name, grid, faces] : kGrids) {
        const int columns = 2 * grid.columns;
        ExpectPicture(name, columns * grid.smallCell.width, grid.rows * grid.smallCell.height);
        ExpectPicture(std::string(name) + "_large", columns * grid.largeCell.width,
                      grid.rows * grid.largeCell.height);
    }
    for (const auto& [name, strip] : kStrips)
        ExpectPicture(name, strip.frames * strip.frame.width, strip.frame.height);
}

static int OwnPixels(const SkinFile& file, const SkinRect& at) {
    int count = 0;
    for (int y = at.y; y < at.y + at.height; ++y) {
        for (int x = at.x; x < at.x + at.width; ++x)
            count += file.At(x, y) > 2;
    }
    return count;
}

// Pixels that differ between two rectangles of one size.
static int Differences(const SkinFile& file, const SkinRect& a, const SkinRect& b) {
    int count = 0;
    for (int y = 0; y < a.height; ++y) {
        for (int x = 0; x < a.width; ++x)
            count += file.At(a.x + x, a.y + y) != file.At(b.x + x, b.y + y);
    }
    return count;
}

TEST(Skin, EveryFaceIsDrawnAndNoTwoLookAlike) {
    for (const auto& [name, grid, faces] : kGrids) {
        for (const bool large : {false, true}) {
            const SkinFile file = ReadSkinFile(std::string(name) + (large ? "_large" : ""));
            std::vector<SkinRect> drawn;
            for (int i = 0; i < faces; ++i) {
                SCOPED_TRACE(std::string(name) + (large ? " large, face " : ", face ") +
                             std::to_string(i));
                const SkinFace face = {&grid, i % grid.columns, i / grid.columns};
                for (const bool pressed : {false, true}) {
                    const SkinRect at = FaceRect(face, pressed, large);
                    EXPECT_GT(OwnPixels(file, at), at.width * at.height / 12);
                    for (const SkinRect& other : drawn)
                        EXPECT_GT(Differences(file, at, other), 20);
                    drawn.push_back(at);
                }
            }
        }
    }
}

TEST(Skin, StripsMoveWithEveryFrameCloseWithoutAJumpAndLeaveNothingBehind) {
    for (const auto& [name, strip] : kStrips) {
        SCOPED_TRACE(name);
        const SkinFile file = ReadSkinFile(name);
        const int width = strip.frame.width;
        const int height = strip.frame.height;
        const auto frameAt = [&](int frame) { return SkinRect{frame * width, 0, width, height}; };
        int most = 0;
        for (int frame = 1; frame < strip.frames; ++frame) {
            const int changed = Differences(file, frameAt(frame - 1), frameAt(frame));
            EXPECT_GT(changed, 0) << "frame " << frame << " repeats the one before";
            most = std::max(most, changed);
        }
        EXPECT_LE(Differences(file, frameAt(strip.frames - 1), frameAt(0)), most * 5 / 4);
        // What a sprite leaves uncovered as it moves on, three rows at a time, must be background.
        for (int x = 0; width == 32 && x < 2 * width; ++x) {
            for (int row = 0; row < 3; ++row)
                EXPECT_EQ(file.At(x, x < width ? row : height - 1 - row), 0) << x << ", " << row;
        }
    }
}
