#include "KVUtils/Source/data/detail/DataLine.h"
#include "SV/core/String.h"

#include <climits>
#include <gtest/gtest.h>

#include <optional>
#include <sstream>

namespace kv::detail {
namespace {

DataLine LineOf(std::string const& text, LineEnd end = LineEnd::LineFeed) {
    std::istringstream stream(text);
    DataLine line(end);
    line.Read(stream);
    return line;
}

std::string RestOf(DataLine& line) { return std::string(line.ScanText('\0', false).text); }

/// A text, what is scanned of it, and what it leaves; none where nothing is to be scanned.
template <class Value>
struct Scan {
    char const* text;
    std::optional<Value> value;
    char const* rest;
};

template <class Value, std::size_t Count>
void ExpectScans(bool (DataLine::*scan)(Value&) noexcept, Scan<Value> const (&rows)[Count]) {
    for (auto const& row : rows) {
        SCOPED_TRACE(row.text);
        DataLine line = LineOf(row.text);
        Value value = 42;
        EXPECT_EQ((line.*scan)(value), row.value.has_value());
        EXPECT_EQ(value, row.value.value_or(Value{42})) << "unchanged where there is none";
        EXPECT_EQ(RestOf(line), row.rest);
    }
}

TEST(DataLine, Integers) {
    static constexpr Scan<int> rows[] = {
        {"7", 7, ""},
        {" \t -12 3", -12, " 3"},
        {"007x", 7, "x"},
        {"-", 0, ""},
        {"--5", 0, "-5"},
        {"- 5", 0, " 5"},
        {"1.5", 1, ".5"},
        {"2147483647", INT_MAX, ""},
        {"-2147483648", INT_MIN, ""},
        {"2147483648", INT_MAX, ""},
        {"-99999999999999999999999", INT_MIN, ""},
        {"+5", {}, "+5"},
        {"", {}, ""},
        {"  x", {}, "x"},
    };
    ExpectScans<int>(&DataLine::ScanInt, rows);
}

TEST(DataLine, Reals) {
    static constexpr Scan<double> rows[] = {
        {"1.5", 1.5, ""},   {"\t - 1.5", -1.5, ""}, {"12 13", 12.0, " 13"},
        {"3.", 3.0, ""},    {".25.5", 0.25, ".5"},  {".", 0.0, ""},
        {"-", 0.0, ""},     {"-.", 0.0, ""},        {"1e3", 1.0, "e3"},
        {"1,5", 1.0, ",5"}, {"0.1", 0.1, ""},       {"123456789012345678", 123456789012345678.0, ""},
        {"inf", {}, "inf"}, {"+1", {}, "+1"},       {"", {}, ""},
    };
    ExpectScans<double>(&DataLine::ScanReal, rows);
    double huge = 0;
    EXPECT_TRUE(LineOf(std::string(400, '9')).ScanReal(huge));
    EXPECT_GT(huge, 1e308);
}

TEST(DataLine, TextUpToATerminator) {
    constexpr LineEnd Lf = LineEnd::LineFeed;
    constexpr LineEnd Cr = LineEnd::CarriageReturn;
    struct {
        char const* line;
        LineEnd end;
        bool dropTabs;
        char const* text;
        bool isEnded;
        char const* rest;
    } const rows[] = {
        {"key=1", Lf, true, "key", true, "1"},
        {"k\te\ty=1", Lf, true, "key", true, "1"},
        {"k\te\ty=1", Lf, false, "k\te\ty", true, "1"},
        {"key =1", Lf, true, "key ", true, "1"},
        {"key", Lf, true, "key", false, ""},
        {"=", Lf, true, "", true, ""},
        {"a^Jb^Mc=", Lf, true, "a\nb\rc", true, ""},
        {"a^Ib=", Lf, true, "a\tb", true, ""},  // only a TAB that stands as one is dropped
        {"a^=b=1", Lf, true,
         "a\xFD"
         "b",
         true, "1"},
        {"a^^=1", Lf, true, "a\x1E", true, "1"},
        {"a^", Lf, true, "a^", false, ""},
        {"a^Mb=1", Cr, true, "a\r\nb", true, "1"},
        {"a^Jb^^c^=d=1", Cr, true, "abcd", true, "1"},
        {"\x80^M\x8A=\x80", Cr, true, "\xC4\r\n\xE4", true, "\xC4"},  // Mac Roman to the code page
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.line);
        DataLine line = LineOf(row.line, row.end);
        DataLine::Text const scanned = line.ScanText('=', row.dropTabs);
        EXPECT_EQ(scanned.text, row.text);
        EXPECT_EQ(scanned.isEnded, row.isEnded);
        EXPECT_EQ(RestOf(line), row.rest);
    }
}

TEST(DataLine, TheEndOfALineTerminatesAZero) {
    DataLine line = LineOf("all of it\nnext");
    EXPECT_TRUE(line.ScanText('\0', false).isEnded);
    EXPECT_EQ(line.Cursor(), 10);
    DataLine::Text const behind = line.ScanText('\0', false);
    EXPECT_EQ(behind.text, "");
    EXPECT_FALSE(behind.isEnded);
    line.Rewind();
    EXPECT_EQ(RestOf(line), "all of it");
}

TEST(DataLine, LinesOfAStream) {
    struct {
        char const* name;
        LineEnd end;
        std::string content;
        std::vector<std::string> lines;
    } const rows[] = {
        {"LF", LineEnd::LineFeed, "a\n\nb\n", {"a", "", "b", ""}},
        {"last line without its end", LineEnd::LineFeed, "a\nb", {"a", "b", ""}},
        {"CR LF", LineEnd::LineFeed, "a\r\n\r\nb\rc\r\r\n", {"a", "", "b\rc\r", ""}},
        {"CR at the end of the file is no line end", LineEnd::LineFeed, "a\r", {"a\r", ""}},
        {"zero byte hides the rest", LineEnd::LineFeed, std::string("a\0b\nc", 5), {"a", "c"}},
        {"1023 and LF", LineEnd::LineFeed, std::string(1023, 'x') + "\nb", {std::string(1023, 'x'), "b"}},
        {"1023 and CR LF",
         LineEnd::LineFeed,
         std::string(1023, 'x') + "\r\nb",
         {std::string(1023, 'x'), "b"}},
        {"1022 and CR LF",
         LineEnd::LineFeed,
         std::string(1022, 'x') + "\r\nb",
         {std::string(1022, 'x'), "b"}},
        {"2000 and LF", LineEnd::LineFeed, std::string(2000, 'x') + "\nb", {std::string(1023, 'x'), "b"}},
        {"2000 and the end", LineEnd::LineFeed, std::string(2000, 'x'), {std::string(1023, 'x'), ""}},
        {"CR", LineEnd::CarriageReturn, "a\r\rb\r", {"a", "", "b", ""}},
        {"CR LF by CR", LineEnd::CarriageReturn, "a\r\nb\r", {"a", "\nb", ""}},
        {"2000 and CR",
         LineEnd::CarriageReturn,
         std::string(1023, 'x') + "!" + std::string(976, 'y') + "\rb",
         {std::string(1023, 'x'), std::string(976, 'y'), "b"}},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        std::istringstream stream(row.content);
        DataLine line(row.end);
        for (std::string const& expected : row.lines) {
            line.Read(stream);
            EXPECT_EQ(RestOf(line), expected);
            EXPECT_FALSE(stream.fail());
        }
    }
}

}  // namespace
}  // namespace kv::detail
