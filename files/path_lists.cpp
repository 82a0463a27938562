// See path_lists.h.
#include "files/path_lists.h"

#include <algorithm>
#include <vector>

#include "files/path_chain.h"
#include "resources/ids.h"
#include "ui/icon_entries.h"
#include "ui/list_boxes.h"

constexpr int kIndentPerLevel = 4;

constexpr UINT kListDrives = DDL_DRIVES | DDL_EXCLUSIVE;
constexpr UINT kListDirectories = DDL_DIRECTORY | DDL_EXCLUSIVE;

// The kinds of drives as GetDriveType counts them; the icons follow from the removable ones on.
constexpr UINT kFirstDriveType = DRIVE_REMOVABLE;

static void AddListing(HWND list, UINT kind, std::string pattern) {
    SendMessageA(list, LB_DIR, kind, reinterpret_cast<LPARAM>(pattern.data()));
}

static void Insert(HWND list, int index, const std::string& text) {
    SendMessageA(list, LB_INSERTSTRING, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(text.c_str()));
}

static int ValueOf(HWND list, int index) {
    return static_cast<int>(SendMessageA(list, LB_GETITEMDATA, static_cast<WPARAM>(index), 0));
}

static void SetValue(HWND list, int index, int value) {
    SendMessageA(list, LB_SETITEMDATA, static_cast<WPARAM>(index), value);
}

// Copies the plain entries in their order, each with its place among them.
static void ShowEntries(HWND plain, HWND visible) {
    SendMessageA(visible, WM_SETREDRAW, FALSE, 0);
    SendMessageA(visible, LB_RESETCONTENT, 0, 0);
    const int count = ListCount(plain);
    for (int i = 0; i < count; ++i) {
        Insert(visible, i, ListText(plain, i));
        SetValue(visible, i, i);
    }
    SendMessageA(visible, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(visible, nullptr, TRUE);
}

void PreparePathLists(HWND dialog) {
    for (int id : {IDC_PATH_DIRECTORIES, IDC_PATH_DRIVES}) {
        HWND list = GetDlgItem(dialog, id);
        SendMessageA(list, LB_SETITEMHEIGHT, 0, IconEntryHeight(list));
    }
}

// The parent's entry need not be the first: some names are sorted before it, and some file systems
// list none.
static void RemoveParentEntry(HWND list) {
    for (int i = ListCount(list) - 1; i >= 0; --i) {
        if (ListText(list, i) == "[..]") {
            SendMessageA(list, LB_DELETESTRING, static_cast<WPARAM>(i), 0);
        }
    }
}

size_t FillDirectoryList(HWND dialog, const std::string& path) {
    HWND plain = GetDlgItem(dialog, IDC_PATH_DIRECTORY_ENTRIES);
    HWND visible = GetDlgItem(dialog, IDC_PATH_DIRECTORIES);
    SendMessageA(plain, LB_RESETCONTENT, 0, 0);
    AddListing(plain, kListDirectories, path + "*.*");
    RemoveParentEntry(plain);
    const std::vector<std::string> chain = PathChain(path);
    for (size_t i = 0; i < chain.size(); ++i)
        Insert(plain, static_cast<int>(i), chain[i]);
    HWND names = GetDlgItem(dialog, IDC_PATH_DIRECTORY_NAMES);
    SendMessageA(names, LB_RESETCONTENT, 0, 0);
    const int count = ListCount(plain);
    for (int i = 0; i < count; ++i) {
        const std::string entry = ListText(plain, i);
        // What stands in the chain may have brackets of its own.
        const bool inChain = static_cast<size_t>(i) < chain.size();
        Insert(names, i, inChain ? entry : UnbracketedName(entry));
    }
    ShowEntries(plain, visible);
    const int indent = static_cast<int>(chain.size()) * kIndentPerLevel;
    FitListExtent(visible, indent + IconEntryMargin());
    // The first arrow key selects the entry with the caret: the first directory below.
    const int caret = std::min(static_cast<int>(chain.size()), count - 1);
    SendMessageA(visible, LB_SETCARETINDEX, static_cast<WPARAM>(caret), FALSE);
    return chain.size();
}

static std::string PlainText(HWND dialog, int visibleId, int plainId, int index) {
    const int place = ValueOf(GetDlgItem(dialog, visibleId), index);
    return place < 0 ? "" : ListText(GetDlgItem(dialog, plainId), place);
}

std::string DirectoryEntryName(HWND dialog, int index) {
    return PlainText(dialog, IDC_PATH_DIRECTORIES, IDC_PATH_DIRECTORY_NAMES, index);
}

void DrawDirectoryEntry(HWND dialog, const DRAWITEMSTRUCT& item, size_t chainCount) {
    const size_t index = item.itemID;
    const bool inChain = index < chainCount;
    const size_t level = inChain ? index : chainCount;
    DrawIconEntry(item, static_cast<int>(level) * kIndentPerLevel,
                  inChain ? kIconFolderOpen : kIconFolder,
                  DirectoryEntryName(dialog, static_cast<int>(index)));
}

void FillDriveList(HWND dialog) {
    HWND plain = GetDlgItem(dialog, IDC_PATH_DRIVE_ENTRIES);
    HWND labels = GetDlgItem(dialog, IDC_PATH_DRIVE_LABELS);
    for (HWND list : {plain, labels}) {
        SendMessageA(list, LB_RESETCONTENT, 0, 0);
        AddListing(list, kListDrives, "*");
    }
    ShowEntries(plain, GetDlgItem(dialog, IDC_PATH_DRIVES));
}

char DriveOfEntry(HWND dialog, int index) {
    return DriveLetter(PlainText(dialog, IDC_PATH_DRIVES, IDC_PATH_DRIVE_ENTRIES, index));
}

void SelectDrive(HWND dialog, char letter) {
    HWND drives = GetDlgItem(dialog, IDC_PATH_DRIVES);
    int index = ListCount(drives) - 1;
    while (index >= 0 && DriveOfEntry(dialog, index) != letter)
        --index;
    SendMessageA(drives, LB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

static std::string VolumeLabel(const std::string& root) {
    char label[MAX_PATH + 1] = {};
    GetVolumeInformationA(root.c_str(), label, sizeof label, nullptr, nullptr, nullptr, nullptr, 0);
    CharLowerA(label);
    return label;
}

static std::string RemoteName(const std::string& drive) {
    char name[1024] = {};
    DWORD size = sizeof name;
    if (WNetGetConnectionA(drive.c_str(), name, &size) != NO_ERROR) return {};
    CharLowerA(name);
    return CutAfterColon(name);
}

static std::string ComposeLabel(char letter, UINT type) {
    const std::string drive = {letter, ':'};
    switch (type) {
        case DRIVE_FIXED:
        case DRIVE_CDROM:
        case DRIVE_RAMDISK:
            return drive + ' ' + VolumeLabel(drive + '\\');
        case DRIVE_REMOTE:
            return drive + ' ' + RemoteName(drive);
        default:
            return drive + ' ';
    }
}

// A label's value: whether it has been composed.
enum LabelState { kNotComposed, kComposed };

static std::string DriveLabel(HWND dialog, int index, char letter, UINT type) {
    HWND labels = GetDlgItem(dialog, IDC_PATH_DRIVE_LABELS);
    const int place = ValueOf(GetDlgItem(dialog, IDC_PATH_DRIVES), index);
    if (ValueOf(labels, place) != kComposed) {
        SendMessageA(labels, LB_DELETESTRING, static_cast<WPARAM>(place), 0);
        Insert(labels, place, ComposeLabel(letter, type));
        SetValue(labels, place, kComposed);
    }
    return ListText(labels, place);
}

void ForgetDriveLabel(HWND dialog, int index) {
    HWND drives = GetDlgItem(dialog, IDC_PATH_DRIVES);
    SetValue(GetDlgItem(dialog, IDC_PATH_DRIVE_LABELS), ValueOf(drives, index), kNotComposed);
    InvalidateRect(drives, nullptr, FALSE);
}

void DrawDriveEntry(HWND dialog, const DRAWITEMSTRUCT& item) {
    const auto index = static_cast<int>(item.itemID);
    const char letter = DriveOfEntry(dialog, index);
    if (letter == '\0') return;
    const char root[] = {letter, ':', '\\', '\0'};
    const UINT type = GetDriveTypeA(root);
    const bool known = type >= kFirstDriveType && type <= DRIVE_RAMDISK;
    const SkinIcon icon = known ? static_cast<SkinIcon>(type - kFirstDriveType) : kSkinIconCount;
    DrawIconEntry(item, 0, icon, DriveLabel(dialog, index, letter, type));
}
