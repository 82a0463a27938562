// The list box of the current mode's media files.
#include "playback/file_list.h"

#include <algorithm>
#include <unordered_set>

#include "base/file_description.h"
#include "base/program_state.h"
#include "base/settings.h"
#include "resources/ids.h"
#include "ui/dialog_helpers.h"
#include "ui/list_boxes.h"

static HWND FileList(HWND window) {
    return GetDlgItem(window, IDC_FILE_LIST);
}

void ShowModeLabels(HWND window) {
    const Mode& mode = CurrentMode();
    if (mode.types.empty()) return;
    const std::string label = mode.label;
    SetControlText(window, IDC_LOCATION_GROUP, label + " &Location");
    SetControlText(window, IDC_SELECTED_LABEL,
                   std::string("Number of ") + mode.name + " files selected:");
    SetControlText(window, IDC_LEFT_LABEL, label + " files left to play:");
    const bool video = mode.showsVideo;
    ShowControl(window, IDC_REPEAT, true);
    ShowControl(window, IDC_REPEAT_LABEL, true);
    ShowControl(window, IDC_SOUND, video);
    ShowControl(window, IDC_SOUND_LABEL, video);
}

static std::string ListEntryText(HWND window, int index) {
    return ListText(FileList(window), index);
}

int SelectedFileCount(HWND window) {
    const LRESULT count = SendMessageA(FileList(window), LB_GETSELCOUNT, 0, 0);
    return count == LB_ERR ? 0 : static_cast<int>(count);
}

std::vector<std::string> SelectedFileNames(HWND window, size_t limit) {
    std::vector<int> indices(std::min(limit, static_cast<size_t>(SelectedFileCount(window))));
    const LRESULT count = SendMessageA(FileList(window), LB_GETSELITEMS, indices.size(),
                                       reinterpret_cast<LPARAM>(indices.data()));
    indices.resize(count == LB_ERR ? 0 : static_cast<size_t>(count));
    std::vector<std::string> names;
    for (int index : indices)
        names.push_back(ListEntryText(window, index));
    return names;
}

static int FindEntry(HWND window, const std::string& name) {
    const auto next = [&](int after) {
        return static_cast<int>(SendMessageA(FileList(window), LB_FINDSTRINGEXACT,
                                             static_cast<WPARAM>(after),
                                             reinterpret_cast<LPARAM>(name.c_str())));
    };
    // The list compares by words, finds other names too, and begins again behind its end.
    int last = -1;
    for (int index = next(last); index > last; index = next(last)) {
        if (IsSameFileName(ListEntryText(window, index), name)) return index;
        last = index;
    }
    return LB_ERR;
}

// What the user had marked in the list, by name.
struct ListMarks {
    std::unordered_set<std::string> selected;
    std::string top;
    std::string caret;
};

static ListMarks TakeMarks(HWND window) {
    const std::vector<std::string> names =
        SelectedFileNames(window, static_cast<size_t>(SelectedFileCount(window)));
    return {{names.begin(), names.end()},
            ListEntryText(window,
                          static_cast<int>(SendMessageA(FileList(window), LB_GETTOPINDEX, 0, 0))),
            ListEntryText(
                window, static_cast<int>(SendMessageA(FileList(window), LB_GETCARETINDEX, 0, 0)))};
}

static void RestoreMarks(HWND window, const ListMarks& marks) {
    const int count = ListCount(FileList(window));
    for (int i = 0; i < count && !marks.selected.empty(); ++i) {
        if (marks.selected.count(ListEntryText(window, i)) != 0)
            SendMessageA(FileList(window), LB_SETSEL, TRUE, i);
    }
    const int caret = marks.caret.empty() ? LB_ERR : FindEntry(window, marks.caret);
    if (caret != LB_ERR) {
        SendMessageA(FileList(window), LB_SETCARETINDEX, static_cast<WPARAM>(caret), FALSE);
    }
    const int top = marks.top.empty() ? LB_ERR : FindEntry(window, marks.top);
    if (top != LB_ERR) SendMessageA(FileList(window), LB_SETTOPINDEX, static_cast<WPARAM>(top), 0);
}

static void ShowFileCount(HWND window) {
    SetControlText(
        window, IDC_LIST_COUNT,
        std::to_string(ListCount(FileList(window))) + " " + CurrentMode().label + " Files:");
}

void FillModeList(HWND window, bool keepSelection) {
    const std::string* directory = ModeDirectory();
    if (directory == nullptr) return;
    std::string shown = *directory;
    CharLowerA(shown.data());
    SetControlText(window, IDC_DIRECTORY, shown);

    const ListMarks marks = keepSelection ? TakeMarks(window) : ListMarks{};
    SendMessageA(FileList(window), WM_SETREDRAW, FALSE, 0);
    SendMessageA(FileList(window), LB_RESETCONTENT, 0, 0);
    AddFileNames(FileList(window), *directory, ListedMasks(CurrentMode(), Settings));
    FitListExtent(FileList(window));
    RestoreMarks(window, marks);
    SendMessageA(FileList(window), WM_SETREDRAW, TRUE, 0);
    InvalidateRect(FileList(window), nullptr, TRUE);
    ShowFileCount(window);
}

void RefillModeList(HWND window) {
    HWND list = FileList(window);
    const auto top = static_cast<int>(SendMessageA(list, LB_GETTOPINDEX, 0, 0));
    const auto caret = static_cast<int>(SendMessageA(list, LB_GETCARETINDEX, 0, 0));
    FillModeList(window);
    SendMessageA(list, LB_SETCARETINDEX,
                 static_cast<WPARAM>(std::clamp(caret, 0, std::max(0, ListCount(list) - 1))), TRUE);
    SendMessageA(list, LB_SETTOPINDEX, static_cast<WPARAM>(top), 0);
}

// The entry of a file of the mode's directory, by its long name when it is called by its 8.3 name.
static int EntryOfFile(HWND window, const std::string& name) {
    const int index = FindEntry(window, name);
    if (index != LB_ERR || ModeDirectory() == nullptr) return index;
    return FindEntry(window, DisplayName(*ModeDirectory() + name, name));
}

void SelectFiles(HWND window, const std::vector<std::string>& names) {
    // Drawn once: each selection would scroll the list.
    SendMessageA(FileList(window), WM_SETREDRAW, FALSE, 0);
    SendMessageA(FileList(window), LB_SETSEL, names.empty(), -1);
    const int listed = ListCount(FileList(window));
    for (const std::string& name : names) {
        LRESULT index = EntryOfFile(window, name);
        if (index == LB_ERR) {
            index = SendMessageA(FileList(window), LB_ADDSTRING, 0,
                                 reinterpret_cast<LPARAM>(name.c_str()));
        }
        if (index >= 0) SendMessageA(FileList(window), LB_SETSEL, TRUE, index);
    }
    SendMessageA(FileList(window), WM_SETREDRAW, TRUE, 0);
    InvalidateRect(FileList(window), nullptr, TRUE);
    if (ListCount(FileList(window)) == listed) return;
    FitListExtent(FileList(window));
    ShowFileCount(window);
}

bool SelectFileByName(HWND window, const std::string& name) {
    const int index = EntryOfFile(window, name);
    if (index == LB_ERR) return false;
    SendMessageA(FileList(window), LB_SETSEL, FALSE, -1);
    SendMessageA(FileList(window), LB_SETSEL, TRUE, index);
    return true;
}
