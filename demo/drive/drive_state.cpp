// The drive and the world outside: clock, tray file, sound.
#include "demo/drive/drive_state.h"

#include <filesystem>
#include <fstream>

#include "demo/device/command_log.h"
#include "demo/device/device_options.h"

DriveState Drive;

static CRITICAL_SECTION Lock;

void CreateDriveLock() {
    InitializeCriticalSection(&Lock);
}

void DestroyDriveLock() {
    DeleteCriticalSection(&Lock);
}

DriveLock LockDrive() {
    EnterCriticalSection(&Lock);
    return DriveLock(&Lock);
}

// The path of the CUE sheet that the tray file names, empty for an empty tray.
static std::wstring ReadTray() {
    const std::wstring trayPath = ReadTextOption(L"Tray");
    if (trayPath.empty()) return L"";
    std::ifstream file{std::filesystem::path(trayPath)};
    char line[1024] = "";
    file.getline(line, sizeof line);
    std::string name = line;
    while (!name.empty() && (name.back() == '\r' || name.back() == ' '))
        name.pop_back();
    if (name.empty()) return L"";
    const std::filesystem::path sheet(std::u8string(name.begin(), name.end()));
    return (std::filesystem::path(trayPath).parent_path() / sheet).wstring();
}

void RefreshDisc() {
    const std::wstring path = ReadTray();
    if (Drive.wasAsked && path == Drive.discPath) return;
    // A disc that is there at the first look has had its time to spin up.
    const uint32_t spinUpMs = Drive.wasAsked ? ReadNumberOption(L"SpinUpMs", 0) : 0;
    Drive.wasAsked = true;
    Drive.discPath = path;
    Drive.disc = nullptr;
    auto disc = std::make_shared<Disc>();
    if (path.empty()) {
        LogLine("tray empty");
    } else if (LoadDisc(path, *disc)) {
        LogLine("tray disc of " + std::to_string(disc->layout.tracks.size()) + " tracks");
        Drive.disc = disc;
    } else {
        LogLine("tray holds no readable disc");
    }
    ChangeDisc(Drive.transport, Drive.disc ? std::optional(disc->layout) : std::nullopt, NowMs(),
               spinUpMs);
    LetSoundFollow();
}

void LetSoundFollow() {
    const uint64_t now = NowMs();
    if (ModeOfDrive(Drive.transport, now) == DriveMode::kPlaying)
        StartDiscSound(Drive.disc, SectorOfDrive(Drive.transport, now), Drive.transport.endSector);
    else
        StopDiscSound();
}
