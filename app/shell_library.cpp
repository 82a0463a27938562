// See shell_library.h.
#include "app/shell_library.h"

#include <shellapi.h>

#include <memory>

struct ModuleDeleter {
    void operator()(HMODULE module) const { FreeLibrary(module); }
};
using UniqueModule = std::unique_ptr<std::remove_pointer_t<HMODULE>, ModuleDeleter>;

static UniqueModule LoadShell() {
    return UniqueModule(LoadLibraryA("shell32.dll"));
}

template <typename Procedure>
static bool Find(const UniqueModule& module, const char* name, Procedure& procedure) {
    procedure = nullptr;
    if (!module) return false;
    procedure =
        reinterpret_cast<Procedure>(reinterpret_cast<void*>(GetProcAddress(module.get(), name)));
    return procedure != nullptr;
}

std::vector<std::string> TakeDroppedPaths(WPARAM wParam) {
    std::vector<std::string> paths;
    const auto drop = reinterpret_cast<HDROP>(wParam);
    const UniqueModule shell = LoadShell();
    decltype(&DragQueryFileA) queryFile;
    decltype(&DragFinish) finish;
    if (!Find(shell, "DragQueryFileA", queryFile) || !Find(shell, "DragFinish", finish)) {
        return paths;
    }
    const UINT count = queryFile(drop, 0xFFFFFFFF, nullptr, 0);
    for (UINT i = 0; i < count; ++i) {
        char path[MAX_PATH] = {};
        if (queryFile(drop, i, nullptr, 0) >= sizeof path) continue;
        queryFile(drop, i, path, sizeof path);
        paths.emplace_back(path);
    }
    finish(drop);
    return paths;
}

void OpenDocument(HWND owner, const std::string& path) {
    UniqueModule shell = LoadShell();
    decltype(&ShellExecuteA) execute;
    if (!Find(shell, "ShellExecuteA", execute)) return;
    execute(owner, "open", path.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    // It stays loaded: the shell may go on with its work in a thread of its own.
    static_cast<void>(shell.release());
}
