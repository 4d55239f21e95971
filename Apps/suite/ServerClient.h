// ServerClient: a connection to the measuring server.
#pragma once

#include "Apps/suite/ServerPayloads.h"
#include "KVUtils/Source/messaging/KORVELEvent.h"

#include <chrono>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>

namespace suite {

/// The server cannot be reached, does not answer, or refuses a request. what() is one line for the user.
class ServerError : public std::runtime_error {
  public:
    explicit ServerError(std::string const& text, ServerStatus status = ServerStatus::NotHandled)
        : std::runtime_error(text), status_(status) {}
    /// The server's answer; NotHandled without one.
    [[nodiscard]] ServerStatus Status() const noexcept { return status_; }

  private:
    ServerStatus status_;
};

class ServerClient {
  public:
    struct Settings {
        /// For the server's start and for each of its answers. The post office itself has no timeout: a
        /// server that was killed would block it forever.
        std::chrono::milliseconds timeout{10'000};
        /// Called while waiting; true cancels.
        std::function<bool()> isInterrupted = [] { return false; };
        /// Locks the server for all other programs.
        bool isExclusive = true;
    };

    /// Connects to the server and starts it if necessary. Needs a SuiteServices that outlives the object.
    /// Only one object may exist at a time. This and all operations throw ServerError.
    explicit ServerClient(Settings settings);
    ServerClient(ServerClient const&) = delete;
    ServerClient& operator=(ServerClient const&) = delete;
    /// Disconnects, so that the server can exit.
    ~ServerClient();

    [[nodiscard]] DeviceIdentity Identify();
    /// The text of the instrument's display.
    [[nodiscard]] std::string Display();
    [[nodiscard]] bool IsReady();
    [[nodiscard]] files::StatedConditions Conditions();
    /// Requests these conditions; empty ones are left to the instrument.
    void Require(files::StatedConditions const& conditions);

    void MeasureWhite();
    /// Starts the chart at its first patch and returns the number of patches.
    long BeginChart();
    /// Measures the next patch.
    [[nodiscard]] MeasuredPatch Measure();

  private:
    [[nodiscard]] bool Send(int message, kv::MyMemoryBlock data);
    void Connect();
    void WaitForStart(std::chrono::steady_clock::time_point end) const;
    [[nodiscard]] bool IsAnsweredBy(std::chrono::steady_clock::time_point end);
    /// Returns the answer's fields after the status.
    kv::MyMemoryBlock Ask(int message, kv::MyMemoryBlock const& request = {});
    std::string AskText(int message);
    kv::MyMemoryBlock WaitForAnswer(int message);
    void Disconnect() noexcept;
    static void Receive(kv::KORVELEvent& event);

    Settings settings_;
    int connects_ = 0;
    bool isLocked_ = false;
    static constexpr int Nothing = -1;
    int awaited_ = Nothing;  // the message being answered
    std::optional<kv::MyMemoryBlock> answer_;

    static ServerClient* theClient_;
};

}  // namespace suite
