// Media files and folders dropped onto the main window are played.
#include "app/drop_target.h"

#include "app/dropped_files.h"
#include "app/modes.h"
#include "app/shell_library.h"
#include "base/settings.h"
#include "playback/file_list.h"
#include "playback/file_player.h"
#include "playback/media_device.h"
#include "resources/ids.h"

void AcceptDrops(HWND window) {
    SetWindowLongA(window, GWL_EXSTYLE, GetWindowLongA(window, GWL_EXSTYLE) | WS_EX_ACCEPTFILES);
}

static bool IsFolder(const std::string& path) {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

static bool HasFiles(const std::string& directory, const Mode& mode) {
    for (const std::string& mask : ListedMasks(mode, Settings)) {
        WIN32_FIND_DATAA found;
        HANDLE search = FindFirstFileA((directory + mask).c_str(), &found);
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
    const std::vector<std::string> paths = TakeDroppedPaths(wParam);
    if (blocked) return;
    std::vector<DroppedItem> items;
    for (const std::string& path : paths)
        items.push_back({path, IsFolder(path)});
    const DropPlan plan = PlanDrop(items, HasFiles);
    if (plan.mode == nullptr) return;
    SetForegroundWindow(window);
    Play(window, plan);
}
