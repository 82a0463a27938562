// The programs that the user has chosen.
#include "files/programs.h"

#include <windows.h>

#include "base/settings.h"

constexpr int kPathLimit = 260;  // with its final NUL

ProgramSlot EditorSlot(const MediaType& type) {
    const std::string extension = type.extension;
    const auto index = static_cast<size_t>(&type - MediaTypes().data());
    return {extension + "EditorPath", extension + "EditorName", &Settings.editorChosen[index]};
}

ProgramSlot MixerSlot() {
    return {"VolumeApplicationPath", "VolumeApplicationName", &Settings.volumeChosen};
}

static bool ReadPart(const std::string& key, std::string& text) {
    text = ReadMainSetting(key.c_str(), "0", kPathLimit);
    return !text.empty() && text[0] != '0';
}

bool ReadProgram(const ProgramSlot& slot, Program& program) {
    Program stored;
    if (!ReadPart(slot.directoryKey, stored.directory) || !ReadPart(slot.nameKey, stored.name)) {
        return false;
    }
    program = stored;
    return true;
}

void WriteProgram(const ProgramSlot& slot, const Program& program) {
    WriteMainSetting(slot.directoryKey.c_str(), program.directory.c_str());
    WriteMainSetting(slot.nameKey.c_str(), program.name.c_str());
    *slot.chosen = true;
}

void ClearProgram(const ProgramSlot& slot, WhenNone how) {
    const char* none = how == WhenNone::kWriteZero ? "0" : nullptr;
    WriteMainSetting(slot.directoryKey.c_str(), none);
    WriteMainSetting(slot.nameKey.c_str(), none);
    *slot.chosen = false;
}

static bool IsFile(const std::string& path) {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

// The command line has no quotes, because older programs take them for a part of the name. So that
// nothing else is started, a file in front of the program's path ends the attempt.
bool StartProgram(const Program& program, const std::string& arguments) {
    const std::string path = program.directory + program.name;
    for (const std::string& front : PathsInFront(path)) {
        if (IsFile(front)) return false;
    }
    std::string commandLine = path + arguments;
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process;
    if (!CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &process)) {
        return false;
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return true;
}
