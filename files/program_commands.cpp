// The Editor and Volume commands.
#include "files/program_commands.h"

#include "base/modes.h"
#include "files/editors_dialog.h"
#include "files/mixer_dialog.h"
#include "files/programs.h"
#include "ui/boxes.h"

static void StartOrTell(const Program& program, const std::string& arguments) {
    if (!StartProgram(program, arguments)) {
        ShowMessage("CreateProcess failed! Can't load " + program.directory + program.name);
    }
}

void EditFirstFile(HWND owner, const std::vector<std::string>& names) {
    const MediaType& type = TypeOfFile(CurrentMode(), names[0]);
    Program editor;
    if (ReadProgram(EditorSlot(type), editor)) {
        StartOrTell(editor, " " + *ModeDirectory() + names[0]);
    } else if (AskQuestion("No editor selected for " + FilePattern(type) +
                           " files. Do you want to select one?")) {
        ShowEditorsDialog(owner, type);
    }
}

void StartMixer(HWND owner) {
    Program mixer;
    if (ReadProgram(MixerSlot(), mixer)) {
        StartOrTell(mixer, "");
    } else if (AskQuestion("No volume mixer program selected. Do you want to select one?")) {
        ShowMixerDialog(owner);
    }
}
