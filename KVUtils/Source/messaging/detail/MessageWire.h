// How a message looks on its way: its name, and its payload free of zero bytes.
#pragma once

#include "KVUtils/Source/messaging/MYMEMBLO.h"
#include "KVUtils/Source/messaging/MessageTable.h"
#include "SV/core/String.h"

namespace kv::detail {

/// Messages are numbered from 0 up to this.
inline constexpr int MessageCount = ANZAHL_BOTSCHAFTEN;
/// The answer to message n has the number n + 1000.
inline constexpr int AnswerOffset = 1000;

/// The name under which a number travels: "LOCK" for 2, "ANSWER!LOCK" for 1002. Empty for a number that is
/// not of the table, that is reserved, or that is the count of messages.
[[nodiscard]] sv::String NameOfMessage(long number);

/// What stands behind the prefix of an answer's name, which may hold another "!"; the name itself for a
/// request.
[[nodiscard]] sv::String NameWithoutPrefix(sv::String const& name);

/// The number of a name, with 1000 added for an answer; -1 for an unknown or empty name. Case matters.
[[nodiscard]] int NumberOfMessage(sv::String const& name);

/// The name of the answer to a message.
[[nodiscard]] sv::String AnswerName(sv::String const& name);

/// Whether a name is that of an answer to an answer. Nobody answers those, or two programs that know
/// different messages would answer each other for ever.
[[nodiscard]] bool IsAnswerToAnswer(sv::String const& name);

/// Replaces the block by its bytes from the read pointer on, with 0x00 written as 0x01 0x0A and 0x01 as 0x01
/// 0x01. All bytes count that were written, also behind a write pointer that was set back.
void EncodePayload(MyMemoryBlock& block);

/// The way back, and then one more byte for every pair that was put together: the last byte that was read,
/// once more. So the length of a payload that came in says nothing; its fields are read by their sequence.
void DecodePayload(MyMemoryBlock& block);

}  // namespace kv::detail
