// ServerLock: the lock by which one client owns a program.
#pragma once

#include "SV/core/String.h"

namespace kv::detail {

class ServerLock {
  public:
    /// Whether a client owns the program.
    [[nodiscard]] bool IsOwned() const noexcept { return owner_ != Nobody; }
    /// Whether messages of this client are handled: the owner's, or everybody's without an owner.
    [[nodiscard]] bool Allows(sv::String const& client) const noexcept {
        return !IsOwned() || client == owner_;
    }

    /// Counts a lock of this client, which becomes the owner. With `showsWaiting` the pointer of waiting is
    /// shown and the active top window disabled.
    void Take(sv::String const& client, bool showsWaiting);
    /// Undoes one lock. The last one frees the program and enables the window again.
    void Release();
    /// Undoes all locks of this client.
    void ReleaseAll(sv::String const& client);

  private:
    static constexpr char Nobody[] = "0";

    sv::String owner_ = Nobody;
    int count_ = 0;
};

}  // namespace kv::detail
