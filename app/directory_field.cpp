// The field in which the user types the mode's directory.
#include "app/directory_field.h"

#include <string>

#include "base/file_description.h"
#include "base/program_state.h"
#include "files/path_check.h"
#include "playback/file_list.h"
#include "resources/ids.h"
#include "ui/boxes.h"
#include "ui/dialog_helpers.h"

constexpr UINT kReleasePollMs = 20;

// What waits for the mouse button.
struct PendingChange {
    bool fill = false;
    bool keepSelection = false;
    bool invalidPath = false;
};
static PendingChange Pending;

void ResetDirectoryField() {
    Pending = {};
}

static bool IsMouseButtonHeld() {
    return GetKeyState(VK_LBUTTON) < 0;
}

// The typed text as the mode's directory. True when it is another than before.
static bool TakeTypedDirectory(const std::string& directory, bool& invalid) {
    const std::string typed = ControlText(MainWindow, IDC_DIRECTORY);
    // A directory that was not touched stays, even one that cannot be entered at the moment.
    if (IsSameFileName(typed, directory)) return false;
    std::string checked;
    invalid = !CheckTypedDirectory(typed, checked);
    if (invalid) return false;
    const bool changed = !IsSameFileName(checked, directory);
    SetModeDirectory(checked);
    return changed;
}

void OnLeaveDirectoryField() {
    const std::string* directory = ModeDirectory();
    if (directory == nullptr) return;
    bool invalid = false;
    const bool changed = TakeTypedDirectory(*directory, invalid);
    Pending = {true, !changed && (!Pending.fill || Pending.keepSelection),
               invalid || Pending.invalidPath};
    if (!IsMouseButtonHeld()) FinishDirectoryChange();
    SetTimer(MainWindow, ID_DIRECTORY_TIMER, kReleasePollMs, nullptr);
}

void OnDirectoryTimer() {
    if (IsMouseButtonHeld()) return;
    KillTimer(MainWindow, ID_DIRECTORY_TIMER);
    FinishDirectoryChange();
    const bool invalid = Pending.invalidPath;
    Pending.invalidPath = false;
    // Also over a dialog that the click has opened: there the user must know that it is about the
    // files of the directory before.
    if (invalid) ShowMessage("Invalid path!");
}

void FinishDirectoryChange() {
    if (!Pending.fill) return;
    Pending.fill = false;
    FillModeList(MainWindow, Pending.keepSelection);
}
