// Copying, moving, renaming and deleting files and handing them to other programs, in the real
// program.
#include <gmock/gmock.h>

#include <filesystem>

#include "tests/desktop/desktop_test.h"

using testing::ElementsAre;

static std::string StubProgram() {
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, sizeof path);
    return std::filesystem::path(path).replace_filename("command_line_stub.exe").string();
}

class FileToolsTest : public DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        target = player.directory + "target\\";
        CreateDirectoryA(target.c_str(), nullptr);
        PutSetting(player, "WaveCopyToPath", target.c_str());
        for (const char* name : {"a.wav", "b.wav", "c.wav"})
            AddMedia(name, std::string("new ") + name);
        ASSERT_NO_FATAL_FAILURE(StartIn("wave"));
    }

    std::string target;
};

TEST_F(FileToolsTest, CopyAsksForEachFileInTheWay) {
    for (const int answer : {IDC_OVERWRITE_OK, IDC_OVERWRITE_ALL}) {
        const bool all = answer == IDC_OVERWRITE_ALL;
        WriteFileBytes(target + "a.wav", "old");
        WriteFileBytes(target + "b.wav", "old");
        Open(IDC_COPY, {"a.wav", "b.wav"});
        HWND copy = Dialog("Copy files");
        EXPECT_EQ(Text(copy, IDC_COPY_NEEDED), "18 bytes ");
        ClickMouse(CentreOf(Control(copy, IDC_COPY_OK)));
        HWND question = Dialog("File Already Exists");
        EXPECT_EQ(Text(question, IDC_OVERWRITE_SOURCE), MediaDirectory() + "a.wav");
        EXPECT_EQ(Text(question, IDC_OVERWRITE_TARGET), target + "a.wav");
        EXPECT_THAT(Text(question, IDC_OVERWRITE_SOURCE_SIZE), testing::StartsWith("9 bytes "));
        EXPECT_THAT(Text(question, IDC_OVERWRITE_TARGET_SIZE), testing::StartsWith("3 bytes "));
        ClickMouse(CentreOf(Control(question, answer)));
        if (!all) {
            Command(DialogThatShows(IDC_OVERWRITE_TARGET, target + "b.wav"), IDC_OVERWRITE_CANCEL);
        }
        EXPECT_TRUE(WaitForNoPopup(player));
        EXPECT_EQ(FileBytes(target + "a.wav"), "new a.wav");
        EXPECT_EQ(FileBytes(target + "b.wav"), all ? "new b.wav" : "old");
    }
}

TEST_F(FileToolsTest, MoveKeepsTheSourceUntilItHasArrived) {
    // Another spelling of the very same file.
    Open(IDC_MOVE, {"a.wav"});
    HWND move = Dialog("Move files");
    EXPECT_EQ(Text(move, IDC_COPY_DESTINATION), "c:\\a.wav");
    SetText(move, IDC_COPY_DESTINATION, target + "../media/a.wav");
    PressKeyIn(move, VK_RETURN);
    ExpectMessage("Error: Can't copy file over itself!");
    EXPECT_TRUE(WaitForNoPopup(player));
    EXPECT_EQ(FileBytes(MediaDirectory() + "a.wav"), "new a.wav");

    // A directory that is not there, refused first.
    const std::string deep = player.directory + "new\\deep\\";
    Open(IDC_MOVE, {"a.wav"});
    move = Dialog("Move files");
    SetText(move, IDC_COPY_DESTINATION, deep + "other.wav");
    PressKeyIn(move, VK_RETURN);
    std::string missing = player.directory + "new";
    CharUpperA(missing.data());
    HWND question =
        DialogThatShows(IDC_MESSAGE_TEXT, "Directory " + missing + " does not exist, create?");
    Command(question, IDC_QUESTION_CANCEL);
    EXPECT_TRUE(WaitForText(move, IDC_COPY_STATUS, "Aborted!"));
    EXPECT_NE(GetSetting(player, "WaveMoveToPath"), deep);
    PressKeyIn(move, VK_RETURN);
    for (int created = 0; created < 2; ++created) {
        question = Dialog("Tarnwell Question!");
        Command(question, IDC_QUESTION_OK);
        EXPECT_TRUE(WaitUntil([&] { return !IsWindow(question); }));
    }
    EXPECT_TRUE(WaitForNoPopup(player));
    EXPECT_EQ(FileBytes(deep + "other.wav"), "new a.wav");
    EXPECT_EQ(GetSetting(player, "WaveMoveToPath"), deep);
    EXPECT_THAT(ListTexts(List()), ElementsAre("b.wav", "c.wav"));
}

TEST_F(FileToolsTest, RenameGoesOnAfterACancelAndDeleteAsksFirst) {
    Open(IDC_RENAME, {"a.wav", "b.wav", "c.wav"});
    const struct {
        const char* name;
        const char* typed;  // null: cancelled
    } steps[] = {{"a.wav", "A new.wav"}, {"b.wav", nullptr}, {"c.wav", "b.wav"}};
    for (const auto& step : steps) {
        HWND rename = DialogThatShows(IDC_RENAME_NAME, step.name);
        if (step.typed != nullptr) SetText(rename, IDC_RENAME_NAME, step.typed);
        PressKeyIn(rename, step.typed != nullptr ? VK_RETURN : VK_ESCAPE);
    }
    ExpectMessage("Can't rename file c.wav");
    EXPECT_TRUE(WaitForNoPopup(player));
    EXPECT_THAT(ListTexts(List()), ElementsAre("A new.wav", "b.wav", "c.wav"));

    Open(IDC_DELETE, {"b.wav"});
    HWND dialog = DialogThatShows(IDC_DELETE_QUESTION, "Delete b.wav?");
    PressKeyIn(dialog, VK_TAB);
    PressKey(VK_RETURN);  // the focused Cancel
    EXPECT_TRUE(WaitForNoPopup(player));
    EXPECT_EQ(FileBytes(MediaDirectory() + "b.wav"), "new b.wav");
    Open(IDC_DELETE, {"A new.wav", "b.wav"});
    dialog = Dialog("Delete Files");
    DeleteFileA((MediaDirectory() + "A new.wav").c_str());
    PressKeyIn(dialog, VK_RETURN);
    ExpectMessage("Can't delete file: A new.wav");
    EXPECT_TRUE(WaitForNoPopup(player));
    EXPECT_THAT(ListTexts(List()), ElementsAre("c.wav"));
}

TEST_F(FileToolsTest, EditorAndMixerAreStarted) {
    const std::string tools = player.directory + "tools\\";
    CreateDirectoryA(tools.c_str(), nullptr);
    ASSERT_TRUE(CopyFileA(StubProgram().c_str(), (tools + "waved.exe").c_str(), TRUE));
    PutSetting(player, "WavEditorPath", tools.c_str());
    PutSetting(player, "WavEditorName", "waved.exe");
    Open(IDC_EDITOR, {"b.wav", "c.wav"});
    const std::string expected = tools + "waved.exe " + MediaDirectory() + "b.wav";
    EXPECT_TRUE(WaitUntil([&] { return FileBytes(tools + "waved.exe.txt") == expected; }))
        << FileBytes(tools + "waved.exe.txt");

    PutSetting(player, "WavEditorName", "gone.exe");
    Command(player.window, IDC_EDITOR);
    ExpectMessage("CreateProcess failed! Can't load " + tools + "gone.exe");

    PutSetting(player, "VolumeApplicationPath", tools.c_str());
    PutSetting(player, "VolumeApplicationName", "waved.exe");
    DeleteFileA((tools + "waved.exe.txt").c_str());
    Command(player.window, IDC_VOLUME);
    EXPECT_TRUE(
        WaitUntil([&] { return FileBytes(tools + "waved.exe.txt") == tools + "waved.exe"; }));
}
