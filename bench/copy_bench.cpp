// What copying a large file takes, with what the copy dialog draws meanwhile and without, beside
// the platform's own copy, by turns in one run. copy_bench [MEGABYTES]: prints bests, medians and
// ratios; asserts nothing.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "base/program_state.h"
#include "files/copy_progress.h"
#include "files/file_copy.h"
#include "resources/ids.h"
#include "ui/skin.h"

constexpr int kRounds = 5;

static const char kSource[] = "copy_bench.source";
static const char kTarget[] = "copy_bench.target";

static double SecondsNow() {
    LARGE_INTEGER frequency;
    LARGE_INTEGER counter;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&counter);
    return static_cast<double>(counter.QuadPart) / static_cast<double>(frequency.QuadPart);
}

static bool WriteSource(int megabytes) {
    HANDLE file = CreateFileA(kSource, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    std::vector<char> block(1 << 20);
    for (size_t i = 0; i < block.size(); ++i)
        block[i] = static_cast<char>(i * 7 + i / 251);
    bool written = file != INVALID_HANDLE_VALUE;
    for (int i = 0; i < megabytes && written; ++i) {
        DWORD count = 0;
        written = WriteFile(file, block.data(), static_cast<DWORD>(block.size()), &count, nullptr);
    }
    CloseHandle(file);
    return written;
}

static INT_PTR CALLBACK ProgressProcedure(HWND dialog, UINT message, WPARAM, LPARAM) {
    if (message == WM_PAINT) PaintCopyAnimation(dialog);
    return FALSE;
}

struct Way {
    const char* name;
    std::vector<double> seconds;
};

static bool CopyInThisWay(size_t way, HWND dialog) {
    if (way == 0) return CopyFileA(kSource, kTarget, FALSE);
    CopyWatcher watcher = {[] { return true; }, [] {}, [](uint64_t, uint64_t) {}};
    if (way == 2) {
        watcher.started = [&] { ShowCopyStarted(dialog); };
        watcher.step = [&](uint64_t done, uint64_t total) { ShowCopyStep(dialog, done, total); };
    }
    return CopyOneFile(kSource, kTarget, watcher) == CopyResult::kDone;
}

int main(int argumentCount, char** arguments) {
    const int megabytes = argumentCount > 1 ? std::max(1, atoi(arguments[1])) : 1024;
    ProgramInstance = GetModuleHandleA(nullptr);
    HWND dialog = CreateDialogParamA(ProgramInstance, MAKEINTRESOURCEA(IDD_COPY), nullptr,
                                     ProgressProcedure, 0);
    if (dialog == nullptr || !WriteSource(megabytes)) {
        printf("no dialog, or no room for %d MB\n", megabytes);
        return 1;
    }
    LoadSkin(dialog);
    ShowWindow(dialog, SW_SHOW);
    Way ways[] = {{"the platform's own", {}}, {"without drawing", {}}, {"with drawing", {}}};
    for (int round = 0; round < kRounds; ++round) {
        for (size_t way = 0; way < std::size(ways); ++way) {
            DeleteFileA(kTarget);
            const double start = SecondsNow();
            if (!CopyInThisWay(way, dialog)) printf("%s failed\n", ways[way].name);
            ways[way].seconds.push_back(SecondsNow() - start);
        }
    }
    for (Way& way : ways)
        std::sort(way.seconds.begin(), way.seconds.end());
    const Way& platform = ways[0];
    for (const Way& way : ways) {
        const size_t middle = way.seconds.size() / 2;
        printf("%d MB, %s: best %.2f s, median %.2f s; speed beside the platform's %.2f, %.2f\n",
               megabytes, way.name, way.seconds[0], way.seconds[middle],
               platform.seconds[0] / way.seconds[0],
               platform.seconds[middle] / way.seconds[middle]);
    }
    DeleteFileA(kSource);
    DeleteFileA(kTarget);
    DestroyWindow(dialog);
    return 0;
}
