// DdeInstance: one instance of dynamic data exchange: a callback and its registered services.
#pragma once

#include "Platform/Ddeml.h"
#include "Platform/posix/DdeMeetingPlace.h"
#include "Platform/posix/Descriptor.h"
#include "Platform/posix/Poller.h"

#include <cstdint>
#include <string>
#include <vector>

namespace platform::detail {

/// Listens while at least one service is registered.
class DdeInstance final : public Watcher {
  public:
    DdeInstance(std::uint32_t number, PFNCALLBACK callback, MeetingPlace place);
    ~DdeInstance() override;

    /// Accepts the next peer.
    bool Step(std::uint32_t ready) override;

    bool Register(HSZ service);
    bool Unregister(HSZ service);
    void UnregisterAll();
    [[nodiscard]] bool HasService(HSZ service) const noexcept;

    [[nodiscard]] std::uint32_t GetNumber() const noexcept { return number_; }
    [[nodiscard]] PFNCALLBACK GetCallback() const noexcept { return callback_; }
    [[nodiscard]] MeetingPlace const& GetPlace() const noexcept { return place_; }
    /// Returns -1 while it does not listen.
    [[nodiscard]] int GetListener() const noexcept { return listener_.Number(); }

    /// Stores an operation's error and returns its result.
    template <class Result>
    Result Fail(unsigned error, Result result) noexcept {
        lastError_ = error;
        return result;
    }
    [[nodiscard]] unsigned TakeLastError() noexcept { return std::exchange(lastError_, DMLERR_NO_ERROR); }

  private:
    [[nodiscard]] bool StartListening();
    void StopListening();
    // Drops a waiting peer when the process has no free descriptor.
    void DropPeer();

    std::uint32_t number_;
    PFNCALLBACK callback_;
    MeetingPlace place_;
    std::vector<HSZ> services_;
    Descriptor listener_;
    std::string listenerName_;
    // Closed for the moment in which a peer is dropped.
    Descriptor reserve_;
    unsigned lastError_ = DMLERR_NO_ERROR;
};

}  // namespace platform::detail
