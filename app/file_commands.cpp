// The commands that open a dialog over the list's selected files.
#include "app/file_commands.h"

#include <string>
#include <vector>

#include "app/setup_dialog.h"
#include "base/modes.h"
#include "files/copy_dialog.h"
#include "files/delete_dialog.h"
#include "files/path_dialog.h"
#include "files/program_commands.h"
#include "files/rename_dialog.h"
#include "playback/file_info_dialog.h"
#include "playback/file_list.h"
#include "playback/file_player.h"
#include "playback/media_device.h"
#include "playback/play_queue.h"
#include "playback/player_timers.h"
#include "resources/ids.h"
#include "ui/boxes.h"
#include "ui/click_sounds.h"

using FileNames = std::vector<std::string>;

static void OnBrowse(HWND window, const FileNames&) {
    StopQueue(window);
    std::string directory = *ModeDirectory();
    if (!ShowPathDialog(window, PathPurpose::kMediaFiles, directory,
                        GetDlgItem(window, IDC_FILE_LIST))) {
        return;
    }
    SetModeDirectory(directory);
    FillModeList(window);
}

static void OnDelete(HWND window, const FileNames& names) {
    if (ShowDeleteDialog(window, names)) RefillModeList(window);
}

static void OnSetup(HWND window, const FileNames&) {
    ShowSetupDialog(window);
}

struct FileCommand {
    int id;
    bool inCdMode;
    const char* nothingSelected;  // message; null where no selection is needed
    int sound;                    // 0 where the dialogs play it, one for each file
    void (*show)(HWND window, const FileNames& names);
    bool refill;  // whether the files may be others afterwards
};

// The names come in list order, at most as many as a queue takes.
constexpr FileCommand kFileCommands[] = {
    {IDC_BROWSE, false, nullptr, IDS_SOUND_BROWSE, OnBrowse, false},
    {IDC_COPY, false, "No files to copy!", IDS_SOUND_COPY, ShowCopyDialog, false},
    {IDC_MOVE, false, "No files to move!", IDS_SOUND_MOVE, ShowMoveDialog, true},
    {IDC_RENAME, false, "No files to rename!", 0, ShowRenameDialogs, true},
    {IDC_DELETE, false, "No files to delete!", IDS_SOUND_DELETE, OnDelete, false},
    {IDC_INFO, false, "No files to get information!", 0, ShowFileInformation, false},
    {IDC_EDITOR, false, "No files to send to an editor!", IDS_SOUND_EDITOR, EditFirstFile, false},
    {IDC_SETUP, true, nullptr, IDS_SOUND_SETUP, OnSetup, false},
};

// Nothing plays and no tick comes while the dialog is open. The disc is left alone: it plays on.
static void StopFiles(HWND window) {
    StopAndReset(window);
    if (InCdMode()) return;
    StopPositionTimer(window);
    StopAnimationTimer(window);
}

static void Run(HWND window, const FileCommand& command) {
    StopFiles(window);
    const FileNames names = SelectedFileNames(window, kMaxQueueFiles);
    if (command.nothingSelected != nullptr && names.empty()) {
        ShowMessage(command.nothingSelected);
        return;
    }
    if (command.sound != 0) PlayClickSound(command.sound);
    command.show(window, names);
    if (command.refill) RefillModeList(window);
}

bool RunFileCommand(HWND window, int id) {
    for (const FileCommand& command : kFileCommands) {
        if (command.id != id) continue;
        if (command.inCdMode || !InCdMode()) Run(window, command);
        return true;
    }
    return false;
}
