// See information_dialog.h.
#include "database_dialogs/information_dialog.h"

#include <string>

#include "base/file_description.h"
#include "base/program_state.h"
#include "database/database_file.h"
#include "database/database_paths.h"
#include "database_dialogs/run_status.h"
#include "resources/ids.h"
#include "ui/dialog_helpers.h"

static const DialogButton kButtons[] = {{IDC_OK, kFaceOk}};

constexpr uint32_t kSecondsPerMinute = 60;
constexpr uint32_t kSecondsPerHour = 60 * kSecondsPerMinute;
constexpr uint32_t kSecondsPerDay = 24 * kSecondsPerHour;

static void ShowFigure(HWND dialog, int controlId, uint32_t figure) {
    SetControlText(dialog, controlId, std::to_string(figure));
}

static void OnInitDialog(HWND dialog) {
    PrepareDialog(dialog, kButtons);
    const WaitCursor wait;
    EnsureDatabase();
    const std::string path = DatabasePath();
    std::string text;
    if (DescribeFileDate(path, text)) SetControlText(dialog, IDC_INFORMATION_CHANGED, text);
    if (DescribeFileSize(path, text)) SetControlText(dialog, IDC_INFORMATION_SIZE, text);
    const DatabaseTotals totals = SumDatabase();
    ShowFigure(dialog, IDC_INFORMATION_ENTRIES, totals.entries);
    ShowFigure(dialog, IDC_INFORMATION_TRACKS, totals.tracks);
    ShowFigure(dialog, IDC_INFORMATION_DAYS, totals.seconds / kSecondsPerDay);
    ShowFigure(dialog, IDC_INFORMATION_HOURS, totals.seconds % kSecondsPerDay / kSecondsPerHour);
    ShowFigure(dialog, IDC_INFORMATION_MINUTES,
               totals.seconds % kSecondsPerHour / kSecondsPerMinute);
    ShowFigure(dialog, IDC_INFORMATION_SECONDS, totals.seconds % kSecondsPerMinute);
}

static INT_PTR CALLBACK InformationProcedure(HWND dialog, UINT message, WPARAM wParam,
                                             LPARAM lParam) {
    INT_PTR result = FALSE;
    if (HandleDialogLook(dialog, message, wParam, lParam, kButtons, result)) return result;
    switch (message) {
        case WM_INITDIALOG:
            OnInitDialog(dialog);
            return TRUE;
        case WM_COMMAND:
            return CloseOnOk(dialog, wParam, kButtons);
        default:
            return FALSE;
    }
}

void ShowInformationDialog(HWND owner) {
    DialogBoxParamA(ProgramInstance, MAKEINTRESOURCEA(IDD_INFORMATION), owner, InformationProcedure,
                    0);
}
