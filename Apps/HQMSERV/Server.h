// Server: the measuring server's side of the messages. Apps/suite/ServerPayloads.h tells what they
// mean.
#pragma once

#include "Apps/HQMSERV/Instrument.h"
#include "KVUtils/Source/messaging/PostOffice.h"

#include <chrono>
#include <string>
#include <thread>
#include <vector>

namespace hqmserv {

class Server {
  public:
    struct Settings {
        std::chrono::milliseconds measuringTime{0};
        /// What the display shows while there is nothing to measure; empty for the usual text.
        std::string fault;
        /// How long to wait for a first client; 0 for as long as it takes.
        std::chrono::seconds patience{0};
    };

    /// Installs the handlers with the post office, which must outlive the object.
    Server(Instrument instrument, Settings settings);
    Server(Server const&) = delete;
    Server& operator=(Server const&) = delete;
    ~Server();

  private:
    using Event = kv::KORVELEvent;

    long VersionHdl(Event* event);
    long DeviceNameHdl(Event* event);
    long DeviceTypeHdl(Event* event);
    long SerialNumberHdl(Event* event);
    long DisplayHdl(Event* event);
    long AppReadyHdl(Event* event);
    long ReadyHdl(Event* event);
    long WhiteHdl(Event* event);
    long NewChartHdl(Event* event);
    long MeasureHdl(Event* event);
    long SpectrumHdl(Event* event);
    long ParameterRequestHdl(Event* event);
    long ParameterDownloadHdl(Event* event);
    long NotifyHdl(Event* event);
    long NotifyOffHdl(Event* event);
    long TriggerHdl(Event* event);
    long ProtocolHdl(Event* event);
    long PeerGoneHdl(sv::String* peer);

    template <auto Handler>
    void Handle(int message, unsigned char when);
    static void UserEvent(unsigned long id, void* data);
    void WaitForFirstClient();

    [[nodiscard]] sv::String Display() const;
    void Expose();
    [[nodiscard]] ServerStatus Measure();
    void TellListeners();

    Instrument instrument_;
    Settings settings_;
    std::vector<sv::String> listeners_;
    bool isMeasuring_ = false;
    std::jthread patience_;

    static Server* theServer_;
};

}  // namespace hqmserv
