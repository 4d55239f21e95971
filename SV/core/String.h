// sv::String: a sequence of bytes in the code page of the suite, with the text operations that the library
// uses. Lengths and positions count bytes.
#pragma once

#include <compare>
#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace sv {

class String {
  public:
    /// The result of a search that finds nothing.
    static constexpr std::size_t NotFound = std::string::npos;

    String() = default;
    /// Copies up to the terminating zero. A null pointer gives an empty string.
    String(char const* text) : bytes_(text == nullptr ? "" : text) {}
    String(std::string_view text) : bytes_(text) {}
    String(std::string text) noexcept : bytes_(std::move(text)) {}
    /// A single byte, or a number in decimal digits. A template, so that no argument is converted to an
    /// integer implicitly.
    template <std::integral Type>
    requires(!std::same_as<Type, bool>) explicit String(Type value) {
        if constexpr (std::same_as<Type, char>) {
            bytes_.assign(1, value);
        } else {
            bytes_ = std::to_string(value);
        }
    }

    /// Converts UTF-8 to the code page of the suite (Windows-1252). A character that the code page lacks
    /// becomes "?", and so does each malformed byte.
    [[nodiscard]] static String FromUtf8(std::string_view text);
    /// Converts the text from Windows-1252 to UTF-8. A byte that the code page leaves open becomes "?".
    [[nodiscard]] std::string ToUtf8() const;

    [[nodiscard]] std::size_t Len() const noexcept { return bytes_.size(); }
    [[nodiscard]] bool IsEmpty() const noexcept { return bytes_.empty(); }
    [[nodiscard]] char const* GetStr() const noexcept { return bytes_.c_str(); }
    [[nodiscard]] std::string_view View() const noexcept { return bytes_; }

    /// The byte at `position`, which must be less than `Len()`.
    [[nodiscard]] char operator[](std::size_t position) const noexcept { return bytes_[position]; }
    [[nodiscard]] char& operator[](std::size_t position) noexcept { return bytes_[position]; }

    String& operator+=(String const& other) {
        bytes_ += other.bytes_;
        return *this;
    }
    String& operator+=(char character) {
        bytes_ += character;
        return *this;
    }

    /// The number of parts between separators: 0 for an empty string, otherwise the number of separators plus
    /// 1.
    [[nodiscard]] std::size_t GetTokenCount(char separator) const noexcept;
    /// Returns the part with this number, counted from 0; empty if there is none.
    [[nodiscard]] String GetToken(std::size_t number, char separator) const;

    /// Returns the first position of `text` at or after `from`, or `NotFound`.
    [[nodiscard]] std::size_t Search(String const& text, std::size_t from = 0) const noexcept;
    [[nodiscard]] std::size_t Search(char character, std::size_t from = 0) const noexcept;
    /// Returns up to `count` bytes from `position` on; empty past the end.
    [[nodiscard]] String Copy(std::size_t position, std::size_t count = NotFound) const;

    /// Removes up to `count` bytes from `position` on; does nothing past the end.
    String& Erase(std::size_t position = 0, std::size_t count = NotFound);
    /// Inserts `text` before the byte at `position`, or at the end.
    String& Insert(String const& text, std::size_t position);
    /// Whether the text consists of decimal digits, at least one.
    [[nodiscard]] bool IsNumeric() const noexcept;
    /// Returns the number at the beginning of the text, after white space and a sign; 0 if there is none, and
    /// the nearest value of the type if it is out of range.
    [[nodiscard]] long ToLong() const noexcept;
    /// Converts ASCII letters; other bytes stay.
    String& Upper() noexcept;
    String& Lower() noexcept;
    /// Compares without regard to the case of ASCII letters.
    [[nodiscard]] bool EqualsIgnoreCase(String const& other) const noexcept;

    /// Converts the text from one character set to another: 9 is the code page of the suite (Windows-1252), 3
    /// that of the file system (UTF-8 on POSIX, the ANSI code page on Windows), 2 Mac Roman. A character that
    /// the target lacks becomes "?", and so does a byte that the source leaves open. Does nothing for any
    /// other number.
    String& Convert(int from, int to);

    /// Prepends blanks until the length is `width`.
    String& PadLeft(std::size_t width);

    friend bool operator==(String const&, String const&) = default;
    // The linter takes the comparison that the compiler writes for one with a null pointer.
    // NOLINTNEXTLINE(modernize-use-nullptr)
    friend std::strong_ordering operator<=>(String const&, String const&) = default;

  private:
    std::string bytes_;
};

[[nodiscard]] inline String operator+(String left, String const& right) { return left += right; }
[[nodiscard]] inline String operator+(String left, char right) { return left += right; }

}  // namespace sv
