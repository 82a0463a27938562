// Dialog 1600: which program edits the files of each kind.
#include "files/editors_dialog.h"

#include "files/program_dialog.h"
#include "resources/ids.h"

std::string FilePattern(const MediaType& type) {
    std::string extension = type.extension;
    CharUpperA(extension.data());
    return "*." + extension;
}

void ShowEditorsDialog(HWND owner, const MediaType& type) {
    std::vector<ProgramPurpose> purposes;
    for (const MediaType& each : MediaTypes()) {
        purposes.push_back({"Select editor for " + FilePattern(each) + " files", EditorSlot(each)});
    }
    ShowProgramDialog(owner, IDD_EDITORS, purposes,
                      static_cast<size_t>(&type - MediaTypes().data()));
}

void ShowEditorsDialog(HWND owner) {
    ShowEditorsDialog(owner, InCdMode() ? MediaTypes()[0] : CurrentMode().types[0]);
}
