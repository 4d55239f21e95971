// Text: turns the bytes of a file into lines of text (byte order mark, line ends, encodings, size limits),
// and small operations on text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace files {

/// Ten times a chart of thousands of patches at 1 nm.
inline constexpr std::size_t MaxFileBytes = std::size_t{256} << 20U;
/// A row of 401 values has about 4000 bytes.
inline constexpr std::size_t MaxLineBytes = std::size_t{1} << 20U;

/// Throws ReadError if a file has more bytes than MaxFileBytes.
void CheckSize(std::uintmax_t bytes, std::string_view file);

/// Returns the text without a UTF-8 byte order mark. Throws ReadError with `file` as the name if there are
/// too many bytes, they are UTF-16 or binary, a line exceeds MaxLineBytes, or there is nothing but blanks.
[[nodiscard]] std::string_view CheckedText(std::string_view bytes, std::string_view file);

/// Iterates over the lines of a text without copying; CR, LF and CR LF end a line, in any mixture.
class LineReader {
  public:
    explicit LineReader(std::string_view text) noexcept : rest_(text) {}

    /// Advances to the next line; returns false if there is none.
    bool Next() noexcept;
    /// Returns the line without its end.
    [[nodiscard]] std::string_view Text() const noexcept { return line_; }
    /// Returns the number of the line, from 1.
    [[nodiscard]] std::size_t Number() const noexcept { return number_; }

  private:
    std::string_view rest_;
    std::string_view line_;
    std::size_t number_ = 0;
};

/// Removes blanks and tabs at both ends.
[[nodiscard]] std::string_view Trimmed(std::string_view text) noexcept;
/// Keeps ASCII letters, in upper case, and digits: "Sample_ID" and "SampleID" have the same key.
[[nodiscard]] std::string Key(std::string_view text);
/// Returns the text if it is UTF-8; otherwise decodes it as Windows-1252.
[[nodiscard]] std::string ToUtf8(std::string_view text);
/// Converts ASCII letters to lower case.
[[nodiscard]] std::string Lower(std::string_view text);

/// Splits at every separator; returns one piece, possibly empty, if there is none.
[[nodiscard]] std::vector<std::string_view> Split(std::string_view text, char separator);
/// Joins items: "a, b, c", followed by "and 12 more" after `limit` items.
[[nodiscard]] std::string List(std::span<std::string const> items,
                               std::size_t limit = std::numeric_limits<std::size_t>::max());
/// Puts a text in double quotes.
[[nodiscard]] std::string Quoted(std::string_view text);
/// "1 sample", "2 samples".
[[nodiscard]] std::string Counted(std::size_t count, std::string_view noun);

}  // namespace files
