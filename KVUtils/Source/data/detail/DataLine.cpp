#include "KVUtils/Source/data/detail/DataLine.h"

#include "KVUtils/Source/data/GString.h"
#include "SV/core/String.h"

#include <charconv>
#include <cstring>
#include <istream>
#include <limits>

namespace kv::detail {

namespace {

constexpr char Escape = '^';
constexpr int MacRoman = 2;
constexpr int CodePage = 9;

[[nodiscard]] constexpr bool IsBlank(char character) noexcept {
    return character == ' ' || character == '\t';
}
[[nodiscard]] constexpr bool IsDigit(char character) noexcept { return character >= '0' && character <= '9'; }

}  // namespace

void DataLine::Read(std::istream& stream) {
    bool const endsInLineFeed = end_ == LineEnd::LineFeed;
    stream.getline(line_.data(), Size, endsInLineFeed ? '\n' : '\r');
    auto const count = static_cast<int>(stream.gcount());
    bool const isEnded = stream.good();
    if (stream.fail()) {
        // The end of the file, or a line that is too long; neither may make the next read fail.
        bool const isTooLong = count == Size - 1;
        stream.clear(stream.rdstate() & ~std::ios::failbit);
        if (isTooLong) stream.ignore(endsInLineFeed ? std::numeric_limits<std::streamsize>::max() : 1, '\n');
    }
    // On Windows the stream has removed it.
    if (endsInLineFeed && isEnded && count > 1 && At(count - 2) == '\r') {
        line_.at(static_cast<std::size_t>(count) - 2) = '\0';
    }
    length_ = static_cast<int>(std::strlen(line_.data()));
    cursor_ = 0;
}

std::string_view DataLine::Since(int start) const noexcept {
    return {line_.data() + start, static_cast<std::size_t>(cursor_ - start)};
}

bool DataLine::Take(char character) noexcept {
    bool const isNext = cursor_ < length_ && At(cursor_) == character;
    if (isNext) ++cursor_;
    return isNext;
}

template <class Predicate>
void DataLine::SkipWhile(Predicate isSkipped) noexcept {
    while (cursor_ < length_ && isSkipped(At(cursor_))) ++cursor_;
}

void DataLine::SkipDividers(char divider) noexcept {
    SkipWhile(IsBlank);
    SkipWhile([divider](char character) { return character == divider; });
}

bool DataLine::ScanInt(int& value) noexcept {
    SkipWhile(IsBlank);
    int const start = cursor_;
    bool const isNegative = Take('-');
    SkipWhile(IsDigit);
    std::string_view const number = Since(start);
    if (number.empty()) return false;

    int scanned = 0;
    auto const result = std::from_chars(number.data(), number.data() + number.size(), scanned);
    if (result.ec == std::errc::result_out_of_range) {
        scanned = isNegative ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
    }
    value = scanned;
    return true;
}

bool DataLine::ScanReal(double& value) noexcept {
    SkipWhile(IsBlank);
    bool const isNegative = Take('-');
    SkipWhile(IsBlank);
    int const start = cursor_;
    SkipWhile(IsDigit);
    if (Take('.')) SkipWhile(IsDigit);
    std::string_view const number = Since(start);
    if (number.empty() && !isNegative) return false;

    double magnitude = 0;
    auto const result = std::from_chars(number.data(), number.data() + number.size(), magnitude);
    if (result.ec == std::errc::result_out_of_range) magnitude = ParseLeadingNumber(number).value;
    value = isNegative ? -magnitude : magnitude;
    return true;
}

DataLine::Text DataLine::ScanText(char terminator, bool dropTabs) {
    if (cursor_ > length_) return {{}, false};
    int const start = cursor_;
    auto const isChanged = [dropTabs](char c) { return c == Escape || (dropTabs && c == '\t'); };
    SkipWhile([&](char c) { return c != terminator && !isChanged(c); });

    std::string_view text = Since(start);
    if (end_ == LineEnd::CarriageReturn || (cursor_ < length_ && isChanged(At(cursor_)))) {
        cursor_ = start;
        Decode(terminator, dropTabs);
        text = decoded_;
    }
    bool const isEnded = At(cursor_) == terminator;
    ++cursor_;
    return {text, isEnded};
}

void DataLine::Decode(char terminator, bool dropTabs) {
    decoded_.clear();
    while (cursor_ < length_ && At(cursor_) != terminator) {
        char const character = At(cursor_++);
        if (character == Escape && cursor_ < length_) {
            DecodeEscape(At(cursor_++));
        } else if (!(dropTabs && character == '\t')) {
            decoded_ += character;
        }
    }
    if (end_ == LineEnd::CarriageReturn) decoded_ = sv::String(decoded_).Convert(MacRoman, CodePage).View();
}

void DataLine::DecodeEscape(char character) {
    if (end_ == LineEnd::LineFeed) {
        decoded_ += static_cast<char>(character - '@');
    } else if (character == 'M') {
        decoded_ += "\r\n";
    }
}

}  // namespace kv::detail
