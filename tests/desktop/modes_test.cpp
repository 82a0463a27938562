// The four modes as they look: which controls show, that none is cut or covers another, at the
// desktop's dots per inch; boxes, keyboard.
#include <algorithm>

#include "disc/disc_times.h"
#include "tests/desktop/desktop_test.h"
#include "tests/desktop/screen.h"

using ModesTest = DesktopTest;

// Group boxes and frames are made to stand around other controls; pictures carry no information.
enum class Kind { kButton, kText, kFrame, kOther };

static Kind KindOf(HWND control) {
    const LONG style = GetWindowLongA(control, GWL_STYLE);
    if (ClassOf(control) == "Button") {
        return (style & BS_TYPEMASK) == BS_GROUPBOX ? Kind::kFrame : Kind::kButton;
    }
    if (ClassOf(control) != "Static") return Kind::kOther;
    const LONG type = style & SS_TYPEMASK;
    const bool text = type <= SS_RIGHT || type == SS_SIMPLE || type == SS_LEFTNOWORDWRAP;
    return text ? Kind::kText : Kind::kFrame;
}

struct ShownControl {
    HWND window;
    Kind kind;
    RECT place;  // in the dialog's client rectangle
};

static std::vector<ShownControl> ShownControls(HWND dialog) {
    std::vector<ShownControl> controls;
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (!IsWindowVisible(child)) continue;
        RECT place = {};
        GetWindowRect(child, &place);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
        controls.push_back({child, KindOf(child), place});
    }
    return controls;
}

static std::string PlaceText(const RECT& place) {
    return std::to_string(place.left) + "," + std::to_string(place.top) + " to " +
           std::to_string(place.right) + "," + std::to_string(place.bottom);
}

static void ExpectComposed(HWND dialog) {
    RECT client = {};
    GetClientRect(dialog, &client);
    const std::vector<ShownControl> controls = ShownControls(dialog);
    HDC screen = GetDC(nullptr);
    const int height = -MulDiv(8, GetDeviceCaps(screen, LOGPIXELSY), 72);
    HFONT face = CreateFontA(height, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0,
                             "MS Sans Serif");
    HGDIOBJ oldFace = SelectObject(screen, face);
    for (const ShownControl& control : controls) {
        const RECT& place = control.place;
        const std::string text = Title(control.window);
        SCOPED_TRACE(std::to_string(GetDlgCtrlID(control.window)) + " " + text + " at " +
                     PlaceText(place));
        EXPECT_TRUE(place.left >= 0 && place.top >= 0 && place.right <= client.right &&
                    place.bottom <= client.bottom)
            << "beyond the window's edge";
        // The four pieces of the frame.
        RECT cross = client;
        InflateRect(&cross, -8, -8);
        EXPECT_FALSE((place.left < cross.left || place.right > cross.right) &&
                     (place.top < cross.top || place.bottom > cross.bottom))
            << "covers a corner piece";
        if (control.kind == Kind::kText) {
            RECT needed = {0, 0, place.right - place.left, 0};
            DrawTextA(screen, text.c_str(), -1, &needed, DT_CALCRECT | DT_WORDBREAK);
            EXPECT_LE(needed.right, place.right - place.left) << "cut";
            EXPECT_LE(needed.bottom, place.bottom - place.top) << "cut in height";
        }
        EXPECT_FALSE(control.kind == Kind::kButton && text.empty())
            << "a screen reader has no name for it";
        for (const ShownControl& other : controls) {
            RECT common = {};
            if (&other == &control) break;
            EXPECT_FALSE(control.kind != Kind::kFrame && other.kind != Kind::kFrame &&
                         IntersectRect(&common, &place, &other.place))
                << "covers control " << GetDlgCtrlID(other.window) << " at "
                << PlaceText(other.place);
        }
    }
    SelectObject(screen, oldFace);
    DeleteObject(face);
    ReleaseDC(nullptr, screen);
}

static void ExpectCentred(HWND window) {
    const POINT middle = CentreOf(window);
    EXPECT_NEAR(middle.x, GetSystemMetrics(SM_CXSCREEN) / 2, 1);
    EXPECT_NEAR(middle.y, GetSystemMetrics(SM_CYSCREEN) / 2, 1);
}

// One control of each group; that the groups are whole shows where they would cover each other.
constexpr unsigned kFileModes = 7, kVideoOnly = 4, kCdOnly = 8, kEveryMode = 15;
constexpr std::pair<int, unsigned> kSamples[] = {
    {IDC_PLAY, kFileModes},  {IDC_FILE_LIST, kFileModes}, {IDC_REPEAT, kFileModes},
    {IDC_SOUND, kVideoOnly}, {IDC_CD_PLAY, kCdOnly},      {IDC_TIME, kCdOnly},
    {IDC_EXIT, kEveryMode},  {IDC_SCROLL, kEveryMode}};

TEST_F(ModesTest, EachModeShowsItsControlsWholeAndApart) {
    InsertDisc(std::vector<int>(kTrackPageSize + 1, 20));
    for (const auto& [on, start] : {std::pair{"On", "wave"}, std::pair{"Off", "cdplayer"}}) {
        SwitchAnimations(on);
        ASSERT_NO_FATAL_FAILURE(StartIn(start));
        for (int mode : {IDC_MODE_CDPLAYER, IDC_MODE_VIDEO, IDC_MODE_MIDI, IDC_MODE_WAVE,
                         IDC_MODE_CDPLAYER, IDC_MODE_WAVE}) {
            SCOPED_TRACE("mode " + std::to_string(mode) + ", animations " + on);
            Command(player.window, mode);
            ASSERT_TRUE(Settle(player));
            for (const auto& [id, shownIn] : kSamples)
                EXPECT_EQ(IsShown(player.window, id), (shownIn >> (mode - IDC_MODE_WAVE) & 1) != 0)
                    << id;
            ExpectComposed(player.window);
            EXPECT_TRUE(mode != IDC_MODE_CDPLAYER ||
                        WaitForPicture(Control(player.window, IDC_TRACK_FIRST)));
        }
    }
}

TEST_F(ModesTest, PlacesAndSkinAreThoseOfTheResolution) {
    HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    const bool palette = GetDeviceCaps(screen, BITSPIXEL) <= 8;
    ReleaseDC(nullptr, screen);
    const struct {
        int dpi;
        POINT fileModes, cdPlayer;  // of the scroll bar
        SIZE client;
    } cases[] = {
        {96, {129, 51}, {70, 220}, {615, 429}},
        {120, {172, 62}, {93, 270}, {820, 528}},
        {144, {204, 75}, {110, 325}, {923, 660}},
    };
    const auto* const expected =
        std::find_if(std::begin(cases), std::end(cases), [&](auto& one) { return one.dpi == dpi; });
    ASSERT_NE(expected, std::end(cases)) << dpi;
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    RECT client = {};
    GetClientRect(player.window, &client);
    EXPECT_NEAR(client.right, expected->client.cx, 1);
    EXPECT_NEAR(client.bottom, expected->client.cy, 1);
    ExpectCentred(player.window);
    for (const auto& [mode, place] : {std::pair{IDC_MODE_MIDI, expected->fileModes},
                                      std::pair{IDC_MODE_CDPLAYER, expected->cdPlayer},
                                      std::pair{IDC_MODE_WAVE, expected->fileModes}}) {
        Command(player.window, mode);
        EXPECT_TRUE(WaitUntil([&] {
            POINT at = {};
            MapWindowPoints(Control(player.window, IDC_SCROLL), player.window, &at, 1);
            return at.x == place.x && at.y == place.y;
        })) << mode;
    }
    // A palette has near colours, not the same.
    if (palette) return;
    const bool large = dpi == 120;
    Command(player.window, IDC_REPEAT);
    for (const auto& [id, face] : {std::pair{IDC_STOP, kFaceStop},
                                   {IDC_REPEAT, kFaceRepeatOn},
                                   {IDC_MODE_WAVE, kFaceTabWaveSelected},
                                   {IDC_MODE_MIDI, kFaceTabMidi}}) {
        const Picture& skin = ResourcePicture(large ? face.grid->largeId : face.grid->smallId);
        const SkinRect part = FaceRect(face, false, large);
        EXPECT_TRUE(WaitUntil([&] {
            const Picture button = Photograph(Control(player.window, id));
            return button.width == part.width + 2 && button.height == part.height + 2 &&
                   ShowsPart(button, 1, 1, skin, part);
        })) << id;
    }
}

TEST_F(ModesTest, TabsAnswerTheMouseAndBoxesTheKeyboard) {
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    ClickMouse(CentreOf(Control(player.window, IDC_MODE_CDPLAYER)));
    EXPECT_TRUE(WaitUntil([&] { return IsShown(player.window, IDC_CD_PLAY); }));
    FocusOn(player.window, IDC_ABOUT);
    PressKeyIn(player.window, VK_RETURN);
    HWND about = Dialog("About Tarnwell 1.1");
    EXPECT_FALSE(IsWindowEnabled(player.window));
    PressKeyIn(about, 'E', VK_MENU);
    EXPECT_TRUE(WaitUntil([&] { return Text(WaitForPopup(player), IDC_CREDITS_TEXT) != ""; }));
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(WaitUntil([&] { return WaitForPopup(player) == about; }));
    PressKey(VK_RETURN);
    EXPECT_TRUE(WaitForNoPopup(player));
    ClickMouse(CentreOf(Control(player.window, IDC_EXIT)));
    EXPECT_EQ(ExitCode(player), 0);
    EXPECT_EQ(GetSetting(player, "TarnwellMode"), "cdplayer");
}

TEST_F(ModesTest, DialogsAreWholeAndApart) {
    AddMedia("a.wav", WaveFile(500));
    WriteFileBytes(player.directory + "a.wav", WaveFile(100));
    PutSetting(player, "WaveCopyToPath", player.directory.c_str());
    ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    const struct {
        int command, button;  // of the first dialog, which opens another; 0: none
        const char* title;
    } cases[] = {{IDC_COPY, 0, "Copy files"},
                 {IDC_COPY, IDC_COPY_OK, "File Already Exists"},
                 {IDC_RENAME, 0, "Rename Files"},
                 {IDC_DELETE, 0, "Delete Files"},
                 {IDC_EDITOR, 0, "Tarnwell Question!"},
                 {IDC_VOLUME, IDC_QUESTION_OK, "Select Volume Mixer Application"},
                 {IDC_BROWSE, 0, "Wave File Path Setup"},
                 {IDC_BROWSE, IDC_PATH_SEARCH, "Search for Wave files on drive C:"},
                 {IDC_INFO, 0, "Wave File Information"},
                 {IDC_SETUP, 0, "Tarnwell Setup"},
                 {IDC_SETUP, IDC_SETUP_EDITOR, "Select editor for *.WAV files"},
                 {IDC_SETUP, IDC_SETUP_VOLUME, "Select Volume Mixer Application"},
                 {IDC_ABOUT, 0, "About Tarnwell 1.1"},
                 {IDC_ABOUT, IDC_ABOUT_CREDITS, "Tarnwell: Thanks"}};
    for (const auto& [command, button, title] : cases) {
        SCOPED_TRACE(title);
        SelectAll(List(), true);
        Command(player.window, command);
        if (button != 0) Command(WaitForPopup(player), button);
        HWND dialog = Dialog(title);
        ASSERT_TRUE(Settle(player));
        ExpectComposed(dialog);
        ExpectCentred(dialog);
        EXPECT_TRUE(WaitUntil([&] {
            PostMessageA(WaitForPopup(player, 0), WM_CLOSE, 0, 0);
            return WaitForNoPopup(player, 100);
        }));
    }
}

TEST_F(ModesTest, TabKeyReachesEveryShownButton) {
    for (const char* mode : {"wave", "cdplayer"}) {
        SCOPED_TRACE(mode);
        ASSERT_NO_FATAL_FAILURE(StartIn(mode));
        SetForegroundWindow(player.window);
        std::vector<HWND> unreached;
        for (const ShownControl& control : ShownControls(player.window)) {
            if (control.kind == Kind::kButton && IsWindowEnabled(control.window))
                unreached.push_back(control.window);
        }
        ASSERT_FALSE(unreached.empty());
        for (int presses = 0; presses < 100 && !unreached.empty(); ++presses) {
            HWND focus = FocusOf(player);
            std::erase(unreached, focus);
            PressKey(VK_TAB);
            WaitUntil([&] { return FocusOf(player) != focus; }, 500);
        }
        for (HWND button : unreached)
            ADD_FAILURE() << "not reached: " << Title(button);
    }
}
