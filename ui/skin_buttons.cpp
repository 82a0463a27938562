// Owner-drawn push buttons with pictures for faces, and the frame corners.
#include "ui/skin_buttons.h"

#include <algorithm>

#include "base/handles.h"
#include "ui/skin.h"

// Bits of the draw state that say whether keyboard cues are hidden, not how the button stands.
constexpr UINT kCueBits = 0x0100 | 0x0200;

static bool HasFlatFrame(UINT action, UINT state) {
    // Two rules, and they differ on purpose: a change of state looks at "selected" alone, a whole
    // drawing at any bit.
    if (action & (ODA_SELECT | ODA_FOCUS)) return (state & ODS_SELECTED) != 0;
    return state == 0;
}

static void DrawRaisedEdge(HDC dc, const RECT& edge) {
    {
        const UniquePen pen(CreatePen(PS_SOLID, 1, GetSysColor(COLOR_BTNHIGHLIGHT)));
        const SelectedObject selected = SelectInto(dc, pen.get());
        MoveToEx(dc, edge.left, edge.bottom - 1, nullptr);
        LineTo(dc, edge.left, edge.top);
        LineTo(dc, edge.right - 1, edge.top);
    }
    const UniquePen pen(CreatePen(PS_SOLID, 1, GetSysColor(COLOR_BTNSHADOW)));
    const SelectedObject selected = SelectInto(dc, pen.get());
    LineTo(dc, edge.right - 1, edge.bottom - 1);
    LineTo(dc, edge.left, edge.bottom - 1);
}

// From when a key moves the focus until the mouse does; where the focus is concerns nobody else.
// The system has cues of its own for that, but not every platform has.
static bool KeyboardInUse;

static void NoteWhatMovesFocus(const DRAWITEMSTRUCT& item) {
    if (!(item.itemAction & ODA_FOCUS)) return;
    const auto isDown = [](int key) { return GetKeyState(key) < 0; };
    constexpr int keys[] = {VK_TAB, VK_LEFT, VK_UP, VK_RIGHT, VK_DOWN, VK_MENU};
    if (std::any_of(std::begin(keys), std::end(keys), isDown)) KeyboardInUse = true;
    if (isDown(VK_LBUTTON)) KeyboardInUse = false;
}

static bool ShowsFocus(const DRAWITEMSTRUCT& item) {
    return KeyboardInUse && (item.itemState & (ODS_FOCUS | ODS_NOFOCUSRECT)) == ODS_FOCUS;
}

static void DrawFocus(const DRAWITEMSTRUCT& item) {
    constexpr int inset = 3;
    RECT place = item.rcItem;
    InflateRect(&place, -inset, -inset);
    SetTextColor(item.hDC, RGB(0, 0, 0));
    SetBkColor(item.hDC, RGB(255, 255, 255));
    DrawFocusRect(item.hDC, &place);
}

void DrawSkinFace(const DRAWITEMSTRUCT& item, const SkinFace& face) {
    const SkinRect source = FaceRect(face, (item.itemState & ODS_SELECTED) != 0, LargeSkin != 0);
    CopyFromSkin(item.hDC, 1, 1, face.grid->slot, source);
    NoteWhatMovesFocus(item);
    if (ShowsFocus(item)) DrawFocus(item);
}

void DrawSkinButton(const DRAWITEMSTRUCT& item, const SkinFace& face) {
    if (HasFlatFrame(item.itemAction, item.itemState & ~kCueBits)) {
        FrameRect(item.hDC, &item.rcItem, GetSysColorBrush(COLOR_BTNFACE));
    } else {
        DrawRaisedEdge(item.hDC, item.rcItem);
    }
    DrawSkinFace(item, face);
}

// The large buttons have their label below and stand right above it; the others have it beside
// them.
static bool HasLabelBelow(const SkinFace& face) {
    return face.grid == &kMainButtonGrid || face.grid == &kDialogButtonGrid ||
           face.grid == &kMenuButtonGrid;
}

void FitSkinButton(HWND button, const SkinFace& face) {
    const SkinRect picture = FaceRect(face, false, LargeSkin != 0);
    const int width = picture.width + 2;
    const int height = picture.height + 2;
    RECT place;
    GetWindowRect(button, &place);
    MapWindowPoints(nullptr, GetParent(button), reinterpret_cast<POINT*>(&place), 2);
    const int left = place.left + (place.right - place.left - width) / 2;
    const int top = HasLabelBelow(face) ? place.bottom - height
                                        : place.top + (place.bottom - place.top - height) / 2;
    SetWindowPos(button, nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

void PaintFrameCorners(HWND dialog, HDC dc) {
    RECT client;
    GetClientRect(dialog, &client);
    const int right = client.right - kCornerSize;
    const int bottom = client.bottom - kCornerSize;
    const POINT places[kCornerCount] = {{0, 0}, {right, 0}, {right, bottom}, {0, bottom}};
    for (int i = 0; i < kCornerCount; ++i) {
        CopyFromSkin(dc, places[i].x, places[i].y, kSlotFrameCorners,
                     {i * kCornerSize, 0, kCornerSize, kCornerSize});
    }
}
