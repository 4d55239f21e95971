// sv::String: a sequence of bytes in the code page of the suite, with the text operations that the
// library is written against. It knows no encoding; length and positions count bytes.
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
    /// The position that a search returns when it finds nothing.
    static constexpr std::size_t NotFound = std::string::npos;

    String() = default;
    /// The bytes up to the terminating zero. A null pointer makes an empty string.
    String(char const* text) : bytes_(text == nullptr ? "" : text) {}
    String(std::string_view text) : bytes_(text) {}
    String(std::string text) noexcept : bytes_(std::move(text)) {}
    /// One byte, or a number in decimal digits. A template, so that nothing is converted to an integer on the
    /// way.
    template <std::integral Type>
    requires(!std::same_as<Type, bool>) explicit String(Type value) {
        if constexpr (std::same_as<Type, char>) {
            bytes_.assign(1, value);
        } else {
            bytes_ = std::to_string(value);
        }
    }

    /// A text in UTF-8 converted to the code page of the suite (Windows-1252). A character that the code page
    /// lacks becomes "?", and so does each malformed byte.
    [[nodiscard]] static String FromUtf8(std::string_view text);
    /// The text in UTF-8, read as Windows-1252. A byte that the code page leaves open becomes "?".
    [[nodiscard]] std::string ToUtf8() const;

    [[nodiscard]] std::size_t Len() const noexcept { return bytes_.size(); }
    [[nodiscard]] bool IsEmpty() const noexcept { return bytes_.empty(); }
    [[nodiscard]] char const* GetStr() const noexcept { return bytes_.c_str(); }
    [[nodiscard]] std::string_view View() const noexcept { return bytes_; }

    /// The byte at `position`, which must be below `Len()`.
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

    /// Number of parts between separators: 0 for an empty string, else one more than it holds separators.
    [[nodiscard]] std::size_t GetTokenCount(char separator) const noexcept;
    /// The part with this number, counted from 0; empty when there is none.
    [[nodiscard]] String GetToken(std::size_t number, char separator) const;

    /// Where `text` begins at or behind `from`, or `NotFound`.
    [[nodiscard]] std::size_t Search(String const& text, std::size_t from = 0) const noexcept;
    [[nodiscard]] std::size_t Search(char character, std::size_t from = 0) const noexcept;
    /// Up to `count` bytes from `position` on; empty past the end.
    [[nodiscard]] String Copy(std::size_t position, std::size_t count = NotFound) const;

    /// Removes up to `count` bytes from `position` on; does nothing past the end.
    String& Erase(std::size_t position = 0, std::size_t count = NotFound);
    /// Puts `text` in front of the byte at `position`, or at the end.
    String& Insert(String const& text, std::size_t position);
    /// Whether the text is decimal digits and nothing else, at least one.
    [[nodiscard]] bool IsNumeric() const noexcept;
    /// The number that the text begins with, after white space and a sign; 0 when there is none, and the
    /// nearest value of the type where it does not fit.
    [[nodiscard]] long ToLong() const noexcept;
    /// ASCII letters in upper or lower case; other bytes stay.
    String& Upper() noexcept;
    String& Lower() noexcept;
    /// Whether two texts are equal but for the case of ASCII letters.
    [[nodiscard]] bool EqualsIgnoreCase(String const& other) const noexcept;

    /// Converts from one character set to another, in place: 9 is the code page of the suite (Windows-1252),
    /// 3 the file system's (UTF-8 on POSIX, the ANSI code page on Windows), 2 Mac Roman. A character that the
    /// target lacks becomes "?"; a byte that means nothing in the source too. Any other number leaves the
    /// text alone.
    String& Convert(int from, int to);

    /// Puts blanks in front until the length reaches `width`; leaves a longer text alone.
    String& PadLeft(std::size_t width);

    friend bool operator==(String const&, String const&) = default;
    friend std::strong_ordering operator<=>(String const&, String const&) = default;

  private:
    std::string bytes_;
};

[[nodiscard]] inline String operator+(String left, String const& right) { return left += right; }
[[nodiscard]] inline String operator+(String left, char right) { return left += right; }

}  // namespace sv
