// Stand-ins at the product's seams.
#include "tests/stand_ins.h"

#include <cstdio>

#include "app/app_directory.h"
#include "app/main_window.h"
#include "app/program_state.h"
#include "app/settings.h"
#include "playback/media_device.h"
#include "playback/play_queue.h"
#include "playback/player_timers.h"
#include "resources/ids.h"
#include "ui/boxes.h"
#include "ui/skin.h"

FakeMci TheMci;
FakeBoxes TheBoxes;

constexpr MCIDEVICEID kFakeDevice = 7;

static std::string Name(UINT message) {
    switch (message) {
        case MCI_OPEN:
            return "OPEN";
        case MCI_CLOSE:
            return "CLOSE";
        case MCI_PLAY:
            return "PLAY";
        case MCI_SEEK:
            return "SEEK";
        case MCI_STOP:
            return "STOP";
        case MCI_PAUSE:
            return "PAUSE";
        case MCI_SET:
            return "SET";
        case MCI_STATUS:
            return "STATUS";
        case MCI_GETDEVCAPS:
            return "CAPS";
        default:
            return "message " + std::to_string(message);
    }
}

static std::string ItemName(DWORD item) {
    switch (item) {
        case MCI_STATUS_MODE:
            return " mode";
        case MCI_STATUS_LENGTH:
            return " length";
        case MCI_STATUS_POSITION:
            return " position";
        case MCI_STATUS_NUMBER_OF_TRACKS:
            return " tracks";
        case MCI_STATUS_MEDIA_PRESENT:
            return " present";
        default:
            return " item " + std::to_string(item);
    }
}

static std::string Details(UINT message, DWORD_PTR flags, DWORD_PTR parameters) {
    std::string text;
    if (message == MCI_OPEN) {
        const auto* open = reinterpret_cast<const MCI_OPEN_PARMSA*>(parameters);
        if (flags & MCI_OPEN_ELEMENT) text += std::string(" ") + open->lpstrElementName;
        if (flags & MCI_OPEN_TYPE) text += std::string(" type ") + open->lpstrDeviceType;
    } else if (message == MCI_PLAY) {
        const auto* play = reinterpret_cast<const MCI_PLAY_PARMS*>(parameters);
        if (flags & MCI_FROM) text += " from " + std::to_string(play->dwFrom);
        if (flags & MCI_TO) text += " to " + std::to_string(play->dwTo);
    } else if (message == MCI_SEEK && (flags & MCI_SEEK_TO_START)) {
        text += " start";
    } else if (message == MCI_SET) {
        const auto* set = reinterpret_cast<const MCI_SET_PARMS*>(parameters);
        if (flags & MCI_SET_TIME_FORMAT) text += " format " + std::to_string(set->dwTimeFormat);
        if (flags & MCI_SET_DOOR_OPEN) text += " door open";
        if (flags & MCI_SET_DOOR_CLOSED) text += " door closed";
    } else if (message == MCI_STATUS) {
        const auto* status = reinterpret_cast<const MCI_STATUS_PARMS*>(parameters);
        text += ItemName(status->dwItem);
        if (flags & MCI_TRACK) text += " of " + std::to_string(status->dwTrack);
    }
    if (flags & MCI_WAIT) text += " wait";
    return text;
}

static MCIERROR WINAPI FakeSend(MCIDEVICEID device, UINT message, DWORD_PTR flags,
                                DWORD_PTR parameters) {
    std::string line = Name(message) + Details(message, flags, parameters);
    if (message != MCI_OPEN && device != kFakeDevice)
        line += " to device " + std::to_string(device);
    TheMci.log.push_back(line);
    if (TheMci.calls++ == TheMci.failingCall) return TheMci.failure;
    if (message == MCI_OPEN) {
        const auto type = flags & MCI_OPEN_TYPE;
        if (type) return MCIERR_CANNOT_LOAD_DRIVER;
        reinterpret_cast<MCI_OPEN_PARMSA*>(parameters)->wDeviceID = kFakeDevice;
    } else if (message == MCI_STATUS) {
        auto* status = reinterpret_cast<MCI_STATUS_PARMS*>(parameters);
        status->dwReturn = TheMci.status[status->dwItem];
    }
    return 0;
}

static BOOL WINAPI FakeErrorText(MCIERROR code, LPSTR text, UINT size) {
    snprintf(text, size, "error %lu", code);
    return TRUE;
}

static void TakeBox() {
    TheBoxes.shown.push_back(MessageText);
    const std::function<void()> inside = std::move(TheBoxes.whileOpen);
    TheBoxes.whileOpen = nullptr;
    if (!inside) return;
    // What a modal box does to its owner.
    EnableWindow(MainWindow, FALSE);
    inside();
    EnableWindow(MainWindow, TRUE);
}

static void FakeMessage(HWND) {
    TakeBox();
}

static void FakeQuestion(HWND) {
    TakeBox();
    QuestionAnswer = TheBoxes.answerOk ? 0 : 1;
}

void UseStandIns() {
    TheMci = {};
    TheBoxes = {};
    Mci = {FakeSend, FakeErrorText};
    Boxes = {FakeMessage, FakeQuestion};
}

std::string FreshDirectory() {
    static int count = 0;
    char temporary[MAX_PATH] = {};
    GetTempPathA(sizeof temporary, temporary);
    const std::string directory = std::string(temporary) + "tarnwell" +
                                  std::to_string(GetCurrentProcessId()) + "_" +
                                  std::to_string(count++) + "\\";
    CreateDirectoryA(directory.c_str(), nullptr);
    return directory;
}

static void WriteEmptyFile(const std::string& path) {
    CloseHandle(CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
}

void OpenTestWindow(int mode, const std::vector<std::string>& files) {
    CloseTestWindow();
    ProgramInstance = GetModuleHandleA(nullptr);
    AppDirectory = FreshDirectory();
    SettingsPath = InAppDirectory("TARNWELL.INI");
    for (const std::string& file : files)
        WriteEmptyFile(AppDirectory + file);
    WaveFilesPath = MidiFilesPath = VideoFilesPath = AppDirectory;
    Settings = {};
    Settings.soundControls = false;
    MediaDevice = {};
    PlayQueue = {};
    PlayMode = mode;
    ShuttingDown = false;
    // As if a media file had been named: the settings stay as they are above.
    StartFileGiven = true;
    CreateBackgroundBrush();
    static const bool registered = RegisterMainWindowClass();
    if (registered) CreateMainWindow();
    TheMci.log.clear();
    TheMci.calls = 0;
}

void CloseTestWindow() {
    if (MainWindow == nullptr) return;
    StopPositionTimer();
    StopCdTimer();
    StopAnimationTimer();
    DestroyWindow(MainWindow);
    MainWindow = nullptr;
    FreeSkin();
}

void PumpMessages() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (MainWindow != nullptr && IsDialogMessageA(MainWindow, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}
