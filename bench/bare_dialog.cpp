// The product's own dialog template and nothing else: what the window alone costs.
#include <windows.h>

#include "resources/ids.h"

static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DESTROY) PostQuitMessage(0);
    if (message == WM_CLOSE) {
        DestroyWindow(window);
        return 0;
    }
    return DefDlgProcA(window, message, wParam, lParam);
}

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int showCommand) {
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = WindowProcedure;
    windowClass.cbWndExtra = DLGWINDOWEXTRA;
    windowClass.hInstance = instance;
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    windowClass.lpszClassName = "Tarnwell";
    RegisterClassA(&windowClass);
    HWND window = CreateDialogParamA(instance, MAKEINTRESOURCEA(IDD_MAIN), nullptr, nullptr, 0);
    if (window == nullptr) return 1;
    ShowWindow(window, showCommand);
    MSG message = {};
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        if (IsDialogMessageA(window, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return 0;
}
