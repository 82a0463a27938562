// What the video player sends to the device in the main window's frame and in the window of a large
// film, and what becomes of the queue when any of it fails. Ticks come from the real timers.
#include "playback/video_player.h"

#include <algorithm>
#include <functional>

#include "base/settings.h"
#include "playback/media_device.h"
#include "playback/play_queue.h"
#include "playback/player_timers.h"
#include "tests/stand_ins.h"
#include "ui/dialog_helpers.h"

using testing::IsSupersetOf;

constexpr RECT kSmall = {0, 0, 160, 120};
constexpr RECT kLarge = {0, 0, 320, 240};

// What the user does in a film's window: asked again and again while one is open, until it answers
// true. A film that never gets there is closed.
static std::function<bool(HWND film)> TheUser;
static int TimesAsked;

static VOID CALLBACK AskUser(HWND, UINT, UINT_PTR, DWORD) {
    HWND film = GetLastActivePopup(MainWindow);
    if (GetDlgItem(film, IDC_VIDEO_WINDOW_AREA) == nullptr || !TheUser) return;
    const bool givesUp = ++TimesAsked > 500;
    EXPECT_FALSE(givesUp);
    if (givesUp) SendMessageA(film, WM_CLOSE, 0, 0);
    if (givesUp || TheUser(film)) TheUser = nullptr;
}

class VideoPlayerTest : public testing::Test {
protected:
    void SetUp() override {
        UseStandIns();
        OpenTestWindow(IDC_MODE_VIDEO, {"a.avi", "b.avi", "c.mov"});
        Settings.timerSpeedMs = 10;
        TheMci.frames = 30;
        TheMci.picture = kSmall;
        TimesAsked = 0;
        user = SetTimer(nullptr, 0, 10, AskUser);
    }
    void TearDown() override {
        KillTimer(nullptr, user);
        TheUser = nullptr;
        CloseTestWindow();
    }

    static void Play(int first, int last) {
        SelectFiles(first, last);
        Command(IDC_PLAY);
    }
    static Log OpeningOf(const char* name) { return {"open " + VideoFilesPath + name, "where"}; }
    static Log StartOf(const std::string& sound = "sound on") {
        return {"format 3", sound, "length", "play from 0"};
    }
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
    static bool Close(HWND film) { return SendMessageA(film, WM_CLOSE, 0, 0) == 0; }
    static bool Plays(HWND film) { return ControlText(film, IDC_STATUS) == "Playing"; }
    static bool IsPictureShown() {
        return (GetWindowLongA(GetDlgItem(MainWindow, IDC_VIDEO_AREA), GWL_STYLE) & WS_VISIBLE);
    }
    // The commands but for the polling in between.
    static Log TakeActions() {
        Log log = TakeLog();
        std::erase(log, "mode");
        std::erase(log, "position");
        return log;
    }
    static bool SleepIsHeldOff() { return HoldsOffSleep(SC_SCREENSAVE); }

    UINT_PTR user = 0;
};

TEST_F(VideoPlayerTest, AFilmInTheFrameFromItsOpeningToItsEnd) {
    Play(0, 0);
    EXPECT_EQ(TakeLog(), Joined({OpeningOf("a.avi"), StartOf()}));
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
}

TEST_F(VideoPlayerTest, OnlyQuickTimeFilmsArePausedBeforeASeek) {
    for (const auto& [index, expected] :
         {std::pair{2, Log{"pause", "play from 1"}}, std::pair{0, Log{"play from 1"}}}) {
        SCOPED_TRACE(index);
        std::vector<Log> seeks;
        const auto seekIn = [&](HWND window) {
            TakeLog();
            SendMessageA(window, WM_HSCROLL, SB_LINERIGHT, 0);
            seeks.push_back(TakeActions());
        };
        TheMci.picture = kSmall;
        Play(index, index);
        seekIn(MainWindow);
        // In a window of its own, where Stop and Play open the film once more.
        TheMci.picture = kLarge;
        TheUser = [&](HWND film) {
            if (!Plays(film)) return false;
            seekIn(film);
            if (seeks.size() == 3) return Close(film);
            for (const int id : {IDC_VIDEO_STOP, IDC_VIDEO_PLAY})
                SendMessageA(film, WM_COMMAND, static_cast<WPARAM>(id), 0);
            return false;
        };
        Play(index, index);
        EXPECT_EQ(seeks, std::vector<Log>(3, expected));
    }
}

// Every command of the opening of the first of two films, in the frame and in a window of its own.
TEST_F(VideoPlayerTest, WhicheverCommandFailsTheNextFilmPlays) {
    for (const bool large : {false, true}) {
        const Log own = large ? Log{"close", "open " + VideoFilesPath + "a.avi"} : Log{};
        const Log opening = Joined({OpeningOf("a.avi"), own, StartOf()});
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
            Play(0, 1);
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
    Play(0, 2);
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
    Play(0, 1);
    EXPECT_TRUE(MediaDevice.playAndExit);
    Command(IDC_STOP);
    EXPECT_FALSE(MediaDevice.playAndExit);
    EXPECT_FALSE(IsPositionTimerRunning(MainWindow));
}

TEST_F(VideoPlayerTest, ALargeFilmPlaysInItsOwnWindowUntilItIsClosed) {
    TheMci.picture = {0, 0, 320, -240};
    TheUser = [&](HWND film) {
        if (!Plays(film)) return false;
        EXPECT_EQ(ControlText(film, IDC_LENGTH), "30 Frames");
        EXPECT_EQ(Text(IDC_LENGTH), "") << "the main window shows nothing of it";
        EXPECT_TRUE(IsPositionTimerRunning(film) && !IsPositionTimerRunning(MainWindow));
        EXPECT_TRUE(SleepIsHeldOff());
        EXPECT_EQ(PlayQueue.filesLeft, 1u) << "counted before the window opens";
        RECT area = {};
        GetClientRect(GetDlgItem(film, IDC_VIDEO_WINDOW_AREA), &area);
        EXPECT_EQ(area.right, 320);
        EXPECT_EQ(area.bottom, 240);
        return Close(film);
    };
    MediaDevice.playAndExit = true;
    Play(0, 1);
    const std::string open = OpeningOf("a.avi")[0];
    EXPECT_EQ(TakeActions(),
              Joined({{open, "where", "close", open}, StartOf(), {"stop", "close"}}));
    EXPECT_EQ(PlayQueue.filesLeft, 0u);
    EXPECT_FALSE(MediaDevice.playAndExit || SleepIsHeldOff());
    ExpectShown({{IDC_STATUS, "Ready"}, {IDC_SELECTED_COUNT, "0"}, {IDC_FILE_NAME, ""}});
}

TEST_F(VideoPlayerTest, AtTheEndOfALargeFilm) {
    TheMci.picture = kLarge;
    // Alone, it stays and shows where it ended.
    TheUser = [](HWND film) {
        if (Plays(film)) FileEnds();
        if (Plays(film) || ControlText(film, IDC_POSITION) != "30 Frames") return false;
        EXPECT_FALSE(SleepIsHeldOff());
        return Close(film);
    };
    Play(0, 0);
    EXPECT_FALSE(TheUser) << "closed by itself";

    // Repeated, it is not opened again.
    FilePlays();
    PlayQueue.repeat = true;
    TakeLog();
    const auto times = [](const std::string& line) {
        return std::count(TheMci.log.begin(), TheMci.log.end(), line);
    };
    TheUser = [&](HWND film) {
        const bool enough = times("play from 0") >= 3;
        if (!enough) FileEnds();
        return enough && Close(film);
    };
    Play(0, 0);
    EXPECT_GE(times("play from 0"), 3);
    EXPECT_EQ(times(OpeningOf("a.avi")[0]), 2) << "for its size and for its window";

    // One of several: the queue starts over.
    Log titles = {""};
    TheUser = [&](HWND film) {
        char title[80] = "";
        GetWindowTextA(film, title, sizeof title);
        if (!Plays(film)) return false;
        if (titles.back() == title) {
            FileEnds();
            return false;
        }
        titles.push_back(title);
        FilePlays();
        return titles.size() == 4 && Close(film);
    };
    FilePlays();
    Play(0, 1);
    EXPECT_TRUE(Await([&] { return titles.size() == 4; }));
    EXPECT_EQ(titles.back(), "Tarnwell 1.1 - a.avi");
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
        Play(0, 0);
        EXPECT_TRUE(Await([] { return MainWindow == nullptr; }));
        MSG message;
        PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
    }
}
