// Copying, renaming and choosing an editor in the real dialogs, by what they leave on the disk.
#include "base/file_access.h"
#include "base/modes.h"
#include "base/settings.h"
#include "files/copy_dialog.h"
#include "files/copy_run.h"
#include "files/programs.h"
#include "files/rename_dialog.h"
#include "tests/dialog_script.h"
#include "tests/stand_ins.h"
#include "ui/dialog_helpers.h"

using testing::_;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class ToolDialogsTest : public testing::Test {
protected:
    void SetUp() override {
        UseStandIns();
        OpenTestWindow(IDC_MODE_MIDI, {"a.mid", "0.exe", "b.exe"});
    }
    void TearDown() override { CloseTestWindow(); }

    // The dialog that the first file, which has no editor, leads to.
    static void UseEditors(const std::function<void(HWND)>& script) {
        SelectFiles(0, 0);
        EXPECT_TRUE(RunInDialog([] { Command(IDC_EDITOR); }, script));
        EXPECT_EQ(TheBoxes.shown[0],
                  "? No editor selected for *.MID files. Do you want to select one?");
    }
    static void BrowseToRoot(HWND dialog, int button) {
        const auto choose = [](HWND path) {
            DoubleClickEntry(path, IDC_PATH_DIRECTORIES, "c:\\");
            Press(path, IDC_OK);
        };
        EXPECT_TRUE(RunInDialog([=] { Press(dialog, button); }, choose));
    }
    // Types a directory and goes on to another control.
    static void TypeAndLeave(HWND dialog, const std::string& directory) {
        SetFocus(GetDlgItem(dialog, IDC_PROGRAM_LOCATION));
        SetControlText(dialog, IDC_PROGRAM_LOCATION, directory);
        SetFocus(GetDlgItem(dialog, IDC_PROGRAM_LIST));
    }
};

TEST_F(ToolDialogsTest, RenamingToNothingLeavesTheFileAndSaysNothing) {
    EXPECT_TRUE(RunInDialog([] { ShowRenameDialogs(MainWindow, {"a.mid"}); },
                            [](HWND dialog) {
                                EXPECT_EQ(ControlText(dialog, IDC_RENAME_NAME), "a.mid");
                                SetControlText(dialog, IDC_RENAME_NAME, "");
                                Press(dialog, IDOK);
                                EXPECT_FALSE(IsWindowVisible(dialog));
                            }));
    EXPECT_THAT(TheBoxes.shown, IsEmpty());
    EXPECT_NE(GetFileAttributesA((*ModeDirectory() + "a.mid").c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(ToolDialogsTest, AKeyPressedDuringACopyAnswersNothing) {
    const std::string target = Make(*ModeDirectory() + "target\\");
    WritePrivateProfileStringA("old", "is", "1", (target + "b.exe").c_str());
    static auto readBefore = FileCalls.read;
    FileCalls.read = [](FileHandle file, void* data, uint32_t sizeBytes, uint32_t& readBytes) {
        keybd_event(VK_RETURN, 0, 0, 0);
        keybd_event(VK_RETURN, 0, KEYEVENTF_KEYUP, 0);
        return readBefore(file, data, sizeBytes, readBytes);
    };
    const auto copy = [&](const std::vector<std::string>& names) {
        CopyFiles({MainWindow, false, *ModeDirectory(), names, target, ""});
    };
    EXPECT_TRUE(RunInDialog(
        [&] {
            copy({"a.mid", "b.exe"});
        },
        [](HWND question) { Press(question, IDC_OVERWRITE_CANCEL); }));
    EXPECT_EQ(GetPrivateProfileIntA("old", "is", 0, (target + "b.exe").c_str()), 1);
    DeleteFileA((target + "a.mid").c_str());
    copy({"a.mid"});
    FileCalls.read = readBefore;
    MSG message;
    EXPECT_FALSE(PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_INPUT));
}

TEST_F(ToolDialogsTest, WhatTheFileSaysIsWhatIsChosen) {
    const ProgramSlot wave = EditorSlot(MediaTypes()[0]);
    Program editor;
    // A name that begins with 0 is how the file says none.
    for (const std::string name : {"b.exe", "", "b.exe", "0.exe"}) {
        UseEditors([&](HWND dialog) {
            EXPECT_TRUE(IsDlgButtonChecked(dialog, IDC_EDITOR_TYPE_FIRST + 1)) << "the mode's";
            Press(dialog, IDC_EDITOR_TYPE_FIRST);
            EXPECT_EQ(ControlText(dialog, IDC_PROGRAM_NAME),
                      Settings.editorChosen[0] ? "B.EXE" : "None selected");
            EXPECT_EQ(Entries(dialog, IDC_PROGRAM_LIST).size() == 2, Settings.editorChosen[0]);
            TypeAndLeave(dialog, *ModeDirectory());
            EXPECT_EQ(DoubleClickEntry(dialog, IDC_PROGRAM_LIST, name), !name.empty());
            if (name.empty()) Press(dialog, IDC_PROGRAM_NONE);
            Press(dialog, IDC_OK);
            EXPECT_FALSE(IsWindowVisible(dialog));
        });
        const bool expected = name == "b.exe";
        EXPECT_EQ(Settings.editorChosen[0], expected);
        EXPECT_EQ(ReadProgram(wave, editor), expected);
        EXPECT_EQ(ReadMainSetting("WavEditorPath", "removed", 20) == "removed", !expected);
    }
    WriteMainSetting("WavEditorPath", "c:\\");
    WriteMainSetting("WavEditorName", "");
    Settings.editorChosen[0] = true;
    ReadSettings();
    EXPECT_FALSE(Settings.editorChosen[0]) << "a directory alone is no program";
}

TEST_F(ToolDialogsTest, ATypedDirectoryIsTakenByEnterAndWhenItIsLeftOneThatIsNoneToldAfterwards) {
    UseEditors([](HWND dialog) {
        SetFocus(GetDlgItem(dialog, IDC_PROGRAM_LOCATION));
        SetControlText(dialog, IDC_PROGRAM_LOCATION, "c" + ModeDirectory()->substr(1));
        EXPECT_THAT(Entries(dialog, IDC_PROGRAM_LIST), Contains("notepad.exe")) << "too early";
        Press(dialog, IDOK);
        EXPECT_THAT(Entries(dialog, IDC_PROGRAM_LIST), ElementsAre("0.exe", "b.exe"));
        SelectEntry(dialog, IDC_PROGRAM_LIST, "b.exe");
        Press(dialog, IDC_PROGRAM_SELECT);
        EXPECT_EQ(ControlText(dialog, IDC_PROGRAM_NAME), "B.EXE");
        BrowseToRoot(dialog, IDC_PROGRAM_BROWSE);
        EXPECT_EQ(ControlText(dialog, IDC_PROGRAM_LOCATION), "c:\\");
        TypeAndLeave(dialog, "q:\\nowhere");
        EXPECT_STRCASEEQ(ControlText(dialog, IDC_PROGRAM_LOCATION).c_str(),
                         ModeDirectory()->c_str());
        EXPECT_EQ(TheBoxes.shown.size(), 1u) << "in the middle of the focus change";
        const DWORD start = GetTickCount();
        const auto wait = [&] { return TheBoxes.shown.size() < 2 ? 10000u : 200u; };
        while (GetTickCount() - start < wait())
            PumpMessages();
        EXPECT_THAT(TheBoxes.shown, ElementsAre(_, "Invalid path!"));
    });
}

TEST_F(ToolDialogsTest, ADestinationIsTakenWhenItsFieldIsLeftAndFromBrowsing) {
    const auto script = [](HWND dialog) {
        const auto shown = [=] { return ControlText(dialog, IDC_COPY_DESTINATION); };
        SetFocus(GetDlgItem(dialog, IDC_COPY_DESTINATION));
        SetControlText(dialog, IDC_COPY_DESTINATION, "c|/Windows");
        EXPECT_EQ(shown(), "c|/Windows") << "too early";
        SetFocus(GetDlgItem(dialog, IDC_COPY_BROWSE));
        EXPECT_EQ(shown(), "c:\\windows\\");
        BrowseToRoot(dialog, IDC_COPY_BROWSE);
        EXPECT_EQ(shown(), "c:\\");
    };
    EXPECT_TRUE(RunInDialog([] { ShowCopyDialog(MainWindow, {"a.mid", "b.mid"}); }, script));
}
