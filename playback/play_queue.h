// The selected files that remain to be played, and how the queue steps.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

// At most this many of the selected files are taken.
constexpr size_t kMaxQueueFiles = 1024;

// The queue keeps its own copy of directory and names, so that a list filled anew under a playing
// queue changes nothing of it.
struct PlayQueueState {
    std::string directory;           // ends in a backslash
    std::vector<std::string> names;  // file names as listed
    size_t index = 0;                // the next name to open
    size_t filesLeft = 0;            // names not yet opened
    int selectedCount = 0;           // as it is shown, beyond the limit too
    bool repeat = false;
};

extern PlayQueueState PlayQueue;

// A new queue from its first file; names beyond the limit are left out. Repeat stays as it is.
void StartQueue(PlayQueueState& queue, const std::string& directory,
                std::vector<std::string> names);
// From the first file again.
void RestartQueue(PlayQueueState& queue);
// After a file has been opened.
void AdvanceQueue(PlayQueueState& queue);
// Nothing is left to play.
void CutQueue(PlayQueueState& queue);
// The next name, or null when the queue is exhausted.
const std::string* NextQueueName(const PlayQueueState& queue);
