// The short sounds of the buttons, played from the program's own resources.
#pragma once

#include <windows.h>

#include <mmsystem.h>

constexpr UINT kClickFlags = SND_MEMORY | SND_NODEFAULT | SND_ASYNC;
constexpr UINT kClickToEndFlags = SND_MEMORY | SND_NODEFAULT;

// Plays IDS_SOUND_... when click sounds are switched on; nothing is loaded when they are off.
void PlayClickSound(int soundId, UINT flags = kClickFlags);
// Releases the sound loaded last; the platform may still be playing it until then.
void FreeClickSound();
