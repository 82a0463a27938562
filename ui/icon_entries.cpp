// See icon_entries.h.
#include "ui/icon_entries.h"

#include <algorithm>

#include "base/handles.h"
#include "ui/entry_colors.h"
#include "ui/skin.h"

constexpr int kGap = 2;  // around icons

static int IconSize() {
    return LargeSkin ? kLargeIconSize : kSmallIconSize;
}

static void DrawIcon(HDC dc, int x, int y, SkinSlot slot, SkinIcon icon, int size) {
    if (icon != kSkinIconCount) CopyFromSkin(dc, x, y, slot, {icon * size, 0, size, size});
}

int IconEntryHeight(HWND list) {
    const UniqueWindowDc dc = GetUniqueDc(list);
    const SelectedObject font =
        SelectInto(dc.get(), reinterpret_cast<HGDIOBJ>(SendMessageA(list, WM_GETFONT, 0, 0)));
    TEXTMETRICA metric = {};
    GetTextMetricsA(dc.get(), &metric);
    return std::max(IconSize(), static_cast<int>(metric.tmHeight)) + kGap;
}

int IconEntryMargin() {
    return IconSize() + 2 * kGap;
}

void DrawIconEntry(const DRAWITEMSTRUCT& item, int indent, SkinIcon icon, const std::string& text) {
    const bool selected = (item.itemState & ODS_SELECTED) != 0;
    const EntryColors plain = CurrentEntryColors();
    const EntryColors colors = selected ? EntryColors{COLOR_HIGHLIGHT, COLOR_HIGHLIGHTTEXT} : plain;
    RECT place = item.rcItem;
    FillRect(item.hDC, &place, GetSysColorBrush(colors.ground));
    const int iconTop = place.top + (place.bottom - place.top - IconSize()) / 2;
    DrawIcon(item.hDC, place.left + indent + kGap, iconTop,
             selected ? kSlotIconsOnHighlight : kSlotIconsOnEntry, icon, IconSize());
    place.left += indent + IconEntryMargin();
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, GetSysColor(colors.text));
    DrawTextA(item.hDC, text.c_str(), static_cast<int>(text.size()), &place,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    const bool focused = (item.itemState & (ODS_FOCUS | ODS_NOFOCUSRECT)) == ODS_FOCUS;
    if (focused) DrawFocusRect(item.hDC, &item.rcItem);
}

void DrawIconOnFace(HDC dc, int x, int y, SkinIcon icon) {
    DrawIcon(dc, x, y, kSlotIconsOnFace, icon, kSmallIconSize);
}
