// What the editor and the mixer dialog have in common: a list of the programs in a directory, from
// which the user chooses one for each purpose.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "files/programs.h"

// One purpose of a program.
struct ProgramPurpose {
    std::string title;  // empty: the template's own
    ProgramSlot slot;
};

// `working` is the purpose shown at first. Where there are several, the dialog has a radio button
// for each.
void ShowProgramDialog(HWND owner, int dialogId, const std::vector<ProgramPurpose>& purposes,
                       size_t working);
