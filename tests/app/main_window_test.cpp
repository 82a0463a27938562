// What reaches the main window from outside its buttons: media keys and dropped files; what a file
// command leaves behind in its list.
#include <gmock/gmock.h>
#include <shlobj.h>

#include "base/app_directory.h"
#include "base/modes.h"
#include "base/program_state.h"
#include "base/settings.h"
#include "playback/media_device.h"
#include "resources/ids.h"
#include "tests/dialog_script.h"
#include "tests/fake_drive.h"
#include "tests/stand_ins.h"
#include "ui/boxes.h"

using testing::Contains;

class MainWindowTest : public testing::Test {
protected:
    void SetUp() override { UseStandIns(); }
    void TearDown() override { CloseTestWindow(); }

    static LRESULT MediaKey(int key) {
        return SendMessageA(MainWindow, WM_APPCOMMAND, reinterpret_cast<WPARAM>(MainWindow),
                            MAKELPARAM(0, key));
    }
    static void Drop(const std::vector<std::string>& paths) {
        std::string list;
        for (const std::string& path : paths)
            list += path + '\0';
        list += '\0';
        HGLOBAL block = GlobalAlloc(GHND, sizeof(DROPFILES) + list.size());
        auto* header = static_cast<DROPFILES*>(GlobalLock(block));
        header->pFiles = sizeof *header;
        memcpy(header + 1, list.data(), list.size());
        GlobalUnlock(block);
        SendMessageA(MainWindow, WM_DROPFILES, reinterpret_cast<WPARAM>(block), 0);
    }
    static std::string OpenedFile() {
        for (const std::string& line : TakeLog()) {
            if (line.starts_with("open ")) return line.substr(5);
        }
        return "nothing";
    }
};

TEST_F(MainWindowTest, MediaKeysDriveTheQueue) {
    OpenTestWindow(IDC_MODE_WAVE, {"a.wav", "b.wav"});
    SelectFiles(0, 1);
    EXPECT_TRUE(MediaKey(APPCOMMAND_MEDIA_PLAY_PAUSE));
    EXPECT_EQ(OpenedFile(), AppDirectory + "a.wav");
    MediaKey(APPCOMMAND_MEDIA_PLAY_PAUSE);
    EXPECT_EQ(Text(IDC_STATUS), "Paused");
    MediaKey(APPCOMMAND_MEDIA_PLAY_PAUSE);
    EXPECT_EQ(Text(IDC_STATUS), "Playing");
    TakeLog();
    HoldKey(VK_LBUTTON, [] { MediaKey(APPCOMMAND_MEDIA_PREVIOUSTRACK); });
    EXPECT_EQ(TakeLog(), Log{"play from 0"});
    EXPECT_FALSE(MediaDevice.dragging) << "the mouse holds something else";
    FileEnds();
    MediaKey(APPCOMMAND_MEDIA_NEXTTRACK);
    EXPECT_EQ(OpenedFile(), AppDirectory + "b.wav");
    EXPECT_EQ(Text(IDC_FILES_LEFT), "0");
    MediaKey(APPCOMMAND_MEDIA_NEXTTRACK);
    EXPECT_EQ(TakeLog(), Log{}) << "there is no next file";
    MediaKey(APPCOMMAND_MEDIA_STOP);
    EXPECT_FALSE(MediaDevice.open);
    EXPECT_FALSE(MediaKey(APPCOMMAND_VOLUME_UP));

    TheBoxes.whileOpen = [] { MediaKey(APPCOMMAND_MEDIA_PLAY_PAUSE); };
    ShowMessage("box");
    EXPECT_FALSE(MediaDevice.open);
}

TEST_F(MainWindowTest, MediaKeysDriveTheDisc) {
    OpenTestWindow(IDC_MODE_CDPLAYER, {});
    TheBoxes.answerOk = false;
    MediaKey(APPCOMMAND_MEDIA_PLAY_PAUSE);
    EXPECT_EQ(TakeLog(), Log{}) << "without a drive";
    EXPECT_EQ(TheBoxes.shown.size(), 1u) << "the question for a drive";

    InstallFakeDrive({60, 70});
    OpenTestWindow(IDC_MODE_CDPLAYER, {});
    TakeLog();
    for (const auto& [key, command] : {std::pair{APPCOMMAND_MEDIA_PLAY_PAUSE, "play 1 0:00.00"},
                                       {APPCOMMAND_MEDIA_NEXTTRACK, "play 2 0:00.00"},
                                       {APPCOMMAND_MEDIA_PLAY_PAUSE, "pause"},
                                       {APPCOMMAND_MEDIA_STOP, "stop"}}) {
        MediaKey(key);
        EXPECT_THAT(TakeLog(), Contains(command));
    }
}

TEST_F(MainWindowTest, DroppedFilesAndFoldersPlayWhereTheyLie) {
    OpenTestWindow(IDC_MODE_CDPLAYER, {"one.wav", "two.wav", "three.wav", "song.mid", "notes.txt"});
    EXPECT_TRUE(GetWindowLongA(MainWindow, GWL_EXSTYLE) & WS_EX_ACCEPTFILES);
    const std::string files = AppDirectory;
    Drop({files + "notes.txt", files + "two.wav", files + "song.mid", files + "one.wav"});
    EXPECT_EQ(PlayMode, IDC_MODE_WAVE);
    EXPECT_EQ(Text(IDC_SELECTED_COUNT), "2");
    EXPECT_EQ(OpenedFile(), files + "one.wav");

    const std::string empty = FreshDirectory();
    Make(empty + "folder.wav\\");
    WaveFilesPath = empty;
    Drop({empty.substr(0, empty.size() - 1), files.substr(0, files.size() - 1)});
    EXPECT_EQ(Text(IDC_SELECTED_COUNT), "3");
    EXPECT_EQ(WaveFilesPath, files);
    EXPECT_TRUE(MediaDevice.open);

    TakeLog();
    TheBoxes.whileOpen = [&] { Drop({files + "song.mid"}); };
    ShowMessage("box");
    Drop({files + "notes.txt", files + std::string(400, 'x') + ".wav"});
    EXPECT_EQ(PlayMode, IDC_MODE_WAVE);
    EXPECT_EQ(TakeLog(), Log{}) << "what plays was disturbed";

    Settings.listMid = false;
    Drop({files + "song.mid"});
    EXPECT_EQ(OpenedFile(), files + "song.mid") << "named by its user, though the filter omits it";
    EXPECT_EQ(Text(IDC_LIST_COUNT), "1 Midi Files:");
}

TEST_F(MainWindowTest, ADeletionLeavesTheListWhereItWas) {
    std::vector<std::string> names;
    for (int i = 100; i < 160; ++i)
        names.push_back(std::to_string(i) + ".wav");
    OpenTestWindow(IDC_MODE_WAVE, names);
    HWND list = GetDlgItem(MainWindow, IDC_FILE_LIST);
    SelectFiles(31, 32);
    SendMessageA(list, LB_SETCARETINDEX, 32, 0);
    SendMessageA(list, LB_SETTOPINDEX, 30, 0);
    EXPECT_TRUE(RunInDialog([] { Command(IDC_DELETE); },
                            [](HWND dialog) { Press(dialog, IDC_DELETE_OK); }));
    EXPECT_EQ(Text(IDC_LIST_COUNT), "58 Wave Files:");
    EXPECT_EQ(SendMessageA(list, LB_GETTOPINDEX, 0, 0), 30);
    EXPECT_EQ(SendMessageA(list, LB_GETCARETINDEX, 0, 0), 32);
}

// To the system's comparison of texts these names are the same.
TEST_F(MainWindowTest, ANameWithASharpSIsNotTheOneWithTwo) {
    const std::string sharp = "ma\xdf";
    OpenTestWindow(IDC_MODE_WAVE, {"mass.wav", sharp + ".wav"});
    for (const std::string& name : {sharp + ".wav", std::string("mass.wav")}) {
        Drop({AppDirectory + name});
        EXPECT_EQ(OpenedFile(), AppDirectory + name);
    }
    WaveFilesPath = Make(AppDirectory + "mass\\");
    const std::string typed = "c" + Make(AppDirectory + sharp + "\\").substr(1);
    SetDlgItemTextA(MainWindow, IDC_DIRECTORY, typed.c_str());
    EXPECT_NE(WaveFilesPath, typed) << "the field has not been left";
    Command(IDC_DIRECTORY, EN_KILLFOCUS);
    EXPECT_EQ(WaveFilesPath, typed);
}
