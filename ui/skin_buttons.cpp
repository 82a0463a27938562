// Owner-drawn push buttons with pictures for faces, and the frame corners.
#include "ui/skin_buttons.h"

#include "ui/handles.h"
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

void DrawSkinButton(const DRAWITEMSTRUCT& item, const SkinFace& face) {
    const UINT state = item.itemState & ~kCueBits;
    if (HasFlatFrame(item.itemAction, state)) {
        FrameRect(item.hDC, &item.rcItem, GetSysColorBrush(COLOR_BTNFACE));
    } else {
        DrawRaisedEdge(item.hDC, item.rcItem);
    }
    const SkinRect source = FaceRect(face, (state & ODS_SELECTED) != 0, LargeSkin != 0);
    CopyFromSkin(item.hDC, 1, 1, face.grid->slot, source);
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
