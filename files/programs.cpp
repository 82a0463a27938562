// The programs that the user has chosen.
#include "files/programs.h"

#include <windows.h>

#include "base/settings.h"

ProgramSlot EditorSlot(const MediaType& type) {
    const std::string extension = type.extension;
    const auto index = static_cast<size_t>(&type - MediaTypes().data());
    return {extension + "Editor", WhenNone::kRemoveKeys, &Settings.editorChosen[index]};
}

ProgramSlot MixerSlot() {
    return {"VolumeApplication", WhenNone::kWriteZero, &Settings.volumeChosen};
}

bool ReadProgram(const ProgramSlot& slot, Program& program) {
    *slot.chosen = ReadProgramSetting(slot.setting, program.directory, program.name);
    return *slot.chosen;
}

// The file may refuse, so the flag is what it says afterwards.
static void Write(const ProgramSlot& slot, const char* directory, const char* name) {
    WriteMainSetting((slot.setting + "Path").c_str(), directory);
    WriteMainSetting((slot.setting + "Name").c_str(), name);
    Program stored;
    ReadProgram(slot, stored);
}

void WriteProgram(const ProgramSlot& slot, const Program& program) {
    if (program.name.empty() || program.name[0] == '0') {
        const char* none = slot.whenNone == WhenNone::kWriteZero ? "0" : nullptr;
        Write(slot, none, none);
    } else {
        Write(slot, program.directory.c_str(), program.name.c_str());
    }
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
