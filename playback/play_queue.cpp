// The selected files that remain to be played, and how the queue steps.
#include "playback/play_queue.h"

#include <utility>

PlayQueueState PlayQueue;

void StartQueue(PlayQueueState& queue, const std::string& directory,
                std::vector<std::string> names) {
    if (names.size() > kMaxQueueFiles) names.resize(kMaxQueueFiles);
    queue.directory = directory;
    queue.names = std::move(names);
    RestartQueue(queue);
}

void RestartQueue(PlayQueueState& queue) {
    queue.index = 0;
    queue.filesLeft = queue.names.size();
}

void AdvanceQueue(PlayQueueState& queue) {
    if (queue.filesLeft == 0) return;
    ++queue.index;
    --queue.filesLeft;
}

void CutQueue(PlayQueueState& queue) {
    queue.filesLeft = 0;
}

const std::string* NextQueueName(const PlayQueueState& queue) {
    if (queue.filesLeft == 0 || queue.index >= queue.names.size()) return nullptr;
    return &queue.names[queue.index];
}
