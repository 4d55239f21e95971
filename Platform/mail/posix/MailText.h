// MailText: small rules for the texts that cross the mail entries: code pages, lists, names of files,
// identifiers and dates.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform::detail {

/// From Windows-1252; a byte that means nothing there becomes the control character of its number, so that
/// different names stay different.
[[nodiscard]] std::string Utf8FromAnsi(std::string_view text);
/// To Windows-1252; what it lacks becomes "?".
[[nodiscard]] std::string AnsiFromUtf8(std::string_view text);

/// The parts between delimiters without the blanks around them; empty ones are left out. An empty delimiter
/// divides nothing.
[[nodiscard]] std::vector<std::string> SplitList(std::string_view list, std::string_view delimiter);

/// A text between double quotes, as IMAP and MIME take it. It must not hold line ends.
[[nodiscard]] std::string Quoted(std::string_view text);

/// Who gets a mail, and how the others see it.
enum class RecipientKind : int { To, Cc, Bcc };
struct Recipient {
    RecipientKind kind = RecipientKind::To;
    std::string name;     // may be empty
    std::string address;  // user@host, ASCII
};
/// From "[to:|cc:|bcc:][SMTP:]address" or "... name <address>" in UTF-8, prefixes in any case. None when that
/// is no address.
[[nodiscard]] std::optional<Recipient> ParseRecipient(std::string_view text);

/// A name, in Windows-1252, that a file of any sender may have in a folder of ours: without a folder, a
/// leading dot or characters that programs and shells trip over, and of at most `LongestFileName` bytes, its
/// extension kept. Never empty.
inline constexpr std::size_t LongestFileName = 80;
[[nodiscard]] std::string SafeFileName(std::string_view name);
/// The name with " (2)", " (3)", ... before its extension, so that it is unlike all those `taken`; ASCII case
/// does not count as a difference.
[[nodiscard]] std::string UniqueFileName(std::string const& name, std::vector<std::string> const& taken);

/// A message by numbers that the server never gives to another one.
struct MessageNumber {
    std::uint32_t validity = 0;
    std::uint32_t uid = 0;
};
[[nodiscard]] std::string MessageId(MessageNumber const& number);
[[nodiscard]] std::optional<MessageNumber> ParseMessageId(std::string_view id);

/// "17-Jul-1996 02:44:25 -0700" as "1996/07/17 11:44", in the local time zone; empty for anything else.
[[nodiscard]] std::string ReceivedDate(std::string const& internalDate);

}  // namespace platform::detail
