#include "KVUtils/Source/messaging/KORVELEvent.h"
#include "KVUtils/Source/messaging/KORVELEventQueue.h"

#include <gtest/gtest.h>

namespace kv {
namespace {

TEST(KORVELEventQueue, GivesEventsBackInTheOrderOfTheirArrival) {
    KORVELEvent first({}, "A_1", "LOCK");
    KORVELEvent second({}, "B_1", "UNLOCK");
    KORVELEventQueue queue;
    EXPECT_EQ(queue.Get(), nullptr);
    queue.Put(&first);
    queue.Put(&second);
    EXPECT_EQ(queue.Count(), 2U);
    EXPECT_EQ(queue.GetObject(1), &second);
    EXPECT_EQ(queue.GetObject(2), nullptr);
    EXPECT_EQ(queue.GetPos(&second), 1U);

    KORVELEventQueue copy = queue;
    EXPECT_EQ(copy, queue);
    EXPECT_EQ(queue.Get(), &first);
    EXPECT_NE(copy, queue);
    EXPECT_EQ(queue.GetPos(&first), sv::Container::End);
    queue.Clear();
    EXPECT_EQ(queue.Count(), 0U);
    EXPECT_EQ(copy.GetObject(0), &first);
}

}  // namespace
}  // namespace kv
