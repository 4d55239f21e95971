#include "KVUtils/Source/messaging/KORVELEvent.h"
#include "KVUtils/Source/messaging/KORVELEventQueue.h"

#include <gtest/gtest.h>

namespace kv {
namespace {

TEST(KORVELEventQueue, IsAContainerInTheOrderOfArrival) {
    KORVELEvent first({}, "A_1", "LOCK");
    KORVELEvent second({}, "B_1", "UNLOCK");
    KORVELEventQueue queue;
    EXPECT_EQ(queue.Get(), nullptr);
    queue.Put(&first);
    queue.Put(&second);
    sv::Container& container = queue;
    EXPECT_EQ(container.Count(), 2U);
    EXPECT_EQ(container.First(), &first);
    EXPECT_EQ(container.Next(), &second);
    EXPECT_EQ(queue.GetPos(&second), 1U);
    EXPECT_EQ(queue.GetObject(1)->GetSender(), "B_1");

    KORVELEventQueue copy = queue;
    EXPECT_EQ(copy, queue);
    EXPECT_EQ(queue.Get(), &first);
    EXPECT_NE(copy, queue);
    copy.Get();
    EXPECT_EQ(copy, queue);
    queue.Clear();
    EXPECT_EQ(queue.Count(), 0U);
}

}  // namespace
}  // namespace kv
