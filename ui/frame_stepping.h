// The arithmetic of the animations: which frame comes next, where the sprite goes.
#pragma once

#include <cstdint>

// The frame after `frame`, wrapping from the last of `count` to 0.
uint16_t NextFrame(uint16_t frame, int count);

// The sprite that travels up and down its strip. Positions are its top edge in pixels.
struct SpriteState {
    int y = 0;
    int upper = 0;
    int lower = 0;
    bool down = true;
};

// Moves three pixels; at a bound it stops exactly there and turns within the same step.
void MoveSprite(SpriteState& sprite);

// The frame to show: 0 while moving down, 1 while moving up.
int SpriteFrame(const SpriteState& sprite);

// The coordinate that centres a picture in an area; halves are rounded towards zero.
int CenteredIn(int areaStart, int areaLength, int pictureLength);
