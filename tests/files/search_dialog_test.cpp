// The real drive search over a drive of the test's own.
#include "files/search_dialog.h"

#include "tests/dialog_script.h"
#include "tests/scratch_drive.h"
#include "tests/stand_ins.h"
#include "ui/dialog_helpers.h"

using testing::ElementsAre;
using testing::IsEmpty;

static const FileKind kMidi = {"Midi", {"*.Mid", "*.Rmi"}};

class SearchDialogTest : public testing::Test {
protected:
    void SetUp() override {
        UseStandIns();
        OpenTestWindow(IDC_MODE_MIDI, {});
        root = FreshDirectory();
        if (!MakeScratchDrive(root)) GTEST_SKIP() << "no drive can be made here";
    }
    void TearDown() override {
        RemoveScratchDrive();
        CloseTestWindow();
    }

    // What the dialog leaves as the path; "t:\" unless an entry was taken.
    std::string Use(const std::function<void(HWND)>& script, const FileKind& kind = kMidi) {
        std::string path = "t:\\";
        bool taken = false;
        EXPECT_TRUE(RunInDialog([&] { taken = ShowSearchDialog(MainWindow, kind, path); }, script));
        EXPECT_EQ(taken, path != "t:\\");
        return path;
    }

    std::string root;
};

static std::vector<std::string> Found(HWND dialog) {
    return Entries(dialog, IDC_DRIVE_SEARCH_RESULTS);
}

TEST_F(SearchDialogTest, FindsEachDirectoryOnceAndKeepsTheResult) {
    for (const char* name :
         {"B\\", "B\\Deep\\", "a\\", "empty\\", "B\\one.MID", "B\\two.rmi", "B\\no.midi.txt",
          "B\\Deep\\x.mid", "a\\y.rmi", "empty\\z.wav", "a\\folder.mid\\"})
        Make(root + name);
    ASSERT_TRUE(MakeLink(root + "B\\Deep\\", "loop", "../.."));

    const auto expectResult = [](HWND dialog) {
        EXPECT_THAT(Found(dialog), ElementsAre("t:\\a\\", "t:\\b\\", "t:\\b\\deep\\"));
        EXPECT_EQ(ControlText(dialog, IDC_DRIVE_SEARCH_FILES), "4");
        EXPECT_EQ(ControlText(dialog, IDC_DRIVE_SEARCH_DIRECTORIES), "3");
        EXPECT_EQ(ControlText(dialog, IDC_DRIVE_SEARCH_STATUS),
                  "Select a path and click OK, or double click a path.");
    };
    const std::string taken = Use([&](HWND dialog) {
        EXPECT_THAT(Found(dialog), IsEmpty());
        EXPECT_EQ(ControlText(dialog, IDC_DRIVE_SEARCH_STATUS), "");
        Press(dialog, IDC_DRIVE_SEARCH_START);
        expectResult(dialog);
        EXPECT_EQ(ControlText(dialog, IDC_DRIVE_SEARCH_DETAIL), "Done!");
        EXPECT_TRUE(SelectEntry(dialog, IDC_DRIVE_SEARCH_RESULTS, "t:\\b\\"));
        EXPECT_EQ(ControlText(dialog, IDC_DRIVE_SEARCH_DETAIL), "2 Midi File(s)");
        Press(dialog, IDC_DRIVE_SEARCH_RESULTS, LBN_DBLCLK);
    });
    EXPECT_EQ(taken, "t:\\b\\");

    // The same again without searching; nothing selected is nothing taken.
    Use([&](HWND dialog) {
        expectResult(dialog);
        Press(dialog, IDC_OK);
    });
    // Other masks are another search, and end what was kept.
    Use([&](HWND dialog) { EXPECT_THAT(Found(dialog), IsEmpty()); }, {"Midi", {"*.Mid"}});
    Use([&](HWND dialog) { EXPECT_THAT(Found(dialog), IsEmpty()); });
}

TEST_F(SearchDialogTest, CanBeStoppedAndIsThenNotKept) {
    for (int i = 0; i < 3000; ++i)
        Make(root + "d" + std::to_string(i) + "\\");
    Make(root + "d0\\a.mid");
    Make(root + "d999\\a.mid");
    for (const int key : {IDCANCEL, IDC_CANCEL, IDC_OK}) {
        Use([&](HWND dialog) {
            PostMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(key), 0);
            Press(dialog, IDC_DRIVE_SEARCH_START);
            EXPECT_FALSE(IsWindowVisible(dialog)) << "stopped, it closes";
            EXPECT_NE(ControlText(dialog, IDC_DRIVE_SEARCH_DETAIL), "Done!");
        });
    }
    Use([&](HWND dialog) {
        EXPECT_THAT(Found(dialog), IsEmpty());
        Press(dialog, IDC_DRIVE_SEARCH_START);
        EXPECT_THAT(Found(dialog), ElementsAre("t:\\d0\\", "t:\\d999\\"));
    });
}
