// The pictures of the skin against the table of rectangles and the loader's expectations.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "resources/skin_map.h"
#include "tests/art/skin_files.h"

struct ExpectedPicture {
    std::string name;
    int width;
    int height;
};

static std::vector<ExpectedPicture> ExpectedPictures() {
    std::vector<ExpectedPicture> all = {
        {"icons", kSkinIconCount * kSmallIconSize, kSmallIconSize},
        {"icons_large", kSkinIconCount * kLargeIconSize, kLargeIconSize},
        {"icons_highlight", kSkinIconCount * kSmallIconSize, kSmallIconSize},
        {"icons_highlight_large", kSkinIconCount * kLargeIconSize, kLargeIconSize},
        {"frame_corners", kCornerCount * kCornerSize, kCornerSize}};
    const struct {
        const char* name;
        SkinGrid grid;
    } grids[] = {{"main_buttons", kMainButtonGrid},
                 {"dialog_buttons", kDialogButtonGrid},
                 {"small_buttons", kSmallButtonGrid},
                 {"tabs", kTabGrid},
                 {"menu_buttons", kMenuButtonGrid}};
    for (const auto& [name, grid] : grids) {
        const int columns = 2 * grid.columns;
        all.push_back({name, columns * grid.smallCell.width, grid.rows * grid.smallCell.height});
        all.push_back({std::string(name) + "_large", columns * grid.largeCell.width,
                       grid.rows * grid.largeCell.height});
    }
    return all;
}

struct NamedStrip {
    const char* name;
    SkinStrip strip;
};

static const std::vector<NamedStrip>& Strips() {
    static const std::vector<NamedStrip> kStrips = {
        {"cd_strip", kCdStrip},       {"midi_strip", kMidiStrip},   {"wave_strip", kWaveStrip},
        {"about_strip", kAboutStrip}, {"copy_strip", kCopyStrip},   {"cd_sprite", kCdSprite},
        {"wave_sprite", kWaveSprite}, {"midi_sprite", kMidiSprite}, {"video_sprite", kVideoSprite}};
    return kStrips;
}

TEST(Skin, EveryPictureHasTheHeaderAndTheColoursThatTheLoaderTrusts) {
    std::vector<ExpectedPicture> all = ExpectedPictures();
    for (const NamedStrip& entry : Strips()) {
        const SkinStrip& strip = entry.strip;
        all.push_back({entry.name, strip.frames * strip.frame.width, strip.frame.height});
    }
    ASSERT_EQ(all.size(), 24u);
    for (const ExpectedPicture& expected : all) {
        SCOPED_TRACE(expected.name);
        const SkinFile file = ReadSkinFile(expected.name);
        EXPECT_EQ(file.width, expected.width);
        EXPECT_EQ(file.height, expected.height);
        const int imageSize = (file.width + 7) / 8 * 4 * file.height;
        EXPECT_EQ(file.bytes.size(), static_cast<std::size_t>(118 + imageSize));
        EXPECT_EQ(ReadNumber(file.bytes, 2, 4), file.bytes.size());
        EXPECT_EQ(ReadNumber(file.bytes, 10, 4), 118u);  // pixels
        EXPECT_EQ(ReadNumber(file.bytes, 14, 4), 40u);   // header
        EXPECT_EQ(ReadNumber(file.bytes, 28, 2), 4u);    // bits
        EXPECT_EQ(ReadNumber(file.bytes, 30, 4), 0u);    // plain
        EXPECT_EQ(ReadNumber(file.bytes, 34, 4), static_cast<std::uint32_t>(imageSize));
        EXPECT_EQ(ReadNumber(file.bytes, 46, 4), 16u);  // colours
        const std::vector<std::uint32_t> reserved = {0xC0C0C0, 0xFFFFFF, 0x808080};
        EXPECT_TRUE(std::equal(reserved.begin(), reserved.end(), file.colours.begin()));
        for (std::size_t i = reserved.size(); i < file.colours.size(); ++i) {
            EXPECT_EQ(std::count(file.colours.begin(), file.colours.end(), file.colours[i]), 1)
                << "colour " << i << " twice";
        }
    }
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
        for (int x = 0; x < a.width; ++x) {
            count += file.At(a.x + x, a.y + y) != file.At(b.x + x, b.y + y);
        }
    }
    return count;
}

TEST(Skin, EveryFaceIsDrawnAndNoTwoLookAlike) {
    const struct {
        const char* name;
        SkinGrid grid;
        int faces;
    } grids[] = {{"main_buttons", kMainButtonGrid, 21},
                 {"dialog_buttons", kDialogButtonGrid, 8},
                 {"small_buttons", kSmallButtonGrid, 11},
                 {"tabs", kTabGrid, 8},
                 {"menu_buttons", kMenuButtonGrid, 4}};
    for (const auto& [name, grid, faces] : grids) {
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

TEST(Skin, StripsMoveWithEveryFrameAndCloseWithoutAJump) {
    for (const NamedStrip& entry : Strips()) {
        SCOPED_TRACE(entry.name);
        const SkinFile file = ReadSkinFile(entry.name);
        const SkinStrip& strip = entry.strip;
        const auto frameAt = [&](int frame) {
            return SkinRect{frame * strip.frame.width, 0, strip.frame.width, strip.frame.height};
        };
        int most = 0;
        for (int frame = 1; frame < strip.frames; ++frame) {
            const int changed = Differences(file, frameAt(frame - 1), frameAt(frame));
            EXPECT_GT(changed, 0) << "frame " << frame << " repeats the one before";
            most = std::max(most, changed);
        }
        EXPECT_LE(Differences(file, frameAt(strip.frames - 1), frameAt(0)), most * 5 / 4);
    }
}

// What a sprite leaves uncovered as it moves on must be background.
TEST(Skin, SpritesLeaveNothingBehind) {
    constexpr int kStep = 3;
    for (const NamedStrip& entry : Strips()) {
        if (entry.strip.frame.width != 32) continue;
        const SkinFile file = ReadSkinFile(entry.name);
        for (int x = 0; x < 2 * 32; ++x) {
            for (int row = 0; row < kStep; ++row) {
                const int y = x < 32 ? row : entry.strip.frame.height - 1 - row;
                EXPECT_EQ(file.At(x, y), 0) << entry.name << " at " << x << ", " << y;
            }
        }
    }
}
