// DdeStrings: the texts behind string handles. Equal texts, but for the case of ASCII letters, share one
// handle.
#pragma once

#include "Platform/Ddeml.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform::detail {

/// -1, 0 or 1, without regard to the case of ASCII letters.
[[nodiscard]] int CompareIgnoreCase(std::string_view left, std::string_view right) noexcept;

class StringTable {
  public:
    /// The shared handle of a text, for one more user.
    [[nodiscard]] HSZ Share(std::string_view text);
    /// A handle of its own for exactly this spelling, which `Share` and `Find` do not see.
    [[nodiscard]] HSZ Own(std::string_view text);
    /// The shared handle that is in use; null when there is none. The users stay as many.
    [[nodiscard]] HSZ Find(std::string_view text) const noexcept;
    /// Counts one more user. False for a handle that is not in use.
    bool Keep(HSZ string) noexcept;
    /// Counts one user less. False for a handle that is not in use.
    bool Free(HSZ string) noexcept;

    /// The text, valid until the next handle is made; none for a handle that is not in use.
    [[nodiscard]] std::optional<std::string_view> Text(HSZ string) const noexcept;

  private:
    // Places are used again, their storage too: the handle of a message's name is made and freed with each
    // message.
    struct Place {
        std::string text;
        unsigned users = 0;
        std::uint32_t generation = 0;
        bool shared = false;
    };

    [[nodiscard]] HSZ Add(std::string_view text, bool shared);
    [[nodiscard]] static HSZ HandleOf(std::size_t index, std::uint32_t generation) noexcept;
    [[nodiscard]] std::optional<std::size_t> IndexOf(HSZ string) const noexcept;
    [[nodiscard]] std::optional<std::size_t> IndexOf(std::string_view text) const noexcept;

    std::vector<Place> places_;
};

/// A handle in use as long as this lives.
class StringUse {
  public:
    StringUse(StringTable& table, HSZ string) noexcept : table_(table), string_(string) {}
    StringUse(StringUse const&) = delete;
    StringUse& operator=(StringUse const&) = delete;
    ~StringUse() { table_.Free(string_); }

    [[nodiscard]] HSZ Get() const noexcept { return string_; }

  private:
    StringTable& table_;
    HSZ string_;
};

}  // namespace platform::detail
