// One procedure for the three dialogs: they differ in their fields, which come filled.
#include "playback/file_info_dialog.h"

#include "base/program_state.h"
#include "playback/file_info.h"
#include "playback/media_device.h"
#include "resources/ids.h"
#include "ui/click_sounds.h"
#include "ui/dialog_helpers.h"

// A dialog of its own has one OK; in a series another OK stands beside Cancel.
constexpr DialogButton kInfoButtons[] = {
    {IDC_OK, kFaceOk}, {IDC_INFO_SERIES_OK, kFaceOk}, {IDC_CANCEL, kFaceCancel}};

struct InfoSheet {
    const FileInfo& info;
    bool inSeries;
};

static const InfoSheet& SheetOf(HWND dialog) {
    return *reinterpret_cast<const InfoSheet*>(GetWindowLongPtrA(dialog, DWLP_USER));
}

static int OkButton(const InfoSheet& sheet) {
    return sheet.inSeries ? IDC_INFO_SERIES_OK : IDC_OK;
}

static void OnInitDialog(HWND dialog, LPARAM lParam) {
    SetWindowLongPtrA(dialog, DWLP_USER, lParam);
    const InfoSheet& sheet = SheetOf(dialog);
    PrepareDialog(dialog, kInfoButtons);
    for (int id : {IDC_INFO_SERIES_OK, IDC_INFO_SERIES_OK_LABEL, IDC_CANCEL, IDC_INFO_CANCEL_LABEL})
        ShowControl(dialog, id, sheet.inSeries);
    for (int id : {IDC_OK, IDC_INFO_OK_LABEL})
        ShowControl(dialog, id, !sheet.inSeries);
    for (const InfoField& field : sheet.info.fields)
        SetControlText(dialog, field.controlId, field.text);
    // The button that the system would choose may have been hidden just now.
    SetFocus(GetDlgItem(dialog, OkButton(sheet)));
}

static bool OnCommand(HWND dialog, WPARAM wParam) {
    const InfoSheet& sheet = SheetOf(dialog);
    const int ok = OkButton(sheet);
    const int button =
        MeantButton(dialog, wParam, kInfoButtons, ok, sheet.inSeries ? IDC_CANCEL : ok);
    if (button != ok && button != IDC_CANCEL) return false;
    PlayClickSound(button == ok ? IDS_SOUND_OK : IDS_SOUND_CANCEL);
    EndDialog(dialog, button);
    return true;
}

static INT_PTR CALLBACK InfoProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    INT_PTR result = FALSE;
    if (HandleDialogLook(dialog, message, wParam, lParam, kInfoButtons, result)) return result;
    switch (message) {
        case WM_INITDIALOG:
            OnInitDialog(dialog, lParam);
            return FALSE;  // the focus is set
        case WM_COMMAND:
            return OnCommand(dialog, wParam);
        default:
            return FALSE;
    }
}

// The dialog's owner is disabled while it is open, and by nothing else: it is enabled again however
// the dialog ends. False when the user wants to see no more.
static bool ShowInfo(HWND owner, const FileInfo& info, bool inSeries) {
    InfoSheet sheet = {info, inSeries};
    const INT_PTR button = DialogBoxParamA(ProgramInstance, MAKEINTRESOURCEA(info.dialogId), owner,
                                           InfoProcedure, reinterpret_cast<LPARAM>(&sheet));
    return button != IDC_CANCEL;
}

void ShowFileInformation(HWND owner, const std::vector<std::string>& names) {
    for (const std::string& name : names) {
        FileInfo info;
        PlayClickSound(IDS_SOUND_INFO);
        if (!OpenFileInfo(owner, name, info)) continue;
        const bool goOn = ShowInfo(owner, info, names.size() > 1);
        CloseUnplayedDevice();
        if (!goOn) return;
    }
}
