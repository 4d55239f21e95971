// What the tests of the messages share: a desktop of their own, and programs to talk to.
#pragma once

#include "KVUtils/Source/frame/KVSingleton.h"
#include "Platform/Ddeml.h"
#include "Platform/Tests/RuntimeDirectory.h"
#include "Platform/Tests/TemporaryDirectory.h"
#include "SV/core/Application.h"
#include "SV/core/Boxes.h"
#include "SV/core/String.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kv::messagingtest {

namespace fs = std::filesystem;

/// A directory for the files of a test.
class TemporaryDirectory : public tests::TemporaryDirectory {
  public:
    /// The full name of a file in it, which is written when there is something to write.
    [[nodiscard]] sv::String File(std::string const& name, std::string_view content = {}) const {
        if (!content.empty()) tests::PutBytes(Path() / name, content);
        return sv::String(*this / name);
    }
};

/// Only programs that are started from the test can be reached, on systems where the desktop is a directory.
using PrivateDesktop = tests::RuntimeDirectory;

/// Keeps what boxes say, as "error: text", and answers them with their defaults.
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

    std::vector<std::string> seen;

  private:
    sv::BoxHandler before_;
};

/// Ends a service before its program does.
template <class Singleton>
void Discard(Singleton* singleton) {
    if (singleton == nullptr) return;
    KVSingleton::Remove(singleton);
    delete singleton;
}

/// Turns the loop until something has come about; false when it does not.
template <class Condition>
bool PumpUntil(Condition condition, std::chrono::milliseconds limit = std::chrono::seconds(60)) {
    auto const end = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        sv::Application::Reschedule();
    }
    return true;
}

/// Turns the loop for long enough that what is on its way has arrived.
inline void PumpAWhile() {
    PumpUntil([] { return false; }, std::chrono::milliseconds(50));
}

struct Poked {
    std::string sender;
    std::string item;
    std::string payload;  // as it travelled
    friend bool operator==(Poked const&, Poked const&) = default;
};

/// Another program of the suite, as far as can be seen from outside: an instance of its own in this process.
/// `Slot` tells apart those that live at the same time.
template <int Slot>
class DdePeer {
  public:
    /// Answers to `topic`, which is its instance name too.
    explicit DdePeer(std::string topic, char const* service = "KORVELApplication")
        : topic_(std::move(topic)) {
        the = this;
        EXPECT_EQ(platform::DdeInitializeA(&instance_, &Callback, 0, 0), 0U);
        service_ = String(service);
        platform::DdeNameService(instance_, service_, nullptr, platform::DNS_REGISTER);
    }
    DdePeer(DdePeer const&) = delete;
    DdePeer& operator=(DdePeer const&) = delete;
    ~DdePeer() {
        platform::DdeFreeStringHandle(instance_, service_);
        platform::DdeUninitialize(instance_);
        the = nullptr;
    }

    /// Ends the conversation that was there before.
    bool Connect(std::string const& topic, char const* service = "KORVELApplication") {
        Disconnect();
        platform::HSZ const serviceHandle = String(service);
        platform::HSZ const topicHandle = String(topic.c_str());
        conversation_ = platform::DdeConnect(instance_, serviceHandle, topicHandle, nullptr);
        platform::DdeFreeStringHandle(instance_, serviceHandle);
        platform::DdeFreeStringHandle(instance_, topicHandle);
        return conversation_ != nullptr;
    }
    void Disconnect() {
        if (conversation_ != nullptr) platform::DdeDisconnect(std::exchange(conversation_, nullptr));
    }

    /// Pokes bytes as they are.
    void PokeRaw(std::string const& item, std::string_view bytes) {
        Transact(platform::XTYP_POKE, item, bytes);
    }
    /// Pokes a message in this peer's name.
    void Poke(std::string const& item, std::string_view payload = {}) {
        if (item == "CONNECT") ++sentConnects;
        PokeRaw(item, topic_ + ':' + std::string(payload));
    }
    void Execute(std::string_view command) { Transact(platform::XTYP_EXECUTE, "", command); }

    std::vector<Poked> received;
    std::function<void(Poked const&)> onPoke;
    int sentConnects = 0;
    int answeredConnects = 0;
    int connects = 0;
    int disconnects = 0;

  private:
    [[nodiscard]] platform::HSZ String(char const* text) const {
        return platform::DdeCreateStringHandleA(instance_, text, platform::CP_WINANSI);
    }
    [[nodiscard]] std::string Text(platform::HSZ handle) const {
        std::array<char, 256> text{};
        platform::DdeQueryStringA(instance_, handle, text.data(), text.size(), platform::CP_WINANSI);
        return text.data();
    }

    void Transact(unsigned kind, std::string const& item, std::string_view bytes) {
        platform::HSZ const handle = item.empty() ? nullptr : String(item.c_str());
        EXPECT_NE(platform::DdeClientTransaction(bytes.data(), static_cast<std::uint32_t>(bytes.size()),
                                                 conversation_, handle, platform::CF_TEXT, kind,
                                                 platform::TIMEOUT_ASYNC, nullptr),
                  nullptr);
        if (handle != nullptr) platform::DdeFreeStringHandle(instance_, handle);
    }

    static platform::HDDEDATA Callback(unsigned transaction, unsigned /*format*/,
                                       platform::HCONV /*conversation*/, platform::HSZ string1,
                                       platform::HSZ string2, platform::HDDEDATA data,
                                       std::uintptr_t /*value1*/, std::uintptr_t /*value2*/) {
        if (the == nullptr) return nullptr;
        switch (transaction) {
            case platform::XTYP_CONNECT:
                return platform::DdeAnswer(the->Text(string1) == the->topic_ ? 1 : 0);
            case platform::XTYP_CONNECT_CONFIRM:
                ++the->connects;
                return nullptr;
            case platform::XTYP_DISCONNECT:
                ++the->disconnects;
                return nullptr;
            case platform::XTYP_POKE:
                the->Take(the->Text(string2), data);
                return platform::DdeAnswer(platform::DDE_FACK);
            default:
                return nullptr;
        }
    }

    void Take(std::string const& item, platform::HDDEDATA data) {
        std::uint32_t length = 0;
        auto const* const start = reinterpret_cast<char const*>(platform::DdeAccessData(data, &length));
        std::string const bytes(start == nullptr ? "" : start, length);
        platform::DdeUnaccessData(data);
        std::size_t const end = std::min(bytes.find(':'), bytes.size());
        received.push_back({bytes.substr(0, end), item, bytes.substr(std::min(end + 1, bytes.size()))});
        if (item == "ANSWER!CONNECT") ++answeredConnects;
        if (onPoke) onPoke(Poked(received.back()));
    }

    std::string topic_;
    std::uint32_t instance_ = 0;
    platform::HSZ service_ = nullptr;
    platform::HCONV conversation_ = nullptr;

    static inline DdePeer* the = nullptr;
};

}  // namespace kv::messagingtest
