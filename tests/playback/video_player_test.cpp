// What the video player sends to the device in the main window's frame and in the window of a large
// film, and what becomes of the queue when any of it fails. Ticks come from the real timers.
#include "playback/video_player.h"

#include <algorithm>
#include <functional>

#include "base/settings.h"
#include "playback/file_player.h"
#include "playback/media_device.h"
#include "playback/play_queue.h"
#include "playback/player_timers.h"
#include "tests/dialog_script.h"
#include "tests/stand_ins.h"
#include "ui/dialog_helpers.h"

using testing::IsSupersetOf;

constexpr RECT kSmall = {0, 0, 160, 120};
constexpr RECT kLarge = {0, 0, 320, 240};

class VideoPlayerTest : public testing::Test {
protected:
    void SetUp() override {
        UseStandIns();
        OpenTestWindow(IDC_MODE_VIDEO, {"a.avi", "b.avi", "c.mov"});
        Settings.timerSpeedMs = 10;
        TheMci.frames = 30;
        TheMci.picture = kSmall;
    }
    void TearDown() override { CloseTestWindow(); }

    static Log OpeningOf(const char* name) { return {"open " + VideoFilesPath + name, "where"}; }
    static Log Start() { return {"format 3", "sound on", "length", "play from 0"}; }
    static Log Joined(std::initializer_list<Log> logs) {
        Log all;
        for (const Log& log : logs)
            all.insert(all.end(), log.begin(), log.end());
        return all;
    }
    // Lets timers and messages come until it is so.
    static bool Await(const std::function<bool()>& condition) {
        for (const DWORD start = GetTickCount(); GetTickCount() - start < 5000;) {
            PumpMessages();
            if (condition()) return true;
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
        }
        return false;
    }
    static bool Plays(HWND film) { return ControlText(film, IDC_STATUS) == "Playing"; }
    // What the user does in the next window of a large film, once it plays; he closes it then.
    static void UseFilm(const std::function<void()>& open, const std::function<void(HWND)>& use) {
        EXPECT_TRUE(RunInDialog(open, [&](HWND film) {
            EXPECT_TRUE(Await([film] { return Plays(film); }));
            use(film);
        }));
    }
    // The commands but for the polling in between.
    static Log TakeActions() {
        Log log = TakeLog();
        std::erase(log, "mode");
        std::erase(log, "position");
        return log;
    }
    static bool SleepIsHeldOff() { return HoldsOffSleep(SC_SCREENSAVE); }
    static bool IsPictureShown() { return IsShown(IDC_VIDEO_AREA); }
};

TEST_F(VideoPlayerTest, AFilmInTheFrameFromItsOpeningToItsEnd) {
    PlayFiles(0, 0);
    EXPECT_EQ(TakeLog(), Joined({OpeningOf("a.avi"), Start()}));
    EXPECT_TRUE(IsPictureShown() && SleepIsHeldOff());
    ExpectShown({{IDC_LENGTH, "30 Frames"}, {IDC_FILES_LEFT, "0"}});
    TheMci.status[MCI_STATUS_POSITION] = 1;
    EXPECT_TRUE(Await([] { return Text(IDC_POSITION) == "1 Frame"; }));
    TakeLog();
    Command(IDC_SOUND);
    EXPECT_EQ(TakeActions(), Log{"sound off"});
    Scroll(SB_THUMBTRACK, 200);
    EXPECT_EQ(TakeActions(), Log{"play from 30"}) << "clamped to the film";
    Scroll(SB_THUMBPOSITION, 30);
    Command(IDC_PAUSE);
    EXPECT_FALSE(SleepIsHeldOff());
    Command(IDC_PAUSE);
    EXPECT_TRUE(SleepIsHeldOff());
    FileEnds();
    EXPECT_TRUE(Await([] { return Text(IDC_STATUS) == "Ready"; }));
    EXPECT_FALSE(IsPictureShown() || SleepIsHeldOff());
    TakeLog();
    Scroll(SB_LINELEFT);
    EXPECT_EQ(TakeActions(), Log{"play from 29"});
    EXPECT_TRUE(IsPictureShown()) << "it plays again";

    Settings.videoFrames = false;
    Command(IDC_PLAY);
    EXPECT_THAT(TakeActions(), IsSupersetOf({"format 0", "sound off"}));
    EXPECT_EQ(Text(IDC_LENGTH), "2.000 Seconds");

    // Two further ways out of a film.
    PlayFiles(0, 1);
    FileEnds();
    OnNextFile(MainWindow);
    EXPECT_EQ(Text(IDC_FILE_NAME), "b.avi");
    Command(IDC_MODE_CDPLAYER);
    EXPECT_FALSE(MediaDevice.open || IsPictureShown());
}

TEST_F(VideoPlayerTest, OnlyQuickTimeFilmsArePausedBeforeASeek) {
    for (const auto& [index, expected] :
         {std::pair{2, Log{"pause", "play from 1"}}, std::pair{0, Log{"play from 1"}}}) {
        const auto expectSeekIn = [&](HWND window) {
            SCOPED_TRACE(index);
            TakeLog();
            SendMessageA(window, WM_HSCROLL, SB_LINERIGHT, 0);
            EXPECT_EQ(TakeActions(), expected);
        };
        TheMci.picture = kSmall;
        PlayFiles(index, index);
        expectSeekIn(MainWindow);
        TheMci.picture = kLarge;
        UseFilm([&] { PlayFiles(index, index); },
                [&](HWND film) {
                    expectSeekIn(film);
                    // Opened once more.
                    Press(film, IDC_VIDEO_STOP);
                    Press(film, IDC_VIDEO_PLAY);
                    expectSeekIn(film);
                });
    }
}

// Every command of the opening of the first of two films, in the frame and in a window of its own.
TEST_F(VideoPlayerTest, WhicheverCommandFailsTheNextFilmPlays) {
    for (const bool large : {false, true}) {
        const Log own = large ? Log{"close", "open " + VideoFilesPath + "a.avi"} : Log{};
        const Log opening = Joined({OpeningOf("a.avi"), own, Start()});
        for (int n = 0; n < static_cast<int>(opening.size()); ++n) {
            SCOPED_TRACE(opening[n] + (large ? ", large" : ", small"));
            TheBoxes = {};
            TheMci.picture = large ? kLarge : kSmall;
            PlayQueue.repeat = true;
            FailCall(n);
            // The second film is small in either case.
            TheBoxes.whileOpen = [] {
                EXPECT_FALSE(MediaDevice.open);
                ExpectShown({{IDC_LENGTH, ""}, {IDC_POSITION, ""}});
                TheMci.picture = kSmall;
            };
            PlayFiles(0, 1);
            EXPECT_TRUE(Await([] { return Text(IDC_FILE_NAME) == "b.avi" && MediaDevice.open; }));
            EXPECT_EQ(TheBoxes.shown, Log{"error 262"});
            EXPECT_FALSE(PlayQueue.repeat);
            ExpectShown(
                {{IDC_SELECTED_COUNT, "2"}, {IDC_FILES_LEFT, "0"}, {IDC_STATUS, "Playing"}});
            EXPECT_TRUE(IsWindowEnabled(MainWindow));
            Command(IDC_STOP);
        }
    }
}

TEST_F(VideoPlayerTest, NoEndlessRowOfBoxesAndNothingLeftRunning) {
    TheMci.picture = {0, 0, 0, 120};
    PlayFiles(0, 2);
    EXPECT_TRUE(Await([] { return TheBoxes.shown.size() == 3; }));
    const DWORD last = GetTickCount();
    EXPECT_TRUE(Await([&] { return GetTickCount() - last > 200; }));
    EXPECT_EQ(TheBoxes.shown, Log(3, "error " + std::to_string(MCIERR_INTERNAL)));
    EXPECT_FALSE(IsPositionTimerRunning(MainWindow) || IsPictureShown());
    ExpectShown({{IDC_STATUS, "Ready"}, {IDC_FILES_LEFT, "0"}});

    // Stop comes between a film that failed and the next one.
    TheMci.picture = kSmall;
    FailCall(0);
    MediaDevice.playAndExit = true;
    PlayFiles(0, 1);
    EXPECT_TRUE(MediaDevice.playAndExit);
    Command(IDC_STOP);
    EXPECT_FALSE(MediaDevice.playAndExit);
    EXPECT_FALSE(IsPositionTimerRunning(MainWindow));
}

TEST_F(VideoPlayerTest, ALargeFilmPlaysInItsOwnWindowUntilItIsClosed) {
    TheMci.picture = {0, 0, 320, -240};
    MediaDevice.playAndExit = true;
    UseFilm([] { PlayFiles(0, 1); },
            [](HWND film) {
                EXPECT_EQ(ControlText(film, IDC_LENGTH), "30 Frames");
                EXPECT_EQ(Text(IDC_LENGTH), "") << "the main window shows nothing of it";
                EXPECT_TRUE(IsPositionTimerRunning(film) && !IsPositionTimerRunning(MainWindow));
                EXPECT_TRUE(SleepIsHeldOff());
                EXPECT_EQ(PlayQueue.filesLeft, 1u) << "counted before the window opens";
                RECT area = {};
                GetClientRect(GetDlgItem(film, IDC_VIDEO_WINDOW_AREA), &area);
                EXPECT_TRUE(area.right == 320 && area.bottom == 240);
            });
    const std::string open = OpeningOf("a.avi")[0];
    EXPECT_EQ(TakeActions(), Joined({{open, "where", "close", open}, Start(), {"stop", "close"}}));
    EXPECT_EQ(PlayQueue.filesLeft, 0u);
    EXPECT_FALSE(MediaDevice.playAndExit || SleepIsHeldOff());
    ExpectShown({{IDC_STATUS, "Ready"}, {IDC_SELECTED_COUNT, "0"}, {IDC_FILE_NAME, ""}});
}

TEST_F(VideoPlayerTest, MediaKeysMeanTheFilmInItsOwnWindow) {
    TheMci.picture = kLarge;
    UseFilm([] { PlayFiles(0, 1); },
            [](HWND film) {
                TakeLog();
                FileEnds();
                TheMci.picture = kSmall;
                for (const int key : {APPCOMMAND_MEDIA_PREVIOUSTRACK, APPCOMMAND_MEDIA_PLAY_PAUSE,
                                      APPCOMMAND_MEDIA_PLAY_PAUSE, APPCOMMAND_MEDIA_NEXTTRACK})
                    SendMessageA(film, WM_APPCOMMAND, 0, MAKELPARAM(0, key));
                EXPECT_EQ(TakeActions(), (Log{"play from 0", "play", "stop", "close"}));
            });
    EXPECT_TRUE(Await([] { return Text(IDC_FILE_NAME) == "b.avi"; }));
}

TEST_F(VideoPlayerTest, AtTheEndOfALargeFilm) {
    TheMci.picture = kLarge;
    const auto playFirst = [] { PlayFiles(0, 0); };
    // Alone, it stays and shows where it ended.
    UseFilm(playFirst, [](HWND film) {
        FileEnds();
        EXPECT_TRUE(Await([film] { return !Plays(film); }));
        EXPECT_EQ(ControlText(film, IDC_POSITION), "30 Frames");
        EXPECT_TRUE(IsWindowVisible(film) && !SleepIsHeldOff());
    });

    // Repeated, it is not opened again.
    const auto times = [](const std::string& line) {
        return std::count(TheMci.log.begin(), TheMci.log.end(), line);
    };
    TakeLog();
    FilePlays();
    PlayQueue.repeat = true;
    UseFilm(playFirst, [&](HWND) {
        FileEnds();
        EXPECT_TRUE(Await([&] { return times("play from 0") >= 3; }));
    });
    EXPECT_EQ(times(OpeningOf("a.avi")[0]), 2) << "for its size and for its window";

    // One of several: the queue starts over.
    Log titles;
    const auto seeFilm = [&](HWND film) {
        char title[80] = "";
        GetWindowTextA(film, title, sizeof title);
        titles.push_back(title);
        FileEnds();
        EXPECT_TRUE(Await([film] { return !IsWindowVisible(film); }));
        FilePlays();
    };
    FilePlays();
    UseFilm([] { PlayFiles(0, 1); }, seeFilm);
    for (const size_t count : {2u, 3u})
        UseFilm([&] { Await([&] { return titles.size() == count; }); }, seeFilm);
    const std::string name = "Tarnwell 1.1 - ";
    EXPECT_EQ(titles, (Log{name + "a.avi", name + "b.avi", name + "a.avi"}));
}

TEST_F(VideoPlayerTest, TheProgramEndsWithItsFilmHoweverThatEnds) {
    // It plays, does not open, tells no length; in a window of its own it plays or does not open.
    for (const auto& [picture, failing] :
         {std::pair{kSmall, -1}, {kSmall, 0}, {kSmall, 4}, {kLarge, -1}, {kLarge, 3}}) {
        SCOPED_TRACE(failing);
        OpenTestWindow(IDC_MODE_VIDEO, {"a.avi"});
        Settings.timerSpeedMs = 10;
        TheMci.picture = picture;
        FileEnds();
        MediaDevice.playAndExit = true;
        FailCall(failing);
        PlayFiles(0, 0);
        EXPECT_TRUE(Await([] { return MainWindow == nullptr; }));
        MSG message;
        PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
    }
}
