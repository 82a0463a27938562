// Copying, renaming and choosing an editor in the real dialogs, by what they leave on the disk.
#include "base/file_access.h"
#include "base/modes.h"
#include "base/settings.h"
#include "files/copy_run.h"
#include "files/editors_dialog.h"
#include "files/programs.h"
#include "files/rename_dialog.h"
#include "tests/dialog_script.h"
#include "tests/stand_ins.h"
#include "ui/dialog_helpers.h"

using testing::ElementsAre;
using testing::IsEmpty;

class ToolDialogsTest : public testing::Test {
protected:
    void SetUp() override {
        UseStandIns();
        OpenTestWindow(IDC_MODE_WAVE, {"a.wav", "0.exe", "b.exe"});
    }
    void TearDown() override { CloseTestWindow(); }

    static void UseEditors(const std::function<void(HWND)>& script) {
        EXPECT_TRUE(RunInDialog([] { ShowEditorsDialog(MainWindow); }, script));
    }
    // Types a directory and goes on to another control.
    static void TypeAndLeave(HWND dialog, const std::string& directory) {
        SetFocus(GetDlgItem(dialog, IDC_PROGRAM_LOCATION));
        SetControlText(dialog, IDC_PROGRAM_LOCATION, directory);
        SetFocus(GetDlgItem(dialog, IDC_PROGRAM_LIST));
    }
};

TEST_F(ToolDialogsTest, RenamingToNothingLeavesTheFileAndSaysNothing) {
    EXPECT_TRUE(RunInDialog([] { ShowRenameDialogs(MainWindow, {"a.wav"}); },
                            [](HWND dialog) {
                                EXPECT_EQ(ControlText(dialog, IDC_RENAME_NAME), "a.wav");
                                SetControlText(dialog, IDC_RENAME_NAME, "");
                                Press(dialog, IDOK);
                                EXPECT_FALSE(IsWindowVisible(dialog));
                            }));
    EXPECT_THAT(TheBoxes.shown, IsEmpty());
    EXPECT_NE(GetFileAttributesA((*ModeDirectory() + "a.wav").c_str()), INVALID_FILE_ATTRIBUTES);
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
            copy({"a.wav", "b.exe"});
        },
        [](HWND question) { Press(question, IDC_OVERWRITE_CANCEL); }));
    EXPECT_EQ(GetPrivateProfileIntA("old", "is", 0, (target + "b.exe").c_str()), 1);
    DeleteFileA((target + "a.wav").c_str());
    copy({"a.wav"});
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
            TypeAndLeave(dialog, *ModeDirectory());
            EXPECT_EQ(DoubleClickEntry(dialog, IDC_PROGRAM_LIST, name), !name.empty());
            if (name.empty()) Press(dialog, IDC_PROGRAM_NONE);
            Press(dialog, IDC_OK);
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

TEST_F(ToolDialogsTest, ADirectoryThatIsNoneIsToldOnceAndAfterwards) {
    UseEditors([](HWND dialog) {
        TypeAndLeave(dialog, "q:\\nowhere");
        EXPECT_STRCASEEQ(ControlText(dialog, IDC_PROGRAM_LOCATION).c_str(),
                         ModeDirectory()->c_str());
        EXPECT_THAT(TheBoxes.shown, IsEmpty()) << "in the middle of the focus change";
        const DWORD start = GetTickCount();
        const auto wait = [&] { return TheBoxes.shown.empty() ? 10000u : 200u; };
        while (GetTickCount() - start < wait())
            PumpMessages();
        EXPECT_THAT(TheBoxes.shown, ElementsAre("Invalid path!"));
    });
}
