// From the bytes of a file to lines of text: byte order mark, line ends, encodings, and the limits that keep
// a wrong file from costing more than its message.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace files {

/// A chart of some thousand patches by 1 nm has a tenth of this.
inline constexpr std::size_t MaxFileBytes = std::size_t{256} << 20U;
/// A row of 401 values has some 4000 bytes.
inline constexpr std::size_t MaxLineBytes = std::size_t{1} << 20U;

/// Throws ReadError when a file has more bytes than MaxFileBytes.
void CheckSize(std::uintmax_t bytes, std::string_view file);

/// The text behind a UTF-8 byte order mark. Throws ReadError, with `file` as the name, when the bytes are too
/// many, are UTF-16 or binary, hold a line beyond MaxLineBytes, or nothing but blanks.
[[nodiscard]] std::string_view CheckedText(std::string_view bytes, std::string_view file);

/// Walks the lines of a text; CR, LF and CR LF end a line, in any mixture. Copies nothing.
class LineReader {
  public:
    explicit LineReader(std::string_view text) noexcept : rest_(text) {}

    /// Goes to the next line; false when there is none.
    bool Next() noexcept;
    /// The line without its end.
    [[nodiscard]] std::string_view Text() const noexcept { return line_; }
    /// Its number, the first being 1.
    [[nodiscard]] std::size_t Number() const noexcept { return number_; }

  private:
    std::string_view rest_;
    std::string_view line_;
    std::size_t number_ = 0;
};

/// Without blanks and tabs at either end.
[[nodiscard]] std::string_view Trimmed(std::string_view text) noexcept;
/// ASCII letters in upper case and nothing but letters and digits: "Sample_ID" and "SampleID" are one key.
[[nodiscard]] std::string Key(std::string_view text);
[[nodiscard]] bool IsUtf8(std::string_view text) noexcept;
/// The text itself where it is UTF-8, else its bytes read as Windows-1252.
[[nodiscard]] std::string ToUtf8(std::string_view text);

}  // namespace files
