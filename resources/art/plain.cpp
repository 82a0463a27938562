#include <algorithm>
#include "resources/art/shapes.h"
#include "resources/art/skin_pictures.h"
Picture DrawIcons(int s, bool) {
    Picture p = MakePicture(s * kSkinIconCount, s, kFaceGrey);
    for (int i = 0; i < kSkinIconCount; ++i) FillRectangle(p, i * s + 2, 3, s - 4, s - 6, static_cast<Index>(kInk + 1 + i));
    FillRectangle(p,0,0,1,1,kReliefLight); FillRectangle(p,0,1,1,1,kReliefShade);
    return p;
}
Picture DrawFrameCorners() {
    Picture p = MakePicture(kCornerSize * 4, kCornerSize, kAmber);
    for (int i = 0; i < 4; ++i) DrawEdge(p, i * 8, 0, 8, 8, kReliefLight, kReliefShade);
    return p;
}
static StripPicture Plain(const SkinStrip& s) {
    Picture p = MakePicture(s.frame.width * s.frames, s.frame.height, kFaceGrey);
    for (int i = 0; i < s.frames; ++i) {
        const int x = i * s.frame.width;
        DrawEdge(p, x, 3, s.frame.width, s.frame.height - 6, kReliefShade, kReliefLight);
        FillRectangle(p, x + 1, 4, s.frame.width - 2, s.frame.height - 8, kInk);
        FillRectangle(p, x + 3 + (s.frame.width - 14) * i / s.frames, s.frame.height / 2 - 4, 8, 8, kAmber);
    }
    return {p, HousePalette()};
}
StripPicture DrawCdStrip() { return Plain(kCdStrip); }
StripPicture DrawMidiStrip() { return Plain(kMidiStrip); }
StripPicture DrawWaveStrip() { return Plain(kWaveStrip); }
StripPicture DrawAboutStrip() { return Plain(kAboutStrip); }
StripPicture DrawCopyStrip() { return Plain(kCopyStrip); }
StripPicture DrawCdSprite() { return Plain(kCdSprite); }
StripPicture DrawWaveSprite() { return Plain(kWaveSprite); }
StripPicture DrawMidiSprite() { return Plain(kMidiSprite); }
StripPicture DrawVideoSprite() { return Plain(kVideoSprite); }
