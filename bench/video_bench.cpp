// What playing a film costs in processor time, beside a program of a few lines that does nothing
// but play it: both play the same films by turns in one run. video_bench PRODUCT: prints shares of
// one processor and their ratios; asserts nothing. video_bench --host FILE is the program beside
// it.
#include <windows.h>

#include <mmsystem.h>

#include <digitalv.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>

#include "demo/media/video_maker.h"
#include "resources/ids.h"
#include "tests/desktop/driver.h"

constexpr int kRounds = 3;
constexpr DWORD kMeasuredMs = 4000;
constexpr DWORD kSettleMs = 1000;
constexpr Cartoon kFilm = {160, 120, 150, 15, false};

static const char kHostTitle[] = "Tarnwell video bench host";

// The least that plays a film: a window, a device in it, a look at the mode ten times a second.
static int RunHost(const char* path) {
    HWND window = CreateWindowA("STATIC", kHostTitle, WS_POPUP | WS_VISIBLE, 50, 50, 300, 220,
                                nullptr, nullptr, nullptr, nullptr);
    MCI_DGV_OPEN_PARMSA open = {};
    open.lpstrElementName = const_cast<char*>(path);
    open.dwStyle = WS_CHILD;
    open.hWndParent = window;
    if (mciSendCommandA(0, MCI_OPEN,
                        MCI_OPEN_ELEMENT | MCI_DGV_OPEN_PARENT | MCI_DGV_OPEN_WS | MCI_WAIT,
                        reinterpret_cast<DWORD_PTR>(&open)) != 0)
        return 1;
    MCI_PLAY_PARMS play = {};
    mciSendCommandA(open.wDeviceID, MCI_PLAY, 0, reinterpret_cast<DWORD_PTR>(&play));
    SetTimer(window, 1, 100, nullptr);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        if (message.message == WM_TIMER && message.hwnd == window) {
            MCI_STATUS_PARMS status = {};
            status.dwItem = MCI_STATUS_MODE;
            mciSendCommandA(open.wDeviceID, MCI_STATUS, MCI_STATUS_ITEM | MCI_WAIT,
                            reinterpret_cast<DWORD_PTR>(&status));
            if (status.dwReturn == MCI_MODE_STOP) break;
        }
        DispatchMessageA(&message);
    }
    mciSendCommandA(open.wDeviceID, MCI_CLOSE, MCI_WAIT, 0);
    return 0;
}

static std::string ReadSmallFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    char bytes[2000] = "";
    file.read(bytes, sizeof bytes);
    return {bytes, static_cast<size_t>(file.gcount())};
}

// Processor time of the one process whose command line holds a text, -1 when there is none. Wine
// tells it of no process but the caller's; the system below does.
static double CpuMs(const std::string& inCommandLine) {
    double milliseconds = -1;
    WIN32_FIND_DATAA found;
    HANDLE search = FindFirstFileA("z:\\proc\\*", &found);
    if (search == INVALID_HANDLE_VALUE) return -1;
    do {
        const std::string directory = std::string("z:\\proc\\") + found.cFileName + "\\";
        if (ReadSmallFile(directory + "cmdline").find(inCommandLine) == std::string::npos) continue;
        const std::string status = ReadSmallFile(directory + "stat");
        unsigned long user = 0, kernel = 0;
        const size_t behindName = status.rfind(')');
        if (behindName != std::string::npos &&
            std::sscanf(status.c_str() + behindName,
                        ") %*c %*d %*d %*d %*d %*d %*u %*u %*u %*u %*u %lu %lu", &user,
                        &kernel) == 2)
            milliseconds = 10.0 * static_cast<double>(user + kernel);  // it counts hundredths
    } while (FindNextFileA(search, &found));
    FindClose(search);
    return milliseconds;
}

// The percentage of one processor that a process takes while it plays; false when it is not found.
static bool MeasureShare(const std::string& inCommandLine, double& share) {
    Sleep(kSettleMs);
    const double before = CpuMs(inCommandLine);
    Sleep(kMeasuredMs);
    const double after = CpuMs(inCommandLine);
    share = 100 * (after - before) / kMeasuredMs;
    return before >= 0 && after >= before;
}

// Named on its command line, the film plays at once.
static bool MeasureProduct(Program& program, const std::string& path, double& share) {
    if (!StartProgram(program, path)) return false;
    const bool playing = WaitForText(program.window, IDC_STATUS, "Playing");
    const bool measured = playing && MeasureShare(path, share);
    EndProgram(program);
    return measured;
}

static bool MeasureHost(const std::string& path, double& share) {
    char self[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, self, MAX_PATH);
    std::string line = std::string("\"") + self + "\" --host \"" + path + "\"";
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &process))
        return false;
    const bool shown = WaitUntil([] { return FindWindowA(nullptr, kHostTitle) != nullptr; });
    const bool measured = shown && MeasureShare(path, share);
    TerminateProcess(process.hProcess, 0);
    WaitForSingleObject(process.hProcess, kDeadlineMs);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return measured;
}

static bool MeasureFilm(Program& program, const char* kind, const Bytes& bytes) {
    // No other process has the name, on this desktop or another.
    const std::string path =
        program.directory + "media\\film" + std::to_string(GetTickCount()) + "." + kind;
    WriteFileBytes(path, std::string(bytes.begin(), bytes.end()));
    std::vector<double> product, host;
    for (int round = 0; round < kRounds; ++round) {
        double hostShare = 0, productShare = 0;
        // On a busy machine a start may miss its deadline: that round does not count.
        if (!MeasureHost(path, hostShare) || !MeasureProduct(program, path, productShare)) continue;
        host.push_back(hostShare);
        product.push_back(productShare);
    }
    if (product.empty()) return false;
    std::sort(product.begin(), product.end());
    std::sort(host.begin(), host.end());
    const size_t middle = product.size() / 2;
    printf("%s playing: %.1f %% of a processor, bare host %.1f %%, ratio %.2f (medians of %zu)\n",
           kind, product[middle], host[middle], product[middle] / std::max(host[middle], 0.01),
           product.size());
    return true;
}

int main(int argumentCount, char** arguments) {
    if (argumentCount == 3 && std::strcmp(arguments[1], "--host") == 0)
        return RunHost(arguments[2]);
    if (argumentCount != 2) {
        fprintf(stderr, "usage: video_bench PRODUCT\n");
        return 2;
    }
    _putenv_s("TARNWELL_EXE", arguments[1]);
    Program program;
    if (!PrepareProgram(program)) {
        fprintf(stderr, "video_bench: no %s\n", arguments[1]);
        return 1;
    }
    PutSetting(program, "TarnwellMode", "video");
    PutSetting(program, "TimerSpeed", "1");
    PutSetting(program, "VideoFilesPath", (program.directory + "media\\").c_str());
    const std::vector<int16_t> silence(22050 * 10);
    const std::pair<const char*, Bytes> films[] = {{"avi", PackCartoon(kFilm, silence)},
                                                   {"mov", PackCartoonFilm(kFilm, silence)}};
    bool measured = true;
    for (const auto& [kind, bytes] : films)
        measured = MeasureFilm(program, kind, bytes) && measured;
    EndProgram(program);
    return measured ? 0 : 1;
}
