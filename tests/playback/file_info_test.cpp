// The file information dialogs on a device that records and fails: what each asks, what is left of
// it after any failure, and how a series goes on and ends.
#include "playback/file_info_dialog.h"

#include <gmock/gmock.h>

#include <mmsystem.h>

#include <functional>
#include <map>

#include "base/modes.h"
#include "base/program_state.h"
#include "playback/media_device.h"
#include "resources/ids.h"
#include "tests/stand_ins.h"
#include "ui/dialog_helpers.h"

using testing::ElementsAre;
using testing::IsEmpty;

using Answer = std::function<void(HWND dialog)>;

static std::vector<std::string> NamesShown;
static Answer AnswerNext;

static std::string NameShown(HWND dialog) {
    for (int id : {IDC_WAVE_INFO_NAME, IDC_MIDI_INFO_NAME, IDC_VIDEO_INFO_NAME}) {
        if (GetDlgItem(dialog, id) != nullptr) return ControlText(dialog, id);
    }
    return "?";
}

// Runs inside each dialog's own message loop and answers it in the user's place.
static void CALLBACK AnswerDialog(HWND, UINT, UINT_PTR, DWORD) {
    HWND dialog = GetLastActivePopup(MainWindow);
    if (dialog == MainWindow || !IsWindowVisible(dialog)) return;
    EXPECT_FALSE(IsWindowEnabled(MainWindow));
    NamesShown.push_back(NameShown(dialog));
    AnswerNext(dialog);
    // A dialog that the answer did not close would never end.
    if (IsWindowVisible(dialog)) {
        ADD_FAILURE() << "not closed";
        EndDialog(dialog, IDC_CANCEL);
    }
}

static Answer Press(int id) {
    return [id](HWND dialog) { SendMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(id), 0); };
}

class FileInfoTest : public testing::Test {
protected:
    void SetUp() override {
        UseStandIns();
        timer = SetTimer(nullptr, 0, 10, AnswerDialog);
        AnswerNext = Press(IDOK);
    }
    void TearDown() override {
        KillTimer(nullptr, timer);
        CloseTestWindow();
    }

    // What the Info command shows for these files, all of them selected.
    static void Show(int mode, const std::vector<std::string>& names) {
        OpenTestWindow(mode, names);
        TheMci.status[MCI_STATUS_LENGTH] = 83456;
        TheMci.status[MCI_WAVE_STATUS_SAMPLESPERSEC] = 22050;
        TheMci.status[MCI_WAVE_STATUS_BITSPERSAMPLE] = 8;
        static_assert(MCI_WAVE_STATUS_CHANNELS == MCI_SEQ_STATUS_TEMPO);
        TheMci.status[MCI_SEQ_STATUS_TEMPO] = mode == IDC_MODE_MIDI ? 96 : 2;
        TheMci.frames = 2000;
        TheMci.picture = {0, 0, 320, -240};
        ShowAgain();
    }
    static void ShowAgain() {
        NamesShown.clear();
        TheBoxes.shown.clear();
        TakeLog();
        SendDlgItemMessageA(MainWindow, IDC_FILE_LIST, LB_SETSEL, TRUE, -1);
        Command(IDC_INFO);
        EXPECT_TRUE(IsWindowEnabled(MainWindow));
        EXPECT_FALSE(MediaDevice.open);
    }

    UINT_PTR timer = 0;
};

struct InfoCase {
    int mode;
    std::string name;
    Log questions;  // between open and close
    std::map<int, std::string> fields;
};

static std::vector<InfoCase> InfoCases() {
    const std::string length = "1:23.456 Minutes";
    return {
        {IDC_MODE_WAVE,
         "A b.wav",
         {"samples per second", "bits", "channels or tempo", "format 0", "length"},
         {{IDC_WAVE_INFO_NAME, "A b.wav"},
          {IDC_WAVE_INFO_SIZE, "0 bytes "},
          {IDC_WAVE_INFO_FORMAT, "22050 Hz, 8 Bit"},
          {IDC_WAVE_INFO_CHANNELS, "Stereo"},
          {IDC_WAVE_INFO_LENGTH, length}}},
        {IDC_MODE_MIDI,
         "a.mid",
         {"channels or tempo", "format 0", "length"},
         {{IDC_MIDI_INFO_SIZE, "0 bytes "},
          {IDC_MIDI_INFO_TEMPO, "96 BPM"},
          {IDC_MIDI_INFO_LENGTH, length}}},
        {IDC_MODE_VIDEO,
         "a.mov",
         {"format 3", "length", "format 0", "length", "where"},
         {{IDC_VIDEO_INFO_SIZE, "0 bytes "},
          {IDC_VIDEO_INFO_FRAMES, "2000"},
          {IDC_VIDEO_INFO_RATE, "23.964"},
          {IDC_VIDEO_INFO_LENGTH, length},
          {IDC_VIDEO_INFO_PICTURE, "320 x 240 Pixels"}}},
    };
}

TEST_F(FileInfoTest, AsksTheDeviceAndShowsItsAnswers) {
    for (const InfoCase& one : InfoCases()) {
        AnswerNext = [&](HWND dialog) {
            for (const auto& [id, text] : one.fields)
                EXPECT_EQ(ControlText(dialog, id), text) << id;
            EXPECT_TRUE(MediaDevice.open) << "stays open while the dialog is";
            Press(IDOK)(dialog);
        };
        Show(one.mode, {one.name});
        Log expected = {"open " + *ModeDirectory() + one.name};
        expected.insert(expected.end(), one.questions.begin(), one.questions.end());
        expected.push_back("close");
        EXPECT_EQ(TakeLog(), expected);
        EXPECT_THAT(NamesShown, ElementsAre(one.name));
    }
}

TEST_F(FileInfoTest, EveryFailureIsToldOnceAndLeavesNothingOpen) {
    for (const InfoCase& one : InfoCases()) {
        Show(one.mode, {one.name, "z" + one.name.substr(one.name.rfind('.'))});
        for (int call = 0; call <= static_cast<int>(one.questions.size()) + 1; ++call) {
            const bool opened = call > 0;
            const bool closing = call == static_cast<int>(one.questions.size()) + 1;
            const std::string failed = opened && !closing ? one.questions[size_t(call) - 1] : "";
            size_t empty = 0;
            AnswerNext = [&](HWND dialog) {
                if (NamesShown.size() > 1 || !opened) return Press(IDOK)(dialog);
                for (const auto& [id, text] : one.fields)
                    empty += ControlText(dialog, id).empty();
                Press(IDOK)(dialog);
            };
            FailCall(call);
            ShowAgain();
            const bool told = failed != "bits" && !closing;
            EXPECT_EQ(TheBoxes.shown.size(), told ? 1U : 0U) << one.name << " call " << call;
            EXPECT_EQ(NamesShown.size(), opened ? 2U : 1U) << one.name << " call " << call;
            EXPECT_EQ(empty > 0, opened && told) << one.name << " call " << call;
        }
    }
}

TEST_F(FileInfoTest, ASeriesEndsWithCancelAndNothingElse) {
    const std::vector<std::string> all = {"a.wav", "b.wav", "c.wav"};
    const std::vector<std::string> one = {"a.wav"};  // has nothing to cancel
    const struct {
        const char* how;
        int command;
        std::vector<std::string> names;
        size_t shown;
    } cases[] = {{"OK of several", IDC_INFO_SERIES_OK, all, 3},
                 {"Enter of several", IDOK, all, 3},
                 {"Cancel", IDC_CANCEL, all, 1},
                 {"Esc of several", IDCANCEL, all, 1},
                 {"OK", IDC_OK, one, 1},
                 {"Enter", IDOK, one, 1},
                 {"Esc", IDCANCEL, one, 1}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.how);
        const bool series = c.names.size() > 1;
        AnswerNext = [&](HWND dialog) {
            for (const int id : {IDC_INFO_SERIES_OK, IDC_CANCEL})
                EXPECT_EQ(IsWindowVisible(GetDlgItem(dialog, id)), series);
            EXPECT_EQ(IsWindowVisible(GetDlgItem(dialog, IDC_OK)), !series);
            EXPECT_EQ(GetDlgCtrlID(GetFocus()), series ? IDC_INFO_SERIES_OK : IDC_OK);
            Press(c.command)(dialog);
        };
        Show(IDC_MODE_WAVE, c.names);
        EXPECT_EQ(NamesShown.size(), c.shown);
        const Log log = TakeLog();
        EXPECT_EQ(std::count(log.begin(), log.end(), "close"), static_cast<int>(c.shown));
    }
}

TEST_F(FileInfoTest, NothingSelectedAndADialogThatCannotOpen) {
    OpenTestWindow(IDC_MODE_WAVE, {"a.wav"});
    Command(IDC_INFO);
    EXPECT_THAT(TheBoxes.shown, ElementsAre("No files to get information!"));
    EXPECT_THAT(TakeLog(), IsEmpty());
    HINSTANCE instance = ProgramInstance;
    ProgramInstance = GetModuleHandleA("kernel32");  // has no such dialog
    ShowAgain();
    ProgramInstance = instance;
    EXPECT_THAT(NamesShown, IsEmpty());
    EXPECT_EQ(TakeLog().back(), "close");
}
