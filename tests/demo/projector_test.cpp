// The demo's projector as a program meets it: through MCI, with its picture on the screen and its
// sound recorded.
#include <windows.h>

#include <mmsystem.h>

#include <digitalv.h>
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <sstream>

#include "demo/media/film_maker.h"
#include "tests/desktop/driver.h"

static constexpr double kHeard = 300;  // of 32767, root of the mean square
static constexpr double kSilent = 2;   // the recording's own rounding
static constexpr int kListenMs = 300;
static constexpr FilmSketch kSketch = {80, 60, 30, 10};

static std::string Directory() {
    char path[MAX_PATH];
    GetTempPathA(MAX_PATH, path);
    return std::string(path) + "demo-projector\\";
}

// Each frame has one colour, brighter in red from frame to frame.
static COLORREF ColourOfFrame(int frame) {
    return RGB(8 * frame, 40, 200);
}

static Bytes Picture(int frame) {
    Bytes picture;
    for (int i = 0; i < kSketch.width * kSketch.height; ++i) {
        const COLORREF colour = ColourOfFrame(frame);
        picture.insert(picture.end(), {GetRValue(colour), GetGValue(colour), GetBValue(colour)});
    }
    return picture;
}

static std::vector<int16_t> Tone() {
    std::vector<int16_t> samples;
    for (int i = 0; i < 3 * 22050; ++i)
        samples.push_back(static_cast<int16_t>(8000 * std::sin(i * 0.1254)));
    return samples;
}

template <typename Parameters>
static DWORD_PTR Block(Parameters& parameters) {
    return reinterpret_cast<DWORD_PTR>(&parameters);
}

// A program with a window, a place in it for the film and the film opened there.
struct ProjectorTest : testing::Test {
    HWND window = nullptr;
    MCIDEVICEID device = 0;

    void SetUp() override {
        CreateDirectoryA(Directory().c_str(), nullptr);
        DeleteFileA((Directory() + "log.txt").c_str());
        SetEnvironmentVariableA("TARNWELL_PROJECTOR_LOG", (Directory() + "log.txt").c_str());
        WriteFile(Directory() + "film.mov", PackFilm(kSketch, Picture, Tone(), 22050));
        window = CreateWindowA("STATIC", "", WS_POPUP | WS_VISIBLE, 100, 100, 300, 200, nullptr,
                               nullptr, nullptr, nullptr);
    }

    void TearDown() override {
        if (device != 0) Send(MCI_CLOSE);
        if (window) DestroyWindow(window);
    }

    MCIERROR Open(const std::string& name) {
        MCI_DGV_OPEN_PARMSA open = {};
        const std::string path = Directory() + name;
        open.lpstrElementName = const_cast<char*>(path.c_str());
        open.dwStyle = WS_CHILD;
        open.hWndParent = window;
        const DWORD flags = MCI_OPEN_ELEMENT | MCI_DGV_OPEN_PARENT | MCI_DGV_OPEN_WS | MCI_WAIT;
        const MCIERROR error = mciSendCommandA(0, MCI_OPEN, flags, Block(open));
        if (error == 0) device = open.wDeviceID;
        return error;
    }

    MCIERROR Send(UINT message, DWORD flags = 0) const {
        MCI_GENERIC_PARMS parameters = {};
        return mciSendCommandA(device, message, flags, Block(parameters));
    }

    MCIERROR Play(DWORD flags = 0, DWORD from = 0, DWORD to = 0) const {
        MCI_PLAY_PARMS play = {0, from, to};
        return mciSendCommandA(device, MCI_PLAY, flags, Block(play));
    }

    MCIERROR Set(DWORD flags, DWORD timeFormat) const {
        MCI_SET_PARMS set = {0, timeFormat, MCI_SET_AUDIO_ALL};
        return mciSendCommandA(device, MCI_SET, flags, Block(set));
    }

    // The answer, or the error code made negative.
    long Status(DWORD item) const {
        MCI_STATUS_PARMS status = {};
        status.dwItem = item;
        const MCIERROR error =
            mciSendCommandA(device, MCI_STATUS, MCI_STATUS_ITEM | MCI_WAIT, Block(status));
        return error != 0 ? -static_cast<long>(error) : static_cast<long>(status.dwReturn);
    }

    // Lets the program's messages run until the condition holds.
    static bool Meanwhile(const std::function<bool()>& condition) {
        return WaitUntil([&] {
            MSG message;
            while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
                DispatchMessageA(&message);
            return condition();
        });
    }

    // The frame whose colour stands at a place of the program's window, -1 for none.
    int FrameShown(int x, int y) const {
        POINT place = {x, y};
        ClientToScreen(window, &place);
        HDC screen = GetDC(nullptr);
        const COLORREF colour = GetPixel(screen, place.x, place.y);
        ReleaseDC(nullptr, screen);
        for (int frame = 0; frame < kSketch.frameCount; ++frame) {
            if (ColourOfFrame(frame) == colour) return frame;
        }
        return -1;
    }

    static std::string Log() {
        std::stringstream text;
        text << std::ifstream(Directory() + "log.txt").rdbuf();
        return text.str();
    }
};

TEST_F(ProjectorTest, PlaysWithPictureAndSoundPausesAndEnds) {
    ASSERT_EQ(Open("film.mov"), 0U);
    EXPECT_EQ(Status(MCI_STATUS_LENGTH), 3000);
    EXPECT_EQ(FrameShown(10, 10), -1) << "hidden until it plays";
    ASSERT_EQ(Play(MCI_FROM, 500), 0U);
    EXPECT_TRUE(Meanwhile([&] { return FrameShown(10, 10) >= 8; }));
    EXPECT_EQ(FrameShown(90, 10), -1) << "the picture has its own size";
    EXPECT_TRUE(Meanwhile([] { return SoundLevel(kListenMs) > kHeard; }));
    EXPECT_EQ(Status(MCI_STATUS_MODE), MCI_MODE_PLAY);

    ASSERT_EQ(Send(MCI_PAUSE), 0U);
    EXPECT_EQ(Status(MCI_STATUS_MODE), MCI_MODE_PAUSE);
    EXPECT_TRUE(Meanwhile([] { return SoundLevel(kListenMs) < kSilent; }));
    const int paused = FrameShown(10, 10);
    EXPECT_EQ(Status(MCI_STATUS_POSITION) / 100, paused);
    ASSERT_EQ(Play(MCI_FROM | MCI_TO, 400, 400), 0U);
    EXPECT_TRUE(Meanwhile([&] { return FrameShown(10, 10) == 4; })) << "seeks show their picture";
    EXPECT_EQ(Status(MCI_STATUS_POSITION), 400);

    ASSERT_EQ(Play(), 0U);
    EXPECT_TRUE(Meanwhile([&] { return Status(MCI_STATUS_MODE) == MCI_MODE_STOP; }));
    EXPECT_EQ(Status(MCI_STATUS_POSITION), 3000);
    EXPECT_TRUE(Meanwhile([&] { return FrameShown(10, 10) == 29; })) << "the last one stays";
    EXPECT_NE(
        Log().find("play flags=0000000c from=00000190 (400 ms) to=00000190 (400 ms) result=0"),
        std::string::npos)
        << Log();
    ASSERT_EQ(Send(MCI_CLOSE), 0U);
    device = 0;
    EXPECT_TRUE(Meanwhile([&] { return FrameShown(10, 10) == -1; })) << "closing takes it away";
}

TEST_F(ProjectorTest, CountsInFramesAndIsSilentWhileItsAudioIsOff) {
    ASSERT_EQ(Open("film.mov"), 0U);
    ASSERT_EQ(Set(MCI_SET_TIME_FORMAT | MCI_WAIT, MCI_FORMAT_FRAMES), 0U);
    EXPECT_EQ(Status(MCI_STATUS_LENGTH), 30);
    ASSERT_EQ(Set(MCI_SET_AUDIO | MCI_SET_OFF | MCI_WAIT, 0), 0U);
    ASSERT_EQ(Play(MCI_FROM, 12), 0U);
    EXPECT_GE(Status(MCI_STATUS_POSITION), 12);
    EXPECT_TRUE(Meanwhile([&] { return Status(MCI_STATUS_POSITION) > 18; }));
    EXPECT_LT(SoundLevel(kListenMs), kSilent);
    ASSERT_EQ(Set(MCI_SET_AUDIO | MCI_SET_ON | MCI_WAIT, 0), 0U);
    EXPECT_TRUE(Meanwhile([] { return SoundLevel(kListenMs) > kHeard; }));
    EXPECT_TRUE(Meanwhile([&] { return Status(MCI_STATUS_POSITION) == 30; }));
    EXPECT_EQ(Play(MCI_FROM, 31), static_cast<MCIERROR>(MCIERR_OUTOFRANGE));
}

TEST_F(ProjectorTest, TellsItsSizeAndTakesAPlace) {
    ASSERT_EQ(Open("film.mov"), 0U);
    MCI_DGV_RECT_PARMS where = {};
    ASSERT_EQ(mciSendCommandA(device, MCI_WHERE, MCI_DGV_WHERE_SOURCE | MCI_WAIT, Block(where)),
              0U);
    EXPECT_EQ(where.rc.right, 80);
    EXPECT_EQ(where.rc.bottom, 60);
    MCI_DGV_RECT_PARMS put = {0, {20, 30, 160, 120}};
    ASSERT_EQ(mciSendCommandA(device, MCI_PUT, MCI_DGV_RECT | MCI_DGV_PUT_WINDOW, Block(put)), 0U);
    put.rc = {40, 0, 120, 120};
    ASSERT_EQ(mciSendCommandA(device, MCI_PUT, MCI_DGV_RECT | MCI_DGV_PUT_DESTINATION, Block(put)),
              0U);
    ASSERT_EQ(Play(MCI_FROM | MCI_TO, 700, 700), 0U);
    EXPECT_TRUE(Meanwhile([&] { return FrameShown(20 + 40 + 119, 30 + 119) == 7; }));
    EXPECT_EQ(FrameShown(20 + 39, 30 + 60), -1);
    ASSERT_EQ(mciSendCommandA(device, MCI_WHERE, MCI_DGV_WHERE_DESTINATION, Block(where)), 0U);
    EXPECT_EQ(where.rc.left, 40);
    EXPECT_EQ(where.rc.right, 120);
}

TEST_F(ProjectorTest, RefusesWhatADriverRefusesAndOutlivesItsWindow) {
    WriteFile(Directory() + "broken.mov", {'m', 'o', 'o', 'v'});
    WriteFile(Directory() + "empty.mov", {});
    EXPECT_EQ(Open("broken.mov"), static_cast<MCIERROR>(MCIERR_INVALID_FILE));
    EXPECT_EQ(Open("empty.mov"), static_cast<MCIERROR>(MCIERR_INVALID_FILE));
    EXPECT_NE(Open("missing.mov"), 0U);
    ASSERT_EQ(Open("film.mov"), 0U);
    for (const UINT message : {MCI_PLAY, MCI_PAUSE, MCI_STOP, MCI_SEEK, MCI_SET, MCI_WHERE})
        EXPECT_EQ(mciSendCommandA(device, message, 0, 0),
                  static_cast<MCIERROR>(MCIERR_NULL_PARAMETER_BLOCK))
            << message;
    EXPECT_EQ(Set(MCI_SET_TIME_FORMAT, MCI_FORMAT_TMSF),
              static_cast<MCIERROR>(MCIERR_BAD_TIME_FORMAT));
    EXPECT_EQ(Send(MCI_RESUME), static_cast<MCIERROR>(MCIERR_NONAPPLICABLE_FUNCTION));
    ASSERT_EQ(Play(), 0U);
    DestroyWindow(window);
    window = nullptr;
    EXPECT_EQ(Status(MCI_STATUS_MODE), MCI_MODE_PLAY);
    EXPECT_EQ(Play(MCI_FROM, 2000), 0U);
    EXPECT_EQ(Send(MCI_STOP), 0U);
}
