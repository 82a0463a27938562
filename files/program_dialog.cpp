// What the editor and the mixer dialog have in common.
#include "files/program_dialog.h"

#include "base/file_access.h"
#include "base/program_state.h"
#include "files/path_check.h"
#include "files/path_dialog.h"
#include "files/program_description.h"
#include "resources/ids.h"
#include "ui/boxes.h"
#include "ui/click_sounds.h"
#include "ui/dialog_helpers.h"
#include "ui/list_boxes.h"

constexpr DialogButton kButtons[] = {
    {IDC_PROGRAM_BROWSE, kFaceBrowse}, {IDC_PROGRAM_SELECT, kFaceSelect},
    {IDC_PROGRAM_NONE, kFaceNone},     {IDC_OK, kFaceOk},
    {IDC_CANCEL, kFaceCancel},
};
constexpr int kPathLimit = 259;
constexpr char kInvalidPath[] = "Invalid path!";

// A purpose while the dialog is open; no name: no program.
struct ProgramChoice {
    ProgramPurpose purpose;
    Program program;
};

// The dialog's own state, from opening to closing.
struct ProgramSheet {
    std::vector<ProgramChoice> choices;
    size_t working = 0;
    std::string directory;    // of the programs in the list
    int commandsRunning = 0;  // the field is not left by what the program does itself
};
static ProgramSheet Sheet;

static std::string WindowsDirectory() {
    char text[MAX_PATH + 1] = {};
    const UINT length = GetWindowsDirectoryA(text, sizeof text);
    std::string directory(text, length < sizeof text ? length : 0);
    if (directory.empty()) directory = "c:\\windows";
    if (directory.back() != '\\') directory += '\\';
    return directory;
}

static std::string ReadDescription(const Program& program) {
    ScopedFile file;
    const std::string path = program.directory + program.name;
    if (FileCalls.open(path.c_str(), FileMode::kReadShared, file.handle) != FileStatus::kOk) {
        return {};
    }
    std::vector<char> bytes(kDescriptionReach);
    uint32_t count = 0;
    FileCalls.read(file.handle, bytes.data(), static_cast<uint32_t>(bytes.size()), count);
    return ProgramDescription({bytes.data(), count});
}

static void ShowProgram(HWND dialog, const std::string& whenNone) {
    const Program& program = Sheet.choices[Sheet.working].program;
    std::string name = program.name;
    CharUpperA(name.data());
    SetControlText(dialog, IDC_PROGRAM_NAME, name.empty() ? whenNone : name);
    SetControlText(dialog, IDC_PROGRAM_DESCRIPTION,
                   name.empty() ? std::string() : ReadDescription(program));
}

static void ShowDirectory(HWND dialog, const std::string& directory) {
    Sheet.directory = directory;
    CharLowerA(Sheet.directory.data());
    SetControlText(dialog, IDC_PROGRAM_LOCATION, Sheet.directory);
    HWND list = GetDlgItem(dialog, IDC_PROGRAM_LIST);
    const std::string masks[] = {"*.exe"};
    FillWithFileNames(list, Sheet.directory, masks);
}

// Without a program for it, the directory stays as it is shown.
static void ShowPurpose(HWND dialog, size_t purpose) {
    Sheet.working = purpose;
    const ProgramChoice& choice = Sheet.choices[purpose];
    if (!choice.purpose.title.empty()) SetWindowTextA(dialog, choice.purpose.title.c_str());
    if (!choice.program.name.empty()) ShowDirectory(dialog, choice.program.directory);
    ShowProgram(dialog, "None selected");
}

static void OnInitDialog(HWND dialog) {
    PrepareDialog(dialog, kButtons);
    PlayClickSound(IDS_SOUND_RADIO);
    SendDlgItemMessageA(dialog, IDC_PROGRAM_LOCATION, EM_LIMITTEXT, kPathLimit, 0);
    if (Sheet.choices.size() > 1) {
        CheckRadioButton(dialog, IDC_EDITOR_TYPE_FIRST, IDC_EDITOR_TYPE_LAST,
                         IDC_EDITOR_TYPE_FIRST + static_cast<int>(Sheet.working));
    }
    ShowDirectory(dialog, WindowsDirectory());
    ShowPurpose(dialog, Sheet.working);
}

// The checked radio button also reports when it merely gets the focus.
static void OnType(HWND dialog, size_t purpose) {
    if (purpose == Sheet.working) return;
    PlayClickSound(IDS_SOUND_RADIO);
    ShowPurpose(dialog, purpose);
}

static void OnSelect(HWND dialog) {
    HWND list = GetDlgItem(dialog, IDC_PROGRAM_LIST);
    const int index = SelectedEntry(list);
    if (index < 0) return;
    PlayClickSound(IDS_SOUND_RADIO);
    Sheet.choices[Sheet.working].program = {Sheet.directory, ListText(list, index)};
    ShowProgram(dialog, "");
}

static void OnNone(HWND dialog) {
    PlayClickSound(IDS_SOUND_DELETE);
    Sheet.choices[Sheet.working].program = {};
    ShowProgram(dialog, "");
}

// False when the field's text is no directory; another one is shown then.
static bool TakeField(HWND dialog) {
    const std::string typed = ControlText(dialog, IDC_PROGRAM_LOCATION);
    if (typed == Sheet.directory) return true;
    std::string directory = InCdMode() ? Sheet.directory : *ModeDirectory();
    const bool valid = CheckTypedDirectory(typed, directory);
    ShowDirectory(dialog, directory);
    return valid;
}

static void OnLeaveField(HWND dialog) {
    if (HasLeftField(dialog, IDC_OK, IDC_CANCEL) && !TakeField(dialog))
        ShowMessageLater(dialog, kInvalidPath);
}

static void OnBrowse(HWND dialog) {
    PlayClickSound(IDS_SOUND_BROWSE);
    std::string directory = Sheet.directory;
    HWND list = GetDlgItem(dialog, IDC_PROGRAM_LIST);
    if (ShowPathDialog(dialog, PathPurpose::kPrograms, directory, list)) {
        ShowDirectory(dialog, directory);
    }
}

static void OnOk(HWND dialog) {
    PlayClickSound(IDS_SOUND_OK);
    for (const ProgramChoice& choice : Sheet.choices)
        WriteProgram(choice.purpose.slot, choice.program);
    EndDialog(dialog, 0);
}

static void OnCancel(HWND dialog) {
    PlayClickSound(IDS_SOUND_CANCEL);
    EndDialog(dialog, 0);
}

// Enter in a field with a new text stands for leaving it, so that the list follows.
static void OnEnterOrOk(HWND dialog, bool enter) {
    const bool inField = FocusedControl(dialog) == IDC_PROGRAM_LOCATION;
    if (!enter || !inField || ControlText(dialog, IDC_PROGRAM_LOCATION) == Sheet.directory) {
        OnOk(dialog);
    } else if (!TakeField(dialog)) {
        ShowMessage(kInvalidPath);
    }
}

static void OnControl(HWND dialog, int id, int notification) {
    if (id >= IDC_EDITOR_TYPE_FIRST && id <= IDC_EDITOR_TYPE_LAST) {
        if (notification == BN_CLICKED) {
            OnType(dialog, static_cast<size_t>(id - IDC_EDITOR_TYPE_FIRST));
        }
    } else if (id == IDC_PROGRAM_LIST) {
        if (notification == LBN_DBLCLK) OnSelect(dialog);
    } else if (IsClick(notification, true)) {
        if (id == IDC_PROGRAM_BROWSE) OnBrowse(dialog);
        if (id == IDC_PROGRAM_SELECT) OnSelect(dialog);
        if (id == IDC_PROGRAM_NONE) OnNone(dialog);
        if (id == IDC_CANCEL) OnCancel(dialog);
    }
}

static void OnCommand(HWND dialog, WPARAM wParam) {
    const int id = MeantButton(dialog, wParam, kButtons, IDC_OK, IDC_CANCEL);
    if (id == IDC_PROGRAM_LOCATION) {
        if (HIWORD(wParam) == EN_KILLFOCUS && Sheet.commandsRunning == 0) OnLeaveField(dialog);
        return;
    }
    ++Sheet.commandsRunning;
    if (id == IDC_OK) {
        OnEnterOrOk(dialog, LOWORD(wParam) == IDOK);
    } else {
        OnControl(dialog, id, HIWORD(wParam));
    }
    --Sheet.commandsRunning;
}

static INT_PTR CALLBACK ProgramProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    INT_PTR result = FALSE;
    if (HandleDialogLook(dialog, message, wParam, lParam, kButtons, result)) return result;
    switch (message) {
        case WM_INITDIALOG:
            OnInitDialog(dialog);
            return TRUE;
        case WM_COMMAND:
            OnCommand(dialog, wParam);
            return TRUE;
        default:
            return FALSE;
    }
}

void ShowProgramDialog(HWND owner, int dialogId, const std::vector<ProgramPurpose>& purposes,
                       size_t working) {
    Sheet = {};
    Sheet.working = working;
    for (const ProgramPurpose& purpose : purposes) {
        ProgramChoice choice = {purpose, {}};
        ReadProgram(purpose.slot, choice.program);
        Sheet.choices.push_back(choice);
    }
    DialogBoxParamA(ProgramInstance, MAKEINTRESOURCEA(dialogId), owner, ProgramProcedure, 0);
}
