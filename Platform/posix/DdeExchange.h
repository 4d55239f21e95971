// DdeExchange: state shared by all instances of this process, and the tables of their handles.
#pragma once

#include "Platform/Ddeml.h"
#include "Platform/posix/DdeConversation.h"
#include "Platform/posix/DdeInstance.h"
#include "Platform/posix/DdeMeetingPlace.h"
#include "Platform/posix/DdeStrings.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace platform::detail {

using TransactionData = std::vector<std::byte>;

/// One per process.
class Exchange {
  public:
    /// Created at the first call and never destroyed: a program may end its instances from a static
    /// destructor.
    static Exchange& Instance();

    Exchange(Exchange const&) = delete;
    Exchange& operator=(Exchange const&) = delete;

    [[nodiscard]] StringTable& Strings() noexcept { return strings_; }

    [[nodiscard]] DdeInstance* NewInstance(PFNCALLBACK callback, MeetingPlace place);
    /// Returns null if no instance has this number.
    [[nodiscard]] DdeInstance* FindInstance(std::uint32_t number) const noexcept;
    /// Ends the instance and its conversations; blocks while peers keep reading what was sent to them.
    void EndInstance(std::uint32_t number);

    /// Returns the sockets on which peers wait to be connected.
    [[nodiscard]] std::vector<int> WaitingSockets() const;
    /// Serves the peer on one of them.
    void StepWaiting(int socket);

    /// Starts watching a conversation and assigns its handle; returns null if the system refuses.
    HCONV Add(std::shared_ptr<Conversation> conversation);
    /// Returns null for a stale handle.
    [[nodiscard]] std::shared_ptr<Conversation> Find(HCONV handle) const noexcept;
    void Forget(HCONV handle) noexcept;

    /// Stores the data of a transaction while its callback runs.
    [[nodiscard]] HDDEDATA OpenTransaction(std::span<std::byte const> bytes);
    void CloseTransaction() noexcept;
    /// Returns null for the handle of a finished transaction.
    [[nodiscard]] TransactionData const* FindData(HDDEDATA data) const noexcept;

  private:
    struct Place {
        std::shared_ptr<Conversation> conversation;
        std::uint32_t generation = 0;
    };

    Exchange() = default;
    ~Exchange() = default;

    void DropOldestCaller();

    StringTable strings_;
    std::vector<std::unique_ptr<DdeInstance>> instances_;
    std::uint32_t lastInstance_ = 0;
    std::vector<Place> places_;
    std::uint32_t lastGeneration_ = 0;
    // The transactions whose callbacks are running, innermost last, followed by storage for reuse.
    std::vector<std::unique_ptr<TransactionData>> data_;
    std::size_t openData_ = 0;
};

/// The data of a transaction, valid for the lifetime of this object.
class OpenData {
  public:
    OpenData(Exchange& exchange, std::span<std::byte const> bytes)
        : exchange_(exchange), handle_(exchange.OpenTransaction(bytes)) {}
    OpenData(OpenData const&) = delete;
    OpenData& operator=(OpenData const&) = delete;
    ~OpenData() { exchange_.CloseTransaction(); }

    [[nodiscard]] HDDEDATA Handle() const noexcept { return handle_; }

  private:
    Exchange& exchange_;
    HDDEDATA handle_;
};

}  // namespace platform::detail
