// See scratch_drive.h.
#include "tests/scratch_drive.h"

#include <windows.h>

#include <algorithm>

// Runs one of the programs below Wine; paths are relative to a directory.
static bool RunBelow(const std::string& name, const std::string& arguments,
                     const std::string& directory) {
    const std::string program = "z:\\bin\\" + name;
    std::string line = name + " " + arguments;
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    if (!CreateProcessA(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        directory.c_str(), &startup, &process)) {
        return false;
    }
    WaitForSingleObject(process.hProcess, 5000);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return true;
}

// Started programs are not waited for here: their effect is.
static bool WaitFor(const std::string& directory, bool there) {
    for (int tries = 0; tries < 500; ++tries) {
        const DWORD attributes = GetFileAttributesA(directory.c_str());
        if ((attributes != INVALID_FILE_ATTRIBUTES) == there) return true;
        Sleep(10);
    }
    return false;
}

// Drive letters are links beside the directory that is drive C:.
static const std::string kDriveLink = std::string("../dosdevices/") + kScratchLetter + ":";
static const std::string kDriveRoot = std::string(1, kScratchLetter) + ":\\";

bool MakeScratchDrive(const std::string& directory) {
    std::string target = directory.substr(3);
    std::replace(target.begin(), target.end(), '\\', '/');
    return RunBelow("ln", "-sfn \"../drive_c/" + target + "\" " + kDriveLink, "c:\\") &&
           WaitFor(kDriveRoot, true);
}

void RemoveScratchDrive() {
    if (RunBelow("rm", "-f " + kDriveLink, "c:\\")) WaitFor(kDriveRoot, false);
}

bool MakeLink(const std::string& directory, const std::string& name, const std::string& target) {
    return RunBelow("ln", "-sfn " + target + " " + name, directory) &&
           WaitFor(directory + name, true);
}
