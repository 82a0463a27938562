// The least a program with a window can be: a dialog of the main window's size with nothing in it,
// built with the product's flags. What the product costs is told as a multiple of this.
#include <windows.h>

#include "bench/empty_dialog.h"

static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM, LPARAM) {
    if (message == WM_CLOSE) {
        DestroyWindow(dialog);
        PostQuitMessage(0);
        return TRUE;
    }
    return message == WM_INITDIALOG;
}

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int show) {
    // No menu, class or title of its own.
    struct {
        DLGTEMPLATE header;
        WORD rest[3];
    } box = {{WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX, 0, 0, 0, 0, 410, 264}, {}};
    HWND dialog = CreateDialogIndirectParamA(instance, &box.header, nullptr, Procedure, 0);
    SetWindowTextA(dialog, kEmptyDialogTitle);
    ShowWindow(dialog, show);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        if (IsDialogMessageA(dialog, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return 0;
}
