// What every dialog of the program has in common.
#include "ui/dialog_helpers.h"

#include <algorithm>

#include "base/program_state.h"
#include "resources/ids.h"
#include "ui/click_sounds.h"
#include "ui/entry_colors.h"
#include "ui/skin_buttons.h"

void CenterOnScreen(HWND window) {
    RECT place;
    GetWindowRect(window, &place);
    const int left = (GetSystemMetrics(SM_CXSCREEN) - (place.right - place.left)) / 2;
    const int top = (GetSystemMetrics(SM_CYSCREEN) - (place.bottom - place.top)) / 2;
    SetWindowPos(window, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void PrepareDialog(HWND dialog, std::span<const DialogButton> buttons) {
    CenterOnScreen(dialog);
    for (const DialogButton& button : buttons) {
        FitSkinButton(GetDlgItem(dialog, button.controlId), button.face);
    }
}

static const DialogButton* FindButton(std::span<const DialogButton> buttons, int controlId) {
    const auto found =
        std::find_if(buttons.begin(), buttons.end(),
                     [controlId](const auto& button) { return button.controlId == controlId; });
    return found == buttons.end() ? nullptr : &*found;
}

static void PaintDialog(HWND dialog) {
    PAINTSTRUCT paint;
    HDC dc = BeginPaint(dialog, &paint);
    PaintFrameCorners(dialog, dc);
    EndPaint(dialog, &paint);
}

bool HandleDialogLook(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam,
                      std::span<const DialogButton> buttons, INT_PTR& result) {
    switch (message) {
        case WM_PAINT:
            PaintDialog(dialog);
            result = TRUE;
            return true;
        case WM_DRAWITEM: {
            const DialogButton* button = FindButton(buttons, static_cast<int>(wParam));
            if (button == nullptr) return false;
            DrawSkinButton(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam), button->face);
            result = TRUE;
            return true;
        }
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORLISTBOX:
            result = reinterpret_cast<INT_PTR>(ColorEntryField(reinterpret_cast<HDC>(wParam)));
            return true;
        default:
            return false;
    }
}

static bool IsPureFocusChange(const DRAWITEMSTRUCT& item) {
    return item.itemAction == ODA_FOCUS && !(item.itemState & ODS_SELECTED);
}

bool HandleBoxLook(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam,
                   std::span<const DialogButton> buttons, INT_PTR& result) {
    if (message == WM_DRAWITEM) {
        const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
        const DialogButton* button = FindButton(buttons, static_cast<int>(wParam));
        if (button != nullptr && IsPureFocusChange(item)) {
            DrawSkinFace(item, button->face);
            result = TRUE;
            return true;
        }
    }
    return HandleDialogLook(dialog, message, wParam, lParam, buttons, result);
}

int FocusedControl(HWND dialog) {
    return GetParent(GetFocus()) == dialog ? GetDlgCtrlID(GetFocus()) : 0;
}

bool HasLeftField(HWND dialog, int okId, int cancelId) {
    const int next = FocusedControl(dialog);
    return IsWindowEnabled(dialog) && next != okId && next != cancelId;
}

int MeantButton(HWND dialog, WPARAM wParam, std::span<const DialogButton> buttons, int okId,
                int cancelId) {
    const int id = LOWORD(wParam);
    if (id == IDCANCEL) return cancelId;
    if (id != IDOK) return id;
    const int focused = FocusedControl(dialog);
    return FindButton(buttons, focused) != nullptr ? focused : okId;
}

bool CloseOnOk(HWND dialog, WPARAM wParam, std::span<const DialogButton> buttons) {
    if (MeantButton(dialog, wParam, buttons, IDC_OK, IDC_OK) != IDC_OK) return false;
    PlayClickSound(IDS_SOUND_OK);
    EndDialog(dialog, 0);
    return true;
}

RECT ControlRect(HWND dialog, int controlId) {
    RECT place = {};
    GetWindowRect(GetDlgItem(dialog, controlId), &place);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

bool IsClick(int notification, bool onPicture) {
    return notification == BN_CLICKED || (onPicture && notification == BN_DOUBLECLICKED);
}

std::string ControlText(HWND dialog, int controlId) {
    HWND control = GetDlgItem(dialog, controlId);
    std::string text(static_cast<size_t>(GetWindowTextLengthA(control)) + 1, '\0');
    const int length = GetWindowTextA(control, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<size_t>(length));
    return text;
}

void SetControlText(HWND dialog, int controlId, const std::string& text) {
    // Unchanged texts are left alone: setting one repaints the control.
    if (ControlText(dialog, controlId) != text) SetDlgItemTextA(dialog, controlId, text.c_str());
}

void ShowControl(HWND dialog, int controlId, bool show) {
    ShowWindow(GetDlgItem(dialog, controlId), show ? SW_SHOWNA : SW_HIDE);
}
