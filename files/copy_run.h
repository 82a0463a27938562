// One run of dialog 800 over the selected files.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

struct CopyRun {
    HWND dialog;
    bool move;
    std::string sourceDirectory;
    std::vector<std::string> names;  // as listed
    std::string targetDirectory;
    std::string targetName;  // empty: each file keeps its name
};

// Copies or moves one file after the other and reports each failure; none ends the run.
void CopyFiles(const CopyRun& run);

// Sum of the sizes of those files that can be opened.
uint64_t NeededBytes(const std::string& directory, const std::vector<std::string>& names);
