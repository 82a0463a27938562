// The queue steps through its names, never past them.
#include "playback/play_queue.h"

#include <gtest/gtest.h>

TEST(PlayQueue, StepsThroughItsNamesUpToTheLimitInEveryRound) {
    PlayQueueState queue;
    EXPECT_EQ(NextQueueName(queue), nullptr);
    std::vector<std::string> names(1500, "x");
    names[1] = "second";
    StartQueue(queue, "c:\\", names);
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(queue.filesLeft, 1024u);
        AdvanceQueue(queue);
        EXPECT_EQ(*NextQueueName(queue), "second");
        for (int i = 1; i < 1030; ++i)
            AdvanceQueue(queue);
        EXPECT_EQ(queue.filesLeft, 0u);
        EXPECT_EQ(NextQueueName(queue), nullptr);
        RestartQueue(queue);
    }
}
