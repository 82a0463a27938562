// The demo's drive and projector as a program meets them: through MCI. What they do over time is
// tested where it is reckoned; that they are seen and heard, where the player plays on them.
#include <windows.h>

#include <mmsystem.h>

#include <digitalv.h>
#include <gtest/gtest.h>

#include "demo/media/film_maker.h"
#include "tests/desktop/driver.h"

static std::string Directory() {
    char path[MAX_PATH];
    GetTempPathA(MAX_PATH, path);
    return std::string(path) + "demo-devices\\";
}

template <typename Parameters>
static DWORD_PTR Block(Parameters& parameters) {
    return reinterpret_cast<DWORD_PTR>(&parameters);
}

struct DeviceTest : testing::Test {
    MCIDEVICEID device = 0;

    void SetUp() override { CreateDirectoryA(Directory().c_str(), nullptr); }
    void TearDown() override {
        if (device == 0) return;
        Send(MCI_STOP);
        mciSendCommandA(device, MCI_CLOSE, 0, 0);
    }

    MCIERROR Send(UINT message, DWORD flags = 0) const {
        MCI_GENERIC_PARMS parameters = {};
        return mciSendCommandA(device, message, flags, Block(parameters));
    }
    MCIERROR Play(DWORD flags, DWORD from = 0, DWORD to = 0) const {
        MCI_PLAY_PARMS play = {0, from, to};
        return mciSendCommandA(device, MCI_PLAY, flags, Block(play));
    }
    MCIERROR Set(DWORD flags, DWORD timeFormat = 0) const {
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
};

struct DriveTest : DeviceTest {
    void SetUp() override {
        DeviceTest::SetUp();
        SetEnvironmentVariableA("TARNWELL_DRIVE_TRAY", (Directory() + "tray.txt").c_str());
        SetEnvironmentVariableA("TARNWELL_DRIVE_SPINUPMS", "0");
        WriteFileBytes(Directory() + "disc.cue",
                       "TRACK 1 AUDIO\nREM TONE 440\nREM LENGTH 00:04:00\n");
        WriteFileBytes(Directory() + "tray.txt", "disc.cue\r\n");
    }
    void Open() {
        MCI_OPEN_PARMSA open = {};
        open.lpstrDeviceType = "cdaudio";
        ASSERT_EQ(mciSendCommandA(0, MCI_OPEN, MCI_OPEN_TYPE | MCI_WAIT, Block(open)), 0U);
        device = open.wDeviceID;
        ASSERT_EQ(Set(MCI_SET_TIME_FORMAT | MCI_WAIT, MCI_FORMAT_TMSF), 0U);
    }
};

TEST_F(DriveTest, PlaysOnAfterCloseAndOpensAgain) {
    for (int round = 0; round < 3; ++round) {
        Open();
        EXPECT_EQ(Status(MCI_STATUS_MODE), round == 0 ? MCI_MODE_STOP : MCI_MODE_PLAY);
        ASSERT_EQ(Play(MCI_FROM, MCI_MAKE_TMSF(1, 0, 1, 0)), 0U);
        ASSERT_EQ(mciSendCommandA(device, MCI_CLOSE, 0, 0), 0U) << "close takes no parameters";
    }
    EXPECT_TRUE(WaitUntil([] { return SoundLevel(300) > 300; }));
    Open();
    EXPECT_EQ(Send(MCI_STOP, MCI_WAIT), 0U);
    EXPECT_TRUE(WaitUntil([] { return SoundLevel(300) < 2; }));
}

// Thirty pictures of 80 by 60, ten a second, each of its own red.
static Bytes ColouredFilm() {
    const auto draw = [](int frame) {
        Bytes picture;
        for (int i = 0; i < 80 * 60; ++i)
            picture.insert(picture.end(), {static_cast<uint8_t>(8 * frame), 40, 200});
        return picture;
    };
    return PackFilm({80, 60, 30, 10}, draw, {}, 22050);
}

// A program with a window, and a place in it for the film.
struct ProjectorTest : DeviceTest {
    HWND window = nullptr;

    void SetUp() override {
        DeviceTest::SetUp();
        WriteFile(Directory() + "film.mov", ColouredFilm());
        window = CreateWindowA("STATIC", "", WS_POPUP | WS_VISIBLE, 100, 100, 300, 200, nullptr,
                               nullptr, nullptr, nullptr);
    }
    void TearDown() override {
        DeviceTest::TearDown();
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
        device = open.wDeviceID;
        return error;
    }
    // Lets the program's messages run until this frame's colour stands at a place of its window;
    // -1 for the window's own.
    bool WaitForFrame(int frame, int x, int y) const {
        POINT place = {x, y};
        ClientToScreen(window, &place);
        return WaitUntil([&] {
            MSG message;
            while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
                DispatchMessageA(&message);
            HDC screen = GetDC(nullptr);
            const COLORREF colour = GetPixel(screen, place.x, place.y);
            ReleaseDC(nullptr, screen);
            const bool isFilm = GetGValue(colour) == 40 && GetBValue(colour) == 200;
            return frame < 0 ? !isFilm : isFilm && GetRValue(colour) == 8 * frame;
        });
    }
};

TEST_F(ProjectorTest, ShowsTheFrameAskedForAtItsPlaceUntilItIsClosed) {
    WriteFileBytes(Directory() + "broken.mov", "moov");
    EXPECT_EQ(Open("broken.mov"), MCIERROR{MCIERR_INVALID_FILE});
    ASSERT_EQ(Open("film.mov"), 0U);
    MCI_DGV_RECT_PARMS where = {};
    ASSERT_EQ(mciSendCommandA(device, MCI_WHERE, MCI_DGV_WHERE_SOURCE | MCI_WAIT, Block(where)),
              0U);
    EXPECT_EQ(where.rc.right, 80);
    EXPECT_EQ(where.rc.bottom, 60);
    EXPECT_TRUE(WaitForFrame(-1, 10, 10)) << "hidden until it plays";
    ASSERT_EQ(Play(MCI_FROM | MCI_TO, 400, 400), 0U);
    EXPECT_TRUE(WaitForFrame(4, 79, 59));
    EXPECT_TRUE(WaitForFrame(-1, 80, 59)) << "the picture has its own size";
    MCI_DGV_RECT_PARMS put = {0, {20, 30, 160, 120}};
    ASSERT_EQ(mciSendCommandA(device, MCI_PUT, MCI_DGV_RECT | MCI_DGV_PUT_WINDOW, Block(put)), 0U);
    EXPECT_TRUE(WaitForFrame(4, 20, 30));
    EXPECT_TRUE(WaitForFrame(-1, 19, 30));

    ASSERT_EQ(Set(MCI_SET_TIME_FORMAT | MCI_WAIT, MCI_FORMAT_FRAMES), 0U);
    EXPECT_EQ(Status(MCI_STATUS_LENGTH), 30);
    ASSERT_EQ(Play(MCI_FROM, 27), 0U);
    EXPECT_TRUE(WaitForFrame(29, 20, 30)) << "the last one stays";
    EXPECT_TRUE(WaitUntil([&] { return Status(MCI_STATUS_MODE) == MCI_MODE_STOP; }));
    EXPECT_EQ(Status(MCI_STATUS_POSITION), 30);
    EXPECT_EQ(Play(MCI_FROM, 31), MCIERROR{MCIERR_OUTOFRANGE});
    ASSERT_EQ(Send(MCI_CLOSE), 0U);
    device = 0;
    EXPECT_TRUE(WaitForFrame(-1, 20, 30)) << "closing takes it away";
}
