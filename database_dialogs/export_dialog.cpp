// See export_dialog.h.
#include "database_dialogs/export_dialog.h"

#include <algorithm>
#include <string>

#include "base/app_directory.h"
#include "base/program_state.h"
#include "database/database_export.h"
#include "database/database_file.h"
#include "database_dialogs/export_path.h"
#include "database_dialogs/run_status.h"
#include "files/path_dialog.h"
#include "resources/ids.h"
#include "ui/boxes.h"
#include "ui/click_sounds.h"
#include "ui/dialog_helpers.h"

static const DialogButton kButtons[] = {
    {IDC_START, kFaceStart},
    {IDC_OK, kFaceOk},
    {IDC_EXPORT_BROWSE, kFaceBrowse},
};

constexpr int kMaxPath = 259;

// Kept while the program runs.
struct ExportOptions {
    ExportItems items;
    bool sorted = false;
    ExportForm form = ExportForm::kPlain;
    std::string path;  // empty before the dialog was opened for the first time
};

static ExportOptions FirstOptions() {
    ExportOptions options;
    options.items.fill(true);
    return options;
}
static ExportOptions Options = FirstOptions();

static void OnInitDialog(HWND dialog) {
    PrepareDialog(dialog, kButtons);
    SendDlgItemMessageA(dialog, IDC_EXPORT_PATH, EM_LIMITTEXT, kMaxPath, 0);
    if (Options.path.empty()) Options.path = InAppDirectory(kDefaultExportName);
    SetControlText(dialog, IDC_EXPORT_PATH, Options.path);
    for (int item = 0; item < kExportItemCount; ++item) {
        CheckDlgButton(dialog, IDC_EXPORT_ITEM_FIRST + item,
                       Options.items[static_cast<size_t>(item)] ? BST_CHECKED : BST_UNCHECKED);
    }
    CheckRadioButton(dialog, IDC_EXPORT_SORTED, IDC_EXPORT_FILE_ORDER,
                     Options.sorted ? IDC_EXPORT_SORTED : IDC_EXPORT_FILE_ORDER);
    CheckRadioButton(
        dialog, IDC_EXPORT_DELIMITED, IDC_EXPORT_PLAIN,
        Options.form == ExportForm::kDelimited ? IDC_EXPORT_DELIMITED : IDC_EXPORT_PLAIN);
}

static void ReadOptions(HWND dialog) {
    Options.path = ControlText(dialog, IDC_EXPORT_PATH).substr(0, kMaxPath);
    for (int item = 0; item < kExportItemCount; ++item) {
        Options.items[static_cast<size_t>(item)] =
            IsDlgButtonChecked(dialog, IDC_EXPORT_ITEM_FIRST + item) != 0;
    }
    Options.sorted = IsDlgButtonChecked(dialog, IDC_EXPORT_SORTED) != 0;
    Options.form = IsDlgButtonChecked(dialog, IDC_EXPORT_DELIMITED) ? ExportForm::kDelimited
                                                                    : ExportForm::kPlain;
}

static void OnBrowse(HWND dialog) {
    PlayClickSound(IDS_SOUND_BROWSE);
    const std::string path = ControlText(dialog, IDC_EXPORT_PATH);
    std::string directory = DirectoryOf(path);
    if (!ShowPathDialog(dialog, PathPurpose::kExport, directory)) return;
    SetControlText(dialog, IDC_EXPORT_PATH, WithDirectory(directory, path));
}

// The file to write, open and empty; false when there is none, and the user knows why.
static bool CreateExportFile(RunStatus& status, ScopedFile& file) {
    std::string path;
    if (!CheckExportPath(Options.path, path)) {
        ShowMessage("Invalid path!");
        return false;
    }
    if (FileCalls.exists(path.c_str()) == FileStatus::kOk &&
        !AskQuestion("File already exists! Do you want to overwrite it?")) {
        return false;
    }
    ShowStatus(status, "Creating export file.");
    if (FileCalls.open(path.c_str(), FileMode::kCreateAlways, file.handle) == FileStatus::kOk) {
        return true;
    }
    ShowStatus(status, "");
    ShowMessage("Invalid path!");
    return false;
}

static DatabaseResult Export(RunStatus& status, ScopedFile& file) {
    const WaitCursor wait;
    ExportRequest request;
    request.items = Options.items;
    request.form = Options.form;
    if (Options.sorted) request.compare = CompareInSystemOrder;
    const DatabaseResult result = ExportDatabase(file.handle, request, [&](const char* text) {
        if (StatusIsDue(status)) ShowStatus(status, text);
    });
    const FileStatus closed = CloseFile(file);
    return result == DatabaseResult::kOk ? WriteResult(closed) : result;
}

static const char* FailureText(DatabaseResult result) {
    switch (result) {
        case DatabaseResult::kNoMemory:
            return DatabaseResultText(result);
        case DatabaseResult::kReadFailed:
            return "Error! Can't read the database.";
        default:
            return "Error! Can't write export file.";
    }
}

static void OnStart(HWND dialog) {
    PlayClickSound(IDS_SOUND_START);
    ReadOptions(dialog);
    SetControlText(dialog, IDC_RUN_STATUS, "");
    uint16_t entryCount = 0;
    if (ReadDatabaseEntryCount(entryCount) != DatabaseResult::kOk) {
        ShowMessage(FailureText(DatabaseResult::kReadFailed));
        return;
    }
    if (std::ranges::count(Options.items, true) == 0 || entryCount == 0) {
        ShowMessage("Error: nothing to export!");
        return;
    }
    RunStatus status = {dialog};
    ScopedFile file;
    if (!CreateExportFile(status, file)) return;
    const DatabaseResult result = Export(status, file);
    if (result == DatabaseResult::kOk) {
        ShowStatus(status, "Done!");
        return;
    }
    ShowStatus(status, "");
    ShowMessage(FailureText(result));
}

static void OnOk(HWND dialog) {
    PlayClickSound(IDS_SOUND_OK);
    ReadOptions(dialog);
    EndDialog(dialog, 0);
}

static bool OnCommand(HWND dialog, int controlId, int notification) {
    switch (controlId) {
        case IDC_EXPORT_BROWSE:
            OnBrowse(dialog);
            return true;
        case IDC_START:
            OnStart(dialog);
            return true;
        case IDC_OK:
            OnOk(dialog);
            return true;
        default:
            break;
    }
    const bool isItem = controlId >= IDC_EXPORT_ITEM_FIRST && controlId <= IDC_EXPORT_ITEM_LAST;
    const bool isChoice = controlId >= IDC_EXPORT_SORTED && controlId <= IDC_EXPORT_PLAIN;
    if (!(isItem || isChoice) || !IsClick(notification, false)) return false;
    PlayClickSound(isItem ? IDS_SOUND_CHECK : IDS_SOUND_RADIO);
    return true;
}

static INT_PTR CALLBACK ExportProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    INT_PTR result = FALSE;
    if (HandleDialogLook(dialog, message, wParam, lParam, kButtons, result)) return result;
    switch (message) {
        case WM_INITDIALOG:
            OnInitDialog(dialog);
            return TRUE;
        case WM_COMMAND:
            return OnCommand(dialog, MeantButton(dialog, wParam, kButtons, IDC_START, IDC_OK),
                             HIWORD(wParam));
        default:
            return FALSE;
    }
}

void ShowExportDialog(HWND owner) {
    DialogBoxParamA(ProgramInstance, MAKEINTRESOURCEA(IDD_EXPORT), owner, ExportProcedure, 0);
}
