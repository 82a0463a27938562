// Buttons drawn into a bitmap in memory: both frame rules, recolouring, and no handle left behind.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "base/program_state.h"
#include "base/settings.h"
#include "resources/ids.h"
#include "tests/stand_ins.h"
#include "ui/skin.h"
#include "ui/skin_buttons.h"

constexpr int kWidth = 60;
constexpr int kHeight = 60;

class SkinDrawing : public testing::Test {
protected:
    void SetUp() override {
        UseStandIns();
        OpenTestWindow(IDC_MODE_WAVE, {});
        HDC screen = GetDC(nullptr);
        dc = CreateCompatibleDC(screen);
        bitmap = CreateCompatibleBitmap(screen, kWidth, kHeight);
        ReleaseDC(nullptr, screen);
        SelectObject(dc, bitmap);
        PatBlt(dc, 0, 0, kWidth, kHeight, BLACKNESS);
    }
    void TearDown() override {
        DeleteDC(dc);
        DeleteObject(bitmap);
        CloseTestWindow();
    }
    void Draw(UINT action, UINT state) {
        DRAWITEMSTRUCT item = {};
        item.hDC = dc;
        item.rcItem = {0, 0, 53, 49};
        item.itemAction = action;
        item.itemState = state;
        DrawSkinButton(item, kFaceOk);
    }
    // The colours of the edge: raised is highlight and shadow, flat is face all round.
    void ExpectEdge(bool raised) const {
        EXPECT_EQ(GetPixel(dc, 0, 20), GetSysColor(raised ? COLOR_BTNHIGHLIGHT : COLOR_BTNFACE));
        EXPECT_EQ(GetPixel(dc, 52, 20), GetSysColor(raised ? COLOR_BTNSHADOW : COLOR_BTNFACE));
    }

    // Everything inside the edge.
    std::vector<COLORREF> Picture() const {
        std::vector<COLORREF> pixels;
        for (int y = 1; y < 48; ++y) {
            for (int x = 1; x < 52; ++x)
                pixels.push_back(GetPixel(dc, x, y));
        }
        return pixels;
    }

    HDC dc = nullptr;
    HBITMAP bitmap = nullptr;
};

TEST_F(SkinDrawing, ChangesLookAtSelectedAndWholeDrawingsAtAnyState) {
    constexpr UINT noCues = 0x0100 | 0x0200;  // keyboard and focus cues hidden
    const struct {
        UINT action;
        UINT state;
        bool raised;
    } cases[] = {
        {ODA_SELECT, ODS_SELECTED | ODS_FOCUS, false},
        {ODA_SELECT, ODS_FOCUS, true},
        {ODA_FOCUS, 0, true},
        {ODA_FOCUS, ODS_SELECTED, false},
        {ODA_DRAWENTIRE, 0, false},
        {ODA_DRAWENTIRE, noCues, false},
        {ODA_DRAWENTIRE, ODS_FOCUS, true},
        {ODA_DRAWENTIRE, ODS_SELECTED | noCues, true},
    };
    std::set<std::vector<COLORREF>> pictures[2];
    for (const auto& c : cases) {
        Draw(c.action, c.state);
        SCOPED_TRACE(std::to_string(c.action) + " " + std::to_string(c.state));
        ExpectEdge(c.raised);
        pictures[(c.state & ODS_SELECTED) != 0].insert(Picture());
    }
    // One picture held down and another one not, each in the same place whatever the edge.
    EXPECT_EQ(pictures[0].size(), 1u);
    EXPECT_EQ(pictures[1].size(), 1u);
    EXPECT_NE(pictures[0], pictures[1]);
    EXPECT_EQ(GetPixel(dc, 55, 20), RGB(0, 0, 0)) << "drawn beyond the item";
}

TEST_F(SkinDrawing, FocusIsSeenOnceTheKeyboardIsUsed) {
    const auto drawWhileHeld = [this](int key, UINT state) {
        HoldKey(key, [&] { Draw(ODA_FOCUS, state); });
        return Picture();
    };
    const auto without = drawWhileHeld(VK_LBUTTON, ODS_FOCUS);
    EXPECT_EQ(drawWhileHeld(VK_TAB, 0), without);
    EXPECT_EQ(drawWhileHeld(VK_TAB, ODS_FOCUS | ODS_NOFOCUSRECT), without);
    const auto with = drawWhileHeld(VK_TAB, ODS_FOCUS);
    EXPECT_NE(with, without);
    ExpectEdge(true);
    Draw(ODA_FOCUS, ODS_FOCUS);
    EXPECT_EQ(Picture(), with) << "a box that opens later";
    EXPECT_EQ(drawWhileHeld(VK_LBUTTON, ODS_FOCUS), without);
}

TEST_F(SkinDrawing, FacesAndBackgroundFollowTheSystemColours) {
    RECT client = {};
    GetClientRect(MainWindow, &client);
    POINT bare = {24, client.bottom - 24};
    while (ChildWindowFromPointEx(MainWindow, bare, CWP_SKIPINVISIBLE) != MainWindow)
        ASSERT_LT(++bare.x, client.right - 24);
    ShowWindow(MainWindow, SW_SHOW);
    HDC window = GetDC(MainWindow);
    const COLORREF strange = RGB(12, 200, 34);
    for (const auto& [colorization, element] :
         {std::pair{true, COLOR_BTNFACE}, std::pair{false, COLOR_WINDOW}}) {
        Settings.entryFieldColorization = colorization;
        const COLORREF before = GetSysColor(element);
        for (const COLORREF colour : {strange, before}) {
            SetSysColors(1, &element, &colour);
            SendMessageA(MainWindow, WM_SYSCOLORCHANGE, 0, 0);
            PumpMessages();
            EXPECT_EQ(GetPixel(window, bare.x, bare.y), colour);
            for (const LONG x : {0L, client.right - 1}) {
                for (const LONG y : {0L, client.bottom - 1})
                    EXPECT_NE(GetPixel(window, x, y), colour) << "no frame";
            }
            Draw(ODA_SELECT, ODS_SELECTED);
            const auto pixels = Picture();
            const auto found = std::count(pixels.begin(), pixels.end(), strange);
            EXPECT_EQ(found > 100, colour == strange && element == COLOR_BTNFACE);
        }
    }
    ReleaseDC(MainWindow, window);
}

TEST_F(SkinDrawing, IconsTakeTheGroundTheyStandOn) {
    const auto has = [this](SkinSlot slot, int systemColor) {
        HGDIOBJ screen = SelectObject(dc, SkinBitmap(slot));
        int found = 0;
        for (int i = 0; i < kSmallIconSize * kSmallIconSize; ++i) {
            const COLORREF color = GetPixel(dc, i % kSmallIconSize, i / kSmallIconSize);
            found += color == GetSysColor(systemColor);
        }
        SelectObject(dc, screen);
        return found > kSmallIconSize;
    };
    EXPECT_FALSE(has(kSlotIconsOnEntry, COLOR_BTNFACE));
    EXPECT_TRUE(has(kSlotIconsOnFace, COLOR_BTNFACE));
    EXPECT_TRUE(has(kSlotIconsOnHighlight, COLOR_HIGHLIGHT));
    Settings.entryFieldColorization = true;
    ReloadSkin(MainWindow);
    EXPECT_TRUE(has(kSlotIconsOnEntry, COLOR_BTNFACE));
}

// The handles that the platform gives out next. Freed ones are given out again, the last one first,
// so that the same come back where nothing was kept.
static std::set<WORD> NextHandles() {
    std::vector<HPEN> pens;
    std::set<WORD> handles;
    for (int i = 0; i < 64; ++i) {
        pens.push_back(CreatePen(PS_SOLID, 1, 0));
        handles.insert(LOWORD(pens.back()));
    }
    for (; !pens.empty(); pens.pop_back())
        DeleteObject(pens.back());
    return handles;
}

TEST_F(SkinDrawing, DrawingAndLoadingLeaveNoHandleBehind) {
    const auto loadAll = [] {
        ReloadSkin(MainWindow);
        for (int slot = 0; slot < kSkinSlotCount; ++slot)
            EXPECT_NE(SkinBitmap(static_cast<SkinSlot>(slot)), nullptr) << slot;
    };
    loadAll();
    const std::set<WORD> before = NextHandles();
    ASSERT_EQ(before.size(), 64u);
    for (int i = 0; i < 200; ++i)
        Draw(ODA_SELECT, i % 2 ? ODS_SELECTED : 0);
    for (int i = 0; i < 20; ++i)
        loadAll();
    EXPECT_EQ(NextHandles(), before);
}
