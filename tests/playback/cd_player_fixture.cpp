// See cd_player_fixture.h.
#include "tests/playback/cd_player_fixture.h"

#include "app/app_directory.h"
#include "app/program_state.h"
#include "cddb/database_changes.h"
#include "cddb/database_file.h"
#include "cddb/disc_lookup.h"
#include "playback/cd_player.h"
#include "playback/cd_player_state.h"
#include "playback/media_device.h"
#include "resources/ids.h"
#include "ui/boxes.h"
#include "ui/dialog_helpers.h"

std::vector<std::string> Messages;
std::vector<std::string> Questions;
bool Consent;

static void NoteMessage(HWND) {
    Messages.push_back(MessageText);
}
static void NoteQuestion(HWND) {
    Questions.push_back(MessageText);
    QuestionAnswer = Consent ? 0 : 1;
}

// A main window of plain controls with the real one's numbers.
static HWND CreatePlainWindow() {
    HWND window =
        CreateWindowA("STATIC", "", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    for (int id = IDC_ABOUT; id <= IDC_DIRECTORY; ++id) {
        CreateWindowA(id == IDC_SCROLL ? "SCROLLBAR" : "STATIC", "", WS_CHILD, 0, 0, 1, 1, window,
                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
    }
    return window;
}

static std::string DatabasePath() {
    return InAppDirectory("tarnwell.dat");
}

void CdPlayerTest::SetUp() {
    char directory[MAX_PATH];
    GetTempPathA(MAX_PATH, directory);
    AppDirectory = std::string(directory) + "cd_player_test\\";
    CreateDirectoryA(AppDirectory.c_str(), nullptr);
    DeleteFileA(DatabasePath().c_str());
    Boxes = {NoteMessage, NoteQuestion};
    Messages.clear();
    Questions.clear();
    Consent = true;
    CdPlayer = {};
    DriverAvailable.cdAudio = true;
    MainWindow = CreatePlainWindow();
    PlayMode = IDC_MODE_CDPLAYER;
}

void CdPlayerTest::TearDown() {
    Drive.failAt = -1;
    CloseCdPlayer();
    DestroyWindow(MainWindow);
    MainWindow = nullptr;
    DeleteFileA(DatabasePath().c_str());
}

void CdPlayerTest::Start(std::vector<DWORD> trackSeconds) {
    InstallFakeDrive(std::move(trackSeconds));
    OpenCdPlayer();
    ShowCdPlayer();
    TakeLog();
}

void CdPlayerTest::Catalogue(const std::string& artist, const std::string& disc) {
    EntryFields fields;
    fields.artist = artist;
    fields.discName = disc;
    for (int i = 0; i < kMaxTracks; ++i)
        fields.trackNames[i] = disc + " " + char('a' + i % 26);
    EnsureDatabase();
    CopyDiscToc(PlayerDiscToc());
    ASSERT_EQ(AppendEntry(fields), DatabaseResult::ok);
}

void CdPlayerTest::ExpectShown(std::initializer_list<std::pair<int, const char*>> texts) {
    for (const auto& [id, text] : texts)
        EXPECT_EQ(ControlText(MainWindow, id), text) << "control " << id;
}

bool CdPlayerTest::IsShown(int id) {
    return (GetWindowLongA(GetDlgItem(MainWindow, id), GWL_STYLE) & WS_VISIBLE) != 0;
}

int CdPlayerTest::Range() {
    int low = 0;
    int high = 0;
    GetScrollRange(GetDlgItem(MainWindow, IDC_SCROLL), SB_CTL, &low, &high);
    return high;
}

int CdPlayerTest::Thumb() {
    return GetScrollPos(GetDlgItem(MainWindow, IDC_SCROLL), SB_CTL);
}
