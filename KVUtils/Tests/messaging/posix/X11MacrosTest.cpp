// The headers of the messages after macros of X11/Xlib.h, whose names are common words.
#include <gtest/gtest.h>

#define Always 2
#define Bool int
#define Complex 0
#define CursorShape 0
#define False 0
#define None 0L
#define Status int
#define Success 0
#define True 1
#define Unsorted 0

// clang-format off
#include "KVUtils/Source/messaging/KORVELEvent.h"
#include "KVUtils/Source/messaging/KORVELEventQueue.h"
#include "KVUtils/Source/messaging/PostOffice.h"
#include "KVUtils/Source/messaging/RezepturServer.h"
// clang-format on

namespace {

TEST(PostOffice, WorksWithTheMacrosOfX11) {
    EXPECT_EQ(kv::PostOffice::NameOfMessage(kv::PostOffice::AnswerOffset + kv::LOCK), "ANSWER!LOCK");
}

}  // namespace
