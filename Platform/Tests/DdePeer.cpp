// DdePeer: the other program in tests of dynamic data exchange.
//
//   DdePeer receive TOPIC COUNT         takes COUNT messages, each sender's numbered from 0; 0 when all were
//                                       whole and in order
//   DdePeer send TOPIC NAME COUNT SIZE  sends so many of so many bytes and ends
//   DdePeer echo TOPIC                  sends every message back to the topic that is its item
//   DdePeer mutual OWN OTHER            at every message connects to OTHER, while OTHER connects to it, and
//                                       says so to the topic that is the message's item
//   DdePeer offer SERVICE TOPIC DATA leave|stay
//                                       pokes the data, and ends then or when the conversation is ended; 1
//                                       when it was refused
#include "Platform/Tests/DdeEndpoint.h"
#include "Platform/Tests/DdeNumbered.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace {

using platform::HCONV;
using tests::DdeEndpoint;
using tests::RunUntil;

// A test that fails may forget this program.
constexpr int LimitMs = 120'000;

int Receive(std::string const& topic, unsigned long count) {
    DdeEndpoint endpoint(topic);
    tests::NumberedMessages messages;
    endpoint.onPoke = [&](HCONV, std::string_view item, std::string_view data) { messages.Take(item, data); };
    bool const isComplete = RunUntil([&] { return messages.Count() >= count; }, LimitMs);
    return isComplete && messages.Faults() == 0 ? 0 : 1;
}

int Send(std::string const& topic, std::string const& name, unsigned long count, std::size_t size) {
    DdeEndpoint endpoint(name);
    HCONV const conversation = endpoint.Connect(topic.c_str());
    if (conversation == nullptr) return 1;
    for (unsigned long i = 0; i < count; ++i) {
        if (!endpoint.Poke(conversation, name.c_str(), tests::NumberedMessage(i, size))) return 2;
    }
    return 0;
}

int Echo(std::string const& topic) {
    DdeEndpoint endpoint(topic);
    std::map<std::string, HCONV, std::less<>> replies;
    endpoint.onPoke = [&](HCONV, std::string_view item, std::string_view data) {
        auto reply = replies.find(item);
        if (reply == replies.end()) {
            std::string const target(item);
            reply = replies.emplace(target, endpoint.Connect(target.c_str())).first;
        }
        if (!endpoint.Poke(reply->second, topic.c_str(), data)) std::exit(3);
    };
    return RunUntil([] { return false; }, LimitMs) ? 0 : 1;
}

int Mutual(std::string const& own, std::string const& other) {
    DdeEndpoint endpoint(own);
    bool hasHeard = false;
    std::string starter;
    endpoint.onPoke = [&](HCONV, std::string_view item, std::string_view) {
        if (item == "HELLO") {
            hasHeard = true;
        } else {
            starter = item;
        }
    };
    HCONV report = nullptr;
    while (RunUntil([&] { return !starter.empty(); }, LimitMs)) {
        HCONV const conversation = endpoint.Connect(other.c_str());
        if (conversation == nullptr) return 1;
        if (!endpoint.Poke(conversation, "HELLO", own)) return 2;
        if (!RunUntil([&] { return hasHeard; })) return 3;
        platform::DdeDisconnect(conversation);
        hasHeard = false;
        if (report == nullptr) report = endpoint.Connect(starter.c_str());
        starter.clear();
        if (!endpoint.Poke(report, "DONE", own)) return 4;
    }
    return 0;
}

int Offer(std::string const& service, std::string const& topic, std::string const& data, bool stays) {
    DdeEndpoint endpoint("offer");
    bool hasEnded = !stays;
    endpoint.onDisconnect = [&](HCONV) { hasEnded = true; };
    HCONV const conversation = endpoint.Connect(topic.c_str(), service.c_str());
    if (conversation == nullptr) return 1;
    if (!endpoint.Poke(conversation, "formula", data)) return 2;
    return RunUntil([&] { return hasEnded; }, LimitMs) ? 0 : 3;
}

int Run(std::vector<std::string> const& words) {
    if (words.size() == 3 && words[0] == "receive") return Receive(words[1], std::stoul(words[2]));
    if (words.size() == 5 && words[0] == "send") {
        return Send(words[1], words[2], std::stoul(words[3]), std::stoul(words[4]));
    }
    if (words.size() == 2 && words[0] == "echo") return Echo(words[1]);
    if (words.size() == 3 && words[0] == "mutual") return Mutual(words[1], words[2]);
    if (words.size() == 5 && words[0] == "offer")
        return Offer(words[1], words[2], words[3], words[4] == "stay");
    return 64;
}

}  // namespace

int main(int argc, char** argv) try {
    return Run({argv + 1, argv + argc});
} catch (std::exception const& error) {
    std::fprintf(stderr, "DdePeer: %s\n", error.what());
    return 70;
}
