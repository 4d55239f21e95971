// The form of a message during transport: its name, and its payload without zero bytes.
#pragma once

#include "KVUtils/Source/messaging/MYMEMBLO.h"
#include "KVUtils/Source/messaging/MessageTable.h"
#include "SV/core/String.h"

namespace kv::detail {

/// Messages are numbered from 0; this is their count.
inline constexpr int MessageCount = ANZAHL_BOTSCHAFTEN;
/// The answer to message n has the number n + 1000.
inline constexpr int AnswerOffset = 1000;

/// Returns the name under which a number travels: "LOCK" for 2, "ANSWER!LOCK" for 1002. Empty for a number
/// that is not in the table, is reserved, or is the count of messages.
[[nodiscard]] sv::String NameOfMessage(long number);

/// Returns an answer's name without its prefix, including any further "!"; a request's name unchanged.
[[nodiscard]] sv::String NameWithoutPrefix(sv::String const& name);

/// Returns the number of a name, plus 1000 for an answer; -1 for an unknown or empty name. Case matters.
[[nodiscard]] int NumberOfMessage(sv::String const& name);

/// Returns the name of the answer to a message.
[[nodiscard]] sv::String AnswerName(sv::String const& name);

/// Whether a name is that of an answer to an answer. Those are not answered, or two programs that know
/// different messages would answer each other forever.
[[nodiscard]] bool IsAnswerToAnswer(sv::String const& name);

/// Replaces the block by its bytes from the read pointer on, writing 0x00 as 0x01 0x0A and 0x01 as 0x01 0x01.
/// Includes all bytes that were written, also those after a restored write pointer.
void EncodePayload(MyMemoryBlock& block);

/// Reverses the encoding and appends, for every pair that was joined, the last byte read again. So the length
/// of a received payload says nothing; its fields are read by their sequence.
void DecodePayload(MyMemoryBlock& block);

}  // namespace kv::detail
