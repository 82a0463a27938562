// See sorter_dialog.h.
#include "database_dialogs/sorter_dialog.h"

#include "base/program_state.h"
#include "database/database_sort.h"
#include "database_dialogs/rebuild_question.h"
#include "database_dialogs/run_status.h"
#include "resources/ids.h"
#include "ui/click_sounds.h"
#include "ui/dialog_helpers.h"

static const DialogButton kButtons[] = {
    {IDC_START, kFaceStart},
    {IDC_OK, kFaceOk},
};

// Nothing stands for a damaged database that was not to be rebuilt.
static const char* ResultText(std::optional<DatabaseResult> result) {
    switch (result.value_or(DatabaseResult::kDamaged)) {
        case DatabaseResult::kOk:
            return "Done!";
        case DatabaseResult::kNoMemory:
            return DatabaseResultText(*result);
        default:
            return "Error! Can't write database file.";
    }
}

static void OnStart(HWND dialog) {
    PlayClickSound(IDS_SOUND_START);
    const WaitCursor wait;
    RunStatus status = {dialog};
    const auto show = [&](const char* text) {
        if (StatusIsDue(status)) ShowStatus(status, text);
    };
    const auto result = ChangeDatabase([&] { return SortDatabase(CompareInSystemOrder, show); });
    ShowStatus(status, ResultText(result));
}

static bool OnCommand(HWND dialog, WPARAM wParam) {
    if (MeantButton(dialog, wParam, kButtons, IDC_OK, IDC_OK) != IDC_START) {
        return CloseOnOk(dialog, wParam, kButtons);
    }
    OnStart(dialog);
    return true;
}

static INT_PTR CALLBACK SorterProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    INT_PTR result = FALSE;
    if (HandleDialogLook(dialog, message, wParam, lParam, kButtons, result)) return result;
    switch (message) {
        case WM_INITDIALOG:
            PrepareDialog(dialog, kButtons);
            return TRUE;
        case WM_COMMAND:
            return OnCommand(dialog, wParam);
        default:
            return FALSE;
    }
}

void ShowSorterDialog(HWND owner) {
    DialogBoxParamA(ProgramInstance, MAKEINTRESOURCEA(IDD_SORTER), owner, SorterProcedure, 0);
}
