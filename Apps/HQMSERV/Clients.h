// Clients: who is connected to the server. The protocol counts on every client's farewell; this class keeps
// an open conversation with each, sees it end when the client dies, and says farewell in its place. So a
// program that crashes leaves no lock behind, and no server that waits for it for ever.
#pragma once

#include "KVUtils/Source/messaging/KORVELEvent.h"
#include "Platform/Ddeml.h"
#include "SV/core/String.h"

#include <cstdint>
#include <vector>

namespace hqmserv {

class Clients {
  public:
    /// One at a time, as the callback has no object. Throws std::runtime_error when the system has no
    /// conversations to offer.
    Clients();
    Clients(Clients const&) = delete;
    Clients& operator=(Clients const&) = delete;
    ~Clients();

    /// Notes what a message says of its sender; to be called with each before it is handled. False for the
    /// late farewell of one that was buried already: it must not count twice.
    [[nodiscard]] bool Note(kv::KORVELEvent const& event);
    /// Takes leave of those that died, by the messages that they owe. To be called by the event loop.
    void BuryTheDead();
    /// Whether this sender is one of those, to whom there is no use in answering.
    [[nodiscard]] bool IsDead(sv::String const& name) const;
    /// Whether there was a client at any time.
    [[nodiscard]] bool HadAny() const noexcept { return hadAny_; }

    /// The user event that asks for `BuryTheDead`.
    static constexpr unsigned long DeathEvent = 2001;

  private:
    struct Client {
        sv::String name;
        platform::HCONV conversation = nullptr;
        int connects = 0;
        int locks = 0;  // those that were not refused
        bool isDead = false;
    };

    void Add(sv::String const& name);
    void Forget(sv::String const& name);
    [[nodiscard]] bool IsLockedByOther(Client const& client) const;
    void Bury(Client const& client);
    static platform::HDDEDATA Callback(unsigned transaction, unsigned format, platform::HCONV conversation,
                                       platform::HSZ string1, platform::HSZ string2, platform::HDDEDATA data,
                                       std::uintptr_t value1, std::uintptr_t value2);

    std::uint32_t instance_ = 0;
    std::vector<Client> clients_;
    std::vector<sv::String> buried_;  // as long as they may have sent their own farewell
    bool hadAny_ = false;

    static Clients* theClients_;
};

}  // namespace hqmserv
