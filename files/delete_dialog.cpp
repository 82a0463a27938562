// Dialog 500: deletes the selected files.
#include "files/delete_dialog.h"

#include "base/file_access.h"
#include "base/file_description.h"
#include "base/modes.h"
#include "base/program_state.h"
#include "resources/ids.h"
#include "ui/boxes.h"
#include "ui/click_sounds.h"
#include "ui/dialog_helpers.h"
#include "ui/long_run.h"

using FileNames = std::vector<std::string>;

constexpr DialogButton kButtons[] = {{IDC_DELETE_OK, kFaceOk}, {IDC_DELETE_CANCEL, kFaceCancel}};

static void OnInitDialog(HWND dialog, const FileNames& names) {
    PrepareDialog(dialog, kButtons);
    SetWindowLongPtrA(dialog, DWLP_USER, reinterpret_cast<LONG_PTR>(&names));
    const std::string what =
        names.size() == 1 ? DisplayName(*ModeDirectory() + names[0], names[0]) : "selected files";
    SetControlText(dialog, IDC_DELETE_QUESTION, "Delete " + what + "?");
}

static void DeleteFiles(const FileNames& names) {
    for (const std::string& name : names) {
        const std::string path = *ModeDirectory() + name;
        const bool removed = FileCalls.remove(path.c_str()) == FileStatus::kOk;
        DropWaitingInput();
        if (!removed) {
            ShowMessage("Can't delete file: " + name);
        }
        PaintWaitingWindows();
    }
}

static bool OnCommand(HWND dialog, WPARAM wParam) {
    switch (MeantButton(dialog, wParam, kButtons, IDC_DELETE_OK, IDC_DELETE_CANCEL)) {
        case IDC_DELETE_OK:
            DeleteFiles(*reinterpret_cast<const FileNames*>(GetWindowLongPtrA(dialog, DWLP_USER)));
            PlayClickSound(IDS_SOUND_OK);
            EndDialog(dialog, TRUE);
            return true;
        case IDC_DELETE_CANCEL:
            PlayClickSound(IDS_SOUND_CANCEL);
            EndDialog(dialog, FALSE);
            return true;
        default:
            return false;
    }
}

static INT_PTR CALLBACK DeleteProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    INT_PTR result = FALSE;
    if (HandleDialogLook(dialog, message, wParam, lParam, kButtons, result)) return result;
    switch (message) {
        case WM_INITDIALOG:
            OnInitDialog(dialog, *reinterpret_cast<const FileNames*>(lParam));
            return TRUE;
        case WM_COMMAND:
            return OnCommand(dialog, wParam);
        default:
            return FALSE;
    }
}

bool ShowDeleteDialog(HWND owner, const FileNames& names) {
    return DialogBoxParamA(ProgramInstance, MAKEINTRESOURCEA(IDD_DELETE), owner, DeleteProcedure,
                           reinterpret_cast<LPARAM>(&names)) == TRUE;
}
