// The short sounds of the buttons.
#include "ui/click_sounds.h"

#include "base/program_state.h"
#include "base/settings.h"

static HGLOBAL LastSound;

void PlayClickSound(int soundId, UINT flags) {
    if (!Settings.soundControls) return;
    HRSRC resource = FindResourceA(ProgramInstance, MAKEINTRESOURCEA(soundId), "SOUND");
    if (resource == nullptr) return;
    LastSound = LoadResource(ProgramInstance, resource);
    if (LastSound == nullptr) return;
    sndPlaySoundA(static_cast<LPCSTR>(LockResource(LastSound)), flags);
}

void FreeClickSound() {
    if (LastSound == nullptr) return;
    sndPlaySoundA(nullptr, 0);
    FreeResource(LastSound);
    LastSound = nullptr;
}
