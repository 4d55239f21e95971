// DdePeer: the other program in tests of dynamic data exchange.
//
//   DdePeer receive TOPIC COUNT         receives COUNT numbered messages; exits with 0 if all were whole and
//   in order DdePeer send TOPIC NAME COUNT SIZE  sends COUNT numbered messages of SIZE bytes and exits
//   DdePeer echo TOPIC                  sends every message back to the topic given by its item
//   DdePeer mutual OWN OTHER            on every message connects to OTHER, while OTHER connects to it, and
//                                       reports to the topic given by the message's item
//   DdePeer offer SERVICE TOPIC DATA leave|stay
//                                       pokes the data and exits, then or when the conversation has ended;
//                                       exits with 1 if the connection was refused
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
using Words = std::vector<std::string>;

// A failing test may leave this program running.
constexpr int LimitMs = 120'000;

int Receive(Words const& words) {
    DdeEndpoint endpoint(words[1]);
    tests::NumberedMessages messages;
    endpoint.onPoke = [&](HCONV, std::string_view item, std::string_view data) { messages.Take(item, data); };
    bool const isComplete = RunUntil([&] { return messages.Count() >= std::stoul(words[2]); }, LimitMs);
    return isComplete && messages.Faults() == 0 ? 0 : 1;
}

int Send(Words const& words) {
    DdeEndpoint const endpoint(words[2]);
    HCONV const conversation = endpoint.Connect(words[1].c_str());
    if (conversation == nullptr) return 1;
    unsigned long const count = std::stoul(words[3]);
    std::size_t const size = std::stoul(words[4]);
    for (unsigned long i = 0; i < count; ++i) {
        if (!endpoint.Poke(conversation, words[2].c_str(), tests::NumberedMessage(i, size))) return 2;
    }
    return 0;
}

int Echo(Words const& words) {
    DdeEndpoint endpoint(words[1]);
    std::map<std::string, HCONV> replies;
    endpoint.onPoke = [&](HCONV, std::string_view item, std::string_view data) {
        HCONV& reply = replies[std::string(item)];
        if (reply == nullptr) reply = endpoint.Connect(std::string(item).c_str());
        if (!endpoint.Poke(reply, words[1].c_str(), data)) std::exit(3);
    };
    return RunUntil([] { return false; }, LimitMs) ? 0 : 1;
}

int Mutual(Words const& words) {
    DdeEndpoint endpoint(words[1]);
    bool isGreeted = false;
    std::string starter;
    endpoint.onPoke = [&](HCONV, std::string_view item, std::string_view) {
        if (item == "HELLO")
            isGreeted = true;
        else
            starter = item;
    };
    HCONV report = nullptr;
    while (RunUntil([&] { return !starter.empty(); }, LimitMs)) {
        HCONV const conversation = endpoint.Connect(words[2].c_str());
        if (conversation == nullptr) return 1;
        if (!endpoint.Poke(conversation, "HELLO", words[1])) return 2;
        if (!RunUntil([&] { return isGreeted; })) return 3;
        platform::DdeDisconnect(conversation);
        isGreeted = false;
        if (report == nullptr) report = endpoint.Connect(starter.c_str());
        starter.clear();
        if (!endpoint.Poke(report, "DONE", words[1])) return 4;
    }
    return 0;
}

int Offer(Words const& words) {
    DdeEndpoint endpoint("offer");
    bool hasEnded = words[4] != "stay";
    endpoint.onDisconnect = [&](HCONV) { hasEnded = true; };
    HCONV const conversation = endpoint.Connect(words[2].c_str(), words[1].c_str());
    if (conversation == nullptr) return 1;
    if (!endpoint.Poke(conversation, "formula", words[3])) return 2;
    return RunUntil([&] { return hasEnded; }, LimitMs) ? 0 : 3;
}

struct Command {
    char const* name;
    std::size_t words;
    int (*run)(Words const& words);
};
constexpr Command commands[] = {{"receive", 3, Receive},
                                {"send", 5, Send},
                                {"echo", 2, Echo},
                                {"mutual", 3, Mutual},
                                {"offer", 5, Offer}};

}  // namespace

int main(int argc, char** argv) try {
    Words const words(argv + 1, argv + argc);
    for (Command const& command : commands) {
        if (words.size() == command.words && words[0] == command.name) return command.run(words);
    }
    return 64;
} catch (std::exception const& error) {
    std::fprintf(stderr, "DdePeer: %s\n", error.what());
    return 70;
}
