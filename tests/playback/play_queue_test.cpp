// The queue steps through its names, never past them.
#include "playback/play_queue.h"

#include <gtest/gtest.h>

TEST(PlayQueue, StepsThroughAllNamesAndStopsBehindTheLast) {
    PlayQueueState queue;
    EXPECT_EQ(NextQueueName(queue), nullptr);
    StartQueue(queue, "c:\\", {"a", "b"});
    for (const char* expected : {"a", "b"}) {
        ASSERT_NE(NextQueueName(queue), nullptr);
        EXPECT_EQ(*NextQueueName(queue), expected);
        AdvanceQueue(queue);
    }
    EXPECT_EQ(queue.filesLeft, 0u);
    EXPECT_EQ(NextQueueName(queue), nullptr);
    AdvanceQueue(queue);
    EXPECT_EQ(queue.filesLeft, 0u);
    RestartQueue(queue);
    EXPECT_EQ(*NextQueueName(queue), "a");
}

TEST(PlayQueue, TakesNoMoreThanItsLimitAlsoWhenRepeated) {
    PlayQueueState queue;
    StartQueue(queue, "c:\\", std::vector<std::string>(1500, "x"));
    EXPECT_EQ(queue.filesLeft, 1024u);
    for (int i = 0; i < 1024; ++i)
        AdvanceQueue(queue);
    EXPECT_EQ(NextQueueName(queue), nullptr);
    RestartQueue(queue);
    EXPECT_EQ(queue.filesLeft, 1024u);
}
