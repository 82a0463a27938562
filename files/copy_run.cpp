// One run of dialog 800 over the selected files.
#include "files/copy_run.h"

#include "base/file_access.h"
#include "base/file_description.h"
#include "base/program_state.h"
#include "files/copy_progress.h"
#include "files/file_copy.h"
#include "files/overwrite_dialog.h"
#include "resources/ids.h"
#include "ui/boxes.h"
#include "ui/dialog_helpers.h"
#include "ui/long_run.h"

static bool MayOverwrite(HWND dialog, const std::string& source, const std::string& target,
                         OverwriteAnswer& answer) {
    if (answer == OverwriteAnswer::kAllFiles) return true;
    answer = AskToOverwrite(dialog, source, target);
    // The dialog may have stood over anything.
    RedrawWindow(MainWindow, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    PaintWaitingWindows();
    return answer != OverwriteAnswer::kNo;
}

static void ReportFailure(CopyResult result, const std::string& name) {
    switch (result) {
        case CopyResult::kOverItself:
            ShowMessage("Error: Can't copy file over itself!");
            break;
        case CopyResult::kUnreadable:
            ShowMessage("Error: Can't read file!");
            break;
        case CopyResult::kFailed:
            ShowMessage("Error: Can't copy file!");
            break;
        case CopyResult::kNotRemoved:
            ShowMessage("Can't delete file: " + name);
            break;
        case CopyResult::kDone:
        case CopyResult::kDeclined:
            break;
    }
}

static std::string InCapitals(std::string text) {
    CharUpperA(text.data());
    return text;
}

static void CopyListedFile(const CopyRun& run, const std::string& listed,
                           OverwriteAnswer& overwrite) {
    const std::string source = run.sourceDirectory + listed;
    const std::string name = DisplayName(source, listed);
    const std::string target =
        run.targetDirectory + (run.targetName.empty() ? name : run.targetName);
    SetControlText(run.dialog, IDC_COPY_STATUS, InCapitals(name));
    PaintWaitingWindows();
    const CopyWatcher watcher = {
        [&] { return MayOverwrite(run.dialog, source, target, overwrite); },
        [&] { ShowCopyStarted(run.dialog); },
        [&](uint64_t done, uint64_t total) { ShowCopyStep(run.dialog, done, total); },
    };
    const CopyResult result =
        run.move ? MoveOneFile(source, target, watcher) : CopyOneFile(source, target, watcher);
    SetCursor(LoadCursor(nullptr, IDC_ARROW));
    DropWaitingInput();
    if (result == CopyResult::kDone || result == CopyResult::kNotRemoved) ShowCopyDone(run.dialog);
    ReportFailure(result, name);
}

void CopyFiles(const CopyRun& run) {
    OverwriteAnswer overwrite = OverwriteAnswer::kNo;
    for (const std::string& listed : run.names)
        CopyListedFile(run, listed, overwrite);
}

uint64_t NeededBytes(const std::string& directory, const std::vector<std::string>& names) {
    uint64_t sum = 0;
    for (const std::string& name : names) {
        ScopedFile file;
        uint64_t size = 0;
        const std::string path = directory + name;
        if (FileCalls.open(path.c_str(), FileMode::kReadShared, file.handle) == FileStatus::kOk &&
            FileCalls.size(file.handle, size) == FileStatus::kOk) {
            sum += size;
        }
    }
    return sum;
}
