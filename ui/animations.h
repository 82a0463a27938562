// The decorative animations of the main window: one picture area per mode and a sprite that travels
// in the strip at the right. Each mode's can be switched off; then nothing of it is drawn.
#pragma once

#include <windows.h>

// Takes the strip's place from its control and starts every animation anew. The pictures stand in
// the middle of their areas, wherever those are when they are drawn.
void PlaceAnimations(HWND window);

// Shows or hides the current mode's areas by its setting, and hides those of the other modes.
void ShowAnimationAreas(HWND window);

// Draws the current mode's animation and the sprite as they stand, for a repaint.
void DrawAnimations(HWND window);

// A tick of the animation timer: the next frame, and in cdplayer mode, where it runs only while the
// disc plays, the sprite too. Ignored while the window is minimised.
void StepAnimation(HWND window, bool discPlaying);

// A tick of the position timer in a file mode: the sprite alone.
void StepSprite(HWND window);
