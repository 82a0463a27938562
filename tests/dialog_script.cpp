// See dialog_script.h.
#include "tests/dialog_script.h"

#include <algorithm>
#include <cstring>

#include "ui/list_boxes.h"

static BOOL CALLBACK TakeDialog(HWND window, LPARAM found) {
    char name[16] = "";
    GetClassNameA(window, name, sizeof name);
    // A dialog that has been ended is hidden until its message loop returns.
    if (strcmp(name, "#32770") == 0 && IsWindowVisible(window)) {
        reinterpret_cast<std::vector<HWND>*>(found)->push_back(window);
    }
    return TRUE;
}

static std::vector<HWND> OpenDialogs() {
    std::vector<HWND> dialogs;
    EnumThreadWindows(GetCurrentThreadId(), TakeDialog, reinterpret_cast<LPARAM>(&dialogs));
    return dialogs;
}

struct Run {
    const std::function<void(HWND)>* script;
    std::vector<HWND> seen;
    UINT_PTR timer;
    bool inScript, done;
};
static std::vector<Run*> Runs;

static void CALLBACK RunScript(HWND, UINT, UINT_PTR timer, DWORD) {
    Run& run = *Runs.back();
    if (run.timer != timer || run.inScript) return;
    for (HWND dialog : OpenDialogs()) {
        if (std::find(run.seen.begin(), run.seen.end(), dialog) != run.seen.end()) continue;
        run.seen.push_back(dialog);
        run.inScript = run.done = true;
        (*run.script)(dialog);
        run.inScript = false;
        if (IsWindowVisible(dialog)) PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
        return;
    }
}

bool RunInDialog(const std::function<void()>& open, const std::function<void(HWND)>& script) {
    Run run = {&script, OpenDialogs(), SetTimer(nullptr, 0, 10, RunScript), false, false};
    Runs.push_back(&run);
    open();
    Runs.pop_back();
    KillTimer(nullptr, run.timer);
    return run.done;
}

void Press(HWND dialog, int id, int notification) {
    SendMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(MAKELONG(id, notification)),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, id)));
}

std::vector<std::string> Entries(HWND dialog, int listId) {
    std::vector<std::string> texts;
    for (int i = 0; i < ListCount(GetDlgItem(dialog, listId)); ++i)
        texts.push_back(ListText(GetDlgItem(dialog, listId), i));
    return texts;
}

bool SelectEntry(HWND dialog, int listId, const std::string& text) {
    const std::vector<std::string> texts = Entries(dialog, listId);
    const auto found = std::find(texts.begin(), texts.end(), text);
    if (found == texts.end()) return false;
    SendMessageA(GetDlgItem(dialog, listId), LB_SETCURSEL,
                 static_cast<WPARAM>(found - texts.begin()), 0);
    Press(dialog, listId, LBN_SELCHANGE);
    // Closed by the mere selection, it would not be the dialog that the caller goes on with.
    return IsWindowVisible(dialog) != FALSE;
}

bool DoubleClickEntry(HWND dialog, int listId, const std::string& text) {
    if (!SelectEntry(dialog, listId, text)) return false;
    Press(dialog, listId, LBN_DBLCLK);
    return true;
}
