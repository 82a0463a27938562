// Drives the real program from a second process; see the header.
#include "tests/desktop/driver.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <mmsystem.h>

#include "resources/ids.h"

namespace fs = std::filesystem;

static const char kMainTitle[] = "Tarnwell 1.1";
constexpr UINT kSendTimeoutMs = 5000;
constexpr int kPollMs = 10;

// A message with a bounded wait; -1 when the window does not answer.
static LRESULT Send(HWND window, UINT message, WPARAM word, LPARAM parameter) {
    DWORD_PTR result = 0;
    if (!SendMessageTimeoutA(window, message, word, parameter, SMTO_ABORTIFHUNG, kSendTimeoutMs,
                             &result)) {
        return -1;
    }
    return static_cast<LRESULT>(result);
}

bool WaitUntil(const std::function<bool()>& condition, int deadlineMs) {
    const DWORD start = GetTickCount();
    while (!condition()) {
        if (GetTickCount() - start >= static_cast<DWORD>(deadlineMs)) return false;
        Sleep(kPollMs);
    }
    return true;
}

bool PrepareProgram(Program& program) {
    static int count = 0;
    const char* executable = getenv("TARNWELL_EXE");
    if (!executable) return false;
    EndProgram(program);
    std::error_code ignored;
    if (!program.directory.empty()) fs::remove_all(program.directory, ignored);
    program.directory = "c:\\program" + std::to_string(++count) + "\\";
    fs::remove_all(program.directory, ignored);
    return CreateDirectoryA(program.directory.c_str(), nullptr) &&
           CreateDirectoryA((program.directory + "media").c_str(), nullptr) &&
           CopyFileA(executable, (program.directory + "TARNWELL.EXE").c_str(), TRUE);
}

static std::string SettingsFile(const Program& program) {
    return program.directory + "TARNWELL.INI";
}

void PutSetting(const Program& program, const char* key, const char* value, const char* section) {
    WritePrivateProfileStringA(section, key, value, SettingsFile(program).c_str());
}

std::string GetSetting(const Program& program, const char* key, const char* section) {
    char value[512];
    GetPrivateProfileStringA(section, key, "(missing)", value, sizeof value,
                             SettingsFile(program).c_str());
    return value;
}

static HANDLE StartProcess(const Program& program, const std::string& arguments) {
    const std::string executable = program.directory + "TARNWELL.EXE";
    std::string line = executable;
    if (!arguments.empty()) line += " " + arguments;
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    if (!CreateProcessA(executable.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        program.directory.c_str(), &startup, &process)) {
        return nullptr;
    }
    CloseHandle(process.hThread);
    return process.hProcess;
}

// The visible main window of one process.
static HWND FindMainWindow(DWORD processId) {
    HWND window = nullptr;
    while ((window = FindWindowExA(nullptr, window, nullptr, kMainTitle)) != nullptr) {
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        if (owner == processId && IsWindowVisible(window)) break;
    }
    return window;
}

bool StartProgram(Program& program, const std::string& arguments) {
    EndProgram(program);
    program.process = StartProcess(program, arguments);
    if (!program.process) return false;
    const DWORD processId = GetProcessId(program.process);
    const bool shown = WaitUntil([&] {
        program.window = FindMainWindow(processId);
        return program.window != nullptr;
    });
    return shown && Settle(program);
}

int RunSecondInstance(const Program& program, const std::string& arguments) {
    Program second = {program.directory, StartProcess(program, arguments)};
    const int code = ExitCode(second);
    EndProgram(second);
    return code;
}

int ExitCode(const Program& program, int deadlineMs) {
    const auto limit = static_cast<DWORD>(deadlineMs);
    if (WaitForSingleObject(program.process, limit) != WAIT_OBJECT_0) return -1;
    DWORD code = 0;
    GetExitCodeProcess(program.process, &code);
    return static_cast<int>(code);
}

void EndProgram(Program& program) {
    if (!program.process) return;
    if (ExitCode(program, 0) == -1) {
        TerminateProcess(program.process, 1);
        ExitCode(program);
    }
    CloseHandle(program.process);
    program.process = nullptr;
    program.window = nullptr;
}

HWND FocusOf(const Program& program) {
    GUITHREADINFO thread = {};
    thread.cbSize = sizeof thread;
    GetGUIThreadInfo(GetWindowThreadProcessId(program.window, nullptr), &thread);
    return thread.hwndFocus;
}

HWND Control(HWND dialog, int id) {
    return GetDlgItem(dialog, id);
}

std::string Title(HWND window) {
    char text[1024] = "";
    if (Send(window, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text)) < 0) return {};
    return text;
}

std::string ClassOf(HWND window) {
    char name[64] = "";
    GetClassNameA(window, name, sizeof name);
    return name;
}

std::string Text(HWND dialog, int id) {
    return Title(Control(dialog, id));
}

bool IsShown(HWND dialog, int id) {
    return IsWindowVisible(Control(dialog, id)) != FALSE;
}

void Command(HWND dialog, int id, int notification) {
    PostMessageA(dialog, WM_COMMAND,
                 MAKEWPARAM(static_cast<WORD>(id), static_cast<WORD>(notification)),
                 reinterpret_cast<LPARAM>(Control(dialog, id)));
}

void SetText(HWND dialog, int id, const std::string& text) {
    Send(Control(dialog, id), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void FocusOn(HWND dialog, int id) {
    PostMessageA(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Control(dialog, id)), TRUE);
}

bool Settle(const Program& program) {
    // A message sent from outside can be answered in the middle of a command; one that is posted is
    // not. This one's effect is seen nowhere but here.
    HWND field = Control(program.window, IDC_DIRECTORY);
    const LRESULT modified = Send(field, EM_GETMODIFY, 0, 0);
    PostMessageA(field, EM_SETMODIFY, !modified, 0);
    const bool settled = WaitUntil([&] { return Send(field, EM_GETMODIFY, 0, 0) == !modified; });
    Send(field, EM_SETMODIFY, static_cast<WPARAM>(modified), 0);
    return settled;
}

bool WaitForText(HWND dialog, int id, const std::string& text, int deadlineMs) {
    return WaitUntil([&] { return Text(dialog, id) == text; }, deadlineMs);
}

HWND WaitForPopup(const Program& program, int deadlineMs) {
    HWND popup = nullptr;
    const auto look = [&] {
        popup = GetLastActivePopup(program.window);
        return popup != program.window && IsWindowVisible(popup);
    };
    return WaitUntil(look, deadlineMs) ? popup : nullptr;
}

bool WaitForNoPopup(const Program& program, int deadlineMs) {
    const auto look = [&] {
        return IsWindowEnabled(program.window) &&
               GetLastActivePopup(program.window) == program.window;
    };
    return WaitUntil(look, deadlineMs);
}

std::vector<std::string> ListTexts(HWND list) {
    std::vector<std::string> texts;
    const LRESULT count = Send(list, LB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        wchar_t wide[512] = L"";
        SendMessageW(list, LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(wide));
        char narrow[1024] = "";
        WideCharToMultiByte(CP_ACP, 0, wide, -1, narrow, sizeof narrow, nullptr, nullptr);
        texts.push_back(narrow);
    }
    return texts;
}

void SelectAll(HWND list, bool selected) {
    Send(list, LB_SETSEL, selected, -1);
}

bool Select(HWND list, const std::string& text) {
    const std::vector<std::string> texts = ListTexts(list);
    const auto found = std::find(texts.begin(), texts.end(), text);
    if (found == texts.end()) return false;
    return Send(list, LB_SETSEL, TRUE, found - texts.begin()) == 0;
}

int ScrollPosition(const Program& program) {
    return GetScrollPos(Control(program.window, IDC_SCROLL), SB_CTL);
}

int ScrollMaximum(const Program& program) {
    int least = 0;
    int most = -1;
    GetScrollRange(Control(program.window, IDC_SCROLL), SB_CTL, &least, &most);
    return most;
}

void Scroll(const Program& program, int code, int position) {
    Send(program.window, WM_HSCROLL,
         MAKEWPARAM(static_cast<WORD>(code), static_cast<WORD>(position)),
         reinterpret_cast<LPARAM>(Control(program.window, IDC_SCROLL)));
}

void MoveMouse(POINT at) {
    SetCursorPos(at.x, at.y);
}

// Place and press in one event: nothing can come between them.
void HoldMouse(POINT at) {
    MoveMouse(at);
    const auto share = [](LONG pixel, int metric) {
        const int size = GetSystemMetrics(metric);
        return static_cast<DWORD>((static_cast<int64_t>(pixel) * 65536 + size - 1) / size);
    };
    mouse_event(MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE | MOUSEEVENTF_LEFTDOWN,
                share(at.x, SM_CXSCREEN), share(at.y, SM_CYSCREEN), 0, 0);
}

void ReleaseMouse() {
    mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
}

void ClickMouse(POINT at) {
    HoldMouse(at);
    ReleaseMouse();
}

POINT CentreOf(HWND window) {
    RECT place = {};
    GetWindowRect(window, &place);
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

void PressKey(uint8_t virtualKey, uint8_t heldKey) {
    if (heldKey) keybd_event(heldKey, 0, 0, 0);
    keybd_event(virtualKey, 0, 0, 0);
    keybd_event(virtualKey, 0, KEYEVENTF_KEYUP, 0);
    if (heldKey) keybd_event(heldKey, 0, KEYEVENTF_KEYUP, 0);
}

void PressKeyIn(HWND window, uint8_t virtualKey, uint8_t heldKey) {
    SetForegroundWindow(window);
    PressKey(virtualKey, heldKey);
}

constexpr int kSamplesPerMs = 8;

static std::vector<int16_t> Recorded(int lastMs) {
    const char* recording = getenv("TARNWELL_RECORDING");
    FILE* file = recording ? fopen(recording, "rb") : nullptr;
    if (!file) return {};
    std::vector<int16_t> samples(static_cast<size_t>(lastMs) * kSamplesPerMs);
    const long wanted = static_cast<long>(samples.size() * sizeof samples[0]);
    // The recorder may be in the middle of a sample.
    fseek(file, 0, SEEK_END);
    const long size = ftell(file) & ~1L;
    fseek(file, std::max(0L, size - wanted), SEEK_SET);
    samples.resize(fread(samples.data(), sizeof samples[0], samples.size(), file));
    fclose(file);
    return samples;
}

static double Level(const int16_t* samples, size_t count) {
    double sum = 0;
    for (size_t i = 0; i < count; ++i)
        sum += static_cast<double>(samples[i]) * samples[i];
    return count == 0 ? -1 : std::sqrt(sum / static_cast<double>(count));
}

double SoundLevel(int lastMs) {
    const std::vector<int16_t> samples = Recorded(lastMs);
    return Level(samples.data(), samples.size());
}

int AudibleMs(int lastMs) {
    constexpr int stepMs = 10;
    constexpr size_t step = stepMs * kSamplesPerMs;
    const std::vector<int16_t> samples = Recorded(lastMs);
    int heardMs = 0;
    for (size_t at = 0; at + step <= samples.size(); at += step)
        heardMs += Level(samples.data() + at, step) > 50 ? stepMs : 0;
    return heardMs;
}

void WriteFileBytes(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

std::string FileBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

template <typename Value>
static std::string Raw(const Value& value) {
    return {reinterpret_cast<const char*>(&value), sizeof value};
}

std::string PackWave(const WaveForm& form, const std::string& data) {
    const auto block = static_cast<WORD>(form.channels * form.bits / 8);
    const WAVEFORMATEX format = {form.tag, form.channels, form.rate, form.rate * block,
                                 block,    form.bits,     0};
    const auto size = static_cast<uint32_t>(data.size());
    return "RIFF" + Raw(38 + size) + "WAVEfmt " + Raw(uint32_t{sizeof format}) + Raw(format) +
           "data" + Raw(size) + data;
}

std::string WaveFile(int lengthMs) {
    constexpr int kRate = 22050;
    std::string samples;
    for (int i = 0; i < kRate * lengthMs / 1000; ++i) {
        const double phase = 2 * 3.14159265358979 * 440 * i / kRate;
        samples += Raw(static_cast<int16_t>(std::lround(8000 * std::sin(phase))));
    }
    return PackWave({WAVE_FORMAT_PCM, 1, kRate, 16}, samples);
}

std::string MidiFile(int lengthMs) {
    // 500 ticks to the quarter at 120 quarters a minute: one tick is one millisecond.
    std::string track("\x00\xff\x51\x03\x07\xa1\x20\x00\xc0\x00\x00\x90\x45\x60", 14);
    for (const int shift : {14, 7, 0})
        track += static_cast<char>((shift != 0 ? 0x80 : 0) | (lengthMs >> shift & 0x7f));
    track += std::string("\x80\x45\x00\x00\xff\x2f\x00", 7);
    return std::string("MThd\0\0\0\x06\0\0\0\x01\x01\xf4MTrk\0\0\0", 21) +
           static_cast<char>(track.size()) + track;
}
