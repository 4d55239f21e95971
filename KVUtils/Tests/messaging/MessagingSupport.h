// What the tests of the messages share: a private desktop, and programs to exchange messages with.
#pragma once

#include "KVUtils/Source/frame/KVSingleton.h"
#include "KVUtils/Source/messaging/DDE.h"
#include "Platform/Tests/DdeEndpoint.h"
#include "Platform/Tests/RuntimeDirectory.h"
#include "SV/core/Application.h"
#include "SV/core/Boxes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <stop_token>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace kv::messagingtest {

using Texts = std::vector<std::string>;

/// Keeps the texts of boxes, as "error: text", and gives their default answers.
class BoxLog {
  public:
    BoxLog()
        : before_(sv::SetBoxHandler([this](sv::MessBox const& box) {
              static constexpr std::array kinds = {"message: ", "info: ", "error: "};
              std::string const kind = kinds.at(static_cast<std::size_t>(box.GetKind()));
              seen.push_back(kind + std::string(box.GetText().View()));
              return box.DefaultAnswer();
          })) {}
    BoxLog(BoxLog const&) = delete;
    BoxLog& operator=(BoxLog const&) = delete;
    ~BoxLog() { sv::SetBoxHandler(before_); }

    Texts seen;

  private:
    sv::BoxHandler before_;
};

/// Destroys a service before the program exits.
template <class Singleton>
void Discard(Singleton* singleton) {
    if (singleton == nullptr) return;
    KVSingleton::Remove(singleton);
    delete singleton;
}

/// Runs the loop until the condition holds; false on timeout.
template <class Condition>
[[nodiscard]] bool PumpUntil(Condition condition,
                             std::chrono::milliseconds timeout = std::chrono::seconds(20)) {
    auto const end = std::chrono::steady_clock::now() + timeout;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        sv::Application::Reschedule();
    }
    return true;
}

/// Runs the loop for long enough that everything sent has arrived.
inline void PumpAWhile(std::chrono::milliseconds time = std::chrono::milliseconds(50)) {
    static_cast<void>(PumpUntil([] { return false; }, time));
}

/// Runs the application's loop until `Quit`, for 20 seconds at most. Returns how long it took.
inline std::chrono::milliseconds Execute() {
    auto const start = std::chrono::steady_clock::now();
    std::jthread const limit([](std::stop_token const& stop) {
        std::mutex mutex;
        std::unique_lock lock(mutex);
        std::condition_variable_any().wait_for(lock, stop, std::chrono::seconds(20), [] { return false; });
        if (!stop.stop_requested()) sv::Application::Quit();
    });
    sv::Application::Execute();
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start);
}

/// The time that a measuring server takes to quit after its last client.
inline bool IsServersEnd(std::chrono::milliseconds time) {
    return time >= std::chrono::seconds(1) && time < std::chrono::seconds(15);
}

struct Poked {
    std::string sender;
    std::string item;
    std::string payload;  // as it travelled
    friend bool operator==(Poked const&, Poked const&) = default;
};

/// Another program of the suite, as an instance of its own in this process.
class Peer {
  public:
    /// Answers to the topic `name`, which is its instance name too.
    explicit Peer(std::string name, char const* service = DDE::ServiceName)
        : name_(std::move(name)), endpoint_(name_, service) {
        endpoint_.onPoke = [this](platform::HCONV, std::string_view item, std::string_view data) {
            std::size_t const end = std::min(data.find(':'), data.size());
            received.push_back({std::string(data.substr(0, end)), std::string(item),
                                std::string(data.substr(std::min(end + 1, data.size())))});
            if (item == "ANSWER!CONNECT") ++answeredConnects;
            if (onPoke) onPoke(Poked(received.back()));
        };
    }

    /// Ends the conversation that was open before.
    bool Connect(std::string const& topic, char const* service = DDE::ServiceName) {
        Disconnect();
        conversation_ = endpoint_.Connect(topic.c_str(), service);
        return conversation_ != nullptr;
    }
    void Disconnect() {
        if (conversation_ != nullptr) platform::DdeDisconnect(std::exchange(conversation_, nullptr));
    }

    /// Pokes bytes as they are.
    void PokeRaw(std::string const& item, std::string_view bytes) const {
        EXPECT_TRUE(endpoint_.Poke(conversation_, item.c_str(), bytes));
    }
    /// Pokes a message with this peer as its sender.
    void Poke(std::string const& item, std::string_view payload = {}) {
        if (item == "CONNECT") ++sentConnects;
        PokeRaw(item, name_ + ':' + std::string(payload));
    }
    void Execute(std::string_view command) const {
        EXPECT_NE(platform::DdeClientTransaction(command.data(), static_cast<std::uint32_t>(command.size()),
                                                 conversation_, nullptr, platform::CF_TEXT,
                                                 platform::XTYP_EXECUTE, platform::TIMEOUT_ASYNC, nullptr),
                  nullptr);
    }

    [[nodiscard]] bool Receives(std::size_t count) const {
        return PumpUntil([&] { return received.size() >= count; });
    }
    /// How many conversations with this peer were opened, and how many were ended by others.
    [[nodiscard]] long Connects() const { return std::ranges::count(endpoint_.Log(), "confirm"); }
    [[nodiscard]] long Disconnects() const { return std::ranges::count(endpoint_.Log(), "disconnect"); }

    std::vector<Poked> received;
    std::function<void(Poked const&)> onPoke;
    int sentConnects = 0;
    int answeredConnects = 0;

  private:
    std::string name_;
    tests::DdeEndpoint endpoint_;
    platform::HCONV conversation_ = nullptr;
};

}  // namespace kv::messagingtest
