// ImapResponse: what an IMAP server says, cut into responses and taken apart. The server may say anything.
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
    /// The item of a list, or NIL.
    [[nodiscard]] ImapValue const& operator[](std::size_t index) const noexcept;
    /// What stands in a list of names and values behind `name`, without regard to case, or NIL.
    [[nodiscard]] ImapValue const& Behind(std::string_view name) const noexcept;
    /// Whether this is that text, without regard to case.
    [[nodiscard]] bool Is(std::string_view word) const noexcept;
};

/// The values of one response, literals in it and its line end taken off; none when it is malformed or nested
/// more than `DeepestImapList` deep. An atom with brackets is one text, "BODY[1.2]<0>". Behind "OK", "NO",
/// "BAD" and their like stands prose for people, which is left out but for a code in brackets in front of it.
inline constexpr int DeepestImapList = 250;
[[nodiscard]] std::optional<ImapValue> ParseImap(std::string_view response);

/// Cuts the bytes of a server into responses.
class ImapCutter {
  public:
    /// The most that one response may hold.
    static constexpr std::size_t LargestResponse = 8U << 20;

    void Add(std::string_view bytes) { buffer_ += bytes; }
    /// The next whole response without the line end behind it, none while some of it is missing.
    [[nodiscard]] std::optional<std::string> Next();
    /// Whether the response that has begun holds too much.
    [[nodiscard]] bool IsOverfull() const noexcept {
        return isOverfull_ || buffer_.size() > 2 * LargestResponse;
    }

  private:
    std::string buffer_;
    std::size_t scanned_ = 0;  // up to where the response that has begun is known to go on
    bool isOverfull_ = false;
};

}  // namespace platform::detail
