#include "Platform/posix/DdeExchange.h"

#include <algorithm>
#include <cerrno>
#include <poll.h>
#include <sys/socket.h>
#include <utility>

namespace platform::detail {

namespace {

constexpr unsigned IndexBits = 20;
constexpr std::uintptr_t IndexMask = (std::uintptr_t{1} << IndexBits) - 1;
// Peers that connect and remain silent hold a descriptor each: beyond this number the oldest is dropped.
constexpr std::ptrdiff_t MaxCallers = 256;
// The timeout for a peer that reads nothing of its queued data when an instance ends.
constexpr int DrainTimeoutMs = 10'000;

bool IsCalling(std::shared_ptr<Conversation> const& conversation) {
    return conversation != nullptr && conversation->GetState() == Conversation::State::Calling;
}

bool IsCaller(std::shared_ptr<Conversation> const& conversation) {
    return IsCalling(conversation) ||
           (conversation != nullptr && conversation->GetState() == Conversation::State::Accepted);
}

// Waits until the peer has read what was sent to it, or stops reading.
void Drain(Conversation& conversation) {
    while (conversation.GetState() == Conversation::State::Leaving) {
        std::size_t const kept = conversation.CountKept();
        pollfd waiting{conversation.GetSocket(), POLLOUT, 0};
        int const count = poll(&waiting, 1, DrainTimeoutMs);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0 || !conversation.Flush() || conversation.CountKept() == kept) return;
    }
}

}  // namespace

Exchange& Exchange::Instance() {
    static Exchange& exchange = *new Exchange;  // NOLINT(cppcoreguidelines-owning-memory): see the header
    return exchange;
}

DdeInstance* Exchange::NewInstance(PFNCALLBACK callback, MeetingPlace place) {
    instances_.push_back(std::make_unique<DdeInstance>(++lastInstance_, callback, std::move(place)));
    return instances_.back().get();
}

DdeInstance* Exchange::FindInstance(std::uint32_t number) const noexcept {
    auto const place = std::ranges::find(instances_, number, [](auto const& i) { return i->GetNumber(); });
    return place == instances_.end() ? nullptr : place->get();
}

void Exchange::EndInstance(std::uint32_t number) {
    // After this nothing calls the callback.
    std::erase_if(instances_, [number](auto const& instance) { return instance->GetNumber() == number; });
    std::vector<std::shared_ptr<Conversation>> conversations;
    for (Place const& place : places_) {
        if (place.conversation != nullptr && place.conversation->GetInstance() == number) {
            conversations.push_back(place.conversation);
        }
    }
    for (auto const& conversation : conversations) conversation->Leave();
    // A peer in this process reads only when the loop runs, which it does not now.
    for (auto const& conversation : conversations) {
        if (!conversation->IsOfThisProcess()) Drain(*conversation);
    }
}

std::vector<int> Exchange::WaitingSockets() const {
    std::vector<int> sockets;
    for (auto const& instance : instances_) {
        if (instance->GetListener() >= 0) sockets.push_back(instance->GetListener());
    }
    for (Place const& place : places_) {
        if (IsCalling(place.conversation)) sockets.push_back(place.conversation->GetSocket());
    }
    return sockets;
}

void Exchange::StepWaiting(int socket) {
    auto const instance =
        std::ranges::find(instances_, socket, [](auto const& i) { return i->GetListener(); });
    if (instance != instances_.end()) {
        (*instance)->Step(EPOLLIN);
        return;
    }
    auto const place = std::ranges::find_if(places_, [socket](Place const& p) {
        return IsCalling(p.conversation) && p.conversation->GetSocket() == socket;
    });
    if (place != places_.end()) place->conversation->Step(EPOLLIN);
}

HCONV Exchange::Add(std::shared_ptr<Conversation> conversation) {
    if (!conversation->Start()) return nullptr;
    auto place = std::ranges::find(places_, nullptr, &Place::conversation);
    if (place == places_.end()) place = places_.emplace(places_.end());
    std::size_t const index = static_cast<std::size_t>(place - places_.begin());
    place->generation = ++lastGeneration_;
    std::uintptr_t const number = (std::uintptr_t{place->generation} << IndexBits) | (index + 1);
    auto const handle = reinterpret_cast<HCONV>(number);  // NOLINT(performance-no-int-to-ptr): never followed
    conversation->SetHandle(handle);
    place->conversation = std::move(conversation);
    DropOldestCaller();
    return handle;
}

void Exchange::DropOldestCaller() {
    auto const isCaller = [](Place const& place) { return IsCaller(place.conversation); };
    if (std::ranges::count_if(places_, isCaller) <= MaxCallers) return;
    auto const oldest = std::ranges::min_element(
        places_, {}, [&](Place const& place) { return std::pair(!isCaller(place), place.generation); });
    std::shared_ptr<Conversation> const conversation = oldest->conversation;
    conversation->Leave();
}

std::shared_ptr<Conversation> Exchange::Find(HCONV handle) const noexcept {
    auto const number = reinterpret_cast<std::uintptr_t>(handle);
    std::size_t const index = (number & IndexMask) - 1;
    if (index >= places_.size() || places_[index].generation != number >> IndexBits) return nullptr;
    return places_[index].conversation;
}

void Exchange::Forget(HCONV handle) noexcept {
    // Destroyed after its removal from the table, since its destructor uses the table.
    std::shared_ptr<Conversation> const conversation = Find(handle);
    if (conversation != nullptr)
        places_[(reinterpret_cast<std::uintptr_t>(handle) & IndexMask) - 1].conversation.reset();
}

HDDEDATA Exchange::OpenTransaction(std::span<std::byte const> bytes) {
    if (openData_ == data_.size()) data_.push_back(std::make_unique<TransactionData>());
    TransactionData& data = *data_[openData_];
    data.assign(bytes.begin(), bytes.end());
    ++openData_;
    return reinterpret_cast<HDDEDATA>(&data);
}

TransactionData const* Exchange::FindData(HDDEDATA data) const noexcept {
    auto const end = data_.begin() + static_cast<std::ptrdiff_t>(openData_);
    auto const place = std::find_if(data_.begin(), end, [data](auto const& open) {
        return reinterpret_cast<HDDEDATA>(open.get()) == data;
    });
    return place == end ? nullptr : place->get();
}

void Exchange::CloseTransaction() noexcept {
    TransactionData& data = *data_[--openData_];
    if (data.capacity() > LargestKeptBuffer) data = {};
}

}  // namespace platform::detail
