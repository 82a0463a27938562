// Media files and folders dropped onto the main window are played.
#include "app/drop_target.h"

#include <shellapi.h>

#include <memory>

#include "app/dropped_files.h"
#include "app/modes.h"
#include "base/settings.h"
#include "playback/file_list.h"
#include "playback/file_player.h"
#include "playback/media_device.h"
#include "resources/ids.h"

void AcceptDrops(HWND window) {
    SetWindowLongA(window, GWL_EXSTYLE, GetWindowLongA(window, GWL_EXSTYLE) | WS_EX_ACCEPTFILES);
}

template <typename Procedure>
static void FindProcedure(HMODULE module, const char* name, Procedure& procedure) {
    procedure = reinterpret_cast<Procedure>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

struct ModuleDeleter {
    void operator()(HMODULE module) const { FreeLibrary(module); }
};
using UniqueModule = std::unique_ptr<std::remove_pointer_t<HMODULE>, ModuleDeleter>;

static bool IsFolder(const std::string& path) {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

// Paths that do not fit the program's own are left out.
static std::vector<DroppedItem> TakeItems(HDROP drop) {
    std::vector<DroppedItem> items;
    // A large library, which nothing else of the program needs.
    const UniqueModule shell(LoadLibraryA("shell32.dll"));
    if (!shell) return items;
    decltype(&DragQueryFileA) queryFile = nullptr;
    decltype(&DragFinish) finish = nullptr;
    FindProcedure(shell.get(), "DragQueryFileA", queryFile);
    FindProcedure(shell.get(), "DragFinish", finish);
    if (queryFile == nullptr || finish == nullptr) return items;
    const UINT count = queryFile(drop, 0xFFFFFFFF, nullptr, 0);
    for (UINT i = 0; i < count; ++i) {
        char path[MAX_PATH] = {};
        if (queryFile(drop, i, nullptr, 0) >= sizeof path) continue;
        queryFile(drop, i, path, sizeof path);
        items.push_back({path, IsFolder(path)});
    }
    finish(drop);
    return items;
}

static bool HasFiles(const std::string& directory, const Mode& mode) {
    for (const MediaType& type : mode.types) {
        if (type.listed != nullptr && !(Settings.*type.listed)) continue;
        WIN32_FIND_DATAA found;
        HANDLE search = FindFirstFileA((directory + "*." + type.extension).c_str(), &found);
        if (search == INVALID_HANDLE_VALUE) continue;
        bool isFile = !(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY);
        while (!isFile && FindNextFileA(search, &found))
            isFile = !(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY);
        FindClose(search);
        if (isFile) return true;
    }
    return false;
}

static void Play(HWND window, const DropPlan& plan) {
    ChangeMode(window, plan.mode->id);
    StopAndReset(window);
    CutPlayQueue(window);
    SetModeDirectory(plan.directory);
    FillModeList(window);
    SelectFiles(window, plan.names);
    SendMessageA(window, WM_COMMAND, IDC_PLAY, 0);
}

void OnDropFiles(HWND window, WPARAM wParam, bool blocked) {
    const std::vector<DroppedItem> items = TakeItems(reinterpret_cast<HDROP>(wParam));
    if (blocked) return;
    const DropPlan plan = PlanDrop(items, HasFiles);
    if (plan.mode == nullptr) return;
    SetForegroundWindow(window);
    Play(window, plan);
}
