// Dialog 900: whether a file in the way may be overwritten.
#include "files/overwrite_dialog.h"

#include "base/file_description.h"
#include "base/program_state.h"
#include "resources/ids.h"
#include "ui/click_sounds.h"
#include "ui/dialog_helpers.h"

// Access keys: OK O, Overwrite all files A, Cancel C.
constexpr DialogButton kButtons[] = {
    {IDC_OVERWRITE_OK, kFaceOk},
    {IDC_OVERWRITE_ALL, kFaceOverwriteAll},
    {IDC_OVERWRITE_CANCEL, kFaceCancel},
};

struct OverwriteFiles {
    std::string source;
    std::string target;
};

static void ShowFile(HWND dialog, int nameId, int descriptionId, const std::string& path) {
    SetControlText(dialog, nameId, path);
    std::string description;
    DescribeFile(path, description);
    SetControlText(dialog, descriptionId, description);
}

static void OnInitDialog(HWND dialog, const OverwriteFiles& files) {
    PrepareDialog(dialog, kButtons);
    ShowFile(dialog, IDC_OVERWRITE_SOURCE, IDC_OVERWRITE_SOURCE_SIZE, files.source);
    ShowFile(dialog, IDC_OVERWRITE_TARGET, IDC_OVERWRITE_TARGET_SIZE, files.target);
}

static void Answer(HWND dialog, OverwriteAnswer answer) {
    PlayClickSound(answer == OverwriteAnswer::kNo ? IDS_SOUND_CANCEL : IDS_SOUND_OK);
    EndDialog(dialog, static_cast<INT_PTR>(answer));
}

static bool OnCommand(HWND dialog, WPARAM wParam) {
    const int id = MeantButton(dialog, wParam, kButtons, IDC_OVERWRITE_OK, IDC_OVERWRITE_CANCEL);
    switch (id) {
        case IDC_OVERWRITE_OK:
            Answer(dialog, OverwriteAnswer::kThisFile);
            return true;
        case IDC_OVERWRITE_ALL:
            if (IsClick(HIWORD(wParam), true)) Answer(dialog, OverwriteAnswer::kAllFiles);
            return true;
        case IDC_OVERWRITE_CANCEL:
            Answer(dialog, OverwriteAnswer::kNo);
            return true;
        default:
            return false;
    }
}

static INT_PTR CALLBACK OverwriteProcedure(HWND dialog, UINT message, WPARAM wParam,
                                           LPARAM lParam) {
    INT_PTR result = FALSE;
    if (HandleDialogLook(dialog, message, wParam, lParam, kButtons, result)) return result;
    switch (message) {
        case WM_INITDIALOG:
            OnInitDialog(dialog, *reinterpret_cast<const OverwriteFiles*>(lParam));
            return TRUE;
        case WM_COMMAND:
            return OnCommand(dialog, wParam);
        default:
            return FALSE;
    }
}

OverwriteAnswer AskToOverwrite(HWND owner, const std::string& source, const std::string& target) {
    const OverwriteFiles files = {source, target};
    PlayClickSound(IDS_SOUND_FILE_EXISTS);
    const INT_PTR answer = DialogBoxParamA(ProgramInstance, MAKEINTRESOURCEA(IDD_OVERWRITE), owner,
                                           OverwriteProcedure, reinterpret_cast<LPARAM>(&files));
    return answer < 0 ? OverwriteAnswer::kNo : static_cast<OverwriteAnswer>(answer);
}
