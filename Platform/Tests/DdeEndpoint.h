// DdeEndpoint: an instance of dynamic data exchange that logs its callbacks.
#pragma once

#include "Platform/Ddeml.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tests {

/// Registers one service and accepts one topic. The maximum is four at a time.
class DdeEndpoint {
  public:
    static constexpr char const* Service = "KVUtilsTest";

    explicit DdeEndpoint(std::string const& topic, char const* service = Service);
    DdeEndpoint(DdeEndpoint const&) = delete;
    DdeEndpoint& operator=(DdeEndpoint const&) = delete;
    ~DdeEndpoint();

    [[nodiscard]] std::uint32_t Instance() const noexcept { return instance_; }
    [[nodiscard]] platform::HCONV Connect(char const* topic, char const* service = Service) const;
    [[nodiscard]] bool Poke(platform::HCONV conversation, char const* item, std::string_view data) const;
    /// "connect SERVICE TOPIC", "confirm", "poke ITEM DATA", "execute DATA", "disconnect".
    [[nodiscard]] std::vector<std::string> const& Log() const noexcept { return log_; }
    void ClearLog() { log_.clear(); }

    /// Called instead of logging a poke, if set.
    std::function<void(platform::HCONV, std::string_view item, std::string_view data)> onPoke;
    std::function<void(platform::HCONV)> onDisconnect;
    bool accepts = true;

  private:
    template <std::size_t Slot>
    static platform::HDDEDATA Callback(unsigned transaction, unsigned format, platform::HCONV conversation,
                                       platform::HSZ string1, platform::HSZ string2, platform::HDDEDATA data,
                                       std::uintptr_t value1, std::uintptr_t value2);
    platform::HDDEDATA Handle(unsigned transaction, platform::HCONV conversation, platform::HSZ string1,
                              platform::HSZ string2, platform::HDDEDATA data);
    [[nodiscard]] std::string Text(platform::HSZ string) const;

    std::size_t slot_ = 0;
    std::uint32_t instance_ = 0;
    platform::HSZ service_ = nullptr;
    platform::HSZ topic_ = nullptr;
    std::vector<std::string> log_;
};

/// Dispatches events until the condition holds; returns false on timeout.
[[nodiscard]] bool RunUntil(std::function<bool()> const& condition, int limitMs = 20'000);

}  // namespace tests
