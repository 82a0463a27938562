// Films of every size and shape in the real program, and what the driver of .mov files is told.
#include <windows.h>

#include <mmsystem.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "demo/media/film_maker.h"
#include "tests/desktop/desktop_test.h"

class FilmTest : public DesktopTest {
protected:
    void SetUp() override {
        if (!HasVirtualProjector()) GTEST_SKIP() << "no driver for .mov files is registered";
        DesktopTest::SetUp();
        SetEnvironmentVariableA("TARNWELL_PROJECTOR_LOG", LogPath().c_str());
        PutSetting(player, "VideoOutput", "Frames");
    }
    void TearDown() override {
        SetEnvironmentVariableA("TARNWELL_PROJECTOR_LOG", nullptr);
        DesktopTest::TearDown();
    }

    std::string LogPath() { return player.directory + "film.log"; }

    // A silent film of one colour, ten pictures a second.
    void AddFilm(const std::string& name, int width, int height, int frames) {
        const Bytes picture(static_cast<size_t>(width) * static_cast<size_t>(height) * 3, 90);
        const Bytes film = PackFilm(
            {width, height, frames, 10}, [&](int) { return picture; }, {}, 22050);
        AddMedia(name, std::string(film.begin(), film.end()));
    }

    HWND WaitForFilmWindow() {
        HWND window = nullptr;
        WaitUntil([&] {
            window = GetLastActivePopup(player.window);
            return GetDlgItem(window, IDC_VIDEO_WINDOW_AREA) != nullptr && IsWindowVisible(window);
        });
        return GetDlgItem(window, IDC_VIDEO_WINDOW_AREA) != nullptr ? window : nullptr;
    }

    // The commands that reached the driver since the last time, without its answers and without the
    // questions that every tick asks.
    std::vector<std::string> TakeCommands() {
        std::stringstream log;
        log << std::ifstream(LogPath()).rdbuf();
        DeleteFileA(LogPath().c_str());
        std::vector<std::string> commands;
        std::string line;
        while (std::getline(log, line)) {
            std::istringstream words(line);
            std::string time, command, word;
            words >> time >> command;
            while (words >> word) {
                // The numbers in parentheses are what a person reads.
                if (word.starts_with("(")) command += " " + word.substr(1);
                if (word.starts_with("item=") || word.starts_with("format=")) command += " " + word;
                if (word.starts_with("flags=") && command == "set") command += AudioSwitch(word);
            }
            if (command != "status item=4" && command != "status item=2")
                commands.push_back(command);
        }
        return commands;
    }

    static std::string AudioSwitch(const std::string& flagsWord) {
        const auto flags = std::strtoul(flagsWord.c_str() + 6, nullptr, 16);
        if ((flags & MCI_SET_AUDIO) == 0) return "";
        return (flags & MCI_SET_OFF) != 0 ? " audio off" : " audio on";
    }
};

using Commands = std::vector<std::string>;

TEST_F(FilmTest, TheDriverIsPausedBeforeEverySeekAndToldNothingTwice) {
    AddFilm("film.mov", 40, 30, 300);
    ASSERT_NO_FATAL_FAILURE(StartIn("video"));
    ASSERT_NO_FATAL_FAILURE(Play({"film.mov"}));
    ASSERT_TRUE(WaitForShown(IDC_FILE_NAME, "film.mov"));
    EXPECT_EQ(TakeCommands(), (Commands{"open", "where", "set format=3", "set audio on",
                                        "status item=1", "play 0"}));
    Scroll(player, SB_THUMBTRACK, 100);
    Scroll(player, SB_THUMBPOSITION, 100);
    EXPECT_EQ(TakeCommands(), (Commands{"pause", "play 100"}));
    Command(player.window, IDC_PAUSE);
    ASSERT_TRUE(WaitForShown(IDC_STATUS, "Paused"));
    EXPECT_EQ(TakeCommands(), (Commands{"pause"}));
    Scroll(player, SB_THUMBTRACK, 50);
    Scroll(player, SB_THUMBPOSITION, 50);
    EXPECT_EQ(Shown(IDC_POSITION), "50 Frames");
    EXPECT_EQ(TakeCommands(), (Commands{"pause", "play 50 50"}));
    Command(player.window, IDC_SOUND);
    Command(player.window, IDC_PAUSE);
    ASSERT_TRUE(WaitForShown(IDC_STATUS, "Playing"));
    EXPECT_TRUE(WaitUntil([&] { return std::atoi(Shown(IDC_POSITION).c_str()) > 52; }))
        << "does not play on from there";
    EXPECT_EQ(TakeCommands(), (Commands{"set audio off", "play"}));
    Command(player.window, IDC_STOP);
    ASSERT_TRUE(WaitForShown(IDC_STATUS, "Ready"));
    EXPECT_EQ(TakeCommands(), (Commands{"stop", "close"}));
}

TEST_F(FilmTest, ALargeFilmIsOpenedForItsSizeAndAgainInItsWindowWhichStaysAtItsEnd) {
    AddFilm("large.mov", 500, 100, 8);
    ASSERT_NO_FATAL_FAILURE(StartIn("video"));
    ASSERT_NO_FATAL_FAILURE(Play({"large.mov"}));
    HWND film = WaitForFilmWindow();
    ASSERT_NE(film, nullptr);
    EXPECT_EQ(Title(film), "Tarnwell 1.1 - large.mov");
    ASSERT_TRUE(WaitForText(film, IDC_POSITION, "8 Frames"));
    ASSERT_TRUE(WaitForText(film, IDC_STATUS, "Ready"));
    EXPECT_EQ(TakeCommands(), (Commands{"open", "where", "close", "open", "set format=3",
                                        "set audio on", "status item=1", "play 0"}));
    EXPECT_FALSE(WaitUntil([&] { return !IsWindow(film); }, 1000)) << "stays, showing its end";
    SendMessageA(film, WM_SYSCOMMAND, SC_CLOSE, 0);
    ASSERT_TRUE(WaitForNoPopup(player));
    EXPECT_EQ(TakeCommands(), (Commands{"stop", "close"}));
    EXPECT_EQ(Shown(IDC_STATUS), "Ready");
    EXPECT_EQ(Shown(IDC_SELECTED_COUNT), "0");
    EXPECT_EQ(Shown(IDC_LENGTH), "");
}

TEST_F(FilmTest, OnePixelMoreThanTheFrameOpensTheWindow) {
    ASSERT_NO_FATAL_FAILURE(StartIn("video"));
    RECT frame = {};
    GetClientRect(Control(player.window, IDC_VIDEO_FRAME), &frame);
    AddFilm("exact.mov", frame.right, frame.bottom, 60);
    AddFilm("wider.mov", frame.right + 1, 20, 60);
    AddFilm("higher.mov", 20, frame.bottom + 1, 60);
    ASSERT_NO_FATAL_FAILURE(StartIn("video"));
    ASSERT_NO_FATAL_FAILURE(Play({"exact.mov"}));
    ASSERT_TRUE(WaitForShown(IDC_FILE_NAME, "exact.mov"));
    RECT area = {};
    GetWindowRect(Control(player.window, IDC_VIDEO_AREA), &area);
    EXPECT_EQ(area.right - area.left, frame.right);
    EXPECT_EQ(area.bottom - area.top, frame.bottom);
    for (const char* name : {"wider.mov", "higher.mov"}) {
        ASSERT_NO_FATAL_FAILURE(Play({name}));
        HWND film = WaitForFilmWindow();
        ASSERT_NE(film, nullptr) << name;
        SendMessageA(film, WM_SYSCOMMAND, SC_CLOSE, 0);
        ASSERT_TRUE(WaitForNoPopup(player));
    }
}

TEST_F(FilmTest, OddLengthsAndSizesPlay) {
    AddFilm("a dot.mov", 1, 1, 65546);
    AddFilm("b one.mov", 30, 20, 1);
    AddFilm("c long.mov", 1, 1, 65536);
    ASSERT_NO_FATAL_FAILURE(StartIn("video"));
    const struct {
        const char* name;
        const char* length;
        int range;
    } cases[] = {{"a dot.mov", "65546 Frames", 10},
                 {"b one.mov", "1 Frame", 1},
                 {"c long.mov", "65536 Frames", 0}};
    for (const auto& one : cases) {
        ASSERT_NO_FATAL_FAILURE(Play({one.name}));
        ASSERT_TRUE(WaitForShown(IDC_FILE_NAME, one.name));
        EXPECT_EQ(Shown(IDC_LENGTH), one.length);
        EXPECT_EQ(ScrollMaximum(player), one.range);
        EXPECT_TRUE(WaitUntil([&] { return Shown(IDC_POSITION) != "0 Frames"; })) << one.name;
    }
    EXPECT_EQ(WaitForPopup(player, 300), nullptr);
}

TEST_F(FilmTest, FilmsThatDoNotOpenArePassedOverWithABoxEach) {
    AddMedia("a empty.mov", "");
    AddMedia("b broken.avi", "RIFF and then nothing");
    AddFilm("c gone.mov", 20, 20, 10);
    AddFilm("d good.mov", 20, 20, 30);
    ASSERT_NO_FATAL_FAILURE(StartIn("video"));
    DeleteFileA((MediaDirectory() + "c gone.mov").c_str());
    ASSERT_NO_FATAL_FAILURE(Play(ListTexts(List())));
    for (const char* left : {"3", "2", "1"}) {
        ASSERT_TRUE(WaitUntil([&] { return Title(WaitForPopup(player)) == "Tarnwell Message!"; }));
        EXPECT_EQ(Shown(IDC_FILES_LEFT), left);
        EXPECT_EQ(Shown(IDC_LENGTH), "");
        Command(WaitForPopup(player), IDC_OK);
        ASSERT_TRUE(WaitUntil([&] { return Shown(IDC_FILES_LEFT) != left; }));
    }
    ASSERT_TRUE(WaitForShown(IDC_FILE_NAME, "d good.mov"));
    EXPECT_EQ(Shown(IDC_SELECTED_COUNT), "4");
    EXPECT_TRUE(WaitForShown(IDC_STATUS, "Ready"));
    EXPECT_EQ(WaitForPopup(player, 300), nullptr);
}

TEST_F(FilmTest, AFilmLargerThanTheScreenLeavesItsWindowOnIt) {
    AddFilm("huge.mov", 1300, 900, 4);
    ASSERT_NO_FATAL_FAILURE(StartIn("video"));
    ASSERT_NO_FATAL_FAILURE(Play({"huge.mov"}));
    HWND film = WaitForFilmWindow();
    ASSERT_NE(film, nullptr);
    RECT place = {};
    GetWindowRect(film, &place);
    EXPECT_GE(place.left, 0);
    EXPECT_GE(place.top, 0);
    EXPECT_LE(place.right, GetSystemMetrics(SM_CXSCREEN));
    EXPECT_LE(place.bottom, GetSystemMetrics(SM_CYSCREEN));
    RECT area = {};
    GetWindowRect(Control(film, IDC_VIDEO_WINDOW_AREA), &area);
    EXPECT_EQ(area.right - area.left, 1300) << "keeps its size";
    SetForegroundWindow(film);
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(WaitForNoPopup(player));
}
