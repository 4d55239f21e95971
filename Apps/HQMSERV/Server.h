// Server: answers the messages to the measuring server. Apps/suite/ServerPayloads.h documents them.
#pragma once

#include "Apps/HQMSERV/Instrument.h"
#include "KVUtils/Source/messaging/PostOffice.h"

#include <chrono>
#include <span>
#include <string>
#include <thread>
#include <vector>

namespace hqmserv {

class Server {
  public:
    struct Settings {
        std::chrono::milliseconds measuringTime{0};
        /// Shown on the display of an instrument with nothing to measure; empty for the usual text.
        std::string fault;
        /// Exits without a client after this time; 0 for no timeout.
        std::chrono::seconds timeout{0};
    };

    /// Installs the handlers. The post office must outlive the object. Only one object may exist at a time.
    Server(Instrument instrument, Settings settings);
    Server(Server const&) = delete;
    Server& operator=(Server const&) = delete;
    ~Server();

  private:
    using Event = kv::KORVELEvent;

    struct Entry {
        int message;
        unsigned char when;
        void (*handle)(Server& server, Event* event);
    };
    [[nodiscard]] static std::span<Entry const> Table();
    long MessageHdl(Event* event);
    long PeerGoneHdl(sv::String* peer);
    static void UserEvent(unsigned long id, void* data);
    void WaitForFirstClient();

    [[nodiscard]] sv::String Display() const;
    void WaitForExposure();
    [[nodiscard]] ServerStatus Measure();
    void NotifyListeners();

    Instrument instrument_;
    Settings settings_;
    std::vector<sv::String> listeners_;
    bool isMeasuring_ = false;
    std::jthread timeout_;

    static Server* theServer_;
};

}  // namespace hqmserv
