// Dialog 700: a new name for each of the selected files.
#include "files/rename_dialog.h"

#include "base/file_access.h"
#include "base/file_description.h"
#include "base/modes.h"
#include "base/program_state.h"
#include "resources/ids.h"
#include "ui/boxes.h"
#include "ui/click_sounds.h"
#include "ui/dialog_helpers.h"

constexpr DialogButton kButtons[] = {{IDC_OK, kFaceOk}, {IDC_CANCEL, kFaceCancel}};
constexpr int kNameLimit = 259;

static void OnInitDialog(HWND dialog, const std::string& name) {
    PrepareDialog(dialog, kButtons);
    SendDlgItemMessageA(dialog, IDC_RENAME_NAME, EM_LIMITTEXT, kNameLimit, 0);
    SetControlText(dialog, IDC_RENAME_NAME, DisplayName(*ModeDirectory() + name, name));
    SetWindowLongPtrA(dialog, DWLP_USER, reinterpret_cast<LONG_PTR>(&name));
}

// The new name is taken as it was typed.
static void RenameToTyped(HWND dialog, const std::string& name) {
    const std::string typed = ControlText(dialog, IDC_RENAME_NAME);
    if (typed.empty()) return;
    const std::string from = *ModeDirectory() + name;
    const std::string to = *ModeDirectory() + typed;
    if (FileCalls.rename(from.c_str(), to.c_str()) != FileStatus::kOk) {
        ShowMessage("Can't rename file " + name);
    }
}

static bool OnCommand(HWND dialog, WPARAM wParam) {
    switch (MeantButton(dialog, wParam, kButtons, IDC_OK, IDC_CANCEL)) {
        case IDC_OK:
            PlayClickSound(IDS_SOUND_OK);
            RenameToTyped(dialog, *reinterpret_cast<const std::string*>(
                                      GetWindowLongPtrA(dialog, DWLP_USER)));
            EndDialog(dialog, 0);
            return true;
        case IDC_CANCEL:
            PlayClickSound(IDS_SOUND_CANCEL);
            EndDialog(dialog, 0);
            return true;
        default:
            return false;
    }
}

static INT_PTR CALLBACK RenameProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    INT_PTR result = FALSE;
    if (HandleDialogLook(dialog, message, wParam, lParam, kButtons, result)) return result;
    switch (message) {
        case WM_INITDIALOG:
            OnInitDialog(dialog, *reinterpret_cast<const std::string*>(lParam));
            return TRUE;
        case WM_COMMAND:
            return OnCommand(dialog, wParam);
        default:
            return FALSE;
    }
}

void ShowRenameDialogs(HWND owner, const std::vector<std::string>& names) {
    for (const std::string& name : names) {
        PlayClickSound(IDS_SOUND_RENAME);
        DialogBoxParamA(ProgramInstance, MAKEINTRESOURCEA(IDD_RENAME), owner, RenameProcedure,
                        reinterpret_cast<LPARAM>(&name));
    }
}
