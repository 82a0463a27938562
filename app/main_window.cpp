// The main window: its creation and the dispatch of its messages.
#include "app/main_window.h"

#include <windows.h>

#include "app/commands.h"
#include "app/directory_field.h"
#include "app/drop_target.h"
#include "app/instance.h"
#include "app/layout.h"
#include "app/main_buttons.h"
#include "app/modes.h"
#include "app/shell_library.h"
#include "app/shutdown.h"
#include "base/app_directory.h"
#include "base/program_state.h"
#include "base/settings.h"
#include "playback/cd_commands.h"
#include "playback/cd_player.h"
#include "playback/cd_player_state.h"
#include "playback/file_list.h"
#include "playback/file_player.h"
#include "playback/play_progress.h"
#include "playback/player_timers.h"
#include "playback/video_player.h"
#include "resources/ids.h"
#include "ui/animations.h"
#include "ui/dialog_helpers.h"
#include "ui/entry_colors.h"
#include "ui/skin.h"
#include "ui/skin_buttons.h"

// As the window's template names it.
constexpr char kMainWindowClass[] = "Tarnwell";

static void ShowFirstTexts(HWND window) {
    SetDlgItemTextA(window, IDC_STATUS, "Ready");
    SetDlgItemTextA(window, IDC_SELECTED_COUNT, "0");
    SetDlgItemTextA(window, IDC_FILES_LEFT, "0");
}

// The request of the command line is posted, so that its boxes open over a window that can be seen.
static void PostStartRequest(HWND window) {
    if (PlayOnStart) {
        PostMessageA(window, WM_COMMAND, IDC_CD_PLAY,
                     static_cast<LPARAM>(MAKELONG(StartTrack, kCommandLineMarker)));
    } else if (StartFileGiven) {
        if (SelectStartFile(window, StartFileName)) PostMessageA(window, WM_COMMAND, IDC_PLAY, 0);
    }
}

static BOOL OnInitDialog(HWND window) {
    MainWindow = window;
    ResetFilePlayer();
    ResetCdPlayer();
    LoadSkin(window);
    CenterOnScreen(window);
    AcceptDrops(window);
    if (!StartFileGiven) ReadSettings();
    if (PlayOnStart) SetPlayMode(IDC_MODE_CDPLAYER);
    PrepareLayout(window);
    PlaceAnimations(window);
    ShowFirstTexts(window);
    OpenCdPlayer(window);
    EnterStartMode(window);
    SetFocus(GetDlgItem(window, InCdMode() ? IDC_CD_PLAY : IDC_FILE_LIST));
    PostStartRequest(window);
    return FALSE;
}

static void OnPaint(HWND window) {
    PAINTSTRUCT paint;
    HDC dc = BeginPaint(window, &paint);
    PaintFrameCorners(window, dc);
    EndPaint(window, &paint);
    DrawAnimations(window);
}

static bool OnDrawItem(const DRAWITEMSTRUCT& item) {
    const SkinFace* face = CurrentFace(static_cast<int>(item.CtlID));
    if (face == nullptr) return false;
    DrawSkinButton(item, *face);
    return true;
}

// A box opened by a tick lets further ticks through.
static bool InTimer;

static void OnTimer(HWND window, UINT_PTR id) {
    if (id == ID_DIRECTORY_TIMER) {
        OnDirectoryTimer();
        return;
    }
    if (InTimer) return;
    InTimer = true;
    TickResult result = TickResult::kGoOn;
    if (id == ID_ANIMATION_TIMER) {
        StepAnimation(window, CdPlayer.state == DiscState::kPlaying);
    } else if (IsCdTimerRunning(window)) {
        CdStatusTick(window);
    } else if (IsPositionTimerRunning(window)) {
        result = PositionTick(window);
    }
    InTimer = false;
    if (result == TickResult::kEndProgram) EndProgram();
}

static void OnScroll(HWND window, WPARAM wParam) {
    const int code = LOWORD(wParam);
    const int thumb = HIWORD(wParam);
    if (InCdMode()) {
        OnCdScroll(window, code, thumb);
    } else {
        OnFileScroll(window, code, thumb);
    }
}

static void OnSystemColorChange(HWND window) {
    CreateBackgroundBrush();
    ReloadSkin(window);
    RedrawWindow(window, nullptr, nullptr, RDW_ERASE | RDW_INVALIDATE | RDW_ALLCHILDREN);
}

// F1, also from a dialog, which hands it on to its owner. Without the manual nothing happens.
static void OnHelp(HWND window) {
    const std::string manual = InAppDirectory("MANUAL.HTM");
    if (GetFileAttributesA(manual.c_str()) == INVALID_FILE_ATTRIBUTES) return;
    OpenDocument(window, manual);
}

// While a box or a dialog is open, what would reach the main window behind it is dropped.
static bool IsBlocked(HWND window) {
    return !IsWindowEnabled(window) || ShuttingDown;
}

static LRESULT CALLBACK MainWindowProcedure(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
            OnCommand(window, wParam, lParam, IsBlocked(window));
            return 0;
        case WM_APPCOMMAND:
            if (IsBlocked(window)) return 0;
            if (OnMediaKey(window, GET_APPCOMMAND_LPARAM(lParam))) return TRUE;
            return DefDlgProcA(window, message, wParam, lParam);
        case WM_DROPFILES:
            OnDropFiles(window, wParam, IsBlocked(window));
            return 0;
        case WM_HSCROLL:
            if (!IsBlocked(window)) OnScroll(window, wParam);
            return 0;
        case WM_CLOSE:
            if (!IsBlocked(window)) ShutDown();
            return 0;
        case WM_ENDSESSION:
            if (wParam && !ShuttingDown) WriteSettings();
            return 0;
        case WM_TIMER:
            OnTimer(window, wParam);
            return 0;
        case WM_PAINT:
            OnPaint(window);
            return 0;
        case WM_DRAWITEM:
            return OnDrawItem(*reinterpret_cast<DRAWITEMSTRUCT*>(lParam));
        case WM_CTLCOLORSTATIC:
            if (HBRUSH black = PictureGround(reinterpret_cast<HWND>(lParam)))
                return reinterpret_cast<LRESULT>(black);
            [[fallthrough]];
        case WM_CTLCOLORDLG:
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORLISTBOX:
            // The window and its labels stand on the colour of its entry fields.
            return reinterpret_cast<LRESULT>(ColorEntryField(reinterpret_cast<HDC>(wParam)));
        case WM_SYSCOMMAND:
            if (HoldsOffSleep(wParam)) return 0;
            return DefDlgProcA(window, message, wParam, lParam);
        case WM_ERASEBKGND:
            LeaveOutPicture(GetDlgItem(window, IDC_VIDEO_AREA), reinterpret_cast<HDC>(wParam));
            return DefDlgProcA(window, message, wParam, lParam);
        case WM_QUERYNEWPALETTE:
            RealizeVideoPalette(GetDlgItem(window, IDC_VIDEO_AREA));
            return 0;
        case WM_SYSCOLORCHANGE:
            OnSystemColorChange(window);
            return 0;
        case WM_HELP:
            OnHelp(window);
            return TRUE;
        default:
            return DefDlgProcA(window, message, wParam, lParam);
    }
}

// The window procedure above does the work; a dialog needs one of these to be initialised at all.
static INT_PTR CALLBACK InitProcedure(HWND window, UINT message, WPARAM, LPARAM) {
    return message == WM_INITDIALOG ? OnInitDialog(window) : FALSE;
}

bool RegisterMainWindowClass() {
    WNDCLASSA windowClass = {};
    windowClass.style = CS_HREDRAW | CS_VREDRAW;
    windowClass.lpfnWndProc = MainWindowProcedure;
    windowClass.cbWndExtra = DLGWINDOWEXTRA;
    windowClass.hInstance = ProgramInstance;
    windowClass.hIcon = LoadIconA(ProgramInstance, MAKEINTRESOURCEA(IDI_TARNWELL));
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    windowClass.hbrBackground = BackgroundBrush;
    windowClass.lpszClassName = kMainWindowClass;
    return RegisterClassA(&windowClass) != 0;
}

HWND CreateMainWindow() {
    InTimer = false;
    ResetCommands();
    ResetDirectoryField();
    HWND window =
        CreateDialogParamA(ProgramInstance, MAKEINTRESOURCEA(IDD_MAIN), nullptr, InitProcedure, 0);
    if (window == nullptr) return nullptr;
    HMENU menu = GetSystemMenu(window, FALSE);
    EnableMenuItem(menu, SC_MAXIMIZE, MF_BYCOMMAND | MF_GRAYED | MF_DISABLED);
    EnableMenuItem(menu, SC_SIZE, MF_BYCOMMAND | MF_GRAYED | MF_DISABLED);
    return window;
}
