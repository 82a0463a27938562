// See run_status.h.
#include "database_dialogs/run_status.h"

#include "resources/ids.h"
#include "ui/dialog_helpers.h"
#include "ui/long_run.h"

constexpr DWORD kStatusPeriodMs = 50;

WaitCursor::WaitCursor()
    : before(SetCursor(LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_WAIT)))) {}

WaitCursor::~WaitCursor() {
    SetCursor(before);
}

void ShowStatus(RunStatus& status, const std::string& text) {
    SetControlText(status.dialog, IDC_RUN_STATUS, text);
    status.shownAt = GetTickCount();
    PaintWaitingWindows();
}

bool StatusIsDue(const RunStatus& status) {
    return GetTickCount() - status.shownAt >= kStatusPeriodMs;
}

int CompareInSystemOrder(const char* first, const char* second) {
    return lstrcmpA(first, second);
}
