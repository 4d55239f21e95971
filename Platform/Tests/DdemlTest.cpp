#include "Platform/Ddeml.h"
#include "Platform/Tests/DdeEndpoint.h"
#include "Platform/Tests/RuntimeDirectory.h"
#include "Platform/Tests/TestSystem.h"

#include <gtest/gtest.h>

#include <array>

namespace platform {

namespace {

using tests::DdeEndpoint;
using tests::RunUntil;
using Log = std::vector<std::string>;

class DdemlTest : public testing::Test {
    tests::RuntimeDirectory directory_;
};

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
        for (HSZ const handle : {left, right}) EXPECT_TRUE(DdeFreeStringHandle(instance, handle));
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
    DdeEndpoint const endpoint("Plain");
    HCONV const conversation = endpoint.Connect("PLAIN", "kvutilstest");
    ASSERT_NE(conversation, nullptr);
    EXPECT_TRUE(endpoint.Poke(conversation, "LOCK", "A_1:\x01"));
    EXPECT_TRUE(endpoint.Poke(conversation, "unlock", ""));
    EXPECT_TRUE(RunUntil([&] { return endpoint.Log().size() == 4; }));
    EXPECT_TRUE(DdeDisconnect(conversation));
    EXPECT_FALSE(endpoint.Poke(conversation, "LOCK", "")) << "the conversation has ended";
    EXPECT_FALSE(DdeDisconnect(conversation));
    EXPECT_TRUE(RunUntil([&] { return endpoint.Log().size() == 5; }));
    EXPECT_EQ(Log(endpoint.Log().begin() + 1, endpoint.Log().end()),
              (Log{"confirm", "poke LOCK A_1:\x01", "poke unlock ", "disconnect"}));
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
    // The callback is called for registered services only, and decides on the topic.
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

TEST_F(DdemlTest, OneTransactionPerDispatchAlsoWithinACallback) {
    DdeEndpoint receiver("r");
    DdeEndpoint const sender("s");
    HCONV const conversation = sender.Connect("r");
    Log order;
    receiver.onPoke = [&](HCONV, std::string_view item, std::string_view data) {
        EXPECT_TRUE(item != "OUTER" || RunUntil([&] { return order.size() == 2; }));
        order.emplace_back(data);
    };
    std::string const large(300'000, 'x');
    ASSERT_TRUE(sender.Poke(conversation, "OUTER", "first"));
    ASSERT_TRUE(sender.Poke(conversation, "INNER", large));
    ASSERT_TRUE(sender.Poke(conversation, "INNER", "third"));
    EXPECT_TRUE(RunUntil([&] { return order.size() == 3; }));
    EXPECT_EQ(order, (Log{large, "third", "first"})) << "the outer data survives the inner calls";

    for (int i = 0; i < 200; ++i) ASSERT_TRUE(sender.Poke(conversation, "I", "data"));
    std::size_t before = order.size();
    EXPECT_TRUE(RunUntil([&] {
        EXPECT_LE(order.size(), before + 1);
        before = order.size();
        return before == 203;
    }));
}

TEST_F(DdemlTest, DataIsValidWhileTheCallbackRuns) {
    DdeEndpoint const client("client");
    static std::string copied;
    static HDDEDATA kept;
    copied.clear();
    auto const callback = [](unsigned transaction, unsigned, HCONV, HSZ, HSZ, HDDEDATA data, std::uintptr_t,
                             std::uintptr_t) -> HDDEDATA {
        if (transaction == XTYP_EXECUTE) {
            std::array<char, 4> part{};
            EXPECT_EQ(DdeGetData(data, nullptr, 0, 0), 6U);
            EXPECT_EQ(DdeGetData(data, part.data(), 4, 3), 3U) << "from the offset to the end";
            copied.assign(part.data(), 3);
            kept = data;
        }
        return DdeAnswer(1);
    };
    std::uint32_t instance = 0;
    ASSERT_EQ(DdeInitializeA(&instance, callback, 0, 0), DMLERR_NO_ERROR);
    HSZ const service = DdeCreateStringHandleA(instance, "Exec", CP_WINANSI);
    ASSERT_NE(DdeNameService(instance, service, nullptr, DNS_REGISTER), nullptr);
    HCONV const conversation = client.Connect("any", "Exec");
    ASSERT_NE(conversation, nullptr);
    EXPECT_NE(
        DdeClientTransaction("abcdef", 6, conversation, nullptr, 0, XTYP_EXECUTE, TIMEOUT_ASYNC, nullptr),
        nullptr);
    EXPECT_TRUE(RunUntil([] { return !copied.empty(); }));
    EXPECT_EQ(copied, "def");
    EXPECT_TRUE(DdeUninitialize(instance));
    EXPECT_FALSE(DdeUninitialize(instance));
    if (tests::IsUnderWine())
        GTEST_SKIP() << "Wine follows stale handles and does not report the server's end";
    EXPECT_EQ(DdeAccessData(kept, nullptr), nullptr);
    EXPECT_TRUE(RunUntil([&] { return client.Log().size() == 1; }));
}

}  // namespace

}  // namespace platform
