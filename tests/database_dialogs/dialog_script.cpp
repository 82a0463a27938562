// See dialog_script.h.
#include "tests/database_dialogs/dialog_script.h"

#include <fstream>

#include "base/app_directory.h"
#include "base/settings.h"
#include "database/database_format.h"
#include "tests/stand_ins.h"

bool IsOpen(HWND dialog) {
    return IsWindowVisible(dialog) != FALSE;
}

void Click(HWND dialog, int id) {
    SendDlgItemMessageA(dialog, id, BM_CLICK, 0, 0);
}

void Type(HWND dialog, int id, const std::string& text) {
    SendDlgItemMessageA(dialog, id, EM_SETSEL, 0, -1);
    if (text.empty()) SendDlgItemMessageA(dialog, id, WM_CHAR, VK_BACK, 0);
    for (char c : text)
        SendDlgItemMessageA(dialog, id, WM_CHAR, static_cast<WPARAM>(c), 0);
}

void PressEnterIn(HWND dialog, int id) {
    SetFocus(GetDlgItem(dialog, id));
    Press(dialog, IDOK);
}

bool IsShown(HWND dialog, int id) {
    return (GetWindowLongA(GetDlgItem(dialog, id), GWL_STYLE) & WS_VISIBLE) != 0;
}

std::string DatabaseBytes() {
    return BytesOf(InAppDirectory(kDatabaseName));
}

void StoreBytes(const std::string& bytes) {
    std::ofstream(InAppDirectory(kDatabaseName), std::ios::binary) << bytes;
}

void StoreDatabase(const std::vector<Disc>& discs) {
    StoreBytes(DatabaseImage(discs));
}

HANDLE HoldDatabase(DWORD shared) {
    return CreateFileA(InAppDirectory(kDatabaseName).c_str(), GENERIC_READ | GENERIC_WRITE, shared,
                       nullptr, OPEN_EXISTING, 0, nullptr);
}

void DialogTest::SetUp() {
    UseStandIns();
    OpenTestWindow(IDC_MODE_WAVE, {});
    Settings.databaseLayout = DatabaseLayout::kAdvanced;
}

void DialogTest::TearDown() {
    CloseTestWindow();
}
