// The headers of the messages after those of the system, whose macros have names of theirs.
// clang-format off
#include <windows.h>

#include <ddeml.h>

#include "KVUtils/Source/messaging/KORVELEvent.h"
#include "KVUtils/Source/messaging/KORVELEventQueue.h"
#include "KVUtils/Source/messaging/PostOffice.h"
#include "KVUtils/Source/messaging/RezepturServer.h"
// clang-format on

#include <gtest/gtest.h>

namespace {

TEST(KORVELEventQueue, WorksWithTheMacrosOfTheSystemBeforeIt) {
    kv::KORVELEvent event({}, "A_1", "LOCK");
    kv::KORVELEventQueue queue;
    queue.Put(&event);
    EXPECT_EQ(queue.GetObject(0), &event);
    EXPECT_EQ(DdeCmpStringHandles(nullptr, nullptr), 0);
}

}  // namespace
