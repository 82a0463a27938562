// The real set-up dialog over the real main window: what is chosen is in force after OK, nothing
// after Cancel, and the keyboard alone changes nothing.
#include "app/setup_dialog.h"

#include <gtest/gtest.h>

#include <tuple>

#include "base/modes.h"
#include "base/program_state.h"
#include "base/settings.h"
#include "playback/media_device.h"
#include "resources/ids.h"
#include "tests/dialog_script.h"
#include "tests/stand_ins.h"
#include "ui/entry_colors.h"

class SetupDialogTest : public testing::Test {
protected:
    void SetUp() override {
        UseStandIns();
        OpenTestWindow(IDC_MODE_MIDI, {"a.mid", "b.rmi"});
    }
    void TearDown() override { CloseTestWindow(); }

    static void Use(const std::function<void(HWND)>& script) {
        ASSERT_TRUE(RunInDialog([] { Command(IDC_SETUP); }, script)) << "no dialog";
    }
    // Clicks these and presses OK.
    static void Choose(std::initializer_list<int> ids) {
        Use([ids](HWND dialog) {
            for (int id : ids)
                SendDlgItemMessageA(dialog, id, BM_CLICK, 0, 0);
            Press(dialog, IDC_OK);
        });
    }
};

TEST_F(SetupDialogTest, EachControlChangesItsSettingAndNoOtherAndShowsIt) {
    const std::tuple<int, bool SettingsValues::*, bool> controls[] = {
        {IDC_SETUP_MID, &SettingsValues::listMid, false},
        {IDC_SETUP_RMI, &SettingsValues::listRmi, false},
        {IDC_SETUP_AVI, &SettingsValues::listAvi, false},
        {IDC_SETUP_MOV, &SettingsValues::listMov, false},
        {IDC_SETUP_TIME, &SettingsValues::videoFrames, false},
        {IDC_SETUP_SCROLL_RECREATION, &SettingsValues::recreationScroll, true},
        {IDC_SETUP_SCROLL_NORMAL, &SettingsValues::recreationScroll, false},
        {IDC_SETUP_COLORIZATION_ON, &SettingsValues::entryFieldColorization, true},
        {IDC_SETUP_COLORIZATION_OFF, &SettingsValues::entryFieldColorization, false},
        {IDC_SETUP_WAVE_OFF, &SettingsValues::waveAnimation, false},
        {IDC_SETUP_MIDI_OFF, &SettingsValues::midiAnimation, false},
        {IDC_SETUP_VIDEO_OFF, &SettingsValues::videoAnimation, false},
        {IDC_SETUP_CD_OFF, &SettingsValues::cdAnimation, false},
        {IDC_SETUP_SOUND_ON, &SettingsValues::soundControls, true},
        {IDC_SETUP_SOUND_OFF, &SettingsValues::soundControls, false},
    };
    for (const auto& [id, flag, value] : controls) {
        SettingsValues expected = Settings;
        expected.*flag = value;
        Choose({id});
        EXPECT_EQ(Settings, expected) << id;
        const bool box = id >= IDC_SETUP_AVI && id <= IDC_SETUP_RMI;
        Use([&](HWND dialog) { EXPECT_EQ(IsDlgButtonChecked(dialog, id), box ? 0 : 1) << id; });
    }
}

TEST_F(SetupDialogTest, PeriodsAreFiveAndAnUnknownOneStays) {
    const uint16_t periods[] = {100, 333, 500, 666, 1000};
    for (int i = 0; i < 5; ++i) {
        Choose({IDC_SETUP_PERIOD_FIRST + i});
        EXPECT_EQ(Settings.timerSpeedMs, periods[i]);
        Use([i](HWND dialog) {
            EXPECT_TRUE(IsDlgButtonChecked(dialog, IDC_SETUP_PERIOD_FIRST + i));
        });
    }
    Settings.timerSpeedMs = 250;
    Choose({});
    EXPECT_EQ(Settings.timerSpeedMs, 250);
}

TEST_F(SetupDialogTest, OnlyWhatIsChosenAndOkChangeAnything) {
    const SettingsValues before = Settings;
    Use([](HWND dialog) {
        // Nor does the keyboard on its way: four boxes, nine groups of radio buttons, four buttons.
        HWND first = GetFocus();
        int steps = 0;
        do {
            SendMessageA(dialog, WM_NEXTDLGCTL, 0, 0);
            PumpMessages();
        } while (GetFocus() != first && ++steps < 100);
        EXPECT_EQ(steps + 1, 17);
        Press(dialog, IDC_OK);
    });
    EXPECT_EQ(Settings, before);
    // The button, Esc, and Enter on the button.
    for (const int way : {IDC_CANCEL, IDCANCEL, IDOK}) {
        Use([&](HWND dialog) {
            for (int id :
                 {IDC_SETUP_MID, IDC_SETUP_TIME, IDC_SETUP_COLORIZATION_ON, IDC_SETUP_PERIOD_LAST})
                SendDlgItemMessageA(dialog, id, BM_CLICK, 0, 0);
            SetFocus(GetDlgItem(dialog, IDC_CANCEL));
            Press(dialog, way);
            EXPECT_FALSE(IsWindowVisible(dialog));
        });
        EXPECT_EQ(Settings, before);
    }
}

TEST_F(SetupDialogTest, OkTakesEffectInTheMainWindow) {
    EXPECT_TRUE(IsShown(IDC_MIDI_ANIMATION));
    Choose({IDC_SETUP_MID, IDC_SETUP_MIDI_OFF});
    EXPECT_EQ(Text(IDC_LIST_COUNT), "1 Midi Files:");
    EXPECT_FALSE(IsShown(IDC_MIDI_ANIMATION));
    EXPECT_FALSE(IsShown(IDC_SPRITE_STRIP));
    const auto ground = [] {
        LOGBRUSH brush = {};
        GetObjectA(BackgroundBrush, sizeof brush, &brush);
        return brush.lbColor;
    };
    Choose({IDC_SETUP_COLORIZATION_ON});
    EXPECT_EQ(ground(), GetSysColor(COLOR_BTNFACE));
}

TEST_F(SetupDialogTest, AFileStopsAndTheDiscPlaysOn) {
    PlayFiles(0, 0);
    ASSERT_TRUE(MediaDevice.open);
    Use([](HWND) {
        EXPECT_FALSE(MediaDevice.open);
        EXPECT_FALSE(KillTimer(MainWindow, ID_POSITION_TIMER));
    });

    OpenTestWindow(IDC_MODE_CDPLAYER, {});
    Choose({IDC_SETUP_CD_OFF});
    EXPECT_EQ(TakeLog(), Log{});
    EXPECT_FALSE(IsShown(IDC_CD_ANIMATION));
    EXPECT_TRUE(KillTimer(MainWindow, ID_POSITION_TIMER)) << "the disc is not watched any more";
}
