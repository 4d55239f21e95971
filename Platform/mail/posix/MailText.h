// MailText: conversions of the texts that pass the mail entries: code pages, lists, file names, identifiers
// and dates.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform::detail {

/// Converts from Windows-1252; an undefined byte becomes the control character of its number, so that
/// different names remain different.
[[nodiscard]] std::string Utf8FromAnsi(std::string_view text);
/// Converts to Windows-1252; a character that it lacks becomes "?".
[[nodiscard]] std::string AnsiFromUtf8(std::string_view text);

/// Splits a list at its delimiters, trims blanks and omits empty parts. An empty delimiter splits nothing.
[[nodiscard]] std::vector<std::string> SplitList(std::string_view list, std::string_view delimiter);

/// Returns a text in double quotes, for IMAP and MIME. It must not contain line ends.
[[nodiscard]] std::string Quoted(std::string_view text);

/// A recipient and how the others see it.
enum class RecipientKind : int { To, Cc, Bcc };
struct Recipient {
    RecipientKind kind = RecipientKind::To;
    std::string name;     // may be empty
    std::string address;  // user@host, ASCII
};
/// Parses "[to:|cc:|bcc:][SMTP:]address" or "... name <address>" in UTF-8, with prefixes in any case. Returns
/// none if it contains no valid address.
[[nodiscard]] std::optional<Recipient> ParseRecipient(std::string_view text);

/// Returns a name, in Windows-1252, that is safe for a file from any sender: without a directory, a leading
/// dot or characters special to programs and shells, and at most `LongestFileName` bytes with its extension
/// kept. Never empty.
inline constexpr std::size_t LongestFileName = 80;
[[nodiscard]] std::string SafeFileName(std::string_view name);
/// Returns the name with " (2)", " (3)", ... before its extension if needed to differ from all those `taken`,
/// ignoring ASCII case.
[[nodiscard]] std::string UniqueFileName(std::string const& name, std::vector<std::string> const& taken);

/// Identifies a message by numbers that the server never reuses.
struct MessageNumber {
    std::uint32_t validity = 0;
    std::uint32_t uid = 0;
};
[[nodiscard]] std::string MessageId(MessageNumber const& number);
[[nodiscard]] std::optional<MessageNumber> ParseMessageId(std::string_view id);

/// Converts "17-Jul-1996 02:44:25 -0700" to "1996/07/17 11:44" in the local time zone; returns an empty text
/// for anything else.
[[nodiscard]] std::string ReceivedDate(std::string const& internalDate);

}  // namespace platform::detail
