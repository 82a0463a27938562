// What every dialog of the program has in common: centring, frame corners, skin buttons, the
// colours of entry fields, and what Enter and Esc mean.
#pragma once

#include <windows.h>

#include <span>
#include <string>

#include "resources/skin_map.h"

// A picture button of a dialog.
struct DialogButton {
    int controlId;
    SkinFace face;
};

// Centres a window on the screen; halves of the spare pixels are rounded towards zero.
void CenterOnScreen(HWND window);

// To be called first in WM_INITDIALOG: centres the dialog and fits its buttons to their pictures.
void PrepareDialog(HWND dialog, std::span<const DialogButton> buttons);

// Handles WM_PAINT (frame corners), WM_DRAWITEM (the buttons of the table) and the WM_CTLCOLOR
// messages of entry fields. True when the message is done with; the dialog procedure then returns
// `result`.
bool HandleDialogLook(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam,
                      std::span<const DialogButton> buttons, INT_PTR& result);

// The same for the message, question and About boxes, whose edges are not drawn anew when only the
// focus moves.
bool HandleBoxLook(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam,
                   std::span<const DialogButton> buttons, INT_PTR& result);

// What a WM_COMMAND of a dialog means: Enter (IDOK) is the focused button when that is one of the
// dialog's own, else its OK; Esc and the close box (IDCANCEL) are its Cancel. Other ids stand.
int MeantButton(HWND dialog, WPARAM wParam, std::span<const DialogButton> buttons, int okId,
                int cancelId);

// The dialog's control that has the keyboard; 0 when it is elsewhere.
int FocusedControl(HWND dialog);

// Whether a field that has lost the keyboard is to be looked at: not when a box of the program took
// it, and not for Cancel, nor for OK, which looks itself.
bool HasLeftField(HWND dialog, int okId, int cancelId);

// A WM_COMMAND of a box whose only answer is IDC_OK: with its click sound it closes the box. False
// for any other command.
bool CloseOnOk(HWND dialog, WPARAM wParam, std::span<const DialogButton> buttons);

// A control's rectangle in the dialog's client coordinates.
RECT ControlRect(HWND dialog, int controlId);

// A button was clicked. The second of two quick clicks on a picture button arrives under a name of
// its own.
bool IsClick(int notification, bool onPicture);

// A control's text as it stands, of any length.
std::string ControlText(HWND dialog, int controlId);
void SetControlText(HWND dialog, int controlId, const std::string& text);
void ShowControl(HWND dialog, int controlId, bool show);
