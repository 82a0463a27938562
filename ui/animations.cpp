// The decorative animations of the main window.
#include "ui/animations.h"

#include "base/program_state.h"
#include "base/settings.h"
#include "resources/ids.h"
#include "ui/dialog_helpers.h"
#include "ui/frame_stepping.h"
#include "ui/frame_strip.h"
#include "ui/handles.h"

// A mode's animation: its area, its strip (video has none of its own), and its setting.
struct ModeAnimation {
    int mode;
    int areaId;
    const SkinStrip* strip;
    const SkinStrip* sprite;
    bool SettingsValues::*enabled;
};
constexpr ModeAnimation kAnimations[] = {
    {IDC_MODE_WAVE, IDC_WAVE_ANIMATION, &kWaveStrip, &kWaveSprite, &SettingsValues::waveAnimation},
    {IDC_MODE_MIDI, IDC_MIDI_ANIMATION, &kMidiStrip, &kMidiSprite, &SettingsValues::midiAnimation},
    {IDC_MODE_VIDEO, 0, nullptr, &kVideoSprite, &SettingsValues::videoAnimation},
    {IDC_MODE_CDPLAYER, IDC_CD_ANIMATION, &kCdStrip, &kCdSprite, &SettingsValues::cdAnimation},
};
constexpr int kAnimationCount = static_cast<int>(std::size(kAnimations));

static RECT Areas[kAnimationCount];  // in client coordinates; empty for video
static uint16_t Frames[kAnimationCount];
static RECT StripArea;
static SpriteState Sprite;

static int CurrentIndex() {
    for (int i = 0; i < kAnimationCount; ++i) {
        if (kAnimations[i].mode == PlayMode) return i;
    }
    return 0;
}

static bool IsEnabled(int index) {
    return Settings.*kAnimations[index].enabled;
}

void PlaceAnimations(HWND window) {
    for (int i = 0; i < kAnimationCount; ++i) {
        if (kAnimations[i].areaId != 0) Areas[i] = ControlRect(window, kAnimations[i].areaId);
        Frames[i] = 0;
    }
    StripArea = ControlRect(window, IDC_SPRITE_STRIP);
    Sprite.upper = StripArea.top + 1;
    Sprite.lower = StripArea.bottom - kCdSprite.frame.height - 1;
    Sprite.y = Sprite.upper;
    Sprite.down = true;
}

void ShowAnimationAreas(HWND window) {
    const int current = CurrentIndex();
    for (int i = 0; i < kAnimationCount; ++i) {
        if (kAnimations[i].areaId == 0) continue;
        ShowControl(window, kAnimations[i].areaId, i == current && IsEnabled(i));
    }
    ShowControl(window, IDC_SPRITE_STRIP, IsEnabled(current));
}

static void DrawFrame(HWND window, int index) {
    const SkinStrip* strip = kAnimations[index].strip;
    if (strip == nullptr || !IsEnabled(index)) return;
    const RECT place = PicturePlace(Areas[index], strip->frame);
    DrawStripFrame(window, *strip, Frames[index], place.left, place.top, true);
}

static int SpriteX() {
    return CenteredIn(StripArea.left, StripArea.right - StripArea.left, kCdSprite.frame.width);
}

static void DrawSprite(HWND window, int index) {
    if (!IsEnabled(index)) return;
    const SkinStrip& strip = *kAnimations[index].sprite;
    // The video picture owns the palette in its mode.
    const bool usePalette = PlayMode != IDC_MODE_VIDEO;
    DrawStripFrame(window, strip, SpriteFrame(Sprite), SpriteX(), Sprite.y, usePalette);
}

// The ground that the sprite is drawn for, inside the strip's one-pixel frame, and around the
// sprite, so that it does not flash.
static void FillStrip(HWND window) {
    RECT inside = StripArea;
    InflateRect(&inside, -1, -1);
    const UniqueWindowDc dc = GetUniqueDc(window);
    ExcludeClipRect(dc.get(), SpriteX(), Sprite.y, SpriteX() + kCdSprite.frame.width,
                    Sprite.y + kCdSprite.frame.height);
    FillRect(dc.get(), &inside, GetSysColorBrush(COLOR_BTNFACE));
}

void DrawAnimations(HWND window) {
    const int current = CurrentIndex();
    if (!IsEnabled(current)) return;
    if (const SkinStrip* strip = kAnimations[current].strip) {
        DrawMount(window, Areas[current], strip->frame);
        DrawFrame(window, current);
    }
    FillStrip(window);
    DrawSprite(window, current);
}

void StepAnimation(HWND window, bool discPlaying) {
    if (IsIconic(window)) return;
    const int current = CurrentIndex();
    const ModeAnimation& animation = kAnimations[current];
    if (animation.strip == nullptr) return;
    if (InCdMode() && !discPlaying) return;
    Frames[current] = NextFrame(Frames[current], animation.strip->frames);
    DrawFrame(window, current);
    if (InCdMode()) StepSprite(window);
}

void StepSprite(HWND window) {
    const int current = CurrentIndex();
    if (!IsEnabled(current)) return;
    MoveSprite(Sprite);
    DrawSprite(window, current);
}
