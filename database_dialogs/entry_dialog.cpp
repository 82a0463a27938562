// See entry_dialog.h.
#include "database_dialogs/entry_dialog.h"

#include <string>

#include "base/program_state.h"
#include "database/database_changes.h"
#include "database/database_file.h"
#include "database/disc_lookup.h"
#include "database_dialogs/entry_fields.h"
#include "resources/ids.h"
#include "ui/boxes.h"
#include "ui/click_sounds.h"
#include "ui/dialog_helpers.h"

static const DialogButton kButtons[] = {
    {IDC_OK, kFaceOk},
    {IDC_CANCEL, kFaceCancel},
    {IDC_ENTRY_PAGE_UP, kFacePageUp},
    {IDC_ENTRY_PAGE_DOWN, kFacePageDown},
};

static EntrySheet Sheet;

// Whether the catalogue knew the disc when the dialog opened.
static bool KnownAtOpening;

struct EntryToShow {
    DiscToc disc;
    EntryFields fields;
};

// What cannot be read must not be shown as empty: OK would write the empty fields over it.
static DatabaseResult ReadEntryToShow(EntryToShow& entry) {
    CopyDiscToc(entry.disc);
    const auto lookUp = [&] {
        return LookUpDisc(DatabaseDisc.totalSeconds, DatabaseDisc.trackCount, WhenHeld::kTryAgain);
    };
    DatabaseResult asked = lookUp();
    if (asked != DatabaseResult::kOk) return asked;
    KnownAtOpening = FoundEntryOffset != 0;
    if (!KnownAtOpening || LoadEntryFields(FoundEntryOffset, entry.fields)) {
        return DatabaseResult::kOk;
    }
    asked = lookUp();
    return asked == DatabaseResult::kOk ? DatabaseResult::kDamaged : asked;
}

static void OnInitDialog(HWND dialog, const EntryToShow& entry) {
    PrepareDialog(dialog, kButtons);
    OpenEntryFields(Sheet, dialog);
    CenterOnScreen(dialog);
    ShowEntry(Sheet, entry.disc, entry.fields);
    SetControlText(dialog, IDC_ENTRY_DISC_COUNT, std::to_string(DatabaseEntryCount()));
}

static void Close(HWND dialog) {
    CloseEntryFields(Sheet);
    EndDialog(dialog, 0);
}

static void OnOk(HWND dialog) {
    PlayClickSound(IDS_SOUND_OK);
    // The catalogue's own record of the disc follows the drive.
    CopyDiscToc(Sheet.disc);
    const DatabaseResult result = SaveDisc(ReadEntry(Sheet), KnownAtOpening);
    if (result == DatabaseResult::kOk) {
        Close(dialog);
    } else {
        // The dialog stays with everything typed.
        ShowMessage(DatabaseResultText(result));
    }
}

static void OnCancel(HWND dialog) {
    PlayClickSound(IDS_SOUND_CANCEL);
    Close(dialog);
}

static bool OnCommand(HWND dialog, int controlId, int notification) {
    switch (controlId) {
        case IDC_OK:
            OnOk(dialog);
            return true;
        case IDC_CANCEL:
            OnCancel(dialog);
            return true;
        default:
            return HandleEntryFieldCommand(Sheet, controlId, notification);
    }
}

static INT_PTR CALLBACK EntryProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    INT_PTR result = FALSE;
    if (HandleDialogLook(dialog, message, wParam, lParam, kButtons, result)) return result;
    switch (message) {
        case WM_INITDIALOG:
            OnInitDialog(dialog, *reinterpret_cast<const EntryToShow*>(lParam));
            return TRUE;
        case WM_COMMAND:
            if (LOWORD(wParam) == IDOK && MoveToNextName(Sheet)) return TRUE;
            return OnCommand(dialog, MeantButton(dialog, wParam, kButtons, IDC_OK, IDC_CANCEL),
                             HIWORD(wParam));
        default:
            return FALSE;
    }
}

void ShowEntryDialog(HWND owner, const DiscToc& disc) {
    // Told before anything is typed that could not be saved; looking is still possible.
    const bool damaged = RepairDatabase() == DatabaseResult::kDamaged;
    EntryToShow entry = {disc, {}};
    const DatabaseResult read = ReadEntryToShow(entry);
    const bool readable = read == DatabaseResult::kOk;
    if (damaged || !readable) {
        ShowMessage(DatabaseResultText(readable ? DatabaseResult::kDamaged : read));
    }
    if (!readable) return;
    DialogBoxParamA(ProgramInstance, MAKEINTRESOURCEA(IDD_ENTRY), owner, EntryProcedure,
                    reinterpret_cast<LPARAM>(&entry));
}
