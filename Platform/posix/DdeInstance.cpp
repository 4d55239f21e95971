#include "Platform/posix/DdeInstance.h"

#include "Platform/posix/DdeExchange.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <memory>
#include <sys/socket.h>
#include <utility>

namespace platform::detail {

DdeInstance::DdeInstance(std::uint32_t number, PFNCALLBACK callback, MeetingPlace place)
    : number_(number), callback_(callback), place_(std::move(place)) {}

DdeInstance::~DdeInstance() { UnregisterAll(); }

bool DdeInstance::Step(std::uint32_t /*ready*/) {
    Descriptor peer = AcceptPeer(listener_.Number());
    if (!peer) {
        if (errno == EMFILE || errno == ENFILE) DropPeer();
        return false;
    }
    auto const caller = std::make_shared<Conversation>(Conversation::Side::Server, std::move(peer), number_);
    // The client sends its first frame when it connects.
    return Exchange::Instance().Add(caller) != nullptr && caller->Step(EPOLLIN);
}

void DdeInstance::DropPeer() {
    reserve_ = Descriptor();
    Descriptor const peer(accept4(listener_.Number(), nullptr, nullptr, SOCK_CLOEXEC));
    reserve_ = Descriptor(open("/dev/null", O_RDONLY | O_CLOEXEC));
}

bool DdeInstance::Register(HSZ service) {
    if (HasService(service)) return true;
    if (!listener_ && !StartListening()) return false;
    if (!Exchange::Instance().Strings().Keep(service)) return false;
    services_.push_back(service);
    return true;
}

bool DdeInstance::Unregister(HSZ service) {
    auto const place = std::ranges::find(services_, service);
    if (place == services_.end()) return false;
    Exchange::Instance().Strings().Free(service);
    services_.erase(place);
    if (services_.empty()) StopListening();
    return true;
}

void DdeInstance::UnregisterAll() {
    while (!services_.empty()) Unregister(services_.back());
}

bool DdeInstance::HasService(HSZ service) const noexcept {
    return std::ranges::find(services_, service) != services_.end();
}

bool DdeInstance::StartListening() {
    listener_ = place_.Listen(listenerName_);
    reserve_ = Descriptor(open("/dev/null", O_RDONLY | O_CLOEXEC));
    if (!listener_) return false;
    if (Poller::Instance().Add(listener_.Number(), EPOLLIN, *this)) return true;
    StopListening();
    return false;
}

void DdeInstance::StopListening() {
    place_.Remove(listenerName_);
    Poller::Instance().Remove(listener_.Number(), *this);
    listener_ = Descriptor();
    reserve_ = Descriptor();
}

}  // namespace platform::detail
