// The order in which a search goes through a drive, and which of the names it meets it counts.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

// A directory comes before those below it, and is read once: the names of its subdirectories are
// kept for each depth until all have been visited. The length of a path bounds the depth.
struct DriveWalk {
    std::string path;  // of the directory to be read now, with a trailing backslash
    struct Level {
        size_t pathLength;  // of the directory that holds the names
        std::vector<std::string> names;
        size_t next;
    };
    std::vector<Level> levels;
};

// Sets the walk before its root, which is the first directory to be read.
void BeginWalk(DriveWalk& walk, const std::string& root);

// Takes the names of the subdirectories of the directory just read, in the order in which they are
// to be visited, and goes on to the next directory. False when there is none.
bool GoOn(DriveWalk& walk, std::vector<std::string> subdirectories);

// Whether a file name has the extension of one of the masks, each of the form "*.ext"; letters
// match in both cases.
bool MatchesMask(const std::string& name, const std::vector<std::string>& masks);
