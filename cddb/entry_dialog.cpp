// See entry_dialog.h.
#include "cddb/entry_dialog.h"

#include <string>

#include "app/program_state.h"
#include "cddb/database_changes.h"
#include "cddb/database_file.h"
#include "cddb/disc_lookup.h"
#include "cddb/entry_fields.h"
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

// Whether the catalogue knew the disc when the dialog opened.
static bool KnownAtOpening;

static void OnInitDialog(HWND dialog, const DiscToc& disc) {
    PrepareDialog(dialog, kButtons);
    OpenEntryFields(dialog);
    CenterOnScreen(dialog);

    EntryFields fields;
    CopyDiscToc(disc);
    KnownAtOpening = FindDisc(disc.totalSeconds, disc.trackCount);
    if (KnownAtOpening) LoadEntryFields(FoundEntryOffset, &fields);
    ShowEntry(dialog, disc, fields);
    SetControlText(dialog, IDC_ENTRY_DISC_COUNT, std::to_string(DatabaseEntryCount()));
}

// The catalogue is asked again, because its own record of the disc follows the drive and the file
// may have changed while the dialog was open.
static DatabaseResult SaveEntry(const DiscToc& disc, const EntryFields& fields) {
    CopyDiscToc(disc);
    if (FindDisc(disc.totalSeconds, disc.trackCount)) {
        return ReplaceEntryAtEnd(FoundEntryOffset, fields);
    }
    // An entry does not vanish by itself: the file could not be read. Appending now could leave the
    // disc with two entries, of which lookups find the old one.
    return KnownAtOpening ? DatabaseResult::cannotOpen : AppendEntry(fields);
}

static void Close(HWND dialog) {
    CloseEntryFields();
    EndDialog(dialog, 0);
}

static void OnOk(HWND dialog) {
    PlayClickSound(IDS_SOUND_OK);
    const DatabaseResult result = SaveEntry(ShownDisc(), ReadEntry(dialog));
    if (result == DatabaseResult::ok) {
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
            return HandleEntryFieldCommand(dialog, controlId, notification);
    }
}

static INT_PTR CALLBACK EntryProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    INT_PTR result = FALSE;
    if (HandleDialogLook(dialog, message, wParam, lParam, kButtons, result)) return result;
    switch (message) {
        case WM_INITDIALOG:
            OnInitDialog(dialog, *reinterpret_cast<const DiscToc*>(lParam));
            return TRUE;
        case WM_COMMAND:
            return OnCommand(dialog, MeantButton(dialog, wParam, kButtons, IDC_OK, IDC_CANCEL),
                             HIWORD(wParam));
        default:
            return FALSE;
    }
}

void ShowEntryDialog(HWND owner, const DiscToc& disc) {
    const DiscToc copy = disc;
    DialogBoxParamA(ProgramInstance, MAKEINTRESOURCEA(IDD_ENTRY), owner, EntryProcedure,
                    reinterpret_cast<LPARAM>(&copy));
}
