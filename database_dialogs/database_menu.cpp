// See database_menu.h.
#include "database_dialogs/database_menu.h"

#include "base/program_state.h"
#include "database/database_file.h"
#include "database_dialogs/editor_dialog.h"
#include "database_dialogs/export_dialog.h"
#include "database_dialogs/information_dialog.h"
#include "database_dialogs/sorter_dialog.h"
#include "resources/ids.h"
#include "ui/boxes.h"
#include "ui/click_sounds.h"
#include "ui/dialog_helpers.h"

static const DialogButton kButtons[] = {
    {IDC_OK, kFaceOk},
    {IDC_MENU_EDITOR, kFaceMenuEditor},
    {IDC_MENU_SORTER, kFaceMenuSorter},
    {IDC_MENU_INFORMATION, kFaceMenuInformation},
    {IDC_MENU_EXPORT, kFaceMenuExport},
};

struct MenuItem {
    int controlId;
    void (*show)(HWND owner);
    const char* whenEmpty;  // null when it opens on an empty database too
};
constexpr MenuItem kItems[] = {
    {IDC_MENU_EDITOR, ShowEditorDialog, "Database Empty. Nothing to edit!"},
    {IDC_MENU_SORTER, ShowSorterDialog, "Database Empty. Nothing to sort!"},
    {IDC_MENU_INFORMATION, ShowInformationDialog, nullptr},
    {IDC_MENU_EXPORT, ShowExportDialog, "Database Empty. Nothing to export!"},
};

// Empty when the item can open. A database that cannot be read is not told as an empty one.
static std::string WhyNot(const MenuItem& item) {
    if (item.whenEmpty == nullptr) return {};
    uint16_t entryCount = 0;
    const DatabaseResult read = ReadDatabaseEntryCount(entryCount);
    if (read != DatabaseResult::kOk) return DatabaseResultText(read);
    return entryCount == 0 ? item.whenEmpty : "";
}

static bool OnItem(HWND dialog, int controlId) {
    for (const MenuItem& item : kItems) {
        if (item.controlId != controlId) continue;
        PlayClickSound(IDS_SOUND_EDITOR);
        if (const std::string why = WhyNot(item); !why.empty()) {
            ShowMessage(why);
        } else {
            item.show(dialog);
        }
        return true;
    }
    return false;
}

static INT_PTR CALLBACK MenuProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    INT_PTR result = FALSE;
    if (HandleDialogLook(dialog, message, wParam, lParam, kButtons, result)) return result;
    switch (message) {
        case WM_INITDIALOG:
            PrepareDialog(dialog, kButtons);
            return TRUE;
        case WM_COMMAND:
            if (OnItem(dialog, MeantButton(dialog, wParam, kButtons, IDC_OK, IDC_OK))) return TRUE;
            return CloseOnOk(dialog, wParam, kButtons);
        default:
            return FALSE;
    }
}

void ShowDatabaseMenu(HWND owner) {
    DialogBoxParamA(ProgramInstance, MAKEINTRESOURCEA(IDD_DATABASE_MENU), owner, MenuProcedure, 0);
}
