// The file information dialogs on a device that records and fails: what each asks, what is left of
// it after any failure, and how a series goes on and ends.
#include "playback/file_info_dialog.h"

#include <mmsystem.h>

#include <functional>
#include <map>

#include "base/modes.h"
#include "playback/media_device.h"
#include "tests/dialog_script.h"
#include "tests/stand_ins.h"
#include "ui/dialog_helpers.h"

using testing::ElementsAre;
using testing::IsEmpty;

static int DialogsShown;

class FileInfoTest : public testing::Test {
protected:
    void SetUp() override { UseStandIns(); }
    void TearDown() override { CloseTestWindow(); }

    // What the Info command shows for all files of the list, each dialog closed by the answer.
    static void Show(const std::function<void(HWND)>& answer) {
        DialogsShown = 0;
        TheBoxes.shown.clear();
        TakeLog();
        SendDlgItemMessageA(MainWindow, IDC_FILE_LIST, LB_SETSEL, TRUE, -1);
        RunInDialog([] { Command(IDC_INFO); },
                    [&](HWND dialog) {
                        EXPECT_FALSE(IsWindowEnabled(MainWindow));
                        ++DialogsShown;
                        answer(dialog);
                        EXPECT_FALSE(IsWindowVisible(dialog)) << "not closed";
                    });
        EXPECT_TRUE(IsWindowEnabled(MainWindow));
        EXPECT_FALSE(MediaDevice.open);
    }
};

// The first of two files is asked about without a failure and with one at every call.
TEST_F(FileInfoTest, AsksTheDeviceAndTellsEveryFailureOnce) {
    static_assert(MCI_WAVE_STATUS_CHANNELS == MCI_SEQ_STATUS_TEMPO);
    const std::string length = "1:23.456 Minutes";
    const struct {
        int mode;
        std::vector<std::string> names;
        Log questions;  // between open and close
        std::map<int, std::string> fields;
    } cases[] = {
        {IDC_MODE_WAVE,
         {"A b.wav", "z.wav"},
         {"samples per second", "bits", "channels or tempo", "format 0", "length"},
         {{IDC_WAVE_INFO_NAME, "A b.wav"},
          {IDC_WAVE_INFO_SIZE, "0 bytes "},
          {IDC_WAVE_INFO_FORMAT, "22050 Hz, 8 Bit"},
          {IDC_WAVE_INFO_CHANNELS, "Mono"},
          {IDC_WAVE_INFO_LENGTH, length}}},
        {IDC_MODE_MIDI,
         {"a.mid", "z.mid"},
         {"channels or tempo", "format 0", "length"},
         {{IDC_MIDI_INFO_NAME, "a.mid"},
          {IDC_MIDI_INFO_TEMPO, "1 BPM"},
          {IDC_MIDI_INFO_LENGTH, length}}},
        {IDC_MODE_VIDEO,
         {"a.mov", "z.mov"},
         {"format 3", "length", "format 0", "length", "where"},
         {{IDC_VIDEO_INFO_NAME, "a.mov"},
          {IDC_VIDEO_INFO_FRAMES, "2000"},
          {IDC_VIDEO_INFO_RATE, "23.964"},
          {IDC_VIDEO_INFO_LENGTH, length},
          {IDC_VIDEO_INFO_PICTURE, "320 x 240 Pixels"}}},
    };
    TheMci.status = {{MCI_STATUS_LENGTH, 83456},
                     {MCI_WAVE_STATUS_SAMPLESPERSEC, 22050},
                     {MCI_WAVE_STATUS_BITSPERSAMPLE, 8},
                     {MCI_WAVE_STATUS_CHANNELS, 1}};
    TheMci.frames = 2000;
    TheMci.picture = {0, 0, 320, -240};
    for (const auto& c : cases) {
        OpenTestWindow(c.mode, c.names);
        const int closing = static_cast<int>(c.questions.size()) + 1;
        for (int call = -1; call <= closing; ++call) {
            SCOPED_TRACE(c.names[0] + " call " + std::to_string(call));
            const std::string failed =
                call > 0 && call < closing ? c.questions[size_t(call) - 1] : "";
            const bool told = call >= 0 && call < closing && failed != "bits";
            const auto answer = [&](HWND dialog) {
                const bool first = call != 0 && DialogsShown == 1;
                bool blank = false;
                for (const auto& [id, text] : c.fields) {
                    const std::string shown = ControlText(dialog, id);
                    if (first && failed.empty()) {
                        EXPECT_EQ(shown, text);
                    }
                    blank = blank || shown.empty();
                }
                EXPECT_EQ(blank, first && told) << "from the failure on";
                EXPECT_EQ(MediaDevice.open, !blank) << "stays open while the dialog is";
                Press(dialog, IDOK);
            };
            FailCall(call);
            Show(answer);
            EXPECT_EQ(TheBoxes.shown.size(), told ? 1U : 0U);
            EXPECT_EQ(DialogsShown, call != 0 ? 2 : 1);
            if (call >= 0) continue;
            Log expected = {"open " + *ModeDirectory() + c.names[0]};
            expected.insert(expected.end(), c.questions.begin(), c.questions.end());
            expected.push_back("close");
            Log log = TakeLog();
            log.resize(expected.size());
            EXPECT_EQ(log, expected);
        }
    }
}

TEST_F(FileInfoTest, ASeriesEndsWithCancelAndNothingElse) {
    const struct {
        int command;
        bool series;  // one file alone has nothing to cancel
        int shown;
    } cases[] = {{IDC_INFO_SERIES_OK, true, 3}, {IDOK, true, 3},    {IDC_CANCEL, true, 1},
                 {IDCANCEL, true, 1},           {IDC_OK, false, 1}, {IDOK, false, 1},
                 {IDCANCEL, false, 1}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.command);
        const auto answer = [&](HWND dialog) {
            for (const int id : {IDC_INFO_SERIES_OK, IDC_CANCEL})
                EXPECT_EQ(IsWindowVisible(GetDlgItem(dialog, id)), c.series);
            EXPECT_EQ(IsWindowVisible(GetDlgItem(dialog, IDC_OK)), !c.series);
            EXPECT_EQ(GetDlgCtrlID(GetFocus()), c.series ? IDC_INFO_SERIES_OK : IDC_OK);
            Press(dialog, c.command);
        };
        OpenTestWindow(IDC_MODE_WAVE, c.series ? Log{"a.wav", "b.wav", "c.wav"} : Log{"a.wav"});
        Show(answer);
        EXPECT_EQ(DialogsShown, c.shown);
        const Log log = TakeLog();
        EXPECT_EQ(std::count(log.begin(), log.end(), "close"), c.shown);
    }
}

TEST_F(FileInfoTest, WithoutASelectionItSaysSo) {
    OpenTestWindow(IDC_MODE_WAVE, {"a.wav"});
    Command(IDC_INFO);
    EXPECT_THAT(TheBoxes.shown, ElementsAre("No files to get information!"));
    EXPECT_THAT(TakeLog(), IsEmpty());
}
