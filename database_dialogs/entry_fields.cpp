// See entry_fields.h.
#include "database_dialogs/entry_fields.h"

#include <algorithm>
#include <string>
#include <vector>

#include "base/settings.h"
#include "database/database_format.h"
#include "database_dialogs/entry_text.h"
#include "disc/disc_times.h"
#include "resources/ids.h"
#include "ui/click_sounds.h"
#include "ui/dialog_helpers.h"

// The entry shown by the one dialog that is open.
struct EntrySheet {
    DiscToc disc;
    std::string trackNames[kMaxTracks];
    int page = 0;
    int pageCount = 0;    // 0 unless there are page buttons
    int fullWidth = 0;    // of the dialog's window, in pixels
    int hiddenWidth = 0;  // what the simple layout leaves out
    bool filling = true;  // the program itself writes, hides or closes the controls
};
static EntrySheet Sheet;
static WNDPROC EditProcedure;

static const int kTextFields[] = {IDC_ENTRY_ARTIST,      IDC_ENTRY_DISC_NAME, IDC_ENTRY_CATEGORY,
                                  IDC_ENTRY_LABEL_FIELD, IDC_ENTRY_NOTES,     IDC_ENTRY_YEAR};

struct ControlRange {
    int first;
    int last;
};
constexpr ControlRange kRecording = {IDC_ENTRY_RECORDING_FIRST, IDC_ENTRY_RECORDING_LAST};
constexpr ControlRange kType = {IDC_ENTRY_TYPE_FIRST, IDC_ENTRY_TYPE_LAST};
constexpr ControlRange kSize = {IDC_ENTRY_THREE_INCH, IDC_ENTRY_FIVE_INCH};
constexpr ControlRange kNames = {IDC_ENTRY_NAME_FIRST, IDC_ENTRY_NAME_LAST};
constexpr ControlRange kAdvanced[] = {
    {IDC_ENTRY_LABEL_CAPTION, IDC_ENTRY_RELEASED_CAPTION},
    {IDC_ENTRY_LABEL_FIELD, IDC_ENTRY_YEAR},
};

static bool IsIn(ControlRange range, int id) {
    return id >= range.first && id <= range.last;
}

// Track rows

static int RowsOnPage() {
    return std::clamp(Sheet.disc.trackCount - Sheet.page * kTrackPageSize, 0, kTrackPageSize);
}

static void KeepRow(HWND dialog, int row) {
    std::string name = ControlText(dialog, IDC_ENTRY_NAME_FIRST + row);
    name.resize(std::min<size_t>(name.size(), kMaxTextBytes));
    Sheet.trackNames[Sheet.page * kTrackPageSize + row] = std::move(name);
}

static void KeepRows(HWND dialog) {
    for (int row = 0; row < RowsOnPage(); ++row)
        KeepRow(dialog, row);
}

static void FillRow(HWND dialog, int row) {
    const int index = Sheet.page * kTrackPageSize + row;
    SetControlText(dialog, IDC_ENTRY_NAME_FIRST + row, Sheet.trackNames[index]);
    SetControlText(dialog, IDC_ENTRY_NUMBER_FIRST + row, std::to_string(index + 1));
    SetControlText(dialog, IDC_ENTRY_TIME_FIRST + row,
                   MinutesSecondsText(Sheet.disc.lengthSeconds[index]));
}

// A row that is about to be hidden must not keep the focus.
static void MoveFocusFromHiddenRows(HWND dialog, int rows) {
    const int focused = GetDlgCtrlID(GetFocus());
    if (GetParent(GetFocus()) != dialog || !IsIn(kNames, focused)) return;
    if (focused - IDC_ENTRY_NAME_FIRST < rows) return;
    SetFocus(GetDlgItem(dialog, rows > 0 ? IDC_ENTRY_NAME_FIRST : IDC_ENTRY_ARTIST));
}

static void FillRows(HWND dialog) {
    const int rows = RowsOnPage();
    Sheet.filling = true;
    MoveFocusFromHiddenRows(dialog, rows);
    for (int row = 0; row < kTrackPageSize; ++row) {
        if (row < rows) FillRow(dialog, row);
        for (int first : {IDC_ENTRY_NUMBER_FIRST, IDC_ENTRY_NAME_FIRST, IDC_ENTRY_TIME_FIRST}) {
            ShowControl(dialog, first + row, row < rows);
        }
    }
    Sheet.filling = false;
}

void ShowTrackPage(HWND dialog, int page) {
    KeepRows(dialog);
    Sheet.page = page;
    FillRows(dialog);
}

bool MoveToNextName(HWND dialog) {
    const int focused = GetDlgCtrlID(GetFocus());
    if (GetParent(GetFocus()) != dialog || !IsIn(kNames, focused)) return false;
    int row = focused - IDC_ENTRY_NAME_FIRST + 1;
    if (Sheet.page * kTrackPageSize + row >= Sheet.disc.trackCount) return false;
    if (row == kTrackPageSize) {
        ShowTrackPage(dialog, Sheet.page + 1);
        row = 0;
    }
    HWND next = GetDlgItem(dialog, IDC_ENTRY_NAME_FIRST + row);
    SendMessageA(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(next), TRUE);
    return true;
}

// Pasting lines into a name

static std::string ClipboardText(HWND window) {
    std::string text;
    if (!OpenClipboard(window)) return text;
    if (HANDLE data = GetClipboardData(CF_TEXT)) {
        if (const auto* bytes = static_cast<const char*>(GlobalLock(data))) {
            // Another program need not have ended its text.
            text.assign(bytes, std::find(bytes, bytes + GlobalSize(data), '\0'));
            GlobalUnlock(data);
        }
    }
    CloseClipboard();
    return text;
}

// False when the text has no line break: the field itself pastes it as it is.
static bool PasteNames(HWND dialog, int row) {
    // Whoever sends the message, a hidden row has no track.
    if (row >= RowsOnPage()) return false;
    const std::string text = ClipboardText(dialog);
    const std::vector<std::string> names = SplitTrackNames(text);
    if (names.empty() || text.find_first_of("\r\n") == std::string::npos) return false;
    if (names.size() == 1) {
        // The field would take the first line, which may be an empty one.
        SendDlgItemMessageA(dialog, IDC_ENTRY_NAME_FIRST + row, EM_REPLACESEL, TRUE,
                            reinterpret_cast<LPARAM>(names[0].c_str()));
        return true;
    }
    KeepRows(dialog);
    const size_t first = static_cast<size_t>(Sheet.page * kTrackPageSize + row);
    const size_t count = std::min(names.size(), Sheet.disc.trackCount - first);
    std::copy_n(names.begin(), count, Sheet.trackNames + first);
    FillRows(dialog);
    return true;
}

static LRESULT CALLBACK NameProcedure(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_PASTE &&
        PasteNames(GetParent(edit), GetDlgCtrlID(edit) - IDC_ENTRY_NAME_FIRST)) {
        return 0;
    }
    return CallWindowProcA(EditProcedure, edit, message, wParam, lParam);
}

// Layout

static bool IsAdvancedLayout() {
    return Settings.databaseLayout == DatabaseLayout::kAdvanced;
}

static void MeasureLayouts(HWND dialog) {
    RECT window = {};
    RECT client = {};
    GetWindowRect(dialog, &window);
    GetClientRect(dialog, &client);
    int simpleEdge = client.right;
    for (const ControlRange& range : kAdvanced) {
        for (int id = range.first; id <= range.last; ++id) {
            simpleEdge = std::min<int>(simpleEdge, ControlRect(dialog, id).left);
        }
    }
    Sheet.fullWidth = window.right - window.left;
    Sheet.hiddenWidth = client.right - simpleEdge;
}

static void ResizeForLayout(HWND dialog) {
    RECT window = {};
    GetWindowRect(dialog, &window);
    const int width = Sheet.fullWidth - (IsAdvancedLayout() ? 0 : Sheet.hiddenWidth);
    if (width == window.right - window.left) return;
    // Growing must not push the new column off the screen.
    const int left =
        std::clamp<int>(window.left, 0, std::max(GetSystemMetrics(SM_CXSCREEN) - width, 0));
    SetWindowPos(dialog, nullptr, left, window.top, width, window.bottom - window.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    InvalidateRect(dialog, nullptr, TRUE);
}

static void ShowLayout(HWND dialog) {
    CheckRadioButton(dialog, IDC_ENTRY_SIMPLE, IDC_ENTRY_ADVANCED,
                     IsAdvancedLayout() ? IDC_ENTRY_ADVANCED : IDC_ENTRY_SIMPLE);
    for (const ControlRange& range : kAdvanced) {
        for (int id = range.first; id <= range.last; ++id) {
            ShowControl(dialog, id, IsAdvancedLayout());
        }
    }
    ResizeForLayout(dialog);
}

static void ChooseLayout(HWND dialog, DatabaseLayout layout) {
    PlayClickSound(IDS_SOUND_RADIO);
    KeepRows(dialog);
    Settings.databaseLayout = layout;
    ShowLayout(dialog);
}

// Filling and reading

static void CheckCode(HWND dialog, ControlRange group, int code) {
    // Codes that no button stands for light the last one.
    CheckRadioButton(dialog, group.first, group.last, std::min(group.first + code, group.last));
}

// The last checked button counts, `code` when there is none.
static uint8_t CheckedCode(HWND dialog, ControlRange group, uint8_t code) {
    for (int id = group.first; id <= group.last; ++id) {
        if (IsDlgButtonChecked(dialog, id)) code = static_cast<uint8_t>(id - group.first);
    }
    return code;
}

static std::string FieldText(HWND dialog, int controlId) {
    return ControlText(dialog, controlId).substr(0, kMaxTextBytes);
}

void OpenEntryFields(HWND dialog) {
    Sheet = {};
    for (int id : kTextFields)
        SendDlgItemMessageA(dialog, id, EM_LIMITTEXT, kMaxTextBytes, 0);
    for (int id = kNames.first; id <= kNames.last; ++id) {
        HWND edit = GetDlgItem(dialog, id);
        SendMessageA(edit, EM_LIMITTEXT, kMaxTextBytes, 0);
        EditProcedure = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrA(edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(NameProcedure)));
    }
    MeasureLayouts(dialog);
    ShowLayout(dialog);
}

void CloseEntryFields() {
    Sheet = {};
}

void ShowEntry(HWND dialog, const DiscToc& disc, const EntryFields& fields) {
    Sheet.disc = disc;
    Sheet.disc.trackCount = std::min<uint16_t>(disc.trackCount, kMaxTracks);
    std::copy(std::begin(fields.trackNames), std::end(fields.trackNames), Sheet.trackNames);
    Sheet.page = 0;
    const int pages = PageCount(Sheet.disc.trackCount);
    Sheet.pageCount = pages >= 2 ? pages : 0;
    for (int id : {IDC_ENTRY_PAGE_UP, IDC_ENTRY_PAGE_UP_LABEL, IDC_ENTRY_PAGE_DOWN,
                   IDC_ENTRY_PAGE_DOWN_LABEL}) {
        ShowControl(dialog, id, Sheet.pageCount != 0);
    }
    SetControlText(dialog, IDC_ENTRY_ARTIST, fields.artist);
    SetControlText(dialog, IDC_ENTRY_DISC_NAME, fields.discName);
    SetControlText(dialog, IDC_ENTRY_CATEGORY, fields.category);
    SetControlText(dialog, IDC_ENTRY_LABEL_FIELD, fields.label);
    SetControlText(dialog, IDC_ENTRY_NOTES, fields.notes);
    SetControlText(dialog, IDC_ENTRY_YEAR, fields.yearReleased);
    CheckCode(dialog, kRecording, fields.recordingCode);
    CheckCode(dialog, kType, fields.discType);
    CheckCode(dialog, kSize, fields.discSize);
    FillRows(dialog);
}

EntryFields ReadEntry(HWND dialog) {
    KeepRows(dialog);
    EntryFields fields;
    std::copy(std::begin(Sheet.trackNames), std::end(Sheet.trackNames), fields.trackNames);
    fields.artist = FieldText(dialog, IDC_ENTRY_ARTIST);
    fields.discName = FieldText(dialog, IDC_ENTRY_DISC_NAME);
    fields.category = FieldText(dialog, IDC_ENTRY_CATEGORY);
    fields.label = FieldText(dialog, IDC_ENTRY_LABEL_FIELD);
    fields.notes = FieldText(dialog, IDC_ENTRY_NOTES);
    fields.yearReleased = FieldText(dialog, IDC_ENTRY_YEAR);
    fields.recordingCode = CheckedCode(dialog, kRecording, 0);
    fields.discType = CheckedCode(dialog, kType, 0);
    fields.discSize = CheckedCode(dialog, kSize, 1);
    return fields;
}

const DiscToc& ShownDisc() {
    return Sheet.disc;
}

bool HandleEntryFieldCommand(HWND dialog, int controlId, int notification) {
    if (Sheet.filling) return false;
    if (IsIn(kNames, controlId)) {
        const int row = controlId - IDC_ENTRY_NAME_FIRST;
        if (notification == EN_KILLFOCUS && row < RowsOnPage()) KeepRow(dialog, row);
        return true;
    }
    const bool onPicture = controlId == IDC_ENTRY_PAGE_UP || controlId == IDC_ENTRY_PAGE_DOWN;
    if (!IsClick(notification, onPicture)) return false;
    if (IsIn(kRecording, controlId) || IsIn(kType, controlId) || IsIn(kSize, controlId)) {
        PlayClickSound(IDS_SOUND_RADIO);
        return true;
    }
    switch (controlId) {
        case IDC_ENTRY_PAGE_UP:
            ShowTrackPage(dialog, PageAfter(Sheet.page, Sheet.pageCount));
            return true;
        case IDC_ENTRY_PAGE_DOWN:
            ShowTrackPage(dialog, PageBefore(Sheet.page, Sheet.pageCount));
            return true;
        case IDC_ENTRY_SIMPLE:
            ChooseLayout(dialog, DatabaseLayout::kSimple);
            return true;
        case IDC_ENTRY_ADVANCED:
            ChooseLayout(dialog, DatabaseLayout::kAdvanced);
            return true;
        default:
            return false;
    }
}
