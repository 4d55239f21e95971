#include "Platform/Tests/DdeEndpoint.h"

#include "Platform/EventLoop.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <stdexcept>

namespace tests {

namespace {

constinit std::array<DdeEndpoint*, 4> endpoints{};

}  // namespace

template <std::size_t Slot>
platform::HDDEDATA DdeEndpoint::Callback(unsigned transaction, unsigned /*format*/,
                                         platform::HCONV conversation, platform::HSZ string1,
                                         platform::HSZ string2, platform::HDDEDATA data,
                                         std::uintptr_t /*value1*/, std::uintptr_t /*value2*/) {
    return endpoints[Slot]->Handle(transaction, conversation, string1, string2, data);
}

DdeEndpoint::DdeEndpoint(std::string const& topic, char const* service) {
    auto const free = std::ranges::find(endpoints, nullptr);
    if (free == endpoints.end()) throw std::logic_error("too many endpoints");
    *free = this;
    slot_ = static_cast<std::size_t>(free - endpoints.begin());
    constexpr std::array<platform::PFNCALLBACK, 4> callbacks{&Callback<0>, &Callback<1>, &Callback<2>,
                                                             &Callback<3>};
    if (platform::DdeInitializeA(&instance_, callbacks[slot_], 0, 0) != platform::DMLERR_NO_ERROR) {
        *free = nullptr;
        throw std::runtime_error("DdeInitializeA failed");
    }
    service_ = platform::DdeCreateStringHandleA(instance_, service, platform::CP_WINANSI);
    topic_ = platform::DdeCreateStringHandleA(instance_, topic.c_str(), platform::CP_WINANSI);
    if (platform::DdeNameService(instance_, service_, nullptr, platform::DNS_REGISTER) == nullptr) {
        throw std::runtime_error("DdeNameService failed");
    }
}

DdeEndpoint::~DdeEndpoint() {
    platform::DdeNameService(instance_, service_, nullptr, platform::DNS_UNREGISTER);
    platform::DdeFreeStringHandle(instance_, topic_);
    platform::DdeFreeStringHandle(instance_, service_);
    platform::DdeUninitialize(instance_);
    endpoints[slot_] = nullptr;
}

platform::HCONV DdeEndpoint::Connect(char const* topic, char const* service) const {
    platform::HSZ const serviceHandle =
        platform::DdeCreateStringHandleA(instance_, service, platform::CP_WINANSI);
    platform::HSZ const topicHandle =
        platform::DdeCreateStringHandleA(instance_, topic, platform::CP_WINANSI);
    platform::HCONV const conversation = platform::DdeConnect(instance_, serviceHandle, topicHandle, nullptr);
    platform::DdeFreeStringHandle(instance_, topicHandle);
    platform::DdeFreeStringHandle(instance_, serviceHandle);
    return conversation;
}

bool DdeEndpoint::Poke(platform::HCONV conversation, char const* item, std::string_view data) const {
    platform::HSZ const itemHandle = platform::DdeCreateStringHandleA(instance_, item, platform::CP_WINANSI);
    platform::HDDEDATA const taken = platform::DdeClientTransaction(
        data.data(), static_cast<std::uint32_t>(data.size()), conversation, itemHandle, platform::CF_TEXT,
        platform::XTYP_POKE, platform::TIMEOUT_ASYNC, nullptr);
    platform::DdeFreeStringHandle(instance_, itemHandle);
    return taken != nullptr;
}

std::string DdeEndpoint::Text(platform::HSZ string) const {
    std::string text(platform::DdeQueryStringA(instance_, string, nullptr, 0, platform::CP_WINANSI), '\0');
    platform::DdeQueryStringA(instance_, string, text.data(), static_cast<std::uint32_t>(text.size() + 1),
                              platform::CP_WINANSI);
    return text;
}

platform::HDDEDATA DdeEndpoint::Handle(unsigned transaction, platform::HCONV conversation,
                                       platform::HSZ string1, platform::HSZ string2,
                                       platform::HDDEDATA data) {
    std::uint32_t length = 0;
    auto const* const bytes =
        reinterpret_cast<char const*>(data == nullptr ? nullptr : platform::DdeAccessData(data, &length));
    std::string_view const view(bytes, bytes == nullptr ? 0 : length);
    switch (transaction) {
        case platform::XTYP_CONNECT:
            log_.push_back("connect " + Text(string2) + ' ' + Text(string1));
            return platform::DdeAnswer(accepts && platform::DdeCmpStringHandles(string1, topic_) == 0 &&
                                       platform::DdeCmpStringHandles(string2, service_) == 0);
        case platform::XTYP_CONNECT_CONFIRM:
            log_.emplace_back("confirm");
            break;
        case platform::XTYP_POKE:
            if (onPoke) {
                onPoke(conversation, Text(string2), view);
            } else {
                log_.push_back("poke " + Text(string2) + ' ' + std::string(view));
            }
            break;
        case platform::XTYP_EXECUTE:
            log_.push_back("execute " + std::string(view));
            break;
        case platform::XTYP_DISCONNECT:
            log_.emplace_back("disconnect");
            if (onDisconnect) onDisconnect(conversation);
            break;
        default:
            return nullptr;
    }
    if (data == nullptr) return nullptr;
    platform::DdeUnaccessData(data);
    return platform::DdeAnswer(platform::DDE_FACK);
}

bool RunUntil(std::function<bool()> const& condition, int limitMs) {
    using Clock = std::chrono::steady_clock;
    auto const deadline = Clock::now() + std::chrono::milliseconds(limitMs);
    while (!condition()) {
        if (Clock::now() > deadline) return false;
        if (!platform::EventLoop::DispatchOne()) platform::EventLoop::Wait(std::chrono::milliseconds(10));
    }
    return true;
}

}  // namespace tests
