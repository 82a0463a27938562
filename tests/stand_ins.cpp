// Stand-ins at the product's seams.
#include "tests/stand_ins.h"

#include <digitalv.h>

#include <cstdio>
#include <fstream>
#include <iterator>

#include "app/main_window.h"
#include "base/app_directory.h"
#include "base/settings.h"
#include "database/database_file.h"
#include "playback/cd_player.h"
#include "playback/player_timers.h"
#include "ui/boxes.h"
#include "ui/dialog_helpers.h"
#include "ui/entry_colors.h"
#include "ui/skin.h"

FakeMci TheMci;
FakeBoxes TheBoxes;

constexpr MCIDEVICEID kFileDevice = 7;
constexpr MCIDEVICEID kDrive = 8;
static DWORD TimeFormat;  // of the file device
static bool FileDeviceOpen;
static bool DriveOpen;
static bool FilmOpen;
static DWORD FilmStoppedMs;

static std::string StatusItem(const MCI_STATUS_PARMS& status, DWORD_PTR flags) {
    static const std::map<DWORD, const char*> kNames = {
        {MCI_STATUS_MODE, "mode"},
        {MCI_STATUS_LENGTH, "length"},
        {MCI_STATUS_POSITION, "position"},
        {MCI_STATUS_NUMBER_OF_TRACKS, "tracks"},
        {MCI_STATUS_MEDIA_PRESENT, "present"},
        {MCI_WAVE_STATUS_SAMPLESPERSEC, "samples per second"},
        {MCI_WAVE_STATUS_BITSPERSAMPLE, "bits"},
        {MCI_WAVE_STATUS_CHANNELS, "channels or tempo"},  // one number for both
    };
    const auto name = kNames.find(status.dwItem);
    std::string text =
        name != kNames.end() ? name->second : "status " + std::to_string(status.dwItem);
    if (flags & MCI_TRACK) text += " " + std::to_string(status.dwTrack);
    return text;
}

static std::string PlayText(const MCI_PLAY_PARMS& play, DWORD_PTR flags, bool drive) {
    std::string text = "play";
    if (drive && flags == MCI_FROM) {
        char place[40];
        snprintf(place, sizeof place, " %d %d:%02d.%02d", MCI_TMSF_TRACK(play.dwFrom),
                 MCI_TMSF_MINUTE(play.dwFrom), MCI_TMSF_SECOND(play.dwFrom),
                 MCI_TMSF_FRAME(play.dwFrom));
        return text + place;
    }
    if (flags & MCI_FROM) text += " from " + std::to_string(play.dwFrom);
    if (flags & MCI_TO) text += " to " + std::to_string(play.dwTo);
    return text;
}

// A film is opened into a window of the program's, as its child.
static bool IsFilm(DWORD_PTR flags, DWORD_PTR parameters) {
    if (!(flags & MCI_DGV_OPEN_PARENT)) return false;
    const auto* film = reinterpret_cast<MCI_DGV_OPEN_PARMSA*>(parameters);
    return IsWindow(film->hWndParent) && film->dwStyle == WS_CHILD;
}

// A film that is closed right after its stop may still be at work.
static void CheckFilm(UINT message, DWORD_PTR flags, DWORD_PTR parameters) {
    if (message == MCI_OPEN) FilmOpen = IsFilm(flags, parameters);
    if (message == MCI_STOP) FilmStoppedMs = GetTickCount();
    const bool closes = message == MCI_CLOSE && FilmOpen;
    EXPECT_TRUE(!closes || GetTickCount() - FilmStoppedMs > 30);
}

// The name of a command as the log has it, and the flags that it must have.
static std::string Name(UINT message, DWORD_PTR flags, DWORD_PTR parameters, bool drive,
                        DWORD_PTR& expected) {
    static const std::map<UINT, std::pair<const char*, DWORD_PTR>> kPlain = {
        {MCI_SEEK, {"seek start", MCI_SEEK_TO_START | MCI_WAIT}},
        {MCI_STOP, {"stop", MCI_WAIT}},
        {MCI_WHERE, {"where", MCI_DGV_WHERE_SOURCE | MCI_WAIT}},
        {MCI_PAUSE, {"pause", 0}},
        {MCI_GETDEVCAPS, {"can eject", MCI_GETDEVCAPS_ITEM | MCI_WAIT}}};
    expected = MCI_WAIT;
    switch (message) {
        case MCI_OPEN:
            expected |= drive ? MCI_OPEN_TYPE : MCI_OPEN_ELEMENT;
            if (drive) return "open";
            if (IsFilm(flags, parameters)) expected |= MCI_DGV_OPEN_PARENT | MCI_DGV_OPEN_WS;
            return std::string("open ") +
                   reinterpret_cast<MCI_OPEN_PARMSA*>(parameters)->lpstrElementName;
        case MCI_CLOSE:
            if (drive) expected = 0;
            return "close";
        case MCI_PLAY:
            expected = flags & (drive ? MCI_FROM : MCI_FROM | MCI_TO);
            return PlayText(*reinterpret_cast<MCI_PLAY_PARMS*>(parameters), flags, drive);
        case MCI_SET:
            expected = flags & MCI_SET_TIME_FORMAT ? MCI_SET_TIME_FORMAT | MCI_WAIT : flags;
            if (flags == MCI_SET_DOOR_OPEN) return "door open";
            if (flags == MCI_SET_DOOR_CLOSED) return "door closed";
            if (flags == (MCI_SET_AUDIO | MCI_SET_ON | MCI_WAIT)) return "sound on";
            if (flags == (MCI_SET_AUDIO | MCI_SET_OFF | MCI_WAIT)) return "sound off";
            return "format " +
                   std::to_string(reinterpret_cast<MCI_SET_PARMS*>(parameters)->dwTimeFormat);
        case MCI_STATUS:
            expected |= MCI_STATUS_ITEM | (flags & MCI_TRACK);
            return StatusItem(*reinterpret_cast<MCI_STATUS_PARMS*>(parameters), flags);
        default:
            const auto plain = kPlain.find(message);
            if (plain == kPlain.end()) return "message " + std::to_string(message);
            expected = plain->second.second;
            return plain->second.first;
    }
}

static std::string Describe(UINT message, DWORD_PTR flags, DWORD_PTR parameters, bool drive) {
    // The platform's drive refuses commands without parameters, but for this one.
    if (parameters == 0 && !(drive && message == MCI_CLOSE)) return "command without parameters";
    DWORD_PTR expected = 0;
    const std::string name = Name(message, flags, parameters, drive, expected);
    return flags == expected ? name : name + " with flags " + std::to_string(flags);
}

static MCIERROR AnswerFile(UINT message, DWORD_PTR flags, DWORD_PTR parameters) {
    if (message == MCI_STATUS) {
        auto* status = reinterpret_cast<MCI_STATUS_PARMS*>(parameters);
        status->dwReturn = TheMci.status[status->dwItem];
        if (status->dwItem == MCI_STATUS_LENGTH && TimeFormat == MCI_FORMAT_FRAMES)
            status->dwReturn = TheMci.frames;
    } else if (message == MCI_SET && (flags & MCI_SET_TIME_FORMAT)) {
        TimeFormat = reinterpret_cast<MCI_SET_PARMS*>(parameters)->dwTimeFormat;
    } else if (message == MCI_WHERE) {
        reinterpret_cast<MCI_DGV_RECT_PARMS*>(parameters)->rc = TheMci.picture;
    }
    return 0;
}

static MCIERROR WINAPI FakeSend(MCIDEVICEID device, UINT message, DWORD_PTR flags,
                                DWORD_PTR parameters) {
    const bool opens = message == MCI_OPEN;
    const bool drive = opens ? (flags & MCI_OPEN_TYPE) != 0 : device == kDrive;
    bool& open = drive ? DriveOpen : FileDeviceOpen;
    TheMci.log.push_back(Describe(message, flags, parameters, drive));
    if (!drive) CheckFilm(message, flags, parameters);
    EXPECT_TRUE(opens || (open && device == (drive ? kDrive : kFileDevice))) << TheMci.log.back();
    if (TheMci.callsToFailure >= 0 && TheMci.callsToFailure-- == 0) return TheMci.failure;
    if (drive && !TheMci.drive) return MCIERR_CANNOT_LOAD_DRIVER;
    const MCIERROR error =
        drive ? TheMci.drive(message, flags, parameters) : AnswerFile(message, flags, parameters);
    if (error != 0) return error;
    if (opens) {
        reinterpret_cast<MCI_OPEN_PARMSA*>(parameters)->wDeviceID = drive ? kDrive : kFileDevice;
    }
    if (opens || message == MCI_CLOSE) open = opens;
    return 0;
}

void FailCall(int n, MCIERROR failure) {
    TheMci.callsToFailure = n;
    TheMci.failure = failure;
}

Log TakeLog() {
    return std::exchange(TheMci.log, {});
}

static BOOL WINAPI FakeErrorText(MCIERROR code, LPSTR text, UINT size) {
    if (code == kErrorWithoutText) return FALSE;
    snprintf(text, size, "error %lu", code);
    return TRUE;
}

static void TakeBox(const char* kind) {
    TheBoxes.shown.push_back(std::string(kind) + MessageText);
    const std::function<void()> inside = std::move(TheBoxes.whileOpen);
    TheBoxes.whileOpen = nullptr;
    if (!inside) return;
    // What a modal box does to its owner.
    EnableWindow(MainWindow, FALSE);
    inside();
    EnableWindow(MainWindow, TRUE);
}

static void FakeMessage(HWND) {
    TakeBox("");
}

static void FakeQuestion(HWND) {
    TakeBox("? ");
    QuestionAnswer = TheBoxes.answerOk ? 0 : 1;
}

void UseStandIns() {
    TheMci = {};
    TheBoxes = {};
    Mci = {FakeSend, FakeErrorText};
    Boxes = {FakeMessage, FakeQuestion};
}

std::string Make(const std::string& path) {
    if (path.back() != '\\')
        std::ofstream(path).flush();
    else
        CreateDirectoryA(path.c_str(), nullptr);
    return path;
}

std::string BytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string FreshDirectory() {
    static int count = 0;
    char temporary[MAX_PATH] = {};
    GetTempPathA(sizeof temporary, temporary);
    // Process ids come again, and with them what another test program has left behind.
    std::string path;
    do {
        path = temporary + ("tarnwell" + std::to_string(count++)) + "\\";
    } while (!CreateDirectoryA(path.c_str(), nullptr) && GetLastError() == ERROR_ALREADY_EXISTS);
    return path;
}

void OpenTestWindow(int mode, const std::vector<std::string>& files) {
    CloseTestWindow();
    ResetProgramState(GetModuleHandleA(nullptr));
    ResetDatabaseState();
    AppDirectory = FreshDirectory();
    SettingsPath = InAppDirectory("TARNWELL.INI");
    for (const std::string& file : files)
        Make(AppDirectory + file);
    WaveFilesPath = MidiFilesPath = VideoFilesPath = AppDirectory;
    Settings.soundControls = false;
    PlayMode = mode;
    // As if a media file had been named: the settings stay as they are above.
    StartFileGiven = true;
    CreateBackgroundBrush();
    static const bool registered = RegisterMainWindowClass();
    if (registered) CreateMainWindow();
    TakeLog();
}

void CloseTestWindow() {
    FailCall(-1);
    CloseCdPlayer(MainWindow);
    StopPlayerTimers(MainWindow);
    if (MainWindow != nullptr) DestroyWindow(MainWindow);
    MainWindow = nullptr;
    FreeSkin();
}

void Command(int id, int notification) {
    SendMessageA(MainWindow, WM_COMMAND, static_cast<WPARAM>(MAKELONG(id, notification)), 0);
}

std::string Text(int id) {
    return ControlText(MainWindow, id);
}

bool IsShown(int id) {
    return (GetWindowLongA(GetDlgItem(MainWindow, id), GWL_STYLE) & WS_VISIBLE) != 0;
}

void ExpectShown(std::initializer_list<std::pair<int, const char*>> texts) {
    for (const auto& [id, text] : texts)
        EXPECT_EQ(Text(id), text) << "control " << id;
}

void SelectFiles(int first, int last) {
    HWND list = GetDlgItem(MainWindow, IDC_FILE_LIST);
    SendMessageA(list, LB_SETSEL, FALSE, -1);
    for (int i = first; i <= last; ++i)
        SendMessageA(list, LB_SETSEL, TRUE, i);
}

void PlayFiles(int first, int last) {
    SelectFiles(first, last);
    Command(IDC_PLAY);
}

void FileEnds() {
    TheMci.status[MCI_STATUS_MODE] = MCI_MODE_STOP;
}

void FilePlays() {
    TheMci.status[MCI_STATUS_MODE] = MCI_MODE_PLAY;
}

void Scroll(int code, int thumb) {
    SendMessageA(MainWindow, WM_HSCROLL, static_cast<WPARAM>(MAKELONG(code, thumb)),
                 reinterpret_cast<LPARAM>(GetDlgItem(MainWindow, IDC_SCROLL)));
}

void HoldKey(int key, const std::function<void()>& act) {
    BYTE keys[256] = {};
    keys[key] = 0x80;
    SetKeyboardState(keys);
    act();
    keys[key] = 0;
    SetKeyboardState(keys);
}

void PumpMessages() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (MainWindow != nullptr && IsDialogMessageA(MainWindow, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}
