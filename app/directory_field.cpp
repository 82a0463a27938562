// The field in which the user types the mode's directory.
#include "app/directory_field.h"

#include <string>

#include "app/program_state.h"
#include "files/path_check.h"
#include "playback/file_list.h"
#include "resources/ids.h"
#include "ui/boxes.h"
#include "ui/dialog_helpers.h"

static bool IsSameDirectory(const std::string& a, const std::string& b) {
    return lstrcmpiA(a.c_str(), b.c_str()) == 0;
}

void OnLeaveDirectoryField() {
    std::string* directory = ModeDirectory();
    if (directory == nullptr) return;
    const std::string typed = ControlText(MainWindow, IDC_DIRECTORY);
    // A directory that was not touched stays, even one that cannot be entered at the moment.
    bool unchanged = IsSameDirectory(typed, *directory);
    std::string checked;
    if (!unchanged && CheckTypedDirectory(typed, checked)) {
        unchanged = IsSameDirectory(checked, *directory);
        *directory = checked;
    } else if (!unchanged) {
        unchanged = true;
        PostMessageA(MainWindow, kInvalidPathMessage, 0, 0);
    }
    FillModeList(unchanged);
}

void OnInvalidPath() {
    ShowMessage("Invalid path!");
}
