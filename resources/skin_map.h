// Where every button face, icon and animation frame lies in the skin bitmaps. The drawing program
// and the dialogs both read this table, so that no rectangle is written twice.
#pragma once

#include "resources/ids.h"

// The bitmaps that are loaded side by side. Frame strips and sprites have one size only.
enum SkinSlot {
    kSlotMainButtons,
    kSlotDialogButtons,
    kSlotIconsOnEntry,
    kSlotIconsOnFace,
    kSlotIconsOnHighlight,
    kSlotFrameCorners,
    kSlotSmallButtons,
    kSlotTabs,
    kSlotMenuButtons,
    kSlotCdStrip,
    kSlotMidiStrip,
    kSlotWaveStrip,
    kSlotCdSprite,
    kSlotWaveSprite,
    kSlotMidiSprite,
    kSlotVideoSprite,
    kSlotAboutStrip,
    kSlotCopyStrip,
    kSkinSlotCount
};

// Pixels.
struct SkinSize {
    int width;
    int height;
};

// A bitmap of button faces is a grid of equal cells, two columns to a face: up, then pressed.
struct SkinGrid {
    SkinSlot slot;
    int smallId;
    int largeId;
    SkinSize smallCell;
    SkinSize largeCell;
    int columns;  // faces side by side, so twice as many cells
    int rows;
};

inline constexpr SkinGrid kMainButtonGrid = {
    kSlotMainButtons, IDB_MAIN_BUTTONS, IDB_MAIN_BUTTONS_LARGE, {51, 47}, {68, 58}, 3, 7};
inline constexpr SkinGrid kDialogButtonGrid = {
    kSlotDialogButtons, IDB_DIALOG_BUTTONS, IDB_DIALOG_BUTTONS_LARGE, {51, 47}, {68, 58}, 1, 8};
inline constexpr SkinGrid kSmallButtonGrid = {
    kSlotSmallButtons, IDB_SMALL_BUTTONS, IDB_SMALL_BUTTONS_LARGE, {34, 21}, {46, 26}, 4, 3};
inline constexpr SkinGrid kTabGrid = {kSlotTabs, IDB_TABS, IDB_TABS_LARGE, {112, 21}, {150, 26},
                                      2,         4};
inline constexpr SkinGrid kMenuButtonGrid = {
    kSlotMenuButtons, IDB_MENU_BUTTONS, IDB_MENU_BUTTONS_LARGE, {88, 78}, {118, 96}, 1, 4};

// One button face: its grid and its place there, counted in faces.
struct SkinFace {
    const SkinGrid* grid;
    int column;
    int row;
};

// The main window, 35 x 30 dialog units.
constexpr SkinFace kFacePlay = {&kMainButtonGrid, 0, 0};
constexpr SkinFace kFaceStop = {&kMainButtonGrid, 1, 0};
constexpr SkinFace kFacePause = {&kMainButtonGrid, 2, 0};
constexpr SkinFace kFaceSkipBack = {&kMainButtonGrid, 0, 1};
constexpr SkinFace kFaceSkipForward = {&kMainButtonGrid, 1, 1};
constexpr SkinFace kFaceEject = {&kMainButtonGrid, 2, 1};
constexpr SkinFace kFaceInfo = {&kMainButtonGrid, 0, 2};
constexpr SkinFace kFaceCopy = {&kMainButtonGrid, 1, 2};
constexpr SkinFace kFaceRename = {&kMainButtonGrid, 2, 2};
constexpr SkinFace kFaceMove = {&kMainButtonGrid, 0, 3};
constexpr SkinFace kFaceEditor = {&kMainButtonGrid, 1, 3};
constexpr SkinFace kFaceDelete = {&kMainButtonGrid, 2, 3};
constexpr SkinFace kFaceSetup = {&kMainButtonGrid, 0, 4};
constexpr SkinFace kFaceAbout = {&kMainButtonGrid, 1, 4};
constexpr SkinFace kFaceVolume = {&kMainButtonGrid, 2, 4};
constexpr SkinFace kFaceExit = {&kMainButtonGrid, 0, 5};
constexpr SkinFace kFaceAddEntry = {&kMainButtonGrid, 1, 5};
constexpr SkinFace kFaceGarnish = {&kMainButtonGrid, 2, 5};
constexpr SkinFace kFaceSearch = {&kMainButtonGrid, 0, 6};
constexpr SkinFace kFaceSelect = {&kMainButtonGrid, 1, 6};
constexpr SkinFace kFaceNone = {&kMainButtonGrid, 2, 6};

// The dialogs, 35 x 30 dialog units. OK stands in the third row.
constexpr SkinFace kFaceStart = {&kDialogButtonGrid, 0, 0};
constexpr SkinFace kFaceSave = {&kDialogButtonGrid, 0, 1};
constexpr SkinFace kFaceOk = {&kDialogButtonGrid, 0, 2};
constexpr SkinFace kFaceCancel = {&kDialogButtonGrid, 0, 3};
constexpr SkinFace kFaceDeleteEntry = {&kDialogButtonGrid, 0, 4};
constexpr SkinFace kFaceOverwriteAll = {&kDialogButtonGrid, 0, 5};
constexpr SkinFace kFaceChangeEditor = {&kDialogButtonGrid, 0, 6};
constexpr SkinFace kFaceChangeVolume = {&kDialogButtonGrid, 0, 7};

// Small buttons, 24 x 14 dialog units.
constexpr SkinFace kFaceBrowse = {&kSmallButtonGrid, 0, 0};
constexpr SkinFace kFaceSoundOn = {&kSmallButtonGrid, 1, 0};
constexpr SkinFace kFaceSoundOff = {&kSmallButtonGrid, 2, 0};
constexpr SkinFace kFaceRepeatOn = {&kSmallButtonGrid, 3, 0};
constexpr SkinFace kFaceRepeatOff = {&kSmallButtonGrid, 0, 1};
constexpr SkinFace kFacePageUp = {&kSmallButtonGrid, 1, 1};
constexpr SkinFace kFacePageDown = {&kSmallButtonGrid, 2, 1};
constexpr SkinFace kFaceArrowForward = {&kSmallButtonGrid, 3, 1};
constexpr SkinFace kFaceArrowBack = {&kSmallButtonGrid, 0, 2};
constexpr SkinFace kFaceTrack = {&kSmallButtonGrid, 1, 2};
constexpr SkinFace kFaceTrackPlaying = {&kSmallButtonGrid, 2, 2};

// Mode tabs, 76 x 14 dialog units; the mode's name is part of the picture.
constexpr SkinFace kFaceTabWave = {&kTabGrid, 0, 0};
constexpr SkinFace kFaceTabWaveSelected = {&kTabGrid, 1, 0};
constexpr SkinFace kFaceTabMidi = {&kTabGrid, 0, 1};
constexpr SkinFace kFaceTabMidiSelected = {&kTabGrid, 1, 1};
constexpr SkinFace kFaceTabVideo = {&kTabGrid, 0, 2};
constexpr SkinFace kFaceTabVideoSelected = {&kTabGrid, 1, 2};
constexpr SkinFace kFaceTabCdPlayer = {&kTabGrid, 0, 3};
constexpr SkinFace kFaceTabCdPlayerSelected = {&kTabGrid, 1, 3};

// The database menu, 60 x 49 dialog units.
constexpr SkinFace kFaceMenuEditor = {&kMenuButtonGrid, 0, 0};
constexpr SkinFace kFaceMenuSorter = {&kMenuButtonGrid, 0, 1};
constexpr SkinFace kFaceMenuExport = {&kMenuButtonGrid, 0, 2};
constexpr SkinFace kFaceMenuInformation = {&kMenuButtonGrid, 0, 3};

// A face's rectangle in its bitmap.
struct SkinRect {
    int x;
    int y;
    int width;
    int height;
};

constexpr SkinRect FaceRect(const SkinFace& face, bool pressed, bool large) {
    const SkinSize cell = large ? face.grid->largeCell : face.grid->smallCell;
    return {(face.column * 2 + (pressed ? 1 : 0)) * cell.width, face.row * cell.height, cell.width,
            cell.height};
}

// Icons for drives and folders, side by side: the five drive types in the system's order, then the
// folder of the path chain and the folder below it. Square, one strip each for small and large.
enum SkinIcon {
    kIconFloppy,
    kIconHardDisk,
    kIconNetwork,
    kIconCdRom,
    kIconRamDrive,
    kIconFolderOpen,
    kIconFolder,
    kSkinIconCount
};
constexpr int kSmallIconSize = 16;
constexpr int kLargeIconSize = 20;

// The four corner pieces, clockwise from the upper left.
constexpr int kCornerSize = 8;
constexpr int kCornerCount = 4;

// Frame strips: frame n starts at n times the width.
struct SkinStrip {
    SkinSlot slot;
    int id;
    SkinSize frame;
    int frames;
};
constexpr SkinStrip kCdStrip = {kSlotCdStrip, IDB_CD_STRIP, {89, 151}, 21};
constexpr SkinStrip kMidiStrip = {kSlotMidiStrip, IDB_MIDI_STRIP, {70, 85}, 6};
constexpr SkinStrip kWaveStrip = {kSlotWaveStrip, IDB_WAVE_STRIP, {150, 146}, 4};
constexpr SkinStrip kAboutStrip = {kSlotAboutStrip, IDB_ABOUT_STRIP, {96, 72}, 12};
constexpr SkinStrip kCopyStrip = {kSlotCopyStrip, IDB_COPY_STRIP, {120, 40}, 13};
// Sprites: the frame for moving down, then the frame for moving up.
constexpr SkinStrip kCdSprite = {kSlotCdSprite, IDB_CD_SPRITE, {32, 36}, 2};
constexpr SkinStrip kWaveSprite = {kSlotWaveSprite, IDB_WAVE_SPRITE, {32, 36}, 2};
constexpr SkinStrip kMidiSprite = {kSlotMidiSprite, IDB_MIDI_SPRITE, {32, 36}, 2};
constexpr SkinStrip kVideoSprite = {kSlotVideoSprite, IDB_VIDEO_SPRITE, {32, 36}, 2};
