// See search_dialog.h.
#include "files/search_dialog.h"

#include "base/program_state.h"
#include "resources/ids.h"
#include "ui/click_sounds.h"
#include "ui/dialog_helpers.h"
#include "ui/list_boxes.h"
#include "ui/long_run.h"

static const DialogButton kButtons[] = {
    {IDC_DRIVE_SEARCH_START, kFaceStart},
    {IDC_OK, kFaceOk},
    {IDC_CANCEL, kFaceCancel},
};

static const char kHint[] = "Select a path and click OK, or double click a path.";

// The dialog's own state, from opening to closing.
struct SearchSheet {
    const FileKind* kind;
    char letter;
    std::string* path;
    SearchResult result;
    bool searching;
    int closeBy;        // the button that stopped the search; 0 while it goes on
    DWORD lastShownMs;  // when the fields were brought up to date
};
static SearchSheet Sheet;

static HWND ResultList(HWND dialog) {
    return GetDlgItem(dialog, IDC_DRIVE_SEARCH_RESULTS);
}

static std::string DriveText() {
    return {static_cast<char>(toupper(Sheet.letter)), ':'};
}

// Adds to the list what has been found since the last time.
static void ShowResult(HWND dialog) {
    HWND list = ResultList(dialog);
    const int first = ListCount(list);
    for (size_t i = static_cast<size_t>(first); i < Sheet.result.directories.size(); ++i) {
        const FoundDirectory& found = Sheet.result.directories[i];
        const LRESULT index =
            SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(found.path.c_str()));
        SendMessageA(list, LB_SETITEMDATA, static_cast<WPARAM>(index),
                     static_cast<LPARAM>(found.files));
    }
    if (ListCount(list) > first) FitListExtent(list, 0, first);
    SetControlText(dialog, IDC_DRIVE_SEARCH_FILES, std::to_string(Sheet.result.files));
    SetControlText(dialog, IDC_DRIVE_SEARCH_DIRECTORIES, std::to_string(ListCount(list)));
}

static void OnInitDialog(HWND dialog) {
    PrepareDialog(dialog, kButtons);
    const std::string& word = Sheet.kind->word;
    SetWindowTextA(dialog, ("Search for " + word + " files on drive " + DriveText()).c_str());
    SetControlText(dialog, IDC_DRIVE_SEARCH_FILES_LABEL,
                   "Total number of " + word + " files found on drive " + DriveText());
    SetControlText(dialog, IDC_DRIVE_SEARCH_DIRECTORIES_LABEL,
                   "Total number of directories with " + word + " files on drive " + DriveText());
    const SearchResult* last = LastSearch(Sheet.letter, *Sheet.kind);
    if (last != nullptr) {
        Sheet.result = *last;
        SetControlText(dialog, IDC_DRIVE_SEARCH_STATUS, kHint);
    }
    ShowResult(dialog);
}

// Only what is meant for this dialog: timers and the windows behind it must not come in between.
static void TakeOwnInput(HWND dialog) {
    constexpr UINT kOwnInput[][2] = {{WM_KEYFIRST, WM_KEYLAST},
                                     {WM_MOUSEFIRST, WM_MOUSELAST},
                                     {WM_NCMOUSEMOVE, WM_NCXBUTTONDBLCLK},
                                     {WM_COMMAND, WM_COMMAND},
                                     {WM_SYSCOMMAND, WM_SYSCOMMAND}};
    MSG message;
    for (const auto& [first, last] : kOwnInput) {
        while (PeekMessageA(&message, dialog, first, last, PM_REMOVE)) {
            if (IsDialogMessageA(dialog, &message)) continue;
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }
}

// Brings the fields up to date, at most so often that the user does not wait for the drawing, and
// lets the user stop the search.
static bool OnSearchStep(HWND dialog, const std::string& directory, const std::string& file) {
    constexpr DWORD pauseMs = 50;
    const DWORD now = GetTickCount();
    if (now - Sheet.lastShownMs < pauseMs) return true;
    Sheet.lastShownMs = now;
    ShowResult(dialog);
    SetControlText(dialog, IDC_DRIVE_SEARCH_STATUS, directory);
    if (!file.empty()) SetControlText(dialog, IDC_DRIVE_SEARCH_DETAIL, file);
    PaintWaitingWindows();
    TakeOwnInput(dialog);
    return Sheet.closeBy == 0;
}

// True when the search came to its end.
static bool Search(HWND dialog) {
    SendMessageA(ResultList(dialog), LB_RESETCONTENT, 0, 0);
    Sheet.searching = true;
    Sheet.closeBy = 0;
    SetCursor(LoadCursorA(nullptr, IDC_WAIT));
    const bool finished =
        SearchDrive(Sheet.letter, *Sheet.kind, Sheet.result,
                    [dialog](const std::string& directory, const std::string& file) {
                        return OnSearchStep(dialog, directory, file);
                    });
    Sheet.searching = false;
    SetCursor(LoadCursorA(nullptr, IDC_ARROW));
    ShowResult(dialog);
    return finished;
}

static void OnCancel(HWND dialog) {
    PlayClickSound(IDS_SOUND_CANCEL);
    EndDialog(dialog, FALSE);
}

static void OnOk(HWND dialog) {
    const int index = SelectedEntry(ResultList(dialog));
    if (index < 0) {
        OnCancel(dialog);
        return;
    }
    PlayClickSound(IDS_SOUND_OK);
    *Sheet.path = Sheet.result.directories[static_cast<size_t>(index)].path;
    EndDialog(dialog, TRUE);
}

static void CloseBy(HWND dialog, int button) {
    if (Sheet.searching) {
        Sheet.closeBy = button;
    } else if (button == IDC_OK) {
        OnOk(dialog);
    } else {
        OnCancel(dialog);
    }
}

static void OnStart(HWND dialog) {
    if (Sheet.searching) return;
    PlayClickSound(IDS_SOUND_START);
    if (!Search(dialog)) {
        CloseBy(dialog, Sheet.closeBy);
        return;
    }
    KeepSearch(Sheet.letter, *Sheet.kind, Sheet.result);
    SetControlText(dialog, IDC_DRIVE_SEARCH_DETAIL, "Done!");
    SetControlText(dialog, IDC_DRIVE_SEARCH_STATUS, kHint);
    MessageBeep(MB_OK);
}

static void OnSelect(HWND dialog) {
    HWND list = ResultList(dialog);
    const int index = SelectedEntry(list);
    if (index < 0) return;
    const LRESULT files = SendMessageA(list, LB_GETITEMDATA, static_cast<WPARAM>(index), 0);
    SetControlText(dialog, IDC_DRIVE_SEARCH_DETAIL,
                   std::to_string(files) + " " + Sheet.kind->word + " File(s)");
}

static void OnCommand(HWND dialog, int id, int notification) {
    switch (id) {
        case IDC_DRIVE_SEARCH_START:
            if (IsClick(notification, true)) OnStart(dialog);
            break;
        case IDC_OK:
        case IDC_CANCEL:
            CloseBy(dialog, id);
            break;
        case IDC_DRIVE_SEARCH_RESULTS:
            if (notification == LBN_SELCHANGE) OnSelect(dialog);
            if (notification == LBN_DBLCLK) CloseBy(dialog, IDC_OK);
            break;
        default:
            break;
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
            OnCommand(dialog, MeantButton(dialog, wParam, kButtons, IDC_OK, IDC_CANCEL),
                      HIWORD(wParam));
            return TRUE;
        case WM_SETCURSOR:
            if (!Sheet.searching) return FALSE;
            SetCursor(LoadCursorA(nullptr, IDC_WAIT));
            SetWindowLongA(dialog, DWL_MSGRESULT, TRUE);
            return TRUE;
        default:
            return FALSE;
    }
}

bool ShowSearchDialog(HWND owner, const FileKind& kind, std::string& path) {
    Sheet = {};
    Sheet.kind = &kind;
    Sheet.letter = path[0];
    Sheet.path = &path;
    return DialogBoxParamA(ProgramInstance, MAKEINTRESOURCEA(IDD_DRIVE_SEARCH), owner,
                           SearchProcedure, 0) == TRUE;
}
