#include "Platform/Ddeml.h"
#include "Platform/EventLoop.h"
#include "Platform/Tests/DdeEndpoint.h"
#include "Platform/Tests/RuntimeDirectory.h"
#include "Platform/Tests/TestSystem.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

namespace {

using tests::DdeEndpoint;
using tests::RunUntil;
using Log = std::vector<std::string>;

class DdemlTest : public testing::Test {
    tests::RuntimeDirectory directory_;
};

bool Logged(DdeEndpoint const& endpoint, std::size_t lines) {
    return RunUntil([&] { return endpoint.Log().size() >= lines; });
}

TEST_F(DdemlTest, StringHandles) {
    DdeEndpoint const endpoint("topic");
    std::uint32_t const instance = endpoint.Instance();
    auto const create = [&](char const* text) { return DdeCreateStringHandleA(instance, text, CP_WINANSI); };

    struct Row {
        char const* left;
        char const* right;
        int order;
    };
    for (Row const& row :
         {Row{"KORVEL", "korvel", 0}, Row{"a", "B", -1}, Row{"b", "A", 1}, Row{"a", "ab", -1}}) {
        HSZ const left = create(row.left);
        HSZ const right = create(row.right);
        EXPECT_EQ(DdeCmpStringHandles(left, right), row.order) << row.left << ' ' << row.right;
        EXPECT_EQ(left == right, row.order == 0);
        // One that was made twice is freed twice.
        EXPECT_TRUE(DdeFreeStringHandle(instance, left));
        EXPECT_TRUE(DdeFreeStringHandle(instance, right));
    }

    std::array<char, 5> target{};
    HSZ const name = create("DISCONNECT");
    EXPECT_EQ(DdeQueryStringA(instance, name, nullptr, 0, CP_WINANSI), 10U);
    EXPECT_EQ(DdeQueryStringA(instance, name, target.data(), 5, CP_WINANSI), 4U);
    EXPECT_STREQ(target.data(), "DISC");
    EXPECT_TRUE(DdeFreeStringHandle(instance, name));
    EXPECT_EQ(create(""), nullptr);
}

TEST_F(DdemlTest, AConversationOfAProgramWithItself) {
    DdeEndpoint endpoint("Plain");
    HCONV const conversation = endpoint.Connect("PLAIN", "kvutilstest");
    ASSERT_NE(conversation, nullptr);
    EXPECT_TRUE(endpoint.Poke(conversation, "LOCK", "A_1:\x01"));
    EXPECT_TRUE(endpoint.Poke(conversation, "lock", ""));
    EXPECT_TRUE(Logged(endpoint, 4));
    EXPECT_TRUE(DdeDisconnect(conversation));
    EXPECT_FALSE(endpoint.Poke(conversation, "LOCK", "")) << "the conversation has ended";
    EXPECT_TRUE(Logged(endpoint, 5));
    Log const& log = endpoint.Log();
    EXPECT_EQ(log[1], "confirm");
    EXPECT_EQ(log[2], "poke LOCK A_1:\x01");
    EXPECT_EQ(log[4], "disconnect");
    EXPECT_FALSE(DdeDisconnect(conversation));
}

TEST_F(DdemlTest, RefusesWhatIsNotRegisteredOrNotAccepted) {
    DdeEndpoint first("one");
    DdeEndpoint second("two", "OtherService");
    struct Row {
        char const* topic;
        char const* service;
        std::size_t callsFirst;
        std::size_t callsSecond;
    };
    // The callback hears of registered services alone, and decides on the topic.
    for (Row const& row : {Row{"two", DdeEndpoint::Service, 1, 0}, Row{"one", "OtherService", 0, 1},
                           Row{"one", "NoService", 0, 0}}) {
        first.ClearLog();
        second.ClearLog();
        EXPECT_EQ(first.Connect(row.topic, row.service), nullptr) << row.topic << ' ' << row.service;
        EXPECT_EQ(DdeGetLastError(first.Instance()), DMLERR_NO_CONV_ESTABLISHED);
        EXPECT_EQ(first.Log().size(), row.callsFirst) << row.service;
        EXPECT_EQ(second.Log().size(), row.callsSecond) << row.service;
    }
    EXPECT_NE(first.Connect("two", "OtherService"), nullptr);
    EXPECT_TRUE(DdeNameService(second.Instance(), nullptr, nullptr, DNS_UNREGISTER));
    EXPECT_EQ(first.Connect("two", "OtherService"), nullptr);
}

TEST_F(DdemlTest, OneTransactionADispatch) {
    DdeEndpoint receiver("r");
    DdeEndpoint const sender("s");
    HCONV const conversation = sender.Connect("r");
    std::size_t taken = 0;
    receiver.onPoke = [&](HCONV, std::string_view, std::string_view) { ++taken; };
    for (int i = 0; i < 200; ++i) ASSERT_TRUE(sender.Poke(conversation, "I", "data"));
    std::size_t before = 0;
    EXPECT_TRUE(RunUntil([&] {
        EXPECT_LE(taken, before + 1);
        before = taken;
        return taken == 200;
    }));
}

TEST_F(DdemlTest, ACallbackMayRunTheLoop) {
    DdeEndpoint receiver("r");
    DdeEndpoint const sender("s");
    HCONV const conversation = sender.Connect("r");
    Log order;
    receiver.onPoke = [&](HCONV, std::string_view item, std::string_view data) {
        bool const inTime = item != "OUTER" || RunUntil([&] { return order.size() == 2; });
        EXPECT_TRUE(inTime);
        order.emplace_back(data);
    };
    std::string const large(300'000, 'x');
    ASSERT_TRUE(sender.Poke(conversation, "OUTER", "first"));
    ASSERT_TRUE(sender.Poke(conversation, "INNER", large));
    ASSERT_TRUE(sender.Poke(conversation, "INNER", "third"));
    EXPECT_TRUE(RunUntil([&] { return order.size() == 3; }));
    EXPECT_EQ(order, (Log{large, "third", "first"})) << "the outer data must survive what comes in meanwhile";
}

TEST_F(DdemlTest, DataIsThereWhileTheCallbackRuns) {
    DdeEndpoint receiver("r");
    static std::string copied;
    static HDDEDATA kept;
    copied.clear();
    std::uint32_t instance = 0;
    auto const callback = [](unsigned transaction, unsigned, HCONV, HSZ, HSZ, HDDEDATA data, std::uintptr_t,
                             std::uintptr_t) -> HDDEDATA {
        if (transaction == XTYP_EXECUTE) {
            std::array<char, 4> part{};
            EXPECT_EQ(DdeGetData(data, nullptr, 0, 0), 6U);
            EXPECT_EQ(DdeGetData(data, part.data(), 4, 3), 3U) << "what is behind the offset";
            copied.assign(part.data(), 3);
            kept = data;
        }
        return DdeAnswer(1);
    };
    ASSERT_EQ(DdeInitializeA(&instance, callback, 0, 0), DMLERR_NO_ERROR);
    HSZ const service = DdeCreateStringHandleA(instance, "Exec", CP_WINANSI);
    ASSERT_NE(DdeNameService(instance, service, nullptr, DNS_REGISTER), nullptr);
    HCONV const conversation = receiver.Connect("any", "Exec");
    ASSERT_NE(conversation, nullptr);
    EXPECT_NE(
        DdeClientTransaction("abcdef", 6, conversation, nullptr, 0, XTYP_EXECUTE, TIMEOUT_ASYNC, nullptr),
        nullptr);
    EXPECT_TRUE(RunUntil([] { return !copied.empty(); }));
    EXPECT_EQ(copied, "def");
    EXPECT_TRUE(DdeUninitialize(instance));
    EXPECT_FALSE(DdeUninitialize(instance));
    if (tests::IsUnderWine())
        GTEST_SKIP() << "Wine follows stale handles, and tells no client of the server's end";
    EXPECT_EQ(DdeAccessData(kept, nullptr), nullptr);
    EXPECT_TRUE(Logged(receiver, 1));
}

}  // namespace

}  // namespace platform
