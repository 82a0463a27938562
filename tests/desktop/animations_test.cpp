// The decorative animations as they appear on the screen: the pictures found there are compared
// with those in the program's resources.
#include <optional>
#include <set>

#include "tests/desktop/desktop_test.h"
#include "tests/desktop/screen.h"

// Where a frame stands in a control, counted from the control's top edge, and which it is.
struct FramePlace {
    int y;
    int frame;
    bool operator==(const FramePlace&) const = default;
};

static std::optional<FramePlace> FindFrame(const Picture& screen, const SkinStrip& sprite) {
    const Picture& frames = ResourcePicture(sprite.id);
    const int left = (screen.width - sprite.frame.width) / 2;
    for (int y = 0; y + sprite.frame.height <= screen.height; ++y) {
        for (int frame = 0; frame < sprite.frames; ++frame) {
            const SkinRect part = {frame * sprite.frame.width, 0, sprite.frame.width,
                                   sprite.frame.height};
            if (ShowsPart(screen, left, y, frames, part)) return FramePlace{y, frame};
        }
    }
    return std::nullopt;
}

// Inside the strip's frame there is nothing of the program's beside the sprite.
static bool IsBare(const Picture& screen, int spriteY, uint32_t ground) {
    for (int y = 1; y < screen.height - 1; ++y) {
        if (y >= spriteY && y < spriteY + kWaveSprite.frame.height) continue;
        for (int x = 1; x < screen.width - 1; ++x) {
            if (screen.At(x, y) != ground) return false;
        }
    }
    return true;
}

struct ModeCase {
    int tab;
    int area;  // 0 for video
    const SkinStrip* strip;
    const SkinStrip* sprite;
};
constexpr ModeCase kModes[] = {
    {IDC_MODE_CDPLAYER, IDC_CD_ANIMATION, &kCdStrip, &kCdSprite},
    {IDC_MODE_MIDI, IDC_MIDI_ANIMATION, &kMidiStrip, &kMidiSprite},
    {IDC_MODE_VIDEO, 0, nullptr, &kVideoSprite},
    {IDC_MODE_WAVE, IDC_WAVE_ANIMATION, &kWaveStrip, &kWaveSprite},
};

class AnimationsTest : public DesktopTest {
protected:
    // The frame that stands in the middle of the mode's area; -1 for none.
    int Frame(const ModeCase& mode) {
        const Picture screen = Photograph(Control(player.window, mode.area));
        const std::optional<FramePlace> place = FindFrame(screen, *mode.strip);
        const int middle = (screen.height - mode.strip->frame.height) / 2;
        return place && place->y == middle ? place->frame : -1;
    }
    Picture Strip() { return Photograph(Control(player.window, IDC_SPRITE_STRIP)); }
    std::optional<FramePlace> Sprite(const SkinStrip& sprite) { return FindFrame(Strip(), sprite); }
};

TEST_F(AnimationsTest, EachModeShowsItsOwnAndMovesItOnlyWhenSwitchedOn) {
    const ModeCase& wave = kModes[3];
    AddMedia("tone.wav", WaveFile(60000));
    for (const bool on : {true, false}) {
        SwitchAnimations(on ? "On" : "Off");
        ASSERT_NO_FATAL_FAILURE(StartIn("cdplayer"));
        for (const ModeCase& mode : kModes) {
            SCOPED_TRACE("mode " + std::to_string(mode.tab) + (on ? ", on" : ", off"));
            Command(player.window, mode.tab);
            ASSERT_TRUE(Settle(player));
            for (const ModeCase& other : kModes) {
                const bool shown = on && &other == &mode && other.area != 0;
                EXPECT_EQ(IsShown(player.window, other.area), shown) << other.tab;
            }
            EXPECT_EQ(IsShown(player.window, IDC_SPRITE_STRIP), on);
            EXPECT_TRUE(WaitUntil([&] { return Sprite(*mode.sprite).has_value() == on; }));
            EXPECT_TRUE(mode.area == 0 || WaitUntil([&] { return (Frame(mode) >= 0) == on; }));
        }
        const Picture start = Strip();
        EXPECT_EQ(Frame(wave), on ? 0 : -1);
        Play({"tone.wav"});
        if (!on) {
            // Several ticks of both timers draw nothing.
            ASSERT_TRUE(WaitUntil([&] { return ReadOutMs(Shown(IDC_POSITION)) > 1500; }));
            EXPECT_EQ(Frame(wave), -1);
            EXPECT_EQ(Strip().pixels, start.pixels);
            return;
        }
        const int lower = start.height - 1 - kWaveSprite.frame.height;
        const uint32_t ground = start.At(1, start.height - 2);
        std::set<int> frames;
        bool turned = false;
        const auto look = [&] {
            const Picture strip = Strip();
            const std::optional<FramePlace> sprite = FindFrame(strip, kWaveSprite);
            EXPECT_TRUE(sprite && sprite->y >= 1 && sprite->y <= lower) << "left its strip";
            EXPECT_TRUE(sprite && IsBare(strip, sprite->y, ground)) << "left a trace";
            turned = turned || (sprite && sprite->frame == 1);
            frames.insert(Frame(wave));
            return (turned && frames == std::set{0, 1, 2, 3}) || HasFailure();
        };
        EXPECT_TRUE(WaitUntil(look, 60000));
    }
}

TEST_F(AnimationsTest, DiscTurnsOnlyWhilePlayingAndSeen) {
    const ModeCase& disc = kModes[0];
    InsertDisc({600});
    SwitchAnimations("On");
    ASSERT_NO_FATAL_FAILURE(StartIn("cdplayer"));
    ASSERT_TRUE(WaitForShown(IDC_CD_STATUS, "Ready"));
    EXPECT_TRUE(WaitUntil([&] { return Frame(disc) == 0; }));
    EXPECT_FALSE(WaitUntil([&] { return Frame(disc) != 0; }, 1000)) << "turns without playing";

    Command(player.window, IDC_CD_PLAY);
    ASSERT_TRUE(WaitUntil([&] { return Frame(disc) >= 2; }));
    EXPECT_GT(Sprite(kCdSprite).value_or(FramePlace{0, 0}).y, 1);
    Command(player.window, IDC_CD_PAUSE);
    ASSERT_TRUE(WaitForShown(IDC_CD_STATUS, "Paused"));
    const int frame = Frame(disc);
    ASSERT_GE(frame, 2);
    EXPECT_FALSE(WaitUntil([&] { return Frame(disc) != frame; }, 1000)) << "turns while paused";

    Command(player.window, IDC_CD_PLAY);
    ASSERT_TRUE(WaitUntil([&] { return Frame(disc) != frame; }));
    ShowWindow(player.window, SW_MINIMIZE);
    ASSERT_TRUE(WaitUntil([&] { return IsIconic(player.window) != FALSE; }));
    EXPECT_FALSE(WaitUntil([&] { return !IsIconic(player.window); }, 2000));
    Command(player.window, IDC_CD_PAUSE);
    ShowWindow(player.window, SW_RESTORE);
    ASSERT_TRUE(WaitForShown(IDC_CD_STATUS, "Paused"));
    int after = -1;
    EXPECT_TRUE(WaitUntil([&] { return (after = Frame(disc)) >= 0; }));
    // A tick before and one after the time in which six were ignored.
    EXPECT_LE((after - frame + kCdStrip.frames) % kCdStrip.frames, 4);
    ShowWindow(player.window, SW_MINIMIZE);
    ASSERT_TRUE(WaitUntil([&] { return Frame(disc) < 0; }));
    ShowWindow(player.window, SW_RESTORE);
    EXPECT_TRUE(WaitUntil([&] { return Frame(disc) == after; })) << "painting shows another";
}
