// The demo's drive as a program meets it: through MCI, with the sound recorded.
#include <windows.h>

#include <mmsystem.h>

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "tests/desktop/driver.h"

static constexpr double kHeard = 300;  // of 32767, root of the mean square
static constexpr double kSilent = 2;   // the recording's own rounding
static constexpr int kListenMs = 300;

static uint32_t Tmsf(uint32_t track, uint32_t minute, uint32_t second, uint32_t frame) {
    return track | minute << 8 | second << 16 | frame << 24;
}

static bool WaitForSound() {
    return WaitUntil([] { return SoundLevel(kListenMs) > kHeard; });
}

static bool WaitForSilence() {
    return WaitUntil([] { return SoundLevel(kListenMs) < kSilent; });
}

static std::string Directory() {
    char path[MAX_PATH];
    GetTempPathA(MAX_PATH, path);
    return std::string(path) + "demo-devices\\";
}

// A program with the drive open, set to track, minute, second and frame, as a player has it.
struct DriveTest : testing::Test {
    MCIDEVICEID device = 0;

    void SetUp() override {
        CreateDirectoryA(Directory().c_str(), nullptr);
        DeleteFileA((Directory() + "log.txt").c_str());
        SetEnvironmentVariableA("TARNWELL_DRIVE_TRAY", (Directory() + "tray.txt").c_str());
        SetEnvironmentVariableA("TARNWELL_DRIVE_LOG", (Directory() + "log.txt").c_str());
        SetEnvironmentVariableA("TARNWELL_DRIVE_SPINUPMS", "0");
        Insert("");
    }

    void TearDown() override {
        if (device == 0) return;
        Send(MCI_STOP);
        mciSendCommandA(device, MCI_CLOSE, 0, 0);
    }

    static void Insert(const std::string& sheetName) {
        std::ofstream(Directory() + "tray.new") << sheetName << "\r\n";
        MoveFileExA((Directory() + "tray.new").c_str(), (Directory() + "tray.txt").c_str(),
                    MOVEFILE_REPLACE_EXISTING);
    }

    // A disc of tones, one length a track.
    static void MakeDisc(const std::string& sheetName, const std::vector<std::string>& lengths) {
        std::ofstream sheet(Directory() + sheetName);
        int number = 0;
        for (const std::string& length : lengths)
            sheet << "TRACK " << ++number << " AUDIO\nREM TONE 440\nREM LENGTH " << length << "\n";
    }

    void Open() {
        MCI_OPEN_PARMSA open = {};
        open.lpstrDeviceType = "cdaudio";
        ASSERT_EQ(mciSendCommandA(0, MCI_OPEN, MCI_OPEN_TYPE | MCI_WAIT, Block(open)), 0U);
        device = open.wDeviceID;
        MCI_SET_PARMS set = {};
        set.dwTimeFormat = MCI_FORMAT_TMSF;
        ASSERT_EQ(mciSendCommandA(device, MCI_SET, MCI_SET_TIME_FORMAT | MCI_WAIT, Block(set)), 0U);
    }

    template <typename Parameters>
    static DWORD_PTR Block(Parameters& parameters) {
        return reinterpret_cast<DWORD_PTR>(&parameters);
    }

    MCIERROR Send(UINT message, DWORD flags = 0) const {
        MCI_GENERIC_PARMS parameters = {};
        return mciSendCommandA(device, message, flags, Block(parameters));
    }

    MCIERROR Play(uint32_t from) const {
        MCI_PLAY_PARMS play = {};
        play.dwFrom = from;
        return mciSendCommandA(device, MCI_PLAY, MCI_FROM, Block(play));
    }

    // The answer, or the error code made negative.
    long Status(DWORD item, DWORD track = 0) const {
        MCI_STATUS_PARMS status = {};
        status.dwItem = item;
        status.dwTrack = track;
        const DWORD flags = MCI_STATUS_ITEM | MCI_WAIT | (track != 0 ? MCI_TRACK : 0U);
        const MCIERROR error = mciSendCommandA(device, MCI_STATUS, flags, Block(status));
        return error != 0 ? -static_cast<long>(error) : static_cast<long>(status.dwReturn);
    }

    MCIERROR MoveDoor(DWORD flag) const {
        MCI_SET_PARMS set = {};
        return mciSendCommandA(device, MCI_SET, flag, Block(set));
    }

    static std::string Log() {
        std::stringstream text;
        text << std::ifstream(Directory() + "log.txt").rdbuf();
        return text.str();
    }
};

TEST_F(DriveTest, PlaysPausesGoesOnAndEndsAudibly) {
    MakeDisc("tones.cue", {"00:10:00", "00:12:30"});
    Insert("tones.cue");
    Open();
    ASSERT_EQ(Play(Tmsf(1, 0, 2, 30)), 0U);
    EXPECT_EQ(Status(MCI_STATUS_MODE), MCI_MODE_PLAY);
    EXPECT_TRUE(WaitForSound());
    EXPECT_EQ(Send(MCI_PAUSE), 0U);
    EXPECT_EQ(Status(MCI_STATUS_MODE), MCI_MODE_STOP) << "a paused drive reads as stopped";
    const long position = Status(MCI_STATUS_POSITION);
    EXPECT_TRUE(WaitForSilence());
    EXPECT_EQ(Status(MCI_STATUS_POSITION), position);
    MCI_PLAY_PARMS play = {};
    EXPECT_EQ(mciSendCommandA(device, MCI_PLAY, 0, Block(play)), 0U);
    EXPECT_TRUE(WaitForSound());
    ASSERT_EQ(Play(Tmsf(2, 0, 11, 0)), 0U);
    EXPECT_EQ(Status(MCI_STATUS_CURRENT_TRACK), 2);
    EXPECT_TRUE(WaitUntil([this] { return Status(MCI_STATUS_MODE) == MCI_MODE_STOP; }));
    EXPECT_TRUE(WaitForSilence());
    EXPECT_EQ(static_cast<uint32_t>(Status(MCI_STATUS_POSITION)), Tmsf(2, 0, 12, 30));
    EXPECT_NE(Log().find("play flags=00000004 from=1e020001 (01:00:02:30) result=0"),
              std::string::npos)
        << Log();
}

TEST_F(DriveTest, DiscsComeGoAndChangeFromOutside) {
    MakeDisc("first.cue", {"00:30:00", "00:30:00"});
    MakeDisc("second.cue", {"00:20:00", "00:20:00", "00:20:00"});
    Open();
    EXPECT_EQ(Status(MCI_STATUS_MEDIA_PRESENT), FALSE);
    EXPECT_EQ(Status(MCI_STATUS_MODE), MCI_MODE_NOT_READY);
    EXPECT_EQ(Play(Tmsf(1, 0, 0, 0)), static_cast<MCIERROR>(MCIERR_HARDWARE));
    Insert("first.cue");
    EXPECT_EQ(Play(Tmsf(2, 0, 0, 0)), 0U);
    EXPECT_TRUE(WaitForSound());
    Insert("second.cue");
    EXPECT_EQ(Status(MCI_STATUS_NUMBER_OF_TRACKS), 3);
    EXPECT_TRUE(WaitForSilence());
    EXPECT_EQ(MoveDoor(MCI_SET_DOOR_OPEN), 0U);
    EXPECT_EQ(Status(MCI_STATUS_MODE), MCI_MODE_OPEN);
    EXPECT_EQ(MoveDoor(MCI_SET_DOOR_CLOSED), 0U);
    EXPECT_EQ(Status(MCI_STATUS_MODE), MCI_MODE_STOP);
    EXPECT_EQ(Status(MCI_STATUS_MEDIA_PRESENT), TRUE);
    Insert("no such disc.cue");
    EXPECT_EQ(Status(MCI_STATUS_MEDIA_PRESENT), FALSE);
    SetEnvironmentVariableA("TARNWELL_DRIVE_SPINUPMS", "400");
    Insert("first.cue");
    EXPECT_EQ(Status(MCI_STATUS_NUMBER_OF_TRACKS), -MCIERR_DEVICE_NOT_READY);
    EXPECT_TRUE(WaitUntil([this] { return Status(MCI_STATUS_NUMBER_OF_TRACKS) == 2; }));
}

TEST_F(DriveTest, RefusesWhatADriverRefuses) {
    MakeDisc("short.cue", {"00:04:00"});
    Insert("short.cue");
    Open();
    for (const UINT message :
         {MCI_PLAY, MCI_PAUSE, MCI_RESUME, MCI_STOP, MCI_SEEK, MCI_SET, MCI_STATUS, MCI_GETDEVCAPS})
        EXPECT_EQ(mciSendCommandA(device, message, 0, 0),
                  static_cast<MCIERROR>(MCIERR_NULL_PARAMETER_BLOCK))
            << message;
    EXPECT_EQ(Play(Tmsf(1, 0, 4, 30)), static_cast<MCIERROR>(MCIERR_OUTOFRANGE)) << "frame 30";
    EXPECT_EQ(Send(MCI_RESUME), static_cast<MCIERROR>(MCIERR_NONAPPLICABLE_FUNCTION));
    EXPECT_EQ(Send(MCI_RECORD), static_cast<MCIERROR>(MCIERR_UNSUPPORTED_FUNCTION));
    MCI_SET_PARMS set = {};
    set.dwTimeFormat = MCI_FORMAT_FRAMES;
    EXPECT_EQ(mciSendCommandA(device, MCI_SET, MCI_SET_TIME_FORMAT, Block(set)),
              static_cast<MCIERROR>(MCIERR_BAD_TIME_FORMAT));
    MCI_OPEN_PARMSA second = {};
    second.lpstrDeviceType = "cdaudio";
    second.lpstrAlias = "second";  // without a name of its own it does not get as far as the driver
    EXPECT_EQ(
        mciSendCommandA(0, MCI_OPEN, MCI_OPEN_TYPE | MCI_OPEN_ALIAS | MCI_WAIT, Block(second)),
        static_cast<MCIERROR>(MCIERR_MUST_USE_SHAREABLE));
}

TEST_F(DriveTest, PlaysOnAfterCloseAndOpensAgain) {
    MakeDisc("long.cue", {"01:00:00"});
    Insert("long.cue");
    for (int round = 0; round < 3; ++round) {
        Open();
        EXPECT_EQ(Status(MCI_STATUS_MODE), round == 0 ? MCI_MODE_STOP : MCI_MODE_PLAY);
        ASSERT_EQ(Play(Tmsf(1, 0, 1, 0)), 0U);
        ASSERT_EQ(mciSendCommandA(device, MCI_CLOSE, 0, 0), 0U) << "close takes no parameters";
    }
    EXPECT_TRUE(WaitForSound());
    Open();
    EXPECT_EQ(Send(MCI_STOP, MCI_WAIT), 0U);
    EXPECT_TRUE(WaitForSilence());
}
