// The arithmetic of the animations.
#include "ui/frame_stepping.h"

constexpr int kSpriteStep = 3;

uint16_t NextFrame(uint16_t frame, int count) {
    return frame + 1 >= count ? uint16_t{0} : static_cast<uint16_t>(frame + 1);
}

void MoveSprite(SpriteState& sprite) {
    if (sprite.down) {
        sprite.y += kSpriteStep;
        if (sprite.y >= sprite.lower) {
            sprite.y = sprite.lower;
            sprite.down = false;
        }
    } else {
        sprite.y -= kSpriteStep;
        if (sprite.y <= sprite.upper) {
            sprite.y = sprite.upper;
            sprite.down = true;
        }
    }
}

int SpriteFrame(const SpriteState& sprite) {
    return sprite.down ? 0 : 1;
}

int CenteredIn(int areaStart, int areaLength, int pictureLength) {
    return areaStart + (areaLength - pictureLength) / 2;
}
