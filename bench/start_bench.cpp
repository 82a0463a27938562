// What a start of the program costs in time and memory, beside a program that shows an empty dialog
// and one that shows the product's own template and does nothing else, started by turns in one run;
// and what one tick of the position timer costs while a file plays. start_bench PRODUCT
// EMPTY_DIALOG BARE_DIALOG: prints bests, medians and ratios; asserts nothing.
#include <windows.h>

#include <psapi.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "bench/empty_dialog.h"
#include "resources/ids.h"
#include "tests/desktop/driver.h"

constexpr int kStarts = 15;
constexpr int kTicks = 2000;

struct Cost {
    std::vector<double> milliseconds;
    std::vector<double> privateKilobytes;
};

// The best tells the cost by itself, the median what it comes to beside the rest of the machine.
static void Report(const char* what, const char* unit, std::vector<double> product,
                   const char* other, std::vector<double> compared) {
    std::sort(product.begin(), product.end());
    std::sort(compared.begin(), compared.end());
    const size_t middle = product.size() / 2;
    printf("%s, best: %.0f %s, %s %.0f, ratio %.2f; median: %.0f %s, %.0f, %.2f\n", what,
           product[0], unit, other, compared[0], product[0] / compared[0], product[middle], unit,
           compared[middle], product[middle] / compared[middle]);
}

static void ReportAll(const Cost& product, const char* other, const Cost& compared) {
    Report("start to idle window", "ms", product.milliseconds, other, compared.milliseconds);
    Report("private memory", "kB", product.privateKilobytes, other, compared.privateKilobytes);
}

static double MillisecondsNow() {
    LARGE_INTEGER frequency;
    LARGE_INTEGER counter;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&counter);
    return 1000.0 * static_cast<double>(counter.QuadPart) / static_cast<double>(frequency.QuadPart);
}

// One start, to the moment when the window is there and the program waits for input.
static bool MeasureStart(const std::string& executable, const char* title, Cost& cost) {
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    const double start = MillisecondsNow();
    if (!CreateProcessA(executable.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &process)) {
        return false;
    }
    HWND window = nullptr;
    WaitForInputIdle(process.hProcess, kDeadlineMs);
    while (MillisecondsNow() - start < kDeadlineMs) {
        window = FindWindowA(nullptr, title);
        if (window && IsWindowVisible(window)) break;
        Sleep(0);
    }
    // Answered once everything before it in the queue is done, the first paint included.
    SendMessageA(window, WM_NULL, 0, 0);
    cost.milliseconds.push_back(MillisecondsNow() - start);
    // The field named private usage stays empty under Wine; this one means the same.
    PROCESS_MEMORY_COUNTERS memory = {};
    GetProcessMemoryInfo(process.hProcess, &memory, sizeof memory);
    cost.privateKilobytes.push_back(static_cast<double>(memory.PagefileUsage) / 1024);
    PostMessageA(window, WM_CLOSE, 0, 0);
    if (WaitForSingleObject(process.hProcess, kDeadlineMs) != WAIT_OBJECT_0) {
        TerminateProcess(process.hProcess, 1);
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return window != nullptr;
}

static double MicrosecondsEach(HWND window, UINT message, WPARAM word) {
    const double start = MillisecondsNow();
    for (int i = 0; i < kTicks; ++i)
        SendMessageA(window, message, word, 0);
    return 1000 * (MillisecondsNow() - start) / kTicks;
}

static bool MeasureTick(Program& program) {
    WriteFileBytes(program.directory + "media\\long.wav", WaveFile(60000));
    if (!StartProgram(program)) return false;
    HWND list = Control(program.window, IDC_FILE_LIST);
    if (!Select(list, "long.wav")) return false;
    Command(program.window, IDC_PLAY);
    if (!WaitForText(program.window, IDC_STATUS, "Playing")) return false;
    const double message = MicrosecondsEach(program.window, WM_NULL, 0);
    const double tick = MicrosecondsEach(program.window, WM_TIMER, ID_POSITION_TIMER);
    printf("position tick, playing: %.0f us, of which %.0f us are the message there and back\n",
           tick, message);
    return true;
}

int main(int argumentCount, char** arguments) {
    if (argumentCount != 4) {
        fprintf(stderr, "usage: start_bench PRODUCT EMPTY_DIALOG BARE_DIALOG\n");
        return 2;
    }
    _putenv_s("TARNWELL_EXE", arguments[1]);
    Program program;
    if (!PrepareProgram(program)) {
        fprintf(stderr, "start_bench: no %s\n", arguments[1]);
        return 1;
    }
    PutSetting(program, "TarnwellMode", "wave");
    PutSetting(program, "TimerSpeed", "1");
    PutSetting(program, "WaveFilesPath", (program.directory + "media\\").c_str());
    Cost product;
    Cost empty;
    Cost bare;
    for (int i = 0; i < kStarts; ++i) {
        if (!MeasureStart(arguments[2], kEmptyDialogTitle, empty)) return 1;
        if (!MeasureStart(arguments[3], "Tarnwell 1.1", bare)) return 1;
        if (!MeasureStart(program.directory + "TARNWELL.EXE", "Tarnwell 1.1", product)) return 1;
    }
    ReportAll(product, "empty dialog", empty);
    ReportAll(product, "bare dialog", bare);
    const bool ticked = MeasureTick(program);
    EndProgram(program);
    return ticked ? 0 : 1;
}
