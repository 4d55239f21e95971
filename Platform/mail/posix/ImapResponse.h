// ImapResponse: splits and parses the responses of an IMAP server, which are not trusted.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform::detail {

/// NIL, a text (an atom, a string, a literal) or a list.
struct ImapValue {
    enum class Kind : int { Nil, Text, List };

    Kind kind = Kind::Nil;
    std::string text;
    std::vector<ImapValue> items;

    [[nodiscard]] bool IsList() const noexcept { return kind == Kind::List; }
    /// Returns an item of a list, or NIL.
    [[nodiscard]] ImapValue const& operator[](std::size_t index) const noexcept;
    /// Returns the value after `name` in a list of names and values, ignoring case, or NIL.
    [[nodiscard]] ImapValue const& ValueOf(std::string_view name) const noexcept;
    /// Returns whether this is a text that equals `word`, ignoring case.
    [[nodiscard]] bool Is(std::string_view word) const noexcept;
};

/// Parses one response, which includes its literals but not its line end. Returns none if it is malformed or
/// nested deeper than `DeepestImapList`. An atom with brackets is one text, "BODY[1.2]<0>". The
/// human-readable text after "OK", "NO", "BAD" and the like is dropped, except a code in brackets before it.
inline constexpr int DeepestImapList = 250;
[[nodiscard]] std::optional<ImapValue> ParseImap(std::string_view response);

/// Splits a server's bytes into responses.
class ImapCutter {
  public:
    /// The maximum size of one response, in bytes.
    static constexpr std::size_t LargestResponse = 8U << 20;

    void Add(std::string_view bytes) { buffer_ += bytes; }
    /// Returns the next complete response without its line end; none if it is incomplete.
    [[nodiscard]] std::optional<std::string> Next();
    /// Returns whether the current response exceeds the maximum.
    [[nodiscard]] bool IsOverfull() const noexcept {
        return isOverfull_ || buffer_.size() > 2 * LargestResponse;
    }

  private:
    std::string buffer_;
    std::size_t scanned_ = 0;  // the current response extends at least to here
    bool isOverfull_ = false;
};

}  // namespace platform::detail
