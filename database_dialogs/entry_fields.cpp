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

struct TextField {
    int id;
    std::string EntryFields::*text;
};
constexpr TextField kTextFields[] = {
    {IDC_ENTRY_ARTIST, &EntryFields::artist},     {IDC_ENTRY_DISC_NAME, &EntryFields::discName},
    {IDC_ENTRY_CATEGORY, &EntryFields::category}, {IDC_ENTRY_LABEL_FIELD, &EntryFields::label},
    {IDC_ENTRY_NOTES, &EntryFields::notes},       {IDC_ENTRY_YEAR, &EntryFields::yearReleased},
};

struct ControlRange {
    int first;
    int last;
};
constexpr ControlRange kNames = {IDC_ENTRY_NAME_FIRST, IDC_ENTRY_NAME_LAST};
// A page has a row for each of its tracks.
static_assert(IDC_ENTRY_NAME_LAST - IDC_ENTRY_NAME_FIRST + 1 == kTrackPageSize);
static_assert(IDC_ENTRY_NUMBER_LAST - IDC_ENTRY_NUMBER_FIRST + 1 == kTrackPageSize);
constexpr ControlRange kAdvanced[] = {
    {IDC_ENTRY_LABEL_CAPTION, IDC_ENTRY_RELEASED_CAPTION},
    {IDC_ENTRY_LABEL_FIELD, IDC_ENTRY_YEAR},
};

struct CodeGroup {
    ControlRange buttons;
    uint8_t EntryFields::*code;
};
constexpr CodeGroup kCodeGroups[] = {
    {{IDC_ENTRY_RECORDING_FIRST, IDC_ENTRY_RECORDING_LAST}, &EntryFields::recordingCode},
    {{IDC_ENTRY_TYPE_FIRST, IDC_ENTRY_TYPE_LAST}, &EntryFields::discType},
    {{IDC_ENTRY_THREE_INCH, IDC_ENTRY_FIVE_INCH}, &EntryFields::discSize},
};

static bool IsIn(ControlRange range, int id) {
    return id >= range.first && id <= range.last;
}

static std::string LimitedText(const EntrySheet& sheet, int controlId) {
    return ControlText(sheet.dialog, controlId).substr(0, kMaxTextBytes);
}

// Track rows

static int RowsOnPage(const EntrySheet& sheet) {
    return std::clamp(sheet.disc.trackCount - sheet.page * kTrackPageSize, 0, kTrackPageSize);
}

static void KeepRow(EntrySheet& sheet, int row) {
    sheet.trackNames[sheet.page * kTrackPageSize + row] =
        LimitedText(sheet, IDC_ENTRY_NAME_FIRST + row);
}

static void KeepRows(EntrySheet& sheet) {
    for (int row = 0; row < RowsOnPage(sheet); ++row)
        KeepRow(sheet, row);
}

static void FillRow(const EntrySheet& sheet, int row) {
    const int index = sheet.page * kTrackPageSize + row;
    SetControlText(sheet.dialog, IDC_ENTRY_NAME_FIRST + row, sheet.trackNames[index]);
    SetControlText(sheet.dialog, IDC_ENTRY_NUMBER_FIRST + row, std::to_string(index + 1));
    SetControlText(sheet.dialog, IDC_ENTRY_TIME_FIRST + row,
                   MinutesSecondsText(sheet.disc.lengthSeconds[index]));
}

// A row that is about to be hidden must not keep the focus.
static void MoveFocusFromHiddenRows(const EntrySheet& sheet, int rows) {
    const int focused = FocusedControl(sheet.dialog);
    if (!IsIn(kNames, focused)) return;
    if (focused - IDC_ENTRY_NAME_FIRST < rows) return;
    SetFocus(GetDlgItem(sheet.dialog, rows > 0 ? IDC_ENTRY_NAME_FIRST : IDC_ENTRY_ARTIST));
}

static void FillRows(EntrySheet& sheet) {
    const int rows = RowsOnPage(sheet);
    sheet.filling = true;
    MoveFocusFromHiddenRows(sheet, rows);
    for (int row = 0; row < kTrackPageSize; ++row) {
        if (row < rows) FillRow(sheet, row);
        for (int first : {IDC_ENTRY_NUMBER_FIRST, IDC_ENTRY_NAME_FIRST, IDC_ENTRY_TIME_FIRST}) {
            ShowControl(sheet.dialog, first + row, row < rows);
        }
    }
    sheet.filling = false;
}

void ShowTrackPage(EntrySheet& sheet, int page) {
    KeepRows(sheet);
    sheet.page = page;
    FillRows(sheet);
}

bool MoveToNextName(EntrySheet& sheet) {
    const int focused = FocusedControl(sheet.dialog);
    if (!IsIn(kNames, focused)) return false;
    int row = focused - IDC_ENTRY_NAME_FIRST + 1;
    if (sheet.page * kTrackPageSize + row >= sheet.disc.trackCount) return false;
    if (row == kTrackPageSize) {
        ShowTrackPage(sheet, sheet.page + 1);
        row = 0;
    }
    HWND next = GetDlgItem(sheet.dialog, IDC_ENTRY_NAME_FIRST + row);
    SendMessageA(sheet.dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(next), TRUE);
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
static bool PasteNames(EntrySheet& sheet, int row) {
    // Whoever sends the message, a hidden row has no track.
    if (row >= RowsOnPage(sheet)) return false;
    const std::string text = ClipboardText(sheet.dialog);
    const std::vector<std::string> names = SplitTrackNames(text);
    if (names.empty() || text.find_first_of("\r\n") == std::string::npos) return false;
    if (names.size() == 1) {
        // The field would take the first line, which may be an empty one.
        SendDlgItemMessageA(sheet.dialog, IDC_ENTRY_NAME_FIRST + row, EM_REPLACESEL, TRUE,
                            reinterpret_cast<LPARAM>(names[0].c_str()));
        return true;
    }
    KeepRows(sheet);
    const size_t first = static_cast<size_t>(sheet.page * kTrackPageSize + row);
    const size_t count = std::min(names.size(), sheet.disc.trackCount - first);
    std::copy_n(names.begin(), count, sheet.trackNames + first);
    FillRows(sheet);
    return true;
}

static LRESULT CALLBACK NameProcedure(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) {
    EntrySheet& sheet = *reinterpret_cast<EntrySheet*>(GetWindowLongPtrA(edit, GWLP_USERDATA));
    if (message == WM_PASTE && PasteNames(sheet, GetDlgCtrlID(edit) - IDC_ENTRY_NAME_FIRST)) {
        return 0;
    }
    return CallWindowProcA(sheet.editProcedure, edit, message, wParam, lParam);
}

// Layout

static bool IsAdvancedLayout() {
    return Settings.databaseLayout == DatabaseLayout::kAdvanced;
}

static void MeasureLayouts(EntrySheet& sheet) {
    RECT window = {};
    RECT client = {};
    GetWindowRect(sheet.dialog, &window);
    GetClientRect(sheet.dialog, &client);
    int simpleEdge = client.right;
    for (const ControlRange& range : kAdvanced) {
        for (int id = range.first; id <= range.last; ++id) {
            simpleEdge = std::min<int>(simpleEdge, ControlRect(sheet.dialog, id).left);
        }
    }
    sheet.fullWidth = window.right - window.left;
    sheet.hiddenWidth = client.right - simpleEdge;
}

static void ResizeForLayout(const EntrySheet& sheet) {
    RECT window = {};
    GetWindowRect(sheet.dialog, &window);
    const int width = sheet.fullWidth - (IsAdvancedLayout() ? 0 : sheet.hiddenWidth);
    if (width == window.right - window.left) return;
    // Growing must not push the new column off the screen that the dialog is on.
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoA(MonitorFromWindow(sheet.dialog, MONITOR_DEFAULTTONEAREST), &monitor);
    const LONG first = monitor.rcMonitor.left;
    const LONG left =
        std::clamp(window.left, first, std::max(monitor.rcMonitor.right - width, first));
    SetWindowPos(sheet.dialog, nullptr, left, window.top, width, window.bottom - window.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    InvalidateRect(sheet.dialog, nullptr, TRUE);
}

static void ShowLayout(const EntrySheet& sheet) {
    CheckRadioButton(sheet.dialog, IDC_ENTRY_SIMPLE, IDC_ENTRY_ADVANCED,
                     IsAdvancedLayout() ? IDC_ENTRY_ADVANCED : IDC_ENTRY_SIMPLE);
    for (const ControlRange& range : kAdvanced) {
        for (int id = range.first; id <= range.last; ++id) {
            ShowControl(sheet.dialog, id, IsAdvancedLayout());
        }
    }
    ResizeForLayout(sheet);
}

static void ChooseLayout(EntrySheet& sheet, DatabaseLayout layout) {
    KeepRows(sheet);
    SettingsValues changed = Settings;
    changed.databaseLayout = layout;
    ReplaceSettings(changed);
    ShowLayout(sheet);
}

void ShowFieldInLayout(EntrySheet& sheet, int controlId) {
    const bool hidden =
        !IsAdvancedLayout() &&
        std::ranges::any_of(kAdvanced, [&](const auto& range) { return IsIn(range, controlId); });
    if (hidden) ChooseLayout(sheet, DatabaseLayout::kAdvanced);
}

// Filling and reading

static void CheckCode(const EntrySheet& sheet, ControlRange buttons, int code) {
    // Codes that no button stands for light the last one.
    CheckRadioButton(sheet.dialog, buttons.first, buttons.last,
                     std::min(buttons.first + code, buttons.last));
}

// The last checked button counts; `code` stays when there is none.
static void ReadCode(const EntrySheet& sheet, ControlRange buttons, uint8_t& code) {
    for (int id = buttons.first; id <= buttons.last; ++id) {
        if (IsDlgButtonChecked(sheet.dialog, id)) code = static_cast<uint8_t>(id - buttons.first);
    }
}

void OpenEntryFields(EntrySheet& sheet, HWND dialog) {
    sheet = {};
    sheet.dialog = dialog;
    for (const TextField& field : kTextFields)
        SendDlgItemMessageA(dialog, field.id, EM_LIMITTEXT, kMaxTextBytes, 0);
    for (int id = kNames.first; id <= kNames.last; ++id) {
        HWND edit = GetDlgItem(dialog, id);
        SendMessageA(edit, EM_LIMITTEXT, kMaxTextBytes, 0);
        SetWindowLongPtrA(edit, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&sheet));
        sheet.editProcedure = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrA(edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(NameProcedure)));
    }
    MeasureLayouts(sheet);
    ShowLayout(sheet);
}

void CloseEntryFields(EntrySheet& sheet) {
    for (std::string& name : sheet.trackNames)
        name = {};
    sheet.filling = true;
}

void ShowEntry(EntrySheet& sheet, const DiscToc& disc, const EntryFields& fields) {
    sheet.disc = disc;
    sheet.disc.trackCount = std::min<uint16_t>(disc.trackCount, kMaxTracks);
    std::copy(std::begin(fields.trackNames), std::end(fields.trackNames), sheet.trackNames);
    sheet.page = 0;
    const int pages = PageCount(sheet.disc.trackCount);
    sheet.pageCount = pages >= 2 ? pages : 0;
    for (int id : {IDC_ENTRY_PAGE_UP, IDC_ENTRY_PAGE_UP_LABEL, IDC_ENTRY_PAGE_DOWN,
                   IDC_ENTRY_PAGE_DOWN_LABEL}) {
        ShowControl(sheet.dialog, id, sheet.pageCount != 0);
    }
    for (const TextField& field : kTextFields)
        SetControlText(sheet.dialog, field.id, fields.*field.text);
    for (const CodeGroup& group : kCodeGroups)
        CheckCode(sheet, group.buttons, fields.*group.code);
    FillRows(sheet);
}

EntryFields ReadEntry(EntrySheet& sheet) {
    KeepRows(sheet);
    EntryFields fields;
    std::copy(std::begin(sheet.trackNames), std::end(sheet.trackNames), fields.trackNames);
    for (const TextField& field : kTextFields)
        fields.*field.text = LimitedText(sheet, field.id);
    for (const CodeGroup& group : kCodeGroups)
        ReadCode(sheet, group.buttons, fields.*group.code);
    return fields;
}

bool HandleEntryFieldCommand(EntrySheet& sheet, int controlId, int notification) {
    if (sheet.filling) return false;
    if (IsIn(kNames, controlId)) {
        const int row = controlId - IDC_ENTRY_NAME_FIRST;
        if (notification == EN_KILLFOCUS && row < RowsOnPage(sheet)) KeepRow(sheet, row);
        return true;
    }
    const bool onPicture = controlId == IDC_ENTRY_PAGE_UP || controlId == IDC_ENTRY_PAGE_DOWN;
    if (!IsClick(notification, onPicture)) return false;
    if (std::ranges::any_of(kCodeGroups,
                            [&](const auto& group) { return IsIn(group.buttons, controlId); })) {
        PlayClickSound(IDS_SOUND_RADIO);
        return true;
    }
    switch (controlId) {
        case IDC_ENTRY_PAGE_UP:
            PlayClickSound(IDS_SOUND_RADIO);
            ShowTrackPage(sheet, PageAfter(sheet.page, sheet.pageCount));
            return true;
        case IDC_ENTRY_PAGE_DOWN:
            PlayClickSound(IDS_SOUND_RADIO);
            ShowTrackPage(sheet, PageBefore(sheet.page, sheet.pageCount));
            return true;
        case IDC_ENTRY_SIMPLE:
            PlayClickSound(IDS_SOUND_RADIO);
            ChooseLayout(sheet, DatabaseLayout::kSimple);
            return true;
        case IDC_ENTRY_ADVANCED:
            PlayClickSound(IDS_SOUND_RADIO);
            ChooseLayout(sheet, DatabaseLayout::kAdvanced);
            return true;
        default:
            return false;
    }
}
