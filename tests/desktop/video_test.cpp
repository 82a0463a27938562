// Films in the real program, on the platform's player and on the demo's driver of .mov files: in
// the frame and in a window of their own, seen and heard.
#include <windows.h>

#include <algorithm>
#include <cmath>

#include "demo/media/video_maker.h"
#include "tests/desktop/desktop_test.h"
#include "tests/desktop/screen.h"

constexpr SIZE kSmall = {160, 120};
constexpr SIZE kLarge = {400, 300};

class VideoTest : public DesktopTest {
protected:
    // A film of 15 pictures a second, with a tone or silent; larger ones are run-length coded.
    void AddFilm(const std::string& name, const SIZE& size, int frames, bool heard = true) {
        const bool quickTime = name.ends_with(".mov");
        const Cartoon cartoon = {size.cx, size.cy, frames, 15, size.cx > kSmall.cx};
        std::vector<int16_t> tone(heard ? 22050 / 15 * static_cast<size_t>(frames) : 0);
        for (size_t i = 0; i < tone.size(); ++i)
            tone[i] = static_cast<int16_t>(8000 * std::sin(static_cast<double>(i) * 0.125));
        const Bytes bytes = quickTime ? PackCartoonFilm(cartoon, tone) : PackCartoon(cartoon, tone);
        AddMedia(name, std::string(bytes.begin(), bytes.end()));
    }
};

static bool IsBlack(HWND control) {
    const std::vector<uint32_t> pixels = Photograph(control).pixels;
    return std::ranges::count(pixels, 0u) == std::ssize(pixels);
}

static int FramesShown(HWND window) {
    return atoi(Text(window, IDC_POSITION).c_str());
}

TEST_F(VideoTest, FilmsOfBothSizesPlayInOneQueue) {
    AddFilm("a small.avi", kSmall, 30);
    AddFilm("b large.avi", kLarge, 30);
    AddFilm("c small.avi", kSmall, 30);
    AddMedia("broken.avi", "RIFF (   AVI LIST");
    PutSetting(player, "VideoOutput", "Frames");
    ASSERT_NO_FATAL_FAILURE(StartIn("video"));
    HWND area = Control(player.window, IDC_VIDEO_AREA);
    Play({"a small.avi", "b large.avi", "broken.avi", "c small.avi"});
    ASSERT_TRUE(WaitForShown(IDC_FILE_NAME, "a small.avi"));
    EXPECT_EQ(Shown(IDC_LENGTH), "30 Frames");
    EXPECT_EQ(ScrollMaximum(player), 30);
    EXPECT_TRUE(WaitForPicture(area));
    RECT frame = {};
    RECT picture = {};
    GetWindowRect(Control(player.window, IDC_VIDEO_FRAME), &frame);
    GetWindowRect(area, &picture);
    EXPECT_EQ(picture.right - picture.left, 160);
    EXPECT_NEAR(picture.left - frame.left, frame.right - picture.right, 5) << "not centred";
    EXPECT_NEAR(picture.top - frame.top, frame.bottom - picture.bottom, 5) << "not centred";

    HWND film = Dialog("Tarnwell 1.1 - b large.avi");
    EXPECT_FALSE(IsWindowVisible(area)) << "the first film's last picture";
    EXPECT_TRUE(WaitForPicture(GetDlgItem(film, IDC_VIDEO_WINDOW_AREA)));
    EXPECT_TRUE(WaitForText(film, IDC_STATUS, "Playing"));
    EXPECT_TRUE(WaitUntil([&] { return FramesShown(film) > 5; }));

    // Nobody closes it: the next one is broken, and the one after that plays.
    ASSERT_TRUE(WaitUntil([&] { return !IsWindow(film); }));
    Command(Dialog("Tarnwell Message!"), IDC_OK);
    ASSERT_TRUE(WaitForShown(IDC_FILE_NAME, "c small.avi"));
    EXPECT_TRUE(WaitForPicture(area));
    ASSERT_TRUE(WaitForShown(IDC_STATUS, "Ready"));
    EXPECT_EQ(Shown(IDC_POSITION), "30 Frames");
    EXPECT_FALSE(IsWindowVisible(area)) << "the film has ended";
}

TEST_F(VideoTest, TheWindowOfALargeFilmIsPlayedByHand) {
    AddFilm("large.avi", kLarge, 90, false);
    AddFilm("other.avi", kSmall, 30);
    PutSetting(player, "VideoOutput", "Time");
    ASSERT_NO_FATAL_FAILURE(StartIn("video"));
    Play({"large.avi", "other.avi"});
    HWND film = Dialog("Tarnwell 1.1 - large.avi");
    ASSERT_TRUE(WaitForText(film, IDC_STATUS, "Playing"));
    EXPECT_EQ(ReadOutMs(Text(film, IDC_LENGTH)) / 100, 59);
    Command(film, IDC_VIDEO_PAUSE);
    ASSERT_TRUE(WaitForText(film, IDC_STATUS, "Paused"));
    PostMessageA(film, WM_HSCROLL, MAKELONG(SB_THUMBTRACK, 500), 0);
    PostMessageA(film, WM_HSCROLL, MAKELONG(SB_THUMBPOSITION, 500), 0);
    EXPECT_TRUE(WaitUntil([&] { return ReadOutMs(Text(film, IDC_POSITION)) / 100 == 29; }));
    EXPECT_EQ(Text(film, IDC_STATUS), "Paused");
    Command(film, IDC_VIDEO_PLAY);
    ASSERT_TRUE(WaitForText(film, IDC_STATUS, "Playing"));
    EXPECT_TRUE(WaitUntil([&] { return ReadOutMs(Text(film, IDC_POSITION)) > 3000; }));
    Command(film, IDC_VIDEO_STOP);
    ASSERT_TRUE(WaitForText(film, IDC_STATUS, "Ready"));
    EXPECT_EQ(Text(film, IDC_POSITION), "");
    EXPECT_TRUE(WaitUntil([&] { return IsBlack(GetDlgItem(film, IDC_VIDEO_WINDOW_AREA)); }));
    PressKeyIn(film, VK_ESCAPE);
    ASSERT_TRUE(WaitUntil([&] { return !IsWindow(film); }));
    EXPECT_TRUE(WaitForShown(IDC_STATUS, "Ready"));
    EXPECT_EQ(Shown(IDC_FILES_LEFT), "0") << "closed by hand, the queue ends";
    EXPECT_EQ(WaitForPopup(player, 500), nullptr);
}

TEST_F(VideoTest, SoundIsHeardUntilItIsSwitchedOff) {
    AddFilm("film.mov", kSmall, 240);
    PutSetting(player, "VideoOutput", "Frames");
    ASSERT_NO_FATAL_FAILURE(StartIn("video"));
    Play({"film.mov"});
    ASSERT_TRUE(WaitForShown(IDC_FILE_NAME, "film.mov"));
    HWND area = Control(player.window, IDC_VIDEO_AREA);
    EXPECT_TRUE(WaitForPicture(area));
    const std::vector<uint32_t> first = Photograph(area).pixels;
    EXPECT_TRUE(WaitUntil([&] { return Photograph(area).pixels != first; })) << "it stands still";
    EXPECT_TRUE(WaitForSound());
    Command(player.window, IDC_PAUSE);
    ASSERT_TRUE(WaitForShown(IDC_STATUS, "Paused"));
    Scroll(player, SB_THUMBTRACK, 10);
    Scroll(player, SB_THUMBPOSITION, 10);
    EXPECT_EQ(Shown(IDC_POSITION), "10 Frames");
    Command(player.window, IDC_PAUSE);
    EXPECT_TRUE(WaitUntil([&] { return FramesShown(player.window) > 12; }));
    const auto button = [&] { return Photograph(Control(player.window, IDC_SOUND)).pixels; };
    const std::vector<uint32_t> on = button();
    Command(player.window, IDC_SOUND);
    EXPECT_TRUE(WaitForSilence());
    EXPECT_NE(button(), on);
    EXPECT_EQ(Shown(IDC_STATUS), "Playing");
    Command(player.window, IDC_SOUND);
    EXPECT_TRUE(WaitForSound());
    Command(player.window, IDC_STOP);
    EXPECT_TRUE(WaitForShown(IDC_STATUS, "Ready"));
    // The switch holds for the next film too.
    Command(player.window, IDC_SOUND);
    Play({"film.mov"});
    ASSERT_TRUE(WaitForShown(IDC_FILE_NAME, "film.mov"));
    EXPECT_TRUE(WaitForSilence());
    EXPECT_EQ(Shown(IDC_STATUS), "Playing");
    Scroll(player, SB_THUMBTRACK, 235);
    Scroll(player, SB_THUMBPOSITION, 235);
    EXPECT_TRUE(WaitForShown(IDC_STATUS, "Ready"));
    EXPECT_EQ(Shown(IDC_POSITION), "240 Frames");
}
