// The queue holds as many names as it may and is not stepped past them.
#include "playback/play_queue.h"

#include <gtest/gtest.h>

TEST(PlayQueue, TakesUpToItsLimitAndEndsThere) {
    PlayQueueState queue;
    StartQueue(queue, "c:\\", std::vector<std::string>(1500, "x"));
    EXPECT_EQ(queue.filesLeft, 1024u);
    for (int i = 0; i < 1030; ++i)
        AdvanceQueue(queue);
    EXPECT_EQ(queue.filesLeft, 0u);
    EXPECT_EQ(NextQueueName(queue), nullptr);
}
