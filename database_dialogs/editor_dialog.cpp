// See editor_dialog.h.
#include "database_dialogs/editor_dialog.h"

#include <string>

#include "base/program_state.h"
#include "database/database_changes.h"
#include "database/database_file.h"
#include "database/disc_lookup.h"
#include "database/match_rule.h"
#include "database_dialogs/entry_fields.h"
#include "database_dialogs/entry_number.h"
#include "database_dialogs/rebuild_question.h"
#include "database_dialogs/run_status.h"
#include "database_dialogs/search_dialog.h"
#include "disc/disc_times.h"
#include "resources/ids.h"
#include "ui/boxes.h"
#include "ui/click_sounds.h"
#include "ui/dialog_helpers.h"

static const DialogButton kButtons[] = {
    {IDC_OK, kFaceOk},
    {IDC_EDITOR_SAVE, kFaceSave},
    {IDC_EDITOR_DELETE, kFaceDeleteEntry},
    {IDC_SEARCH, kFaceSearch},
    {IDC_ENTRY_INDEX_FORWARD, kFaceArrowForward},
    {IDC_ENTRY_INDEX_BACK, kFaceArrowBack},
    {IDC_ENTRY_PAGE_UP, kFacePageUp},
    {IDC_ENTRY_PAGE_DOWN, kFacePageDown},
};

// The player goes on underneath and uses the catalogue's own record of a disc; the editor's lies
// here.
struct EditorState {
    EntrySheet sheet;
    uint32_t entryCount = 0;
    uint32_t entryIndex = 0;  // of the entry that is shown
    NumberedEntry shown;      // as it was read
    bool damageTold = false;
};
static EditorState Editor;

// A database that cannot be read just now keeps the number that it had.
static void ShowCount(HWND dialog) {
    uint16_t entryCount = 0;
    if (ReadDatabaseEntryCount(entryCount) == DatabaseResult::kOk) Editor.entryCount = entryCount;
    SetControlText(dialog, IDC_ENTRY_DISC_COUNT, std::to_string(Editor.entryCount));
}

static void Close(HWND dialog) {
    CloseEntryFields(Editor.sheet);
    EndDialog(dialog, 0);
}

// kChangedMeanwhile when the file no longer has this number: it is shorter, not damaged.
static DatabaseResult LoadEntryAt(uint32_t entryIndex, NumberedEntry& entry) {
    const DatabaseResult result = LoadNumberedEntry(entryIndex, entry);
    uint16_t entryCount = 0;
    const bool isShorter = result == DatabaseResult::kDamaged &&
                           ReadDatabaseEntryCount(entryCount) == DatabaseResult::kOk &&
                           entryIndex >= entryCount;
    return isShorter ? DatabaseResult::kChangedMeanwhile : result;
}

// Once is enough for damage: many entries can lie behind one damaged place.
static void TellWhatIsMissing(DatabaseResult result) {
    const bool damaged = result == DatabaseResult::kDamaged;
    if (result == DatabaseResult::kOk || (damaged && Editor.damageTold)) return;
    Editor.damageTold = Editor.damageTold || damaged;
    ShowMessage(DatabaseResultText(result));
}

// The last entry when there is none of this number any more; the end when there is none at all.
static void ShowNumberedEntry(HWND dialog, uint32_t entryIndex) {
    DatabaseResult result = LoadEntryAt(entryIndex, Editor.shown);
    if (result == DatabaseResult::kChangedMeanwhile) {
        ShowCount(dialog);
        if (Editor.entryCount == 0) {
            ShowMessage("Database Empty. Nothing to edit!");
            Close(dialog);
            return;
        }
        entryIndex = Editor.entryCount - 1;
        result = LoadEntryAt(entryIndex, Editor.shown);
    }
    Editor.entryIndex = entryIndex;
    ShowEntry(Editor.sheet, Editor.shown.disc, Editor.shown.fields);
    ShowEntryNumber(dialog, entryIndex);
    TellWhatIsMissing(result);
}

static void OnInitDialog(HWND dialog) {
    PrepareDialog(dialog, kButtons);
    OpenEntryFields(Editor.sheet, dialog);
    OpenEntryNumber(dialog);
    CenterOnScreen(dialog);
    EnsureDatabase();
    Editor.damageTold = false;
    ShowCount(dialog);
    ShowNumberedEntry(dialog, 0);
}

static void OnLeaveNumber(HWND dialog) {
    uint32_t entryIndex = 0;
    if (!TakeTypedNumber(dialog, Editor.entryCount, entryIndex)) return;
    if (entryIndex != Editor.entryIndex) ShowNumberedEntry(dialog, entryIndex);
}

// Where the entry that is shown starts now: another program may have written the file since.
static DatabaseResult FindShownEntry(uint32_t& entryStart) {
    NumberedEntry entry;
    const DatabaseResult result = LoadEntryAt(Editor.entryIndex, entry);
    if (result != DatabaseResult::kOk) return result;
    if (!(entry.disc == Editor.shown.disc) || !(entry.fields == Editor.shown.fields)) {
        return DatabaseResult::kChangedMeanwhile;
    }
    entryStart = entry.start;
    return DatabaseResult::kOk;
}

static DatabaseResult SaveShownEntry() {
    uint32_t entryStart = 0;
    const DatabaseResult found = FindShownEntry(entryStart);
    if (found != DatabaseResult::kOk) return found;
    CopyDiscToc(Editor.sheet.disc);
    const EntryFields fields = ReadEntry(Editor.sheet);
    const DatabaseResult replaced = ReplaceEntry(entryStart, fields);
    if (replaced == DatabaseResult::kOk) Editor.shown = {entryStart, Editor.sheet.disc, fields};
    return replaced;
}

// A file that cannot be opened, or none made beside it: that is told by a beep alone.
static bool IsSilent(DatabaseResult result) {
    return result == DatabaseResult::kCannotOpen || result == DatabaseResult::kHeld ||
           result == DatabaseResult::kReadOnly;
}

static void OnSave(HWND dialog) {
    PlayClickSound(IDS_SOUND_COPY);
    const WaitCursor wait;
    const std::optional<DatabaseResult> result = ChangeDatabase(SaveShownEntry);
    if (!result) return;
    if (IsSilent(*result)) {
        MessageBeep(MB_ICONHAND);
        return;
    }
    ShowCount(dialog);
    if (*result != DatabaseResult::kOk) ShowMessage(DatabaseResultText(*result));
}

static DatabaseResult DeleteShownEntry() {
    uint32_t entryStart = 0;
    const DatabaseResult found = FindShownEntry(entryStart);
    return found == DatabaseResult::kOk ? DeleteEntry(entryStart) : found;
}

static void OnDelete(HWND dialog) {
    PlayClickSound(IDS_SOUND_DELETE);
    if (!AskQuestion("Delete this item from the database?")) return;
    const std::optional<DatabaseResult> result = ChangeDatabase(DeleteShownEntry);
    if (!result) return;
    ShowCount(dialog);
    if (*result != DatabaseResult::kOk) {
        ShowMessage(DatabaseResultText(*result));
        return;
    }
    ShowNumberedEntry(dialog, Editor.entryIndex);
}

static int ControlOfField(int field) {
    switch (field) {
        case kFieldArtist:
            return IDC_ENTRY_ARTIST;
        case kFieldDiscName:
            return IDC_ENTRY_DISC_NAME;
        case kFieldCategory:
            return IDC_ENTRY_CATEGORY;
        case kFieldLabel:
            return IDC_ENTRY_LABEL_FIELD;
        case kFieldNotes:
            return IDC_ENTRY_NOTES;
        case kFieldYearReleased:
            return IDC_ENTRY_YEAR;
        default:
            return IDC_ENTRY_RECORDING_FIRST + field - kFieldRecordingFirst;
    }
}

static void FocusField(HWND dialog, int field) {
    int controlId = 0;
    if (field < kFieldArtist) {
        // The search may have read another state of the file.
        if (field >= Editor.sheet.disc.trackCount) return;
        ShowTrackPage(Editor.sheet, field / kTrackPageSize);
        controlId = IDC_ENTRY_NAME_FIRST + field % kTrackPageSize;
    } else {
        controlId = ControlOfField(field);
        ShowFieldInLayout(Editor.sheet, controlId);
    }
    HWND control = GetDlgItem(dialog, controlId);
    SendMessageA(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
    const bool isCode = field >= kFieldRecordingFirst && field <= kFieldFiveInch;
    if (!isCode) SendMessageA(control, EM_SETSEL, 0, -1);
}

static void OnSearch(HWND dialog) {
    PlayClickSound(IDS_SOUND_SEARCH);
    uint32_t entryIndex = Editor.entryIndex;
    int field = kNoMatch;
    if (!ShowSearchDialog(dialog, entryIndex, field)) return;
    ShowNumberedEntry(dialog, entryIndex);
    FocusField(dialog, field);
}

static bool OnCommand(HWND dialog, int controlId, int notification) {
    uint32_t entryIndex = Editor.entryIndex;
    if (TakeArrow(controlId, notification, Editor.entryCount, entryIndex)) {
        ShowNumberedEntry(dialog, entryIndex);
        return true;
    }
    switch (controlId) {
        case IDC_ENTRY_INDEX:
            if (notification == EN_KILLFOCUS && !Editor.sheet.filling) OnLeaveNumber(dialog);
            return true;
        case IDC_EDITOR_SAVE:
            OnSave(dialog);
            return true;
        case IDC_EDITOR_DELETE:
            OnDelete(dialog);
            return true;
        case IDC_SEARCH:
            OnSearch(dialog);
            return true;
        case IDC_OK:
            PlayClickSound(IDS_SOUND_OK);
            Close(dialog);
            return true;
        default:
            return HandleEntryFieldCommand(Editor.sheet, controlId, notification);
    }
}

// Outside a picture button Enter takes the number, or goes to the next name.
static bool OnEnter(HWND dialog) {
    if (FocusedControl(dialog) == IDC_ENTRY_INDEX) {
        OnLeaveNumber(dialog);
        return true;
    }
    return MoveToNextName(Editor.sheet);
}

static INT_PTR CALLBACK EditorProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    INT_PTR result = FALSE;
    if (HandleDialogLook(dialog, message, wParam, lParam, kButtons, result)) return result;
    switch (message) {
        case WM_INITDIALOG:
            OnInitDialog(dialog);
            return TRUE;
        case WM_COMMAND:
            if (LOWORD(wParam) == IDOK && OnEnter(dialog)) return TRUE;
            return OnCommand(dialog, MeantButton(dialog, wParam, kButtons, 0, IDC_OK),
                             HIWORD(wParam));
        default:
            return FALSE;
    }
}

void ShowEditorDialog(HWND owner) {
    DialogBoxParamA(ProgramInstance, MAKEINTRESOURCEA(IDD_EDITOR), owner, EditorProcedure, 0);
}
