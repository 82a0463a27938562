// See entry_dialog.h.
#include "database_dialogs/entry_dialog.h"

#include <optional>
#include <string>

#include "base/program_state.h"
#include "database/database_changes.h"
#include "database/database_file.h"
#include "database/disc_lookup.h"
#include "database_dialogs/entry_fields.h"
#include "database_dialogs/rebuild_question.h"
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

// Whether the catalogue knew the disc when the dialog opened, and what it held.
static bool KnownAtOpening;
static EntryFields FieldsAtOpening;

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
    FieldsAtOpening = entry.fields;
    SetControlText(dialog, IDC_ENTRY_DISC_COUNT, std::to_string(DatabaseEntryCount()));
}

static void Close(HWND dialog) {
    CloseEntryFields(Sheet);
    EndDialog(dialog, 0);
}

// What the user is asked when another program has written the disc meanwhile; null for all else.
static const char* QuestionAbout(DatabaseResult result) {
    if (result == DatabaseResult::kAddedMeanwhile) return DatabaseResultText(result);
    if (result == DatabaseResult::kChangedMeanwhile)
        return "Another program has changed this entry. Replace it?";
    return nullptr;
}

static void OnOk(HWND dialog) {
    PlayClickSound(IDS_SOUND_OK);
    const EntryFields fields = ReadEntry(Sheet);
    const EntryFields* shown = &FieldsAtOpening;
    const auto save = [&] {
        // The catalogue's own record of the disc follows the drive, also while a question is open.
        CopyDiscToc(Sheet.disc);
        return SaveDisc(fields, KnownAtOpening, shown);
    };
    // Unless it is saved, the dialog stays with everything typed.
    std::optional<DatabaseResult> result = ChangeDatabase(save);
    if (!result) return;
    if (const char* question = QuestionAbout(*result)) {
        if (!AskQuestion(question)) return;
        KnownAtOpening = true;
        shown = nullptr;
        result = ChangeDatabase(save);
    }
    if (!result) return;
    if (*result == DatabaseResult::kOk) {
        Close(dialog);
    } else {
        ShowMessage(DatabaseResultText(*result));
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
    // Puts right what an ended write left. Any other damage is told when there is something to
    // write; until then whatever can be read is shown.
    RepairDatabase();
    EntryToShow entry = {disc, {}};
    const DatabaseResult read = ReadEntryToShow(entry);
    if (read != DatabaseResult::kOk) {
        ShowMessage(DatabaseResultText(read));
        return;
    }
    DialogBoxParamA(ProgramInstance, MAKEINTRESOURCEA(IDD_ENTRY), owner, EntryProcedure,
                    reinterpret_cast<LPARAM>(&entry));
}
