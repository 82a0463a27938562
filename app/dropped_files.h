// What the program makes of files and folders that the user drops onto it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/modes.h"

struct DroppedItem {
    std::string path;  // without a separator at its end, but for a drive's root
    bool folder;
};

struct DropPlan {
    const Mode* mode = nullptr;      // null when nothing of it can be played
    std::string directory;           // with its separator
    std::vector<std::string> names;  // to be selected there; all files of the mode when empty
};

// The first media file, or the first folder that has one, decides on mode and directory. Of what
// else was dropped, the media files of that mode and directory are taken too, the rest is ignored.
// A folder is asked for the files of each mode in the order of the tabs.
DropPlan PlanDrop(
    const std::vector<DroppedItem>& items,
    const std::function<bool(const std::string& directory, const Mode& mode)>& hasFiles);
