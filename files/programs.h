// The programs that the user has chosen: an editor for each kind of file, a volume mixer.
#pragma once

#include <string>
#include <vector>

#include "base/modes.h"

struct Program {
    std::string directory;  // ends in a backslash
    std::string name;
};

// What is written where no program is chosen any more.
enum class WhenNone { kRemoveKeys, kWriteZero };

// A place in the settings for one program, and the flag in memory that tells whether it was filled
// when the file was last asked.
struct ProgramSlot {
    std::string setting;  // the beginning of its two keys
    WhenNone whenNone;
    bool* chosen;
};
ProgramSlot EditorSlot(const MediaType& type);
ProgramSlot MixerSlot();

// Asks the settings file. False when no program is chosen; `program` is then left alone.
bool ReadProgram(const ProgramSlot& slot, Program& program);
// One without a name is none, and so is one whose name begins with "0": that is how the file says
// none.
void WriteProgram(const ProgramSlot& slot, const Program& program);

// Starts the program and does not wait for it. False when it cannot be started.
bool StartProgram(const Program& program, const std::string& arguments);

// The system reads a command line without quotes from its front: up to each blank it may find
// another program. These are the paths that would be started in the place of `path`.
std::vector<std::string> PathsInFront(const std::string& path);
