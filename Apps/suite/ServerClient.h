// ServerClient: a program's connection to the measuring server, as long as the object lives.
#pragma once

#include "Apps/suite/ServerPayloads.h"
#include "KVUtils/Source/messaging/KORVELEvent.h"

#include <chrono>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>

namespace suite {

/// The server cannot be reached, does not answer, or refuses. what() is one line for a person.
class ServerError : public std::runtime_error {
  public:
    explicit ServerError(std::string const& text, ServerStatus status = ServerStatus::NotHandled)
        : std::runtime_error(text), status_(status) {}
    /// What the server answered; NotHandled when it did not.
    [[nodiscard]] ServerStatus Status() const noexcept { return status_; }

  private:
    ServerStatus status_;
};

class ServerClient {
  public:
    struct Settings {
        /// How long to wait for the server's start, and for each of its answers. The post office itself waits
        /// for good, which helps nobody when the server was killed.
        std::chrono::milliseconds patience{10'000};
        /// Asked while an answer is waited for; true gives up.
        std::function<bool()> isInterrupted = [] { return false; };
        /// Keeps all other programs from the server meanwhile.
        bool isAlone = true;
    };

    /// Connects, and starts the server if it does not run. Needs the services of a SuiteServices, which must
    /// outlive the object; one object at a time. This and all operations throw ServerError.
    explicit ServerClient(Settings settings);
    ServerClient(ServerClient const&) = delete;
    ServerClient& operator=(ServerClient const&) = delete;
    /// Takes leave, so that the server may end.
    ~ServerClient();

    [[nodiscard]] DeviceIdentity Identify();
    /// What the instrument's display shows.
    [[nodiscard]] std::string Display();
    [[nodiscard]] bool IsReady();
    [[nodiscard]] files::StatedConditions Conditions();
    /// Asks for these conditions; what is empty is left to the instrument.
    void Require(files::StatedConditions const& conditions);

    void MeasureWhite();
    /// Puts the instrument on the first patch of the chart and returns how many there are.
    long BeginChart();
    /// Measures the next patch.
    [[nodiscard]] MeasuredPatch Measure();

  private:
    [[nodiscard]] bool Send(int message, kv::MyMemoryBlock data);
    void Connect();
    void WaitForStart(std::chrono::steady_clock::time_point end) const;
    [[nodiscard]] bool IsAnsweredBy(std::chrono::steady_clock::time_point end);
    /// The answer behind its status.
    kv::MyMemoryBlock Ask(int message, kv::MyMemoryBlock const& request = {});
    std::string AskText(int message);
    kv::MyMemoryBlock WaitForAnswer(int message);
    void TakeLeave() noexcept;
    static void Receive(kv::KORVELEvent& event);

    Settings settings_;
    int connects_ = 0;
    bool isLocked_ = false;
    static constexpr int Nothing = -1;
    int awaited_ = Nothing;  // the message whose answer is waited for
    std::optional<kv::MyMemoryBlock> answer_;

    static ServerClient* theClient_;
};

}  // namespace suite
