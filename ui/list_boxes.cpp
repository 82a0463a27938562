// See list_boxes.h.
#include "ui/list_boxes.h"

#include <algorithm>

#include "base/handles.h"

std::string ListText(HWND list, int index) {
    const LRESULT length = SendMessageA(list, LB_GETTEXTLEN, static_cast<WPARAM>(index), 0);
    if (length == LB_ERR) return {};
    std::string text(static_cast<size_t>(length) + 1, '\0');
    const LRESULT copied = SendMessageA(list, LB_GETTEXT, static_cast<WPARAM>(index),
                                        reinterpret_cast<LPARAM>(text.data()));
    if (copied == LB_ERR) return {};
    text.resize(static_cast<size_t>(copied));
    return text;
}

int ListCount(HWND list) {
    return std::max(0, static_cast<int>(SendMessageA(list, LB_GETCOUNT, 0, 0)));
}

int SelectedEntry(HWND list) {
    return static_cast<int>(SendMessageA(list, LB_GETCURSEL, 0, 0));
}

void AddFileNames(HWND list, const std::string& directory, std::span<const std::string> masks) {
    for (const std::string& mask : masks) {
        // The platform may write into the path.
        std::string path = directory + mask;
        SendMessageA(list, LB_DIR, 0, reinterpret_cast<LPARAM>(path.data()));
    }
}

void FitListExtent(HWND list, LONG indent, int first) {
    const UniqueWindowDc dc = GetUniqueDc(list);
    const SelectedObject font =
        SelectInto(dc.get(), reinterpret_cast<HGDIOBJ>(SendMessageA(list, WM_GETFONT, 0, 0)));
    constexpr LONG margin = 4;
    LONG widest =
        first == 0 ? 0 : static_cast<LONG>(SendMessageA(list, LB_GETHORIZONTALEXTENT, 0, 0));
    const int count = ListCount(list);
    for (int i = first; i < count; ++i) {
        const std::string text = ListText(list, i);
        SIZE size = {};
        GetTextExtentPoint32A(dc.get(), text.c_str(), static_cast<int>(text.size()), &size);
        widest = std::max(widest, indent + size.cx + margin);
    }
    SendMessageA(list, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widest), 0);
}

void FillWithFileNames(HWND list, const std::string& directory,
                       std::span<const std::string> masks) {
    SendMessageA(list, WM_SETREDRAW, FALSE, 0);
    SendMessageA(list, LB_RESETCONTENT, 0, 0);
    AddFileNames(list, directory, masks);
    FitListExtent(list);
    SendMessageA(list, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list, nullptr, TRUE);
}
