// The list box of the current mode's media files.
#include "playback/file_list.h"

#include <windows.h>

#include <algorithm>
#include <unordered_set>

#include "base/program_state.h"
#include "base/settings.h"
#include "resources/ids.h"
#include "ui/dialog_helpers.h"
#include "ui/handles.h"

static HWND FileList() {
    return GetDlgItem(MainWindow, IDC_FILE_LIST);
}

static std::vector<std::string> ModePatterns() {
    std::vector<std::string> patterns;
    for (const MediaType& type : CurrentMode().types) {
        if (type.listed == nullptr || Settings.*type.listed) {
            patterns.push_back(std::string("*.") + type.extension);
        }
    }
    return patterns;
}

void ShowModeLabels() {
    const Mode& mode = CurrentMode();
    if (mode.types.empty()) return;
    const std::string label = mode.label;
    SetControlText(MainWindow, IDC_LOCATION_GROUP, label + " &Location");
    SetControlText(MainWindow, IDC_SELECTED_LABEL,
                   std::string("Number of ") + mode.name + " files selected:");
    SetControlText(MainWindow, IDC_LEFT_LABEL, label + " files left to play:");
    const bool video = mode.showsVideo;
    ShowControl(MainWindow, IDC_REPEAT, true);
    ShowControl(MainWindow, IDC_REPEAT_LABEL, true);
    ShowControl(MainWindow, IDC_SOUND, video);
    ShowControl(MainWindow, IDC_SOUND_LABEL, video);
}

std::string ListEntryText(int index) {
    HWND list = FileList();
    const LRESULT length = SendMessageA(list, LB_GETTEXTLEN, static_cast<WPARAM>(index), 0);
    if (length == LB_ERR) return {};
    std::string text(static_cast<size_t>(length) + 1, '\0');
    const LRESULT copied = SendMessageA(list, LB_GETTEXT, static_cast<WPARAM>(index),
                                        reinterpret_cast<LPARAM>(text.data()));
    if (copied == LB_ERR) return {};
    text.resize(static_cast<size_t>(copied));
    return text;
}

int SelectedFileCount() {
    const LRESULT count = SendMessageA(FileList(), LB_GETSELCOUNT, 0, 0);
    return count == LB_ERR ? 0 : static_cast<int>(count);
}

std::vector<std::string> SelectedFileNames(size_t limit) {
    std::vector<int> indices(std::min(limit, static_cast<size_t>(SelectedFileCount())));
    const LRESULT count = SendMessageA(FileList(), LB_GETSELITEMS, indices.size(),
                                       reinterpret_cast<LPARAM>(indices.data()));
    indices.resize(count == LB_ERR ? 0 : static_cast<size_t>(count));
    std::vector<std::string> names;
    for (int index : indices)
        names.push_back(ListEntryText(index));
    return names;
}

static int FindEntry(const std::string& name) {
    return static_cast<int>(SendMessageA(FileList(), LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                         reinterpret_cast<LPARAM>(name.c_str())));
}

// What the user had marked in the list, by name.
struct ListMarks {
    std::unordered_set<std::string> selected;
    std::string top;
    std::string caret;
};

static ListMarks TakeMarks() {
    const std::vector<std::string> names =
        SelectedFileNames(static_cast<size_t>(SelectedFileCount()));
    return {{names.begin(), names.end()},
            ListEntryText(static_cast<int>(SendMessageA(FileList(), LB_GETTOPINDEX, 0, 0))),
            ListEntryText(static_cast<int>(SendMessageA(FileList(), LB_GETCARETINDEX, 0, 0)))};
}

static void RestoreMarks(const ListMarks& marks) {
    const auto count = static_cast<int>(SendMessageA(FileList(), LB_GETCOUNT, 0, 0));
    for (int i = 0; i < count && !marks.selected.empty(); ++i) {
        if (marks.selected.count(ListEntryText(i)) != 0)
            SendMessageA(FileList(), LB_SETSEL, TRUE, i);
    }
    const int caret = marks.caret.empty() ? LB_ERR : FindEntry(marks.caret);
    if (caret != LB_ERR) {
        SendMessageA(FileList(), LB_SETCARETINDEX, static_cast<WPARAM>(caret), FALSE);
    }
    const int top = marks.top.empty() ? LB_ERR : FindEntry(marks.top);
    if (top != LB_ERR) SendMessageA(FileList(), LB_SETTOPINDEX, static_cast<WPARAM>(top), 0);
}

// Names wider than the list can be scrolled to.
static void SetListExtent() {
    const UniqueWindowDc dc = GetUniqueDc(FileList());
    const SelectedObject font =
        SelectInto(dc.get(), reinterpret_cast<HGDIOBJ>(SendMessageA(FileList(), WM_GETFONT, 0, 0)));
    LONG widest = 0;
    const auto count = static_cast<int>(SendMessageA(FileList(), LB_GETCOUNT, 0, 0));
    for (int i = 0; i < count; ++i) {
        const std::string text = ListEntryText(i);
        SIZE size = {};
        GetTextExtentPoint32A(dc.get(), text.c_str(), static_cast<int>(text.size()), &size);
        widest = std::max(widest, size.cx);
    }
    constexpr LONG margin = 4;
    SendMessageA(FileList(), LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widest + margin), 0);
}

static void AddModeFiles(const std::string& directory) {
    for (const std::string& pattern : ModePatterns()) {
        // The platform may write into the path.
        std::string path = directory + pattern;
        SendMessageA(FileList(), LB_DIR, 0, reinterpret_cast<LPARAM>(path.data()));
    }
}

void FillModeList(bool keepSelection) {
    const std::string* directory = ModeDirectory();
    if (directory == nullptr) return;
    std::string shown = *directory;
    CharLowerA(shown.data());
    SetControlText(MainWindow, IDC_DIRECTORY, shown);

    const ListMarks marks = keepSelection ? TakeMarks() : ListMarks{};
    SendMessageA(FileList(), WM_SETREDRAW, FALSE, 0);
    SendMessageA(FileList(), LB_RESETCONTENT, 0, 0);
    AddModeFiles(*directory);
    SetListExtent();
    RestoreMarks(marks);
    SendMessageA(FileList(), WM_SETREDRAW, TRUE, 0);
    InvalidateRect(FileList(), nullptr, TRUE);

    const LRESULT count = SendMessageA(FileList(), LB_GETCOUNT, 0, 0);
    SetControlText(MainWindow, IDC_LIST_COUNT,
                   std::to_string(count) + " " + CurrentMode().label + " Files:");
}

std::string DisplayName(const std::string& path, const std::string& name) {
    WIN32_FIND_DATAA found;
    HANDLE search = FindFirstFileA(path.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return name;
    FindClose(search);
    return found.cFileName;
}

bool SelectFileByName(const std::string& name) {
    int index = FindEntry(name);
    if (index == LB_ERR && ModeDirectory() != nullptr) {
        index = FindEntry(DisplayName(*ModeDirectory() + name, name));
    }
    if (index == LB_ERR) return false;
    SendMessageA(FileList(), LB_SETSEL, FALSE, -1);
    SendMessageA(FileList(), LB_SETSEL, TRUE, index);
    return true;
}
