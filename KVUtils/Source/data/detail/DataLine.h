// DataLine: the current line of a data file, and a scanner with a cursor on it.
#pragma once

#include <array>
#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>

namespace kv::detail {

/// What ends a line. It also selects the escapes and the character set.
enum class LineEnd : int { LineFeed, CarriageReturn };

class DataLine {
  public:
    /// Bytes of a line including its final zero.
    static constexpr int Size = 1024;

    struct Text {
        std::string_view text;  // valid until the next scan
        bool isEnded;           // the terminator was found
    };

    explicit DataLine(LineEnd end) noexcept : end_(end) {}

    /// Reads the next line of the stream; an empty one at its end. Of a line with more than 1023 characters
    /// ended by LF, the rest is discarded; ended by CR, the 1024th is discarded and the rest is the next
    /// line. An empty line does not set the fail bit.
    void Read(std::istream& stream);

    [[nodiscard]] LineEnd End() const noexcept { return end_; }
    [[nodiscard]] int Cursor() const noexcept { return cursor_; }
    void Rewind() noexcept { cursor_ = 0; }
    /// Returns whether the line begins with this character.
    [[nodiscard]] bool BeginsWith(char character) const noexcept {
        return length_ > 0 && line_[0] == character;
    }

    /// Skips this character if it is the next.
    bool Take(char character) noexcept;
    /// Skips blanks and TABs, then any number of dividers.
    void SkipDividers(char divider) noexcept;
    /// Scans an integer after blanks and TABs: "-" and digits, of which one may be missing. Clamps to the
    /// range of int. Returns false and leaves the value unchanged if there is none.
    bool ScanInt(int& value) noexcept;
    /// Scans a real: "-", blanks, digits, "." and digits, of which any may be missing but not all. No
    /// exponent.
    bool ScanReal(double& value) noexcept;
    /// Scans and decodes the text before the terminator, and skips the terminator. A zero byte terminates at
    /// the end of the line.
    Text ScanText(char terminator, bool dropTabs);

  private:
    [[nodiscard]] char At(int index) const noexcept { return line_[static_cast<std::size_t>(index)]; }
    template <class Predicate>
    void SkipWhile(Predicate isSkipped) noexcept;
    /// Returns the text from `start` to the cursor.
    [[nodiscard]] std::string_view Since(int start) const noexcept;
    /// Decodes the text before the terminator into `decoded_`, and moves the cursor to the terminator.
    void Decode(char terminator, bool dropTabs);
    void DecodeEscape(char character);

    LineEnd end_;
    std::array<char, Size> line_{};
    int length_ = 0;  // up to the first zero byte
    int cursor_ = 0;  // length_ + 1 after the zero byte was scanned
    std::string decoded_;
};

}  // namespace kv::detail
