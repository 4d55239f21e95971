// DataLine: one line of a data file with a cursor on it, and the scanning of what stands at the cursor.
#pragma once

#include <array>
#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>

namespace kv::detail {

/// What ends a line. It decides on the escapes and the character set too.
enum class LineEnd : int { LineFeed, CarriageReturn };

class DataLine {
  public:
    /// Bytes of a line and the zero behind it.
    static constexpr int Size = 1024;

    struct Text {
        std::string_view text;  // holds until the next scan
        bool isEnded;           // the terminator was there
    };

    explicit DataLine(LineEnd end) noexcept : end_(end) {}

    /// Takes the next line from the stream: empty at its end. Of a line ended by LF the characters past the
    /// 1023rd are lost; of one ended by CR they are the next line, but for the one at the cut. An empty line
    /// leaves no fail bit.
    void Read(std::istream& stream);

    [[nodiscard]] LineEnd End() const noexcept { return end_; }
    [[nodiscard]] int Cursor() const noexcept { return cursor_; }
    void Rewind() noexcept { cursor_ = 0; }
    /// Whether the line begins with this character.
    [[nodiscard]] bool BeginsWith(char character) const noexcept {
        return length_ > 0 && line_[0] == character;
    }

    /// Moves over this character, if it is the next.
    bool Take(char character) noexcept;
    /// Moves over blanks and TABs, then over any number of these characters.
    void SkipDividers(char divider) noexcept;
    /// An integer behind blanks and TABs: "-" and digits, one of the two being enough. One that is too large
    /// for an int becomes the largest, or the smallest. False, with the value unchanged, where nothing is.
    bool ScanInt(int& value) noexcept;
    /// A real: "-", blanks, digits, "." and digits, of which any may be missing but not all. No exponent.
    bool ScanReal(double& value) noexcept;
    /// The decoded text up to the terminator, a zero byte being the end of the line, and moves behind it.
    Text ScanText(char terminator, bool dropTabs);

  private:
    [[nodiscard]] char At(int index) const noexcept { return line_[static_cast<std::size_t>(index)]; }
    template <class Predicate>
    void SkipWhile(Predicate isSkipped) noexcept;
    /// From a place of the line up to the cursor.
    [[nodiscard]] std::string_view Since(int start) const noexcept;
    /// Decodes up to the terminator into `decoded_`, and leaves the cursor there.
    void Decode(char terminator, bool dropTabs);
    void DecodeEscape(char character);

    LineEnd end_;
    std::array<char, Size> line_{};
    int length_ = 0;  // up to the first zero byte
    int cursor_ = 0;  // behind the zero byte when that has been taken
    std::string decoded_;
};

}  // namespace kv::detail
