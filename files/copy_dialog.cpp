// Dialog 800: copies or moves the selected files of the current mode.
#include "files/copy_dialog.h"

#include "base/file_description.h"
#include "base/file_texts.h"
#include "base/modes.h"
#include "base/program_state.h"
#include "base/settings.h"
#include "files/copy_progress.h"
#include "files/copy_run.h"
#include "files/destination_drive.h"
#include "files/destination_path.h"
#include "files/path_dialog.h"
#include "resources/ids.h"
#include "ui/boxes.h"
#include "ui/click_sounds.h"
#include "ui/dialog_helpers.h"

constexpr DialogButton kButtons[] = {
    {IDC_COPY_BROWSE, kFaceBrowse},
    {IDC_COPY_OK, kFaceOk},
    {IDC_COPY_CANCEL, kFaceCancel},
};
constexpr int kPathLimit = 260;  // with its final NUL

// The dialog's own state, from opening to closing.
struct CopySheet {
    bool move = false;
    std::vector<std::string> names;
    std::string destination;  // the directory as accepted last
    std::string targetName;   // of a single file
    int commandsRunning = 0;  // the field is not left by what the program does itself
};
static CopySheet Sheet;

static bool IsSingleFile() {
    return Sheet.names.size() == 1;
}

// "WaveCopyToPath" and its like.
static std::string SettingKey() {
    return std::string(CurrentMode().label) + (Sheet.move ? "MoveToPath" : "CopyToPath");
}

static std::string Question() {
    const std::string word = Sheet.move ? "Move " : "Copy ";
    return word + (IsSingleFile() ? Sheet.targetName : "selected files") + "?";
}

static void ShowDestination(HWND dialog) {
    SetControlText(dialog, IDC_COPY_DESTINATION,
                   Sheet.destination + (IsSingleFile() ? Sheet.targetName : ""));
}

static uint64_t ShowAvailable(HWND dialog) {
    const uint64_t bytes = FreeBytes(Sheet.destination);
    SetControlText(dialog, IDC_COPY_AVAILABLE, SizeText(bytes));
    return bytes;
}

static uint64_t ShowNeeded(HWND dialog) {
    const uint64_t bytes = NeededBytes(*ModeDirectory(), Sheet.names);
    SetControlText(dialog, IDC_COPY_NEEDED, SizeText(bytes));
    return bytes;
}

static void OnInitDialog(HWND dialog) {
    PrepareDialog(dialog, kButtons);
    ResetCopyAnimation();
    SetWindowTextA(dialog, Sheet.move ? "Move files" : "Copy files");
    SendDlgItemMessageA(dialog, IDC_COPY_DESTINATION, EM_LIMITTEXT, kPathLimit - 1, 0);
    Sheet.destination = ReadMainSetting(SettingKey().c_str(), "c:\\", kPathLimit);
    if (!Sheet.destination.empty() && Sheet.destination.back() != '\\') Sheet.destination += '\\';
    if (IsSingleFile()) {
        Sheet.targetName = DisplayName(*ModeDirectory() + Sheet.names[0], Sheet.names[0]);
    }
    SetControlText(dialog, IDC_COPY_QUESTION, Question());
    ShowDestination(dialog);
    ShowNeeded(dialog);
    ShowAvailable(dialog);
}

// A directory as typed or chosen becomes the destination.
static DestinationFault TakeDirectory(HWND dialog, const std::string& directory) {
    std::string normalized;
    const DestinationFault fault = NormalizeDestination(directory, IsDirectoryThere, normalized);
    if (fault != DestinationFault::kNone) return fault;
    CharLowerA(normalized.data());
    Sheet.destination = normalized;
    ShowDestination(dialog);
    ShowAvailable(dialog);
    return DestinationFault::kNone;
}

// The field's text becomes destination and, for a single file, target name.
static DestinationFault TakeField(HWND dialog) {
    const std::string typed = ControlText(dialog, IDC_COPY_DESTINATION);
    if (!IsSingleFile()) return TakeDirectory(dialog, typed);
    std::string directory;
    std::string name;
    const DestinationFault fault = SplitDestination(typed, Sheet.names[0], directory, name);
    if (fault != DestinationFault::kNone) return fault;
    if (!IsTargetName(name)) return DestinationFault::kInvalid;
    const std::string before = Sheet.targetName;
    Sheet.targetName = name;
    const DestinationFault directoryFault = TakeDirectory(dialog, directory);
    if (directoryFault != DestinationFault::kNone) Sheet.targetName = before;
    return directoryFault;
}

// OK and Browse look at the field themselves.
static void OnLeaveField(HWND dialog) {
    const bool clicked = GetKeyState(VK_LBUTTON) < 0;
    if (!HasLeftField(dialog, IDC_COPY_OK, IDC_COPY_CANCEL)) return;
    if (FocusedControl(dialog) == IDC_COPY_BROWSE && clicked) return;
    const DestinationFault fault = TakeField(dialog);
    if (fault != DestinationFault::kNone) ShowMessageLater(dialog, DestinationMessage(fault));
}

static void OnBrowse(HWND dialog) {
    PlayClickSound(IDS_SOUND_BROWSE);
    TakeField(dialog);
    std::string directory = Sheet.destination;
    if (ShowPathDialog(dialog, PathPurpose::kDestination, directory)) {
        const DestinationFault fault = TakeDirectory(dialog, directory);
        if (fault != DestinationFault::kNone) ShowMessage(DestinationMessage(fault));
    }
    ShowAvailable(dialog);
}

static bool CreateDestination(HWND dialog) {
    const DirectoryWalk walk =
        CreateMissingDirectories(Sheet.destination, [](const std::string& missing) {
            return AskQuestion("Directory " + missing + " does not exist, create?");
        });
    if (walk == DirectoryWalk::kDone) return true;
    if (walk == DirectoryWalk::kImpossible) {
        ShowMessage(DestinationMessage(DestinationFault::kInvalid));
    }
    SetControlText(dialog, IDC_COPY_STATUS, "Aborted!");
    return false;
}

static void OnOk(HWND dialog) {
    PlayClickSound(IDS_SOUND_OK);
    const DestinationFault fault = TakeField(dialog);
    if (fault != DestinationFault::kNone) {
        ShowMessage(DestinationMessage(fault));
        return;
    }
    const uint64_t needed = ShowNeeded(dialog);
    // A disk that would be filled to its last byte is refused too; that is meant.
    if (ShowAvailable(dialog) <= needed) {
        ShowMessage("Not enough disk space to copy file(s)!");
        return;
    }
    if (!CreateDestination(dialog)) return;
    WriteMainSetting(SettingKey().c_str(), Sheet.destination.c_str());
    CopyFiles({dialog, Sheet.move, *ModeDirectory(), Sheet.names, Sheet.destination,
               IsSingleFile() ? Sheet.targetName : ""});
    EndDialog(dialog, 0);
}

static void OnCancel(HWND dialog) {
    PlayClickSound(IDS_SOUND_CANCEL);
    EndDialog(dialog, 0);
}

static void RunCommand(HWND dialog, void (*command)(HWND dialog)) {
    ++Sheet.commandsRunning;
    command(dialog);
    --Sheet.commandsRunning;
}

static bool OnCommand(HWND dialog, WPARAM wParam) {
    const int notification = HIWORD(wParam);
    switch (MeantButton(dialog, wParam, kButtons, IDC_COPY_OK, IDC_COPY_CANCEL)) {
        case IDC_COPY_OK:
            if (IsClick(notification, true)) RunCommand(dialog, OnOk);
            return true;
        case IDC_COPY_CANCEL:
            if (IsClick(notification, true)) RunCommand(dialog, OnCancel);
            return true;
        case IDC_COPY_BROWSE:
            if (IsClick(notification, true)) RunCommand(dialog, OnBrowse);
            return true;
        case IDC_COPY_DESTINATION:
            if (notification == EN_KILLFOCUS && Sheet.commandsRunning == 0) OnLeaveField(dialog);
            return true;
        default:
            return false;
    }
}

static INT_PTR CALLBACK CopyProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    INT_PTR result = FALSE;
    if (HandleDialogLook(dialog, message, wParam, lParam, kButtons, result)) {
        if (message == WM_PAINT) PaintCopyAnimation(dialog);
        return result;
    }
    switch (message) {
        case WM_INITDIALOG:
            OnInitDialog(dialog);
            return TRUE;
        case WM_COMMAND:
            return OnCommand(dialog, wParam);
        default:
            return FALSE;
    }
}

static void ShowDialog(HWND owner, bool move, const std::vector<std::string>& names) {
    Sheet = {};
    Sheet.move = move;
    Sheet.names = names;
    DialogBoxParamA(ProgramInstance, MAKEINTRESOURCEA(IDD_COPY), owner, CopyProcedure, 0);
}

void ShowCopyDialog(HWND owner, const std::vector<std::string>& names) {
    ShowDialog(owner, false, names);
}

void ShowMoveDialog(HWND owner, const std::vector<std::string>& names) {
    ShowDialog(owner, true, names);
}
