// Which controls of the main window belong to which kind of mode, and where they stand.
#include "app/layout.h"

#include "app/main_buttons.h"
#include "app/scale.h"
#include "resources/ids.h"
#include "ui/dialog_helpers.h"
#include "ui/handles.h"
#include "ui/skin_buttons.h"

constexpr int kFileControls[] = {
    IDC_PLAY,         IDC_STOP,        IDC_PAUSE,          IDC_INFO,           IDC_COPY,
    IDC_RENAME,       IDC_MOVE,        IDC_EDITOR,         IDC_DELETE,         IDC_BROWSE,
    IDC_PLAY_LABEL,   IDC_STOP_LABEL,  IDC_PAUSE_LABEL,    IDC_INFO_LABEL,     IDC_COPY_LABEL,
    IDC_RENAME_LABEL, IDC_MOVE_LABEL,  IDC_EDITOR_LABEL,   IDC_DELETE_LABEL,   IDC_BROWSE_LABEL,
    IDC_FILE_LIST,    IDC_LIST_COUNT,  IDC_FILE_NAME,      IDC_SELECTED_LABEL, IDC_SELECTED_COUNT,
    IDC_LEFT_LABEL,   IDC_FILES_LEFT,  IDC_STATUS,         IDC_POSITION_UNIT,  IDC_POSITION,
    IDC_LENGTH,       IDC_VIDEO_FRAME, IDC_LOCATION_GROUP, IDC_DIRECTORY,
};

// Hidden when their kind of mode is left, shown by the mode itself.
constexpr int kFileModeOwnControls[] = {IDC_REPEAT, IDC_REPEAT_LABEL, IDC_SOUND, IDC_SOUND_LABEL,
                                        IDC_VIDEO_AREA};

// Upper left corners in pixels at 96 dots per inch.
struct Placement {
    int id;
    int x;
    int y;
};

constexpr int kTransportY = 272;
constexpr int kTransportLabelY = kTransportY + 52;
constexpr int kReadOutX = 345;
constexpr int kReadOutValueX = 460;
constexpr int kReadOutY = 58;
constexpr int kReadOutPitch = 19;

constexpr Placement ReadOut(int id, int column, int row) {
    return {id, column, kReadOutY + row * kReadOutPitch};
}

constexpr Placement kCdPlacements[] = {
    {IDC_DISC_TITLE, 8, 27},
    {IDC_TRACK_TITLE, 8, 41},
    {IDC_CD_ANIMATION, 8, 56},
    ReadOut(IDC_TRACK_NUMBER_LABEL, kReadOutX, 0),
    ReadOut(IDC_TRACK_NUMBER, kReadOutValueX, 0),
    ReadOut(IDC_TRACK_LENGTH_LABEL, kReadOutX, 1),
    ReadOut(IDC_TRACK_LENGTH, kReadOutValueX, 1),
    ReadOut(IDC_TIME_LABEL, kReadOutX, 2),
    ReadOut(IDC_TIME, kReadOutValueX, 2),
    ReadOut(IDC_REMAINING_LABEL, kReadOutX, 3),
    ReadOut(IDC_REMAINING, kReadOutValueX, 3),
    ReadOut(IDC_TOTAL_TRACKS_LABEL, kReadOutX, 4),
    ReadOut(IDC_TOTAL_TRACKS, kReadOutValueX, 4),
    ReadOut(IDC_DISC_LENGTH_LABEL, kReadOutX, 5),
    ReadOut(IDC_DISC_LENGTH, kReadOutValueX, 5),
    ReadOut(IDC_TOTAL_PLAYING_LABEL, kReadOutX, 6),
    ReadOut(IDC_TOTAL_PLAYING, kReadOutValueX, 6),
    ReadOut(IDC_TOTAL_REMAINING_LABEL, kReadOutX, 7),
    ReadOut(IDC_TOTAL_REMAINING, kReadOutValueX, 7),
    {IDC_SCROLL_LEFT, 20, 221},
    {IDC_SCROLL_RIGHT, 496, 221},
    {IDC_CD_STATUS, 70, 240},
    {IDC_CD_PLAY, 8, kTransportY},
    {IDC_CD_PAUSE, 70, kTransportY},
    {IDC_CD_STOP, 132, kTransportY},
    {IDC_SKIP_BACK, 194, kTransportY},
    {IDC_SKIP_FORWARD, 256, kTransportY},
    {IDC_ENTRY, 400, kTransportY},
    {IDC_GARNISH, 462, kTransportY},
    {IDC_CD_PLAY_LABEL, 8, kTransportLabelY},
    {IDC_CD_PAUSE_LABEL, 70, kTransportLabelY},
    {IDC_CD_STOP_LABEL, 132, kTransportLabelY},
    {IDC_SKIP_BACK_LABEL, 194, kTransportLabelY},
    {IDC_SKIP_FORWARD_LABEL, 256, kTransportLabelY},
    {IDC_ENTRY_LABEL, 400, kTransportLabelY},
    {IDC_GARNISH_LABEL, 462, kTransportLabelY},
};

// Placed here, but shown by the player as the disc and the drive ask for it.
constexpr Placement kCdOwnPlacements[] = {
    {IDC_EJECT, 318, kTransportY}, {IDC_EJECT_LABEL, 318, kTransportLabelY},
    {IDC_NEXT_PAGE, 140, 177},     {IDC_NEXT_PAGE_LABEL, 128, 201},
    {IDC_PREVIOUS_PAGE, 238, 177}, {IDC_PREVIOUS_PAGE_LABEL, 226, 201},
};

// Track buttons: three rows of five, each with its number below.
constexpr int kTracksPerRow = 5;
constexpr int kTrackX = 112;
constexpr int kTrackY = 58;
constexpr int kTrackPitchX = 44;
constexpr int kTrackPitchY = 39;
constexpr int kTrackLabelDrop = 24;

constexpr Placement kScrollInFileMode = {IDC_SCROLL, 129, 51};
constexpr Placement kScrollInCdMode = {IDC_SCROLL, 70, 220};

// How far each picture button stands inside the place its template gave it.
static POINT ButtonInsets[kMainButtonCount];

void PrepareLayout(HWND window) {
    for (int i = 0; i < kMainButtonCount; ++i) {
        HWND button = GetDlgItem(window, kMainButtons[i].controlId);
        RECT before;
        RECT after;
        GetWindowRect(button, &before);
        FitSkinButton(button, kMainButtons[i].face);
        GetWindowRect(button, &after);
        ButtonInsets[i] = {after.left - before.left, after.top - before.top};
    }
}

static POINT InsetOf(int id) {
    for (int i = 0; i < kMainButtonCount; ++i) {
        if (kMainButtons[i].controlId == id) return ButtonInsets[i];
    }
    return {0, 0};
}

static void Place(HWND window, const ScaleFactors& factors, const Placement& placement) {
    const POINT inset = InsetOf(placement.id);
    SetWindowPos(GetDlgItem(window, placement.id), nullptr,
                 ScalePosition(placement.x, factors.horizontal) + inset.x,
                 ScalePosition(placement.y, factors.vertical) + inset.y, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

static ScaleFactors ScreenScale(HWND window) {
    const UniqueWindowDc dc = GetUniqueDc(window);
    return ScaleForResolution(GetDeviceCaps(dc.get(), LOGPIXELSX),
                              GetDeviceCaps(dc.get(), LOGPIXELSY));
}

void PlaceScrollBar(HWND window, bool cdMode) {
    Place(window, ScreenScale(window), cdMode ? kScrollInCdMode : kScrollInFileMode);
}

void PlaceCdControls(HWND window) {
    const ScaleFactors factors = ScreenScale(window);
    for (const Placement& placement : kCdPlacements)
        Place(window, factors, placement);
    for (const Placement& placement : kCdOwnPlacements)
        Place(window, factors, placement);
    for (int i = 0; i <= IDC_TRACK_LAST - IDC_TRACK_FIRST; ++i) {
        const int x = kTrackX + i % kTracksPerRow * kTrackPitchX;
        const int y = kTrackY + i / kTracksPerRow * kTrackPitchY;
        Place(window, factors, {IDC_TRACK_FIRST + i, x, y});
        Place(window, factors, {IDC_TRACK_LABEL_FIRST + i, x, y + kTrackLabelDrop});
    }
}

void ShowFileControls(HWND window, bool show) {
    for (int id : kFileControls)
        ShowControl(window, id, show);
    if (show) return;
    for (int id : kFileModeOwnControls)
        ShowControl(window, id, false);
}

void ShowCdControls(HWND window, bool show) {
    for (const Placement& placement : kCdPlacements) {
        if (placement.id != IDC_CD_ANIMATION) ShowControl(window, placement.id, show);
    }
    if (show) return;
    for (const Placement& placement : kCdOwnPlacements)
        ShowControl(window, placement.id, false);
    for (int i = 0; i <= IDC_TRACK_LAST - IDC_TRACK_FIRST; ++i) {
        ShowControl(window, IDC_TRACK_FIRST + i, false);
        ShowControl(window, IDC_TRACK_LABEL_FIRST + i, false);
    }
}
