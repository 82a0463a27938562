// See path_dialog.h.
#include "files/path_dialog.h"

#include <algorithm>

#include "base/handles.h"
#include "base/modes.h"
#include "base/program_state.h"
#include "base/settings.h"
#include "files/path_chain.h"
#include "files/path_check.h"
#include "files/path_lists.h"
#include "files/search_dialog.h"
#include "resources/ids.h"
#include "ui/click_sounds.h"
#include "ui/dialog_helpers.h"
#include "ui/icon_entries.h"
#include "ui/list_boxes.h"
#include "ui/skin_buttons.h"

static const DialogButton kButtons[] = {
    {IDC_OK, kFaceOk},
    {IDC_CANCEL, kFaceCancel},
    {IDC_PATH_SEARCH, kFaceSearch},
};

// The dialog's own state, from opening to closing.
struct PathSheet {
    std::string title;
    std::string caption;  // of the files that are looked for; empty when none are
    FileKind kind;
    HWND preview;        // null without one
    std::string former;  // as the caller gave it
    std::string path;    // the chosen one
    size_t chainCount;   // entries of the directory list that stand for the path itself
};
static PathSheet Sheet;

static void SetPurpose(PathPurpose purpose) {
    switch (purpose) {
        case PathPurpose::kDestination:
            Sheet.title = "Destination Path Setup";
            break;
        case PathPurpose::kPrograms:
            Sheet.title = "Select editor path setup";
            Sheet.caption = "Exe files?";
            Sheet.kind = {"Executable", {"*.exe"}};
            break;
        case PathPurpose::kExport:
            Sheet.title = "Select export path setup";
            break;
        case PathPurpose::kMediaFiles: {
            const std::string word = CurrentMode().label;
            Sheet.title = word + " File Path Setup";
            Sheet.caption = word + " files?";
            Sheet.kind = {word, ListedMasks(CurrentMode(), Settings)};
            break;
        }
    }
}

static std::string InLowerCase(std::string path) {
    CharLowerA(path.data());
    return path;
}

static void ShowAnswer(HWND dialog) {
    if (Sheet.preview == nullptr) return;
    SetControlText(dialog, IDC_PATH_ANSWER, ListCount(Sheet.preview) > 0 ? "Yes" : "No");
}

static void FillPreview(const std::string& directory) {
    if (Sheet.preview != nullptr) FillWithFileNames(Sheet.preview, directory, Sheet.kind.masks);
}

static void ShowPath(HWND dialog) {
    SetControlText(dialog, IDC_PATH_LOCATION, Sheet.path);
    Sheet.chainCount = FillDirectoryList(dialog, Sheet.path);
}

static void ShowChosenPath(HWND dialog) {
    ShowPath(dialog);
    FillPreview(Sheet.path);
    ShowAnswer(dialog);
}

static void OnInitDialog(HWND dialog) {
    PrepareDialog(dialog, kButtons);
    SetWindowTextA(dialog, Sheet.title.c_str());
    SetControlText(dialog, IDC_PATH_FILES, Sheet.caption);
    const bool searchable = !Sheet.caption.empty();
    ShowControl(dialog, IDC_PATH_SEARCH, searchable);
    ShowControl(dialog, IDC_PATH_SEARCH_LABEL, searchable);
    PreparePathLists(dialog);
    FillDriveList(dialog);
    ShowPath(dialog);
    ShowAnswer(dialog);
    SelectDrive(dialog, Sheet.path[0]);
}

static void OnOpenDirectory(HWND dialog) {
    const int index = SelectedEntry(GetDlgItem(dialog, IDC_PATH_DIRECTORIES));
    if (index < 0) return;
    const auto level = static_cast<size_t>(index);
    const bool upwards = level < Sheet.chainCount;
    PlayClickSound(upwards ? IDS_SOUND_PATH_UP : IDS_SOUND_PATH_DOWN);
    std::string path;
    if (upwards) {
        path = PathAtLevel(Sheet.path, level);
    } else if (!DescendPath(Sheet.path, DirectoryEntryName(dialog, index), path)) {
        return;
    }
    std::string entered;
    if (!TryDirectory(path, entered)) return;
    Sheet.path = InLowerCase(path);
    ShowChosenPath(dialog);
}

static void OnOpenDrive(HWND dialog) {
    const int index = SelectedEntry(GetDlgItem(dialog, IDC_PATH_DRIVES));
    const char letter = DriveOfEntry(dialog, index);
    if (letter == '\0') return;
    PlayClickSound(IDS_SOUND_DRIVE);
    std::string entered;
    // From a drive that cannot be entered the way leads to the wave files, whatever is looked for.
    const bool possible = TryDirectory({letter, ':'}, entered);
    Sheet.path = InLowerCase(PathOrRoot(possible ? entered : WaveFilesPath));
    ForgetDriveLabel(dialog, index);
    ShowChosenPath(dialog);
    SelectDrive(dialog, Sheet.path[0]);
}

static void OnSearch(HWND dialog) {
    PlayClickSound(IDS_SOUND_SEARCH);
    if (ShowSearchDialog(dialog, Sheet.kind, Sheet.path)) ShowChosenPath(dialog);
}

static void Close(HWND dialog, bool accepted) {
    // A drive whose disc is to be taken out must not stay the current one.
    SetCurrentDirectoryA("c:");
    EndDialog(dialog, accepted);
}

static void OnOk(HWND dialog) {
    PlayClickSound(IDS_SOUND_OK);
    Close(dialog, true);
}

static void OnCancel(HWND dialog) {
    PlayClickSound(IDS_SOUND_CANCEL);
    FillPreview(Sheet.former);
    Close(dialog, false);
}

static void OnCommand(HWND dialog, int id, int notification) {
    switch (id) {
        case IDC_PATH_DIRECTORIES:
            if (notification == LBN_DBLCLK) OnOpenDirectory(dialog);
            break;
        case IDC_PATH_DRIVES:
            if (notification == LBN_DBLCLK) OnOpenDrive(dialog);
            break;
        case IDC_OK:
            OnOk(dialog);
            break;
        case IDC_CANCEL:
            OnCancel(dialog);
            break;
        case IDC_PATH_SEARCH:
            if (IsClick(notification, true)) OnSearch(dialog);
            break;
        default:
            break;
    }
}

// The right arrow is the double click of the keyboard. Other keys keep their meaning; one that
// writes a character would also look for an entry that begins with it.
static INT_PTR OnListKey(HWND dialog, int key, int id) {
    constexpr INT_PTR takeItsMeaning = -1;
    constexpr INT_PTR done = -2;
    if (key != VK_RIGHT) return takeItsMeaning;
    OnCommand(dialog, id, LBN_DBLCLK);
    return done;
}

static void DrawLegend(HWND dialog, HDC dc) {
    constexpr int rise = 6;
    for (int id = IDC_PATH_LEGEND_FIRST; id <= IDC_PATH_LEGEND_LAST; ++id) {
        const RECT caption = ControlRect(dialog, id);
        DrawIconOnFace(dc, caption.left - 2 * kSmallIconSize, caption.top - rise,
                       static_cast<SkinIcon>(id - IDC_PATH_LEGEND_FIRST));
    }
}

static void OnPaint(HWND dialog) {
    PAINTSTRUCT paint;
    HDC dc = BeginPaint(dialog, &paint);
    PaintFrameCorners(dialog, dc);
    DrawLegend(dialog, dc);
    EndPaint(dialog, &paint);
}

static bool OnDrawItem(HWND dialog, const DRAWITEMSTRUCT& item) {
    if (item.CtlID != IDC_PATH_DIRECTORIES && item.CtlID != IDC_PATH_DRIVES) return false;
    if (static_cast<int>(item.itemID) < 0) {
        // An empty list has nothing but the focus.
        DrawFocusRect(item.hDC, &item.rcItem);
    } else if (item.CtlID == IDC_PATH_DIRECTORIES) {
        DrawDirectoryEntry(dialog, item, Sheet.chainCount);
    } else {
        DrawDriveEntry(dialog, item);
    }
    return true;
}

static INT_PTR CALLBACK PathProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    INT_PTR result = FALSE;
    switch (message) {
        case WM_INITDIALOG:
            OnInitDialog(dialog);
            return TRUE;
        case WM_PAINT:
            OnPaint(dialog);
            return TRUE;
        case WM_DRAWITEM:
            if (OnDrawItem(dialog, *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam))) return TRUE;
            break;
        case WM_VKEYTOITEM:
            return OnListKey(dialog, LOWORD(wParam), GetDlgCtrlID(reinterpret_cast<HWND>(lParam)));
        case WM_COMMAND:
            OnCommand(dialog, MeantButton(dialog, wParam, kButtons, IDC_OK, IDC_CANCEL),
                      HIWORD(wParam));
            return TRUE;
        default:
            break;
    }
    if (HandleDialogLook(dialog, message, wParam, lParam, kButtons, result)) return result;
    return FALSE;
}

bool ShowPathDialog(HWND owner, PathPurpose purpose, std::string& directory, HWND preview) {
    Sheet = {};
    SetPurpose(purpose);
    Sheet.preview = Sheet.caption.empty() ? nullptr : preview;
    Sheet.former = directory;
    Sheet.path = InLowerCase(PathOrRoot(directory));
    const bool accepted = DialogBoxParamA(ProgramInstance, MAKEINTRESOURCEA(IDD_PATH), owner,
                                          PathProcedure, 0) == TRUE;
    if (accepted) directory = Sheet.path;
    return accepted;
}
