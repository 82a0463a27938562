// The decorative animations of the main window.
#include "ui/animations.h"

#include "base/handles.h"
#include "base/program_state.h"
#include "base/settings.h"
#include "resources/ids.h"
#include "ui/dialog_helpers.h"
#include "ui/frame_stepping.h"
#include "ui/frame_strip.h"

// The frame that each mode's picture shows.
static uint16_t Frames[IDC_MODE_CDPLAYER - IDC_MODE_WAVE + 1];

static RECT StripArea;
static SpriteState Sprite;

static uint16_t& FrameOf(const Mode& mode) {
    return Frames[mode.id - IDC_MODE_WAVE];
}

static bool IsEnabled(const Mode& mode) {
    return Settings.*mode.animation;
}

void PlaceAnimations(HWND window) {
    for (uint16_t& frame : Frames)
        frame = 0;
    StripArea = ControlRect(window, IDC_SPRITE_STRIP);
    Sprite.upper = StripArea.top + 1;
    Sprite.lower = StripArea.bottom - kCdSprite.frame.height - 1;
    Sprite.y = Sprite.upper;
    Sprite.down = true;
}

void ShowAnimationAreas(HWND window) {
    const Mode& current = CurrentMode();
    for (const Mode& mode : Modes()) {
        if (mode.animationArea == 0) continue;
        ShowControl(window, mode.animationArea, &mode == &current && IsEnabled(mode));
    }
    ShowControl(window, IDC_SPRITE_STRIP, IsEnabled(current));
}

static void DrawFrame(HWND window, const Mode& mode) {
    if (mode.strip == nullptr || !IsEnabled(mode)) return;
    const RECT area = ControlRect(window, mode.animationArea);
    const RECT place = PicturePlace(area, mode.strip->frame);
    DrawStripFrame(window, *mode.strip, FrameOf(mode), place.left, place.top, true);
}

static int SpriteX() {
    return CenteredIn(StripArea.left, StripArea.right - StripArea.left, kCdSprite.frame.width);
}

static void DrawSprite(HWND window, const Mode& mode) {
    if (!IsEnabled(mode)) return;
    // The video picture owns the palette in its mode.
    DrawStripFrame(window, *mode.sprite, SpriteFrame(Sprite), SpriteX(), Sprite.y,
                   !mode.showsVideo);
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
    const Mode& mode = CurrentMode();
    if (!IsEnabled(mode)) return;
    if (mode.strip != nullptr) {
        DrawMount(window, ControlRect(window, mode.animationArea), mode.strip->frame);
        DrawFrame(window, mode);
    }
    FillStrip(window);
    DrawSprite(window, mode);
}

void StepAnimation(HWND window, bool discPlaying) {
    if (IsIconic(window)) return;
    const Mode& mode = CurrentMode();
    if (mode.strip == nullptr) return;
    if (InCdMode() && !discPlaying) return;
    FrameOf(mode) = NextFrame(FrameOf(mode), mode.strip->frames);
    DrawFrame(window, mode);
    if (InCdMode()) StepSprite(window);
}

void StepSprite(HWND window) {
    const Mode& mode = CurrentMode();
    if (!IsEnabled(mode)) return;
    MoveSprite(Sprite);
    DrawSprite(window, mode);
}
