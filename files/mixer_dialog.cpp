// Dialog 1900: which program is the volume mixer.
#include "files/mixer_dialog.h"

#include "files/program_dialog.h"
#include "resources/ids.h"

void ShowMixerDialog(HWND owner) {
    ShowProgramDialog(owner, IDD_MIXER, {{"", MixerSlot()}}, 0);
}
