#include "Platform/posix/DdeCall.h"

#include "Platform/posix/DdeExchange.h"
#include "Platform/posix/DdeFrame.h"
#include "Platform/posix/DdeOutgoing.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <memory>
#include <poll.h>
#include <span>
#include <sys/socket.h>
#include <utility>
#include <vector>

namespace platform::detail {

namespace {

using Clock = std::chrono::steady_clock;

// A server that refuses closes the socket.
bool IsAccepted(int socket) {
    FrameHeader answer;
    return recv(socket, &answer, sizeof answer, MSG_DONTWAIT) == sizeof answer && answer.IsValid() &&
           answer.kind == FrameKind::Accept;
}

// Waits until one of the calls is answered, and removes and returns it. Serves peers that call this process
// while it waits.
Descriptor AwaitAnswer(std::vector<Descriptor>& calls, Clock::time_point deadline) {
    auto const remaining = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    if (remaining <= 0) {
        calls.clear();
        return {};
    }
    std::vector<pollfd> sockets;
    for (Descriptor const& call : calls) sockets.push_back({call.Number(), POLLIN, 0});
    for (int const waiting : Exchange::Instance().WaitingSockets()) sockets.push_back({waiting, POLLIN, 0});
    if (poll(sockets.data(), sockets.size(), static_cast<int>(remaining)) <= 0) return {};

    auto const firstCaller = sockets.begin() + static_cast<std::ptrdiff_t>(calls.size());
    auto const isReady = [](pollfd const& socket) { return socket.revents != 0; };
    if (auto const ready = std::find_if(sockets.begin(), firstCaller, isReady); ready != firstCaller) {
        auto const call = calls.begin() + (ready - sockets.begin());
        Descriptor answered = std::move(*call);
        calls.erase(call);
        return answered;
    }
    std::for_each(firstCaller, sockets.end(), [&](pollfd const& socket) {
        if (isReady(socket)) Exchange::Instance().StepWaiting(socket.fd);
    });
    return {};
}

}  // namespace

HCONV CallPeers(DdeInstance const& instance, std::string_view service, std::string_view topic) {
    Exchange& exchange = Exchange::Instance();
    std::uint32_t const number = instance.GetNumber();
    std::vector<Descriptor> calls = instance.GetPlace().CallAll();
    std::erase_if(calls, [&](Descriptor const& call) {
        return !SendWhole(call.Number(), FrameKind::Connect, service, topic);
    });
    auto const deadline = Clock::now() + std::chrono::milliseconds(DdeConnectLimitMs);
    // A callback called while waiting may have ended the instance.
    while (!calls.empty() && exchange.FindInstance(number) != nullptr) {
        Descriptor call = AwaitAnswer(calls, deadline);
        if (!call || !IsAccepted(call.Number()) || !SendWhole(call.Number(), FrameKind::Confirm, {}, {}))
            continue;
        return exchange.Add(
            std::make_shared<Conversation>(Conversation::Side::Client, std::move(call), number));
    }
    return nullptr;
}

}  // namespace platform::detail
