// The real path dialog over directories and a drive of the test's own.
#include "files/path_dialog.h"

#include "base/app_directory.h"
#include "base/modes.h"
#include "tests/dialog_script.h"
#include "tests/scratch_drive.h"
#include "tests/stand_ins.h"
#include "ui/dialog_helpers.h"
#include "ui/list_boxes.h"

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class PathDialogTest : public testing::Test {
protected:
    void SetUp() override {
        UseStandIns();
        OpenTestWindow(IDC_MODE_WAVE, {"a.wav"});
        top = *ModeDirectory();
        CharLowerA(top.data());
        directory = top;
    }
    void TearDown() override {
        SetCurrentDirectoryA("c:\\");
        RemoveScratchDrive();
        CloseTestWindow();
    }

    static std::vector<std::string> Files() { return Entries(MainWindow, IDC_FILE_LIST); }

    // Opens the dialog on the directory and runs the script there. True when it was accepted.
    bool Use(const std::function<void(HWND)>& script,
             PathPurpose purpose = PathPurpose::kMediaFiles) {
        bool accepted = false;
        EXPECT_TRUE(RunInDialog(
            [&] {
                HWND files = GetDlgItem(MainWindow, IDC_FILE_LIST);
                accepted = ShowPathDialog(MainWindow, purpose, directory, files);
            },
            script));
        // A drive whose disc is to be taken out is left.
        char current[MAX_PATH] = "";
        GetCurrentDirectoryA(sizeof current, current);
        EXPECT_EQ(tolower(current[0]), 'c');
        return accepted;
    }

    std::string top;        // the mode's directory
    std::string directory;  // the chosen one, at first the same
};

static std::string Location(HWND dialog) {
    return ControlText(dialog, IDC_PATH_LOCATION);
}

TEST_F(PathDialogTest, WhereNoFilesAreLookedForTheListIsLeftAlone) {
    Make(top + "empty\\");
    for (const PathPurpose purpose : {PathPurpose::kDestination, PathPurpose::kExport}) {
        Use(
            [&](HWND dialog) {
                EXPECT_FALSE(IsWindowVisible(GetDlgItem(dialog, IDC_PATH_SEARCH)));
                EXPECT_TRUE(DoubleClickEntry(dialog, IDC_PATH_DIRECTORIES, "[empty]"));
                EXPECT_EQ(Location(dialog), top + "empty\\");
                EXPECT_EQ(ControlText(dialog, IDC_PATH_ANSWER), "");
                EXPECT_THAT(Files(), ElementsAre("a.wav"));
            },
            purpose);
    }
}

TEST_F(PathDialogTest, OpensOnADirectoryThatIsNotThere) {
    directory = "C:\\No\\Such Place";
    EXPECT_FALSE(Use([&](HWND dialog) {
        EXPECT_EQ(Location(dialog), "c:\\no\\such place\\");
        EXPECT_THAT(Entries(dialog, IDC_PATH_DIRECTORIES), ElementsAre("c:\\", "no", "such place"));
    }));
    EXPECT_EQ(directory, "C:\\No\\Such Place");
}

TEST_F(PathDialogTest, NamesThatSortBeforeTheParentAreListedAndLostOnesAreNotEntered) {
    Make(top + "names\\");
    Make(top + "gone\\");
    for (const char* name : {" a", "!a", "(a)", "[x]", "zz"})
        Make(top + "names\\" + name + "\\");
    EXPECT_TRUE(Use([&](HWND dialog) {
        std::vector<std::string> entries = Entries(dialog, IDC_PATH_DIRECTORIES);
        RemoveDirectoryA((top + "gone").c_str());
        EXPECT_TRUE(DoubleClickEntry(dialog, IDC_PATH_DIRECTORIES, "[gone]"));
        EXPECT_EQ(Location(dialog), top);
        EXPECT_EQ(Entries(dialog, IDC_PATH_DIRECTORIES), entries);
        DoubleClickEntry(dialog, IDC_PATH_DIRECTORIES, "[names]");
        entries = Entries(dialog, IDC_PATH_DIRECTORIES);
        for (const char* entry : {"[ a]", "[!a]", "[(a)]", "[[x]]", "[zz]"})
            EXPECT_THAT(entries, Contains(entry));
        EXPECT_THAT(entries, Not(Contains("[..]")));
        EXPECT_TRUE(DoubleClickEntry(dialog, IDC_PATH_DIRECTORIES, "[[x]]"));
        Press(dialog, IDC_OK);
    }));
    EXPECT_EQ(directory, top + "names\\[x]\\");
}

TEST_F(PathDialogTest, TheFilesFollowAndTheRestOfTheMainWindowWaits) {
    Make(Make(top + "one\\") + "b.wav");
    Make(top + "two\\");
    EXPECT_TRUE(Use([&](HWND dialog) {
        Press(dialog, IDC_PATH_DIRECTORIES, LBN_DBLCLK);
        SelectEntry(dialog, IDC_PATH_DIRECTORIES, "[two]");
        EXPECT_EQ(Location(dialog), top) << "nothing was selected, or not twice";
        DoubleClickEntry(dialog, IDC_PATH_DIRECTORIES, "[two]");
        EXPECT_EQ(Location(dialog), top + "two\\");
        EXPECT_EQ(ControlText(dialog, IDC_PATH_ANSWER), "No");
        EXPECT_THAT(Files(), IsEmpty());
        // Up by the entry of the directory above.
        DoubleClickEntry(dialog, IDC_PATH_DIRECTORIES,
                         *(Entries(dialog, IDC_PATH_DIRECTORIES).rbegin() + 1));
        EXPECT_EQ(Location(dialog), top);
        DoubleClickEntry(dialog, IDC_PATH_DIRECTORIES, "[one]");
        EXPECT_EQ(ControlText(dialog, IDC_PATH_ANSWER), "Yes");
        EXPECT_EQ(Text(IDC_DIRECTORY), top);
        Press(dialog, IDC_OK);
    }));
    EXPECT_EQ(directory, top + "one\\");
    EXPECT_THAT(Files(), ElementsAre("b.wav"));
}

TEST_F(PathDialogTest, DrivesAreEnteredOrLeadToTheWaveFiles) {
    const std::string drive = Make(top + "drive\\");
    Make(top + "drive\\below\\");
    if (!MakeScratchDrive(AppDirectory + "drive")) GTEST_SKIP() << "no drive can be made here";
    Make(drive + "b.mid");
    SetPlayMode(IDC_MODE_MIDI);
    SetCurrentDirectoryA("t:\\below");
    directory = "c:\\windows\\";
    Use([&](HWND dialog) {
        EXPECT_TRUE(SelectEntry(dialog, IDC_PATH_DRIVES, "[-t-]"));
        EXPECT_EQ(Location(dialog), "c:\\windows\\");
        Press(dialog, IDC_PATH_DRIVES, LBN_DBLCLK);
        EXPECT_EQ(Location(dialog), "t:\\below\\") << "where the drive stood";
        DoubleClickEntry(dialog, IDC_PATH_DIRECTORIES, "t:\\");
        EXPECT_THAT(Entries(dialog, IDC_PATH_DIRECTORIES), ElementsAre("t:\\", "[below]"));
        EXPECT_THAT(Files(), ElementsAre("b.mid"));
    });
    Use([&](HWND dialog) {
        HWND drives = GetDlgItem(dialog, IDC_PATH_DRIVES);
        RemoveScratchDrive();
        EXPECT_TRUE(DoubleClickEntry(dialog, IDC_PATH_DRIVES, "[-t-]"));
        EXPECT_EQ(Location(dialog), top);
        EXPECT_EQ(ListText(drives, SelectedEntry(drives)), "[-c-]");
        EXPECT_EQ(ControlText(dialog, IDC_PATH_ANSWER), "No");
    });
}

TEST_F(PathDialogTest, AVolumesNameIsReadOnceUntilItsDriveIsChosen) {
    Make(top + "drive\\");
    if (!MakeScratchDrive(AppDirectory + "drive")) GTEST_SKIP() << "no drive can be made here";
    Use([&](HWND dialog) {
        HWND labels = GetDlgItem(dialog, IDC_PATH_DRIVE_LABELS);
        const auto drawn = [&] {
            InvalidateRect(GetDlgItem(dialog, IDC_PATH_DRIVES), nullptr, FALSE);
            UpdateWindow(GetDlgItem(dialog, IDC_PATH_DRIVES));
            return Entries(dialog, IDC_PATH_DRIVE_LABELS);
        };
        const auto place = static_cast<WPARAM>(std::ssize(drawn()) - 2);  // before z:
        ASSERT_EQ(ListText(labels, static_cast<int>(place)), "t: ");
        // The name of a disc that has been taken out since. The platform remembers its own.
        const LRESULT value = SendMessageA(labels, LB_GETITEMDATA, place, 0);
        SendMessageA(labels, LB_DELETESTRING, place, 0);
        SendMessageA(labels, LB_INSERTSTRING, place, reinterpret_cast<LPARAM>("t: former"));
        SendMessageA(labels, LB_SETITEMDATA, place, value);
        EXPECT_THAT(drawn(), Contains("t: former"));
        DoubleClickEntry(dialog, IDC_PATH_DRIVES, "[-t-]");
        EXPECT_THAT(drawn(), Contains("t: "));
    });
}
