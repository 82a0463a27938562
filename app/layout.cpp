// Which controls of the main window belong to which kind of mode, and where they stand.
#include "app/layout.h"

#include <vector>

#include "app/main_buttons.h"
#include "base/handles.h"
#include "base/scale.h"
#include "resources/ids.h"
#include "ui/dialog_helpers.h"
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

// The disc's buttons stand above those that all modes share, in their columns.
constexpr int kTransportY = 272;
constexpr int kTransportLabelY = kTransportY + 52;
constexpr int kColumns[] = {9, 68, 126, 185, 243, 327, 386, 444};

constexpr Placement TransportButton(int id, int column) {
    return {id, kColumns[column], kTransportY};
}

constexpr Placement TransportLabel(int id, int column) {
    return {id, kColumns[column], kTransportLabelY};
}

// The track's read-outs stand beside the track buttons, a row for each of theirs and one for the
// page buttons; the disc's stand in the lower left corner.
constexpr int kTrackReadOutX = 352;
constexpr int kTrackReadOutValueX = 464;
constexpr int kDiscReadOutX = kColumns[0];
constexpr int kDiscReadOutValueX = 172;
constexpr int kDiscReadOutY = 346;
constexpr int kDiscReadOutPitch = 18;

// Track buttons: three rows of five, each with its number below.
constexpr int kTracksPerRow = 5;
constexpr int kTrackX = 114;
constexpr int kTrackY = 58;
constexpr int kTrackPitchX = 47;
constexpr int kTrackPitchY = 39;
constexpr int kTrackLabelDrop = 24;
constexpr int kTrackTextDrop = 5;  // from a button's top to the text beside it

constexpr Placement TrackReadOut(int id, int x, int row) {
    return {id, x, kTrackY + kTrackTextDrop + row * kTrackPitchY};
}

constexpr Placement DiscReadOut(int id, int x, int row) {
    return {id, x, kDiscReadOutY + row * kDiscReadOutPitch};
}

constexpr Placement kCdPlacements[] = {
    {IDC_DISC_TITLE, 8, 27},
    {IDC_TRACK_TITLE, 8, 41},
    {IDC_CD_ANIMATION, 8, 56},
    TrackReadOut(IDC_TRACK_NUMBER_LABEL, kTrackReadOutX, 0),
    TrackReadOut(IDC_TRACK_NUMBER, kTrackReadOutValueX, 0),
    TrackReadOut(IDC_TRACK_LENGTH_LABEL, kTrackReadOutX, 1),
    TrackReadOut(IDC_TRACK_LENGTH, kTrackReadOutValueX, 1),
    TrackReadOut(IDC_TIME_LABEL, kTrackReadOutX, 2),
    TrackReadOut(IDC_TIME, kTrackReadOutValueX, 2),
    TrackReadOut(IDC_REMAINING_LABEL, kTrackReadOutX, 3),
    TrackReadOut(IDC_REMAINING, kTrackReadOutValueX, 3),
    DiscReadOut(IDC_TOTAL_TRACKS_LABEL, kDiscReadOutX, 0),
    DiscReadOut(IDC_TOTAL_TRACKS, kDiscReadOutValueX, 0),
    DiscReadOut(IDC_DISC_LENGTH_LABEL, kDiscReadOutX, 1),
    DiscReadOut(IDC_DISC_LENGTH, kDiscReadOutValueX, 1),
    DiscReadOut(IDC_TOTAL_PLAYING_LABEL, kDiscReadOutX, 2),
    DiscReadOut(IDC_TOTAL_PLAYING, kDiscReadOutValueX, 2),
    DiscReadOut(IDC_TOTAL_REMAINING_LABEL, kDiscReadOutX, 3),
    DiscReadOut(IDC_TOTAL_REMAINING, kDiscReadOutValueX, 3),
    {IDC_SCROLL_LEFT, 20, 221},
    {IDC_SCROLL_RIGHT, 496, 221},
    {IDC_CD_STATUS, 70, 240},
    TransportButton(IDC_CD_PLAY, 0),
    TransportButton(IDC_CD_PAUSE, 1),
    TransportButton(IDC_CD_STOP, 2),
    TransportButton(IDC_SKIP_BACK, 3),
    TransportButton(IDC_SKIP_FORWARD, 4),
    TransportButton(IDC_ENTRY, 5),
    TransportButton(IDC_GARNISH, 6),
    TransportLabel(IDC_CD_PLAY_LABEL, 0),
    TransportLabel(IDC_CD_PAUSE_LABEL, 1),
    TransportLabel(IDC_CD_STOP_LABEL, 2),
    TransportLabel(IDC_SKIP_BACK_LABEL, 3),
    TransportLabel(IDC_SKIP_FORWARD_LABEL, 4),
    TransportLabel(IDC_ENTRY_LABEL, 5),
    TransportLabel(IDC_GARNISH_LABEL, 6),
};

// Placed here, but shown by the player as the disc and the drive ask for it.
constexpr Placement kCdOwnPlacements[] = {
    TransportButton(IDC_EJECT, 7), TransportLabel(IDC_EJECT_LABEL, 7),
    {IDC_NEXT_PAGE, 161, 177},     {IDC_NEXT_PAGE_LABEL, 149, 201},
    {IDC_PREVIOUS_PAGE, 255, 177}, {IDC_PREVIOUS_PAGE_LABEL, 243, 201},
};

constexpr Placement kScrollInFileMode = {IDC_SCROLL, 129, 51};
constexpr Placement kScrollInCdMode = {IDC_SCROLL, 70, 220};

// How far a picture button stands inside the place its template gave it.
struct ButtonInset {
    int id;
    POINT inset;
};
static std::vector<ButtonInset> ButtonInsets;

static void FitButton(HWND window, int id, const SkinFace& face) {
    HWND button = GetDlgItem(window, id);
    RECT before = {};
    RECT after = {};
    GetWindowRect(button, &before);
    FitSkinButton(button, face);
    GetWindowRect(button, &after);
    ButtonInsets.push_back({id, {after.left - before.left, after.top - before.top}});
}

void PrepareLayout(HWND window) {
    ButtonInsets.clear();
    for (const DialogButton& button : MainButtons())
        FitButton(window, button.controlId, button.face);
    for (int id = IDC_TRACK_FIRST; id <= IDC_TRACK_LAST; ++id)
        FitButton(window, id, kFaceTrack);
}

static POINT InsetOf(int id) {
    for (const ButtonInset& button : ButtonInsets) {
        if (button.id == id) return button.inset;
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
    RECT units = {0, 0, 4, 8};
    MapDialogRect(window, &units);
    return ScaleForResolution(GetDeviceCaps(dc.get(), LOGPIXELSX),
                              GetDeviceCaps(dc.get(), LOGPIXELSY), units.right, units.bottom);
}

void PlaceScrollBar(HWND window, bool cdMode) {
    Place(window, ScreenScale(window), cdMode ? kScrollInCdMode : kScrollInFileMode);
}

static void PlaceCdControls(HWND window) {
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
    if (show) PlaceCdControls(window);
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
