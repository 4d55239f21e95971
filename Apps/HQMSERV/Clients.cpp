#include "Apps/HQMSERV/Clients.h"

#include "Apps/suite/ServerProbe.h"
#include "KVUtils/Source/messaging/PostOffice.h"
#include "KVUtils/Source/messaging/detail/MessageWire.h"
#include "SV/core/Application.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace hqmserv {

namespace {

/// Hands the office a message as if the client had sent it.
void SayFor(sv::String const& client, int message) {
    kv::KORVELEvent event({}, client, kv::detail::NameOfMessage(message));
    kv::PostOffice::Instance()->CommunicationReceiveFunction(event);
}

}  // namespace

constinit Clients* Clients::theClients_ = nullptr;

Clients::Clients() {
    if (platform::DdeInitializeA(&instance_, &Callback, 0, 0) != platform::DMLERR_NO_ERROR) {
        throw std::runtime_error(
            "messages between programs do not work here: the folder for their sockets "
            "cannot be made, or is open to other users");
    }
    theClients_ = this;
}

Clients::~Clients() {
    theClients_ = nullptr;
    platform::DdeUninitialize(instance_);
}

void Clients::Add(sv::String const& name) {
    hadAny_ = true;
    auto const known = std::ranges::find(clients_, name, &Client::name);
    if (known != clients_.end()) {
        ++known->connects;
        return;
    }
    platform::HCONV const conversation = suite::Converse(instance_, std::string(name.View()));
    clients_.push_back({.name = name, .conversation = conversation, .connects = 1});
}

void Clients::Forget(sv::String const& name) {
    auto const client = std::ranges::find(clients_, name, &Client::name);
    platform::HCONV const conversation = client->conversation;
    clients_.erase(client);
    if (conversation != nullptr) platform::DdeDisconnect(conversation);
}

bool Clients::IsLockedByOther(Client const& client) const {
    return std::ranges::any_of(
        clients_, [&](Client const& other) { return other.locks > 0 && other.name != client.name; });
}

bool Clients::Note(kv::KORVELEvent const& event) {
    sv::String const sender = event.GetSender();
    int const message = kv::detail::NumberOfMessage(event.GetCommandName());
    if (message == kv::CONNECT) {
        Add(sender);
        return true;
    }
    bool const isFarewell = message == kv::DISCONNECT;
    if (isFarewell && std::erase(buried_, sender) > 0) return false;
    auto const client = std::ranges::find(clients_, sender, &Client::name);
    if (client == clients_.end()) return true;
    if (message == kv::LOCK && !IsLockedByOther(*client)) ++client->locks;
    if (message == kv::UNLOCK && client->locks > 0) --client->locks;
    if (isFarewell && --client->connects == 0) Forget(sender);
    return true;
}

void Clients::BuryTheDead() {
    for (;;) {
        auto const dead = std::ranges::find_if(clients_, &Client::isDead);
        if (dead == clients_.end()) return;
        Client const client = std::move(*dead);
        clients_.erase(dead);
        Bury(client);
    }
}

bool Clients::IsDead(sv::String const& name) const {
    return std::ranges::find(buried_, name) != buried_.end();
}

void Clients::Bury(Client const& client) {
    buried_.push_back(client.name);
    for (int i = 0; i < client.locks; ++i) SayFor(client.name, kv::UNLOCK);
    for (int i = 0; i < client.connects; ++i) SayFor(client.name, kv::DISCONNECT);
}

platform::HDDEDATA Clients::Callback(unsigned transaction, unsigned /*format*/, platform::HCONV conversation,
                                     platform::HSZ /*string1*/, platform::HSZ /*string2*/,
                                     platform::HDDEDATA /*data*/, std::uintptr_t /*value1*/,
                                     std::uintptr_t /*value2*/) {
    if (transaction != platform::XTYP_DISCONNECT || theClients_ == nullptr) return nullptr;
    auto const client = std::ranges::find(theClients_->clients_, conversation, &Client::conversation);
    if (client != theClients_->clients_.end()) {
        client->isDead = true;
        client->conversation = nullptr;
        // Handlers run out of the event loop, not within a transaction.
        sv::Application::PostUserEvent(DeathEvent, nullptr);
    }
    return nullptr;
}

}  // namespace hqmserv
