// See search_dialog.h.
#include "database_dialogs/search_dialog.h"

#include <string>
#include <vector>

#include "base/program_state.h"
#include "base/settings.h"
#include "database/database_file.h"
#include "database/database_search.h"
#include "database_dialogs/database_stamp.h"
#include "database_dialogs/entry_number.h"
#include "database_dialogs/run_status.h"
#include "resources/ids.h"
#include "ui/boxes.h"
#include "ui/click_sounds.h"
#include "ui/dialog_helpers.h"

static const DialogButton kButtons[] = {
    {IDC_START, kFaceStart},
    {IDC_OK, kFaceOk},
    {IDC_CANCEL, kFaceCancel},
    {IDC_ENTRY_INDEX_FORWARD, kFaceArrowForward},
    {IDC_ENTRY_INDEX_BACK, kFaceArrowBack},
};

constexpr int kMaxSearchText = 254;

// The check boxes in the order of their numbers, and the flags that they stand for.
static bool SearchFields::*const kFieldFlags[] = {
    &SearchFields::track,       &SearchFields::artist, &SearchFields::discName,
    &SearchFields::category,    &SearchFields::label,  &SearchFields::notes,
    &SearchFields::yearReleased};

// Kept while the program runs, as long as the file is the one that was searched.
struct KeptResults {
    std::vector<SearchHit> hits;
    DatabaseStamp stamp;
};
static KeptResults Results;

struct SearchState {
    uint32_t entryIndex = 0;  // where "From Entry Number" starts
    uint32_t entryCount = 0;
    SearchHit taken = {};
    bool closing = false;
};
static SearchState Search;

// Options and layout

static bool IsTextKind(HWND dialog) {
    return IsDlgButtonChecked(dialog, IDC_SEARCH_IGNORE_CASE) ||
           IsDlgButtonChecked(dialog, IDC_SEARCH_MATCH_CASE);
}

static void ShowOptions(HWND dialog) {
    const bool text = IsTextKind(dialog);
    for (int id : {IDC_SEARCH_TEXT, IDC_SEARCH_TEXT_GROUP, IDC_SEARCH_FIELDS_GROUP})
        ShowControl(dialog, id, text);
    for (int id = IDC_SEARCH_FIELD_FIRST; id <= IDC_SEARCH_FIELD_LAST; ++id)
        ShowControl(dialog, id, text);
    const bool fromEntry = IsDlgButtonChecked(dialog, IDC_SEARCH_FROM_ENTRY) != 0;
    for (int id = IDC_ENTRY_INDEX; id <= IDC_ENTRY_INDEX_GROUP; ++id)
        ShowControl(dialog, id, fromEntry);
}

static void FillOptions(HWND dialog, const SearchSettings& options) {
    int kind = options.radioId;
    if (options.textSearch) {
        kind = options.caseSensitive ? IDC_SEARCH_MATCH_CASE : IDC_SEARCH_IGNORE_CASE;
    }
    CheckRadioButton(dialog, IDC_SEARCH_IGNORE_CASE, IDC_SEARCH_RADIO_LAST, kind);
    CheckRadioButton(dialog, IDC_SEARCH_FROM_ENTRY, IDC_SEARCH_ENTIRE,
                     options.entireDatabase ? IDC_SEARCH_ENTIRE : IDC_SEARCH_FROM_ENTRY);
    int id = IDC_SEARCH_FIELD_FIRST;
    for (const auto flag : kFieldFlags)
        CheckDlgButton(dialog, id++, options.*flag ? BST_CHECKED : BST_UNCHECKED);
    SetControlText(dialog, IDC_SEARCH_TEXT, options.text);
    ShowOptions(dialog);
}

// What belongs to the kind that is not chosen keeps its value.
static void ReadOptions(HWND dialog, SearchSettings& options) {
    options.textSearch = IsTextKind(dialog);
    if (options.textSearch) {
        options.caseSensitive = IsDlgButtonChecked(dialog, IDC_SEARCH_MATCH_CASE) != 0;
    }
    for (int id = IDC_SEARCH_RADIO_FIRST; id <= IDC_SEARCH_RADIO_LAST; ++id) {
        if (IsDlgButtonChecked(dialog, id)) options.radioId = id;
    }
    options.entireDatabase = IsDlgButtonChecked(dialog, IDC_SEARCH_ENTIRE) != 0;
    int id = IDC_SEARCH_FIELD_FIRST;
    for (const auto flag : kFieldFlags)
        options.*flag = IsDlgButtonChecked(dialog, id++) != 0;
    options.text = ControlText(dialog, IDC_SEARCH_TEXT).substr(0, kMaxSearchText);
}

// Results

static std::string FoundText() {
    return std::to_string(Results.hits.size()) + " items found";
}

static void FillResults(HWND dialog) {
    HWND list = GetDlgItem(dialog, IDC_SEARCH_RESULTS);
    SendMessageA(list, WM_SETREDRAW, FALSE, 0);
    SendMessageA(list, LB_RESETCONTENT, 0, 0);
    size_t textBytes = 0;
    for (const SearchHit& hit : Results.hits)
        textBytes += hit.title.size() + 1;
    SendMessageA(list, LB_INITSTORAGE, Results.hits.size(), static_cast<LPARAM>(textBytes));
    for (const SearchHit& hit : Results.hits) {
        const LRESULT item =
            SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(hit.title.c_str()));
        if (item < 0) break;
        SendMessageA(list, LB_SETITEMDATA, static_cast<WPARAM>(item),
                     MAKELPARAM(hit.entryIndex, hit.field));
    }
    SendMessageA(list, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list, nullptr, TRUE);
    SetControlText(dialog, IDC_RUN_STATUS, FoundText());
}

static void LowerCase(std::string& text) {
    CharLowerBuffA(text.data(), static_cast<DWORD>(text.size()));
}

static SearchQuery QueryOf(const SearchSettings& options) {
    SearchQuery query;
    if (!options.textSearch) {
        query.code = kFieldRecordingFirst + options.radioId - IDC_SEARCH_RADIO_FIRST;
        return query;
    }
    query.text = options.text;
    if (!options.caseSensitive) {
        query.lowerCase = LowerCase;
        LowerCase(query.text);
    }
    query.fields = options;
    return query;
}

static void OnLeaveNumber(HWND dialog) {
    TakeTypedNumber(dialog, Search.entryCount, Search.entryIndex);
}

static void OnStart(HWND dialog) {
    PlayClickSound(IDS_SOUND_START);
    OnLeaveNumber(dialog);
    SearchSettings options = Settings.search;
    ReadOptions(dialog, options);
    Results.hits.clear();
    FillResults(dialog);
    {
        const WaitCursor wait;
        Results.stamp = StampOfDatabase();
        RunStatus status = {dialog};
        const uint32_t first = options.entireDatabase ? 0 : Search.entryIndex;
        Results.hits =
            SearchDatabase(QueryOf(options), first, [&](uint32_t number, uint32_t entryCount) {
                if (!StatusIsDue(status)) return;
                ShowStatus(status, std::to_string(number) + " of " + std::to_string(entryCount));
            });
        FillResults(dialog);
    }
    if (Results.hits.empty()) {
        ShowMessage("No match!");
    } else {
        MessageBeep(MB_OK);
    }
}

// Opening and closing

static void OnInitDialog(HWND dialog) {
    PrepareDialog(dialog, kButtons);
    OpenEntryNumber(dialog);
    SendDlgItemMessageA(dialog, IDC_SEARCH_TEXT, EM_LIMITTEXT, kMaxSearchText, 0);
    FillOptions(dialog, Settings.search);
    ShowEntryNumber(dialog, Search.entryIndex);
    // Numbers of entries, and what matches in them, are those of another file.
    if (!(Results.stamp == StampOfDatabase())) Results.hits.clear();
    FillResults(dialog);
}

static void Close(HWND dialog, bool taken) {
    Search.closing = true;
    SettingsValues values = Settings;
    ReadOptions(dialog, values.search);
    ReplaceSettings(values);
    EndDialog(dialog, taken);
}

// Another program can have given its number to another entry while the list was open.
static DatabaseResult FindHit(const SearchHit& hit) {
    if (Results.stamp == StampOfDatabase()) return DatabaseResult::kOk;
    NumberedEntry entry;
    const DatabaseResult result = LoadNumberedEntry(hit.entryIndex, entry);
    if (result == DatabaseResult::kHeld) return result;
    return hit.title == TitleOf(entry.fields.artist, entry.fields.discName)
               ? DatabaseResult::kOk
               : DatabaseResult::kChangedMeanwhile;
}

static void OnOk(HWND dialog) {
    PlayClickSound(IDS_SOUND_OK);
    HWND list = GetDlgItem(dialog, IDC_SEARCH_RESULTS);
    const LRESULT selected = SendMessageA(list, LB_GETCURSEL, 0, 0);
    const bool taken = selected >= 0 && static_cast<size_t>(selected) < Results.hits.size();
    if (taken) Search.taken = Results.hits[static_cast<size_t>(selected)];
    const DatabaseResult found = taken ? FindHit(Search.taken) : DatabaseResult::kOk;
    if (found == DatabaseResult::kOk) {
        Close(dialog, taken);
    } else {
        ShowMessage(DatabaseResultText(found));
    }
}

static void OnCancel(HWND dialog) {
    PlayClickSound(IDS_SOUND_CANCEL);
    Close(dialog, false);
}

static bool IsIn(int id, int first, int last) {
    return id >= first && id <= last;
}

static bool OnOption(HWND dialog, int controlId, int notification) {
    const bool isField = IsIn(controlId, IDC_SEARCH_FIELD_FIRST, IDC_SEARCH_FIELD_LAST);
    if (!isField && !IsIn(controlId, IDC_SEARCH_IGNORE_CASE, IDC_SEARCH_ENTIRE)) return false;
    if (!IsClick(notification, false)) return false;
    PlayClickSound(isField ? IDS_SOUND_CHECK : IDS_SOUND_RADIO);
    if (!isField) ShowOptions(dialog);
    return true;
}

static bool OnCommand(HWND dialog, int controlId, int notification) {
    if (TakeArrow(controlId, notification, Search.entryCount, Search.entryIndex)) {
        ShowEntryNumber(dialog, Search.entryIndex);
        return true;
    }
    switch (controlId) {
        case IDC_START:
            OnStart(dialog);
            return true;
        case IDC_OK:
            OnOk(dialog);
            return true;
        case IDC_CANCEL:
            OnCancel(dialog);
            return true;
        case IDC_SEARCH_RESULTS:
            if (notification == LBN_DBLCLK) OnOk(dialog);
            return true;
        case IDC_ENTRY_INDEX:
            if (notification == EN_KILLFOCUS && !Search.closing) OnLeaveNumber(dialog);
            return true;
        default:
            return OnOption(dialog, controlId, notification);
    }
}

static INT_PTR CALLBACK SearchProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    INT_PTR result = FALSE;
    if (HandleDialogLook(dialog, message, wParam, lParam, kButtons, result)) return result;
    switch (message) {
        case WM_INITDIALOG:
            OnInitDialog(dialog);
            return TRUE;
        case WM_COMMAND:
            // Enter starts the search wherever it is pressed, but on the other buttons.
            return OnCommand(dialog, MeantButton(dialog, wParam, kButtons, IDC_START, IDC_CANCEL),
                             HIWORD(wParam));
        default:
            return FALSE;
    }
}

bool ShowSearchDialog(HWND owner, uint32_t& entryIndex, int& field) {
    Search = {};
    Search.entryIndex = entryIndex;
    uint16_t entryCount = 0;
    ReadDatabaseEntryCount(entryCount);
    Search.entryCount = entryCount;
    const bool taken = DialogBoxParamA(ProgramInstance, MAKEINTRESOURCEA(IDD_SEARCH), owner,
                                       SearchProcedure, 0) == TRUE;
    if (!taken) return false;
    entryIndex = Search.taken.entryIndex;
    field = Search.taken.field;
    return true;
}
