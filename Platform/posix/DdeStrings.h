// DdeStrings: the table of string handles. Texts that differ only in the case of ASCII letters share one
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

/// Returns -1, 0 or 1, ignoring the case of ASCII letters.
[[nodiscard]] int CompareIgnoreCase(std::string_view left, std::string_view right) noexcept;

class StringTable {
  public:
    /// Returns the shared handle of a text and adds a user to it; null if the table is full.
    [[nodiscard]] HSZ Share(std::string_view text);
    /// Returns a separate handle for exactly this spelling, which `Share` and `Find` do not see.
    [[nodiscard]] HSZ Own(std::string_view text);
    /// Returns the shared handle in use for a text, without adding a user; null if there is none.
    [[nodiscard]] HSZ Find(std::string_view text) const noexcept;
    /// Adds a user. Returns false for a handle that is not in use.
    bool Keep(HSZ string) noexcept;
    /// Removes a user. Returns false for a handle that is not in use.
    bool Free(HSZ string) noexcept;

    /// Returns the text, valid until the next handle is created; none for a handle that is not in use.
    [[nodiscard]] std::optional<std::string_view> Text(HSZ string) const noexcept;

  private:
    // Entries are reused with their storage, since each message creates and frees the handle of its name.
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

/// Holds a handle for the lifetime of this object.
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
