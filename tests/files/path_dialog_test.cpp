// The real path dialog over directories and a drive of the test's own.
#include "files/path_dialog.h"

#include <gmock/gmock.h>

#include "base/app_directory.h"
#include "base/modes.h"
#include "base/program_state.h"
#include "resources/ids.h"
#include "tests/dialog_script.h"
#include "tests/scratch_drive.h"
#include "tests/stand_ins.h"
#include "ui/dialog_helpers.h"
#include "ui/list_boxes.h"

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class PathDialogTest : public testing::Test {
protected:
    void SetUp() override {
        UseStandIns();
        OpenTestWindow(IDC_MODE_WAVE, {"a.wav"});
        top = Lower(*ModeDirectory());
    }
    void TearDown() override {
        SetCurrentDirectoryA("c:\\");
        RemoveScratchDrive();
        CloseTestWindow();
    }

    static std::string Lower(std::string text) {
        CharLowerA(text.data());
        return text;
    }
    std::string MakeDirectory(const std::string& name) {
        CreateDirectoryA((top + name).c_str(), nullptr);
        return top + name + "\\";
    }
    static void MakeFile(const std::string& path) {
        CloseHandle(
            CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    }
    static HWND FileList() { return GetDlgItem(MainWindow, IDC_FILE_LIST); }
    static std::vector<std::string> Files() { return Entries(MainWindow, IDC_FILE_LIST); }

    // Opens the dialog on a directory and runs the script there. True when it was accepted.
    bool Use(std::string& directory, const std::function<void(HWND)>& script,
             PathPurpose purpose = PathPurpose::kMediaFiles) {
        bool accepted = false;
        EXPECT_TRUE(RunInDialog(
            [&] { accepted = ShowPathDialog(MainWindow, purpose, directory, FileList()); },
            script));
        return accepted;
    }

    std::string top;  // the mode's directory
};

static std::string Location(HWND dialog) {
    return ControlText(dialog, IDC_PATH_LOCATION);
}

TEST_F(PathDialogTest, EachPurposeHasItsTextsAndOnlySomeSearch) {
    const struct {
        PathPurpose purpose;
        int mode;
        const char* title;
        const char* caption;
        const char* answer;
    } cases[] = {
        {PathPurpose::kDestination, IDC_MODE_WAVE, "Destination Path Setup", "", ""},
        {PathPurpose::kPrograms, IDC_MODE_WAVE, "Select editor path setup", "Exe files?", "Yes"},
        {PathPurpose::kExport, IDC_MODE_WAVE, "Select export path setup", "", ""},
        {PathPurpose::kMediaFiles, IDC_MODE_WAVE, "Wave File Path Setup", "Wave files?", "Yes"},
        {PathPurpose::kMediaFiles, IDC_MODE_MIDI, "Midi File Path Setup", "Midi files?", "Yes"},
        {PathPurpose::kMediaFiles, IDC_MODE_VIDEO, "Video File Path Setup", "Video files?", "Yes"},
    };
    for (const auto& c : cases) {
        SetPlayMode(c.mode);
        SendMessageA(FileList(), LB_RESETCONTENT, 0, 0);
        SendMessageA(FileList(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>("a file"));
        std::string directory = top;
        Use(
            directory,
            [&](HWND dialog) {
                char title[64] = "";
                GetWindowTextA(dialog, title, sizeof title);
                EXPECT_STREQ(title, c.title);
                EXPECT_EQ(ControlText(dialog, IDC_PATH_FILES), c.caption);
                EXPECT_EQ(ControlText(dialog, IDC_PATH_ANSWER), c.answer);
                EXPECT_EQ(IsWindowVisible(GetDlgItem(dialog, IDC_PATH_SEARCH)) != FALSE,
                          c.caption[0] != '\0');
            },
            c.purpose);
    }
}

TEST_F(PathDialogTest, OpensOnAnyStoredText) {
    const struct {
        std::string stored;
        std::string shown;
    } cases[] = {{"", "c:\\"},
                 {"s", "c:\\"},
                 {"C:\\", "c:\\"},
                 {"C:\\No\\Such Place", "c:\\no\\such place\\"}};
    for (const auto& c : cases) {
        std::string directory = c.stored;
        EXPECT_FALSE(Use(directory, [&](HWND dialog) {
            EXPECT_EQ(Location(dialog), c.shown) << c.stored;
            EXPECT_THAT(Entries(dialog, IDC_PATH_DIRECTORIES),
                        AllOf(Contains("c:\\"), Not(Contains("[..]"))));
            HWND drives = GetDlgItem(dialog, IDC_PATH_DRIVES);
            EXPECT_EQ(ListText(drives, SelectedEntry(drives)), "[-c-]");
        }));
        EXPECT_EQ(directory, c.stored);
    }
    std::string missing = "C:\\No\\Such";
    Use(missing, [&](HWND dialog) {
        EXPECT_THAT(Entries(dialog, IDC_PATH_DIRECTORIES), ElementsAre("c:\\", "no", "such"));
    });
}

TEST_F(PathDialogTest, NamesThatSortBeforeTheParentAreListed) {
    MakeDirectory("names");
    for (const char* name : {" a", "!a", "(a)", "[x]", "zz"})
        MakeDirectory("names\\" + std::string(name));
    std::string directory = top + "names\\";
    EXPECT_TRUE(Use(directory, [&](HWND dialog) {
        const std::vector<std::string> entries = Entries(dialog, IDC_PATH_DIRECTORIES);
        for (const char* entry : {"[ a]", "[!a]", "[(a)]", "[[x]]", "[zz]"})
            EXPECT_THAT(entries, Contains(entry));
        EXPECT_THAT(entries, Not(Contains("[..]")));
        EXPECT_TRUE(DoubleClickEntry(dialog, IDC_PATH_DIRECTORIES, "[[x]]"));
        Press(dialog, IDC_OK);
    }));
    EXPECT_EQ(directory, top + "names\\[x]\\");
}

TEST_F(PathDialogTest, TheFilesFollowAndComeBackUnlessAccepted) {
    MakeFile(MakeDirectory("one") + "b.wav");
    MakeDirectory("two");
    for (const bool accept : {false, true}) {
        std::string directory = top;
        EXPECT_EQ(Use(directory,
                      [&](HWND dialog) {
                          Press(dialog, IDC_PATH_DIRECTORIES, LBN_DBLCLK);
                          EXPECT_EQ(Location(dialog), top) << "nothing was selected";
                          DoubleClickEntry(dialog, IDC_PATH_DIRECTORIES, "[two]");
                          EXPECT_EQ(Location(dialog), top + "two\\");
                          EXPECT_EQ(ControlText(dialog, IDC_PATH_ANSWER), "No");
                          EXPECT_THAT(Files(), IsEmpty());
                          // Up by the entry of the directory above.
                          const int above = ListCount(GetDlgItem(dialog, IDC_PATH_DIRECTORIES)) - 2;
                          SendDlgItemMessageA(dialog, IDC_PATH_DIRECTORIES, LB_SETCURSEL,
                                              static_cast<WPARAM>(above), 0);
                          Press(dialog, IDC_PATH_DIRECTORIES, LBN_DBLCLK);
                          EXPECT_EQ(Location(dialog), top);
                          DoubleClickEntry(dialog, IDC_PATH_DIRECTORIES, "[one]");
                          EXPECT_EQ(ControlText(dialog, IDC_PATH_ANSWER), "Yes");
                          EXPECT_THAT(Files(), ElementsAre("b.wav"));
                          // The rest of the main window waits for OK.
                          EXPECT_EQ(Text(IDC_DIRECTORY), top);
                          Press(dialog, accept ? IDC_OK : IDC_CANCEL);
                      }),
                  accept);
        EXPECT_EQ(directory, accept ? top + "one\\" : top);
        EXPECT_THAT(Files(), ElementsAre(accept ? "b.wav" : "a.wav"));
    }
}

TEST_F(PathDialogTest, WhatCannotBeEnteredLeavesTheListsAsTheyAre) {
    MakeDirectory("gone");
    std::string directory = top;
    EXPECT_TRUE(Use(directory, [&](HWND dialog) {
        const std::vector<std::string> before = Entries(dialog, IDC_PATH_DIRECTORIES);
        RemoveDirectoryA((top + "gone").c_str());
        EXPECT_TRUE(DoubleClickEntry(dialog, IDC_PATH_DIRECTORIES, "[gone]"));
        EXPECT_EQ(Location(dialog), top);
        EXPECT_EQ(Entries(dialog, IDC_PATH_DIRECTORIES), before);
        Press(dialog, IDC_OK);
    }));
    EXPECT_EQ(directory, top);
}

TEST_F(PathDialogTest, DrivesAreEnteredOrLeadToTheWaveFiles) {
    const std::string drive = MakeDirectory("drive");
    MakeDirectory("drive\\below");
    if (!MakeScratchDrive(AppDirectory + "drive")) GTEST_SKIP() << "no drive can be made here";
    MakeFile(drive + "b.mid");
    SetPlayMode(IDC_MODE_MIDI);
    SetCurrentDirectoryA("t:\\below");
    std::string directory = "c:\\windows\\";
    Use(directory, [&](HWND dialog) {
        HWND drives = GetDlgItem(dialog, IDC_PATH_DRIVES);
        EXPECT_TRUE(DoubleClickEntry(dialog, IDC_PATH_DRIVES, "[-t-]"));
        EXPECT_EQ(Location(dialog), "t:\\below\\") << "where the drive stood";
        DoubleClickEntry(dialog, IDC_PATH_DIRECTORIES, "t:\\");
        EXPECT_THAT(Entries(dialog, IDC_PATH_DIRECTORIES), ElementsAre("t:\\", "[below]"));
        EXPECT_THAT(Files(), ElementsAre("b.mid"));

        SetCurrentDirectoryA("c:\\");
        RemoveScratchDrive();
        EXPECT_TRUE(DoubleClickEntry(dialog, IDC_PATH_DRIVES, "[-t-]"));
        EXPECT_EQ(Location(dialog), Lower(WaveFilesPath));
        EXPECT_EQ(ListText(drives, SelectedEntry(drives)), "[-c-]");
        EXPECT_EQ(ControlText(dialog, IDC_PATH_ANSWER), "No");
    });
}

TEST_F(PathDialogTest, AfterwardsDriveCIsTheCurrentOne) {
    MakeDirectory("drive");
    if (!MakeScratchDrive(AppDirectory + "drive")) GTEST_SKIP() << "no drive can be made here";
    for (const int button : {IDC_OK, IDC_CANCEL}) {
        SetCurrentDirectoryA("t:\\");
        std::string directory = top;
        Use(directory, [&](HWND dialog) { Press(dialog, button); });
        char current[MAX_PATH] = "";
        GetCurrentDirectoryA(sizeof current, current);
        EXPECT_EQ(tolower(current[0]), 'c');
    }
}
