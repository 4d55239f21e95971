#include "Platform/Tests/DdeEndpoint.h"

#include "Platform/EventLoop.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <stdexcept>

namespace tests {

using namespace platform;

namespace {

constinit std::array<DdeEndpoint*, 4> endpoints{};

/// A string handle for the lifetime of this object.
struct StringHandle {
    StringHandle(std::uint32_t owner, char const* text)
        : instance(owner), handle(DdeCreateStringHandleA(owner, text, CP_WINANSI)) {}
    StringHandle(StringHandle const&) = delete;
    StringHandle& operator=(StringHandle const&) = delete;
    ~StringHandle() { DdeFreeStringHandle(instance, handle); }

    std::uint32_t instance;
    HSZ handle;
};

}  // namespace

template <std::size_t Slot>
HDDEDATA DdeEndpoint::Callback(unsigned transaction, unsigned /*format*/, HCONV conversation, HSZ string1,
                               HSZ string2, HDDEDATA data, std::uintptr_t /*value1*/,
                               std::uintptr_t /*value2*/) {
    return endpoints[Slot]->Handle(transaction, conversation, string1, string2, data);
}

DdeEndpoint::DdeEndpoint(std::string const& topic, char const* service) {
    constexpr std::array<PFNCALLBACK, 4> callbacks{&Callback<0>, &Callback<1>, &Callback<2>, &Callback<3>};
    slot_ = static_cast<std::size_t>(std::ranges::find(endpoints, nullptr) - endpoints.begin());
    if (DdeInitializeA(&instance_, callbacks.at(slot_), 0, 0) != DMLERR_NO_ERROR)
        throw std::runtime_error("DdeInitializeA failed");
    endpoints[slot_] = this;
    service_ = DdeCreateStringHandleA(instance_, service, CP_WINANSI);
    topic_ = DdeCreateStringHandleA(instance_, topic.c_str(), CP_WINANSI);
    if (DdeNameService(instance_, service_, nullptr, DNS_REGISTER) == nullptr)
        throw std::runtime_error("DdeNameService failed");
}

DdeEndpoint::~DdeEndpoint() {
    DdeNameService(instance_, service_, nullptr, DNS_UNREGISTER);
    for (HSZ const handle : {topic_, service_}) DdeFreeStringHandle(instance_, handle);
    DdeUninitialize(instance_);
    endpoints[slot_] = nullptr;
}

HCONV DdeEndpoint::Connect(char const* topic, char const* service) const {
    StringHandle const serviceHandle(instance_, service);
    StringHandle const topicHandle(instance_, topic);
    return DdeConnect(instance_, serviceHandle.handle, topicHandle.handle, nullptr);
}

bool DdeEndpoint::Poke(HCONV conversation, char const* item, std::string_view data) const {
    StringHandle const name(instance_, item);
    return DdeClientTransaction(data.data(), static_cast<std::uint32_t>(data.size()), conversation,
                                name.handle, CF_TEXT, XTYP_POKE, TIMEOUT_ASYNC, nullptr) != nullptr;
}

std::string DdeEndpoint::Text(HSZ string) const {
    std::array<char, 256> text{};
    return {text.data(), DdeQueryStringA(instance_, string, text.data(), text.size(), CP_WINANSI)};
}

HDDEDATA DdeEndpoint::Handle(unsigned transaction, HCONV conversation, HSZ string1, HSZ string2,
                             HDDEDATA data) {
    std::uint32_t length = 0;
    auto const* const bytes = data == nullptr ? nullptr : DdeAccessData(data, &length);
    std::string const text(reinterpret_cast<char const*>(bytes), length);
    switch (transaction) {
        case XTYP_CONNECT:
            log_.push_back("connect " + Text(string2) + ' ' + Text(string1));
            return DdeAnswer(accepts && DdeCmpStringHandles(string1, topic_) == 0 &&
                             DdeCmpStringHandles(string2, service_) == 0);
        case XTYP_CONNECT_CONFIRM:
            log_.emplace_back("confirm");
            break;
        case XTYP_POKE:
            onPoke ? onPoke(conversation, Text(string2), text)
                   : log_.push_back("poke " + Text(string2) + ' ' + text);
            break;
        case XTYP_EXECUTE:
            log_.push_back("execute " + text);
            break;
        case XTYP_DISCONNECT:
            log_.emplace_back("disconnect");
            if (onDisconnect) onDisconnect(conversation);
            break;
        default:
            return nullptr;
    }
    if (data == nullptr) return nullptr;
    DdeUnaccessData(data);
    return DdeAnswer(DDE_FACK);
}

bool RunUntil(std::function<bool()> const& condition, int limitMs) {
    using Clock = std::chrono::steady_clock;
    auto const deadline = Clock::now() + std::chrono::milliseconds(limitMs);
    while (!condition()) {
        if (Clock::now() > deadline) return false;
        if (!EventLoop::DispatchOne()) EventLoop::Wait(std::chrono::milliseconds(10));
    }
    return true;
}

}  // namespace tests
