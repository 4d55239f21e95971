// KORVELEvent: a received message.
#pragma once

#include "KVUtils/Source/messaging/MYMEMBLO.h"
#include "SV/core/String.h"

#include <utility>

namespace kv {

class KORVELEvent {
  public:
    KORVELEvent(MyMemoryBlock const& data, sv::String sender, sv::String commandName)
        : data_(data), sender_(std::move(sender)), commandName_(std::move(commandName)) {}

    /// A copy of the payload, with the read pointer at the start.
    [[nodiscard]] MyMemoryBlock GetData() const { return data_; }
    /// The instance name of the program that sent the message, to which an answer goes.
    [[nodiscard]] sv::String GetSender() const { return sender_; }
    /// The message's name as it came; that of an answer begins with "ANSWER!".
    [[nodiscard]] sv::String GetCommandName() const { return commandName_; }

  private:
    MyMemoryBlock data_;
    sv::String sender_;
    sv::String commandName_;
};

}  // namespace kv
