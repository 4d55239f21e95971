#include "KVUtils/Source/data/ASCIIFile.h"
#include "KVUtils/Source/data/FileHelpers.h"
#include "KVUtils/Source/data/detail/DataLine.h"
#include "KVUtils/Source/frame/APPSETTI.h"
#include "KVUtils/Source/frame/Language.h"
#include "KVUtils/Tests/data/ASCIIFileReaders.h"
#include "KVUtils/Tests/data/CaseTable.h"
#include "KVUtils/Tests/data/TestFile.h"
#include "SV/core/DirEntry.h"
#include "SV/core/NativePath.h"

#include <climits>

#include <algorithm>
#include <charconv>
#include <type_traits>

namespace kv::test {
namespace {

static_assert(!std::is_polymorphic_v<ASCIIFile> && std::is_copy_constructible_v<ASCIIFile> &&
              std::is_copy_assignable_v<ASCIIFile>);

class ASCIIFileTest : public FileTest {
  protected:
    ~ASCIIFileTest() override { Language::SetLanguageByCountryCode(1); }
};

/// Runs a call of "reads.txt" and returns it with the result and the value.
std::string Answer(ASCIIFile& file, std::string const& call) {
    std::string const name = call.substr(0, call.find(' '));
    sv::String const key = Unescaped(call.substr(name.size() + 1));
    std::ostringstream answer;
    answer << call << ": ";
    if (name == "Skip") {
        answer << int{file.SkipLines(static_cast<int>(key.ToLong()))};
    } else if (name == "SkipTo") {
        answer << int{file.SkipToTitel(key)};
    } else if (name == "Check") {
        answer << int{file.CheckVersion(static_cast<int>(key.ToLong()))} << ' ';
        answer << file.GetVersion();
    } else {
        std::ostringstream value;
        auto const* const reader = std::ranges::find(AllReaders, name, &Reader::name);
        answer << int{reader->read(file, key, value)} << ' ' << value.str();
    }
    return answer.str();
}

TEST_F(ASCIIFileTest, ReadsAsTheTableSays) {
    std::string name;
    std::string content;
    std::stringstream stream;
    std::unique_ptr<ASCIIFile> file;
    for (std::string const& line : CaseLines("data/reads.txt")) {
        if (line[0] == '=') {
            name = line;
            content.clear();
            file.reset();
        } else if (line[0] == '|' || line[0] == '.') {
            content += Unescaped(line.substr(1)) + (line[0] == '|' ? "\n" : "");
        } else {
            if (file == nullptr) {
                stream = std::stringstream(content);
                file = std::make_unique<ASCIIFile>(&stream, 1, name.starts_with("=tabs") ? 1 : 0);
            }
            EXPECT_EQ(Answer(*file, line.substr(0, line.find(':'))), Unescaped(line)) << name;
        }
    }
}

TEST_F(ASCIIFileTest, EveryFailureStaysOnItsLine) {
    for (std::string const line :
         {"other=1 2", "k =1 2", "K=1 2", "k", "k]", "k=x", "k=", "k= x 1", "[other]x", "[k", "=1 2"}) {
        for (int i = 0; i < (line.starts_with("k=") ? ReadersOfForms : ReadersOfKeys); ++i) {
            SCOPED_TRACE(line + ", reader " + std::to_string(i));
            std::stringstream stream(line + "\nnext\n");
            ASCIIFile file(&stream, 1, 0);
            EXPECT_EQ(ReadAs(i, file), 0);
            EXPECT_EQ(ReadAs(i, file), 0);
            EXPECT_EQ(file.CheckVersion(9), 0);
            EXPECT_EQ(file.GetError(), 0);
            if (line.starts_with('[')) {
                EXPECT_EQ(file.SkipToTitel("other"), line == "[other]x" ? 1 : 0);
            } else {
                EXPECT_EQ(Answer(file, "Line "), "Line : 1 " + line);
                EXPECT_EQ(Answer(file, "Line "), "Line : 1 next");
            }
        }
    }
}

TEST_F(ASCIIFileTest, EndsOnStreamsThatGiveNothing) {
    std::stringstream broken("[a]\n");
    broken.setstate(std::ios::badbit);
    EXPECT_EQ(ASCIIFile(&broken, 1, 0).SkipToTitel("a"), 0);
    EXPECT_EQ(ASCIIFile(PathOf("none"), 1, 0).SkipToTitel("a"), 0);
    EXPECT_EQ(ASCIIFile(directory_.string(), 1, 0).SkipToTitel("a"), 0);
    std::stringstream stream("[a]\n");
    ASCIIFile writer(&stream, 0, 0);
    EXPECT_EQ(writer.SkipToTitel("a"), 0);
    EXPECT_EQ(Answer(writer, "Line "), "Line : 0 7");
    ASCIIFile(&stream, 1, 0).PutInt("k", 1);
    EXPECT_EQ(stream.str(), "[a]\n");
}

TEST_F(ASCIIFileTest, LineEndsOfFiles) {
    // 0xE4 is "per mille" in Mac Roman.
    for (auto const& [end, text] :
         {std::pair("\n", "a\xE4\rb"), std::pair("\r\n", "a\xE4\rb"), std::pair("\r", "a\x89\r\nb")}) {
        for (char const* const lastEnd : {"", end}) {
            std::string const content = std::string("[T]") + end + "k=a\xE4^Mb" + end + "last=1" + lastEnd;
            ASCIIFile file(Write("file", content), 1, 0);
            EXPECT_EQ(Answer(file, "Titel T"), "Titel T: 1 ");
            EXPECT_EQ(Answer(file, "String k"), std::string("String k: 1 ") + text);
            EXPECT_EQ(Answer(file, "Int last"), "Int last: 1 1");
            EXPECT_EQ(Answer(file, "Line "), "Line : 0 7");
        }
    }
    for (std::size_t const before : {1023U, 1024U}) {
        // An LF that is the last byte searched, or the first after it.
        std::string content;
        while (content.size() < before) content += std::string(99, 'x') + '\r';
        content.resize(before);
        ASCIIFile file(Write("file", content + "\nk=1\r"), 1, 0);
        sv::String text;
        ASSERT_EQ(file.GetKeyString(text), 1);
        EXPECT_EQ(text.Len(), before == 1023 ? 1023U : 99U);
    }
}

TEST_F(ASCIIFileTest, ALineWithoutRoomForAValueHasNone) {
    for (std::size_t const length : {1022U, 1023U}) {
        std::string const key(length, 'k');
        std::stringstream stream(key + "=5\nnext\n");
        ASCIIFile file(&stream, 1, 0);
        EXPECT_EQ(Answer(file, "Int " + key), "Int " + key + ": 0 7");
        EXPECT_EQ(Answer(file, "String " + key), "String " + key + (length == 1022 ? ": 1 " : ": 0 7"));
    }
}

TEST_F(ASCIIFileTest, PercentDoneCountsWhatWasParsed) {
    ASCIIFile file(Write("file", "k=1\nk=22222\n"), 1, 0);
    EXPECT_FLOAT_EQ(file.GetPercentDone(), 1.0F / 12);
    Answer(file, "Int k");
    EXPECT_FLOAT_EQ(file.GetPercentDone(), 5.0F / 12);
    Answer(file, "Int x");
    EXPECT_FLOAT_EQ(file.GetPercentDone(), 5.0F / 12);
    file.SkipLines(1);
    EXPECT_FLOAT_EQ(file.GetPercentDone(), 6.0F / 12);
    EXPECT_EQ(ASCIIFile(Write("empty", ""), 1, 0).GetPercentDone(), -1);
    EXPECT_EQ(ASCIIFile(PathOf("none"), 1, 0).GetPercentDone(), -1);
    std::stringstream stream("k=1\n");
    EXPECT_LT(ASCIIFile(&stream, 1, 0).GetPercentDone(), 1e-6F);
}

TEST_F(ASCIIFileTest, ACopySharesTheStreamAndHasItsOwnLine) {
    std::stringstream stream("a=1\nb=2\nc=3\nd=4\n");
    ASCIIFile file(&stream, 1, 0);
    ASCIIFile copy(file);
    EXPECT_EQ(Answer(copy, "Int a"), "Int a: 1 1");
    EXPECT_EQ(Answer(file, "Int a"), "Int a: 1 1");
    EXPECT_EQ(Answer(copy, "Int b"), "Int b: 1 2");
    EXPECT_EQ(Answer(file, "Int c"), "Int c: 1 3");
    file = copy;
    EXPECT_EQ(Answer(file, "Int d"), "Int d: 1 4");
    EXPECT_EQ(Answer(copy, "Int d"), "Int d: 1 4");

    auto writer = std::make_unique<ASCIIFile>(PathOf("file"), 0, 0);
    ASCIIFile second = *writer;
    writer.reset();
    second.PutInt("k", 1);
    EXPECT_EQ(second.GetError(), 0) << "the copy keeps the file open";
}

void PutEachForm(ASCIIFile& file) {
    short const shorts[] = {1, -2, 32767};
    int const ints[] = {-1234567, 0};
    double const reals[] = {1.5, -0.25};
    MyStringList list;
    for (char const* const text : {"red", "", "li\nme"}) list.Append(text);
    file.PutBOOL("flag", 1);
    file.PutBOOL("flag", 255);
    file.PutShort("short", -7);
    file.PutInt("a key", 70000);
    file.PutShortArray("shorts", shorts, 3);
    file.PutIntArray("ints", ints, 2);
    file.PutIntArray("none", ints, 0);
    file.PutReal("real", 1.5, -1);
    file.PutReal("real", -1.25, 1);
    file.PutReal("real", 123456789, 0);
    file.SetPrecision(2);
    file.PutReal("real", 1.5);
    file.PutRealArray("reals", reals, 2, 2);
    file.PutString("text", "a\tb\n\r\x1F\x7F\xE4^c");
    file.PutString("empty", "");
    file.PutString("list", list);
    file.PutDate("date", 1999, 3, 7, 9, 5, 0);
    file.PutDate("date", 5, 12, 31, 23, 59, 10);
    file.PutTitel("A title");
    file.SetVersion(3);
    EXPECT_EQ(file.GetVersion(), 3);
    EXPECT_EQ(file.GetError(), 0);
}

TEST_F(ASCIIFileTest, WritesTheseBytes) {
    AppName* const name = AppName::CreateAppName("Desk", "2.7");
    for (uchar const tabs : {uchar{0}, uchar{1}}) {
        std::stringstream stream;
        ASCIIFile file(&stream, 0, tabs);
        PutEachForm(file);
        EXPECT_EQ(file.Trennzeichen(), tabs != 0 ? "\t" : " ");
        EXPECT_EQ(stream.str(), tests::Bytes(std::string(KV_LIBRARY_TESTS "/data/writes") +
                                             (tabs != 0 ? "-tabs.txt" : ".txt")));
    }
    KVSingleton::Destroy(name);
}

TEST_F(ASCIIFileTest, NamedFiles) {
    std::string const name = PathOf("gr\xFCn.dat");
    {
        ASCIIFile writer(name, 0, 0);
        EXPECT_EQ(writer.GetFileName(), name);
        writer.PutInt("k", 5);
    }
    ASCIIFile reader(name, 1, 1);
    EXPECT_EQ(Answer(reader, "Int k"), "Int k: 1 5");
    EXPECT_TRUE(std::filesystem::exists(directory_ / std::filesystem::path(u8"gr\u00FCn.dat")));

    ASCIIFile nowhere(PathOf("none/file"), 0, 0);
    EXPECT_EQ(nowhere.GetError(), 0);
    nowhere.PutInt("k", 1);
    EXPECT_EQ(nowhere.GetError(), 1);
    nowhere.PutInt("k", 1);
    EXPECT_EQ(nowhere.GetError(), 1);
}

TEST_F(ASCIIFileTest, NamesAreInTheCodePageOfTheLanguage) {
    // "iro" in Japanese, "se" in Chinese: the same character.
    for (auto const& [country, name] : {std::pair(81, "\x90\x46"), std::pair(86, "\xC9\xAB")}) {
        Language::SetLanguageByCountryCode(static_cast<unsigned short>(country));
        sv::String const path = PathOf("") + "\\" + name + ".dat";
        ASCIIFile(path, 0, 0).PutInt("k", 5);
        EXPECT_TRUE(Read(directory_ / std::filesystem::path(u8"\u8272.dat")).starts_with("k=5"));
        EXPECT_TRUE(sv::DirEntry(path).Exists());
        EXPECT_EQ(sv::FromNativePath(sv::NativePath(name)), name);
        EXPECT_TRUE(KVDeleteFile(path)) << "the same file";
    }
    Language::SetLanguageByCountryCode(81);
    // Not in the code page: "?" one way, the Western letter the other.
    EXPECT_EQ(sv::FromNativePath("a\xC3\xBC\xE8\x89\xB2"), "a?\x90\x46");
    EXPECT_EQ(sv::NativePath("\xFC\xFC"), "\xC3\xBC\xC3\xBC");
}

TEST_F(ASCIIFileTest, WhatIsPutIsGot) {
    int const ints[] = {INT_MIN, INT_MAX};
    short const shorts[] = {SHRT_MIN, SHRT_MAX};
    double const reals[] = {-1234.5, 0.001};
    for (std::string const end : {"\n", "\r\n", "\r"}) {
        // Lines that end in CR have another character set, and fewer escapes.
        bool const isMac = end == "\r";
        std::string text;
        for (int i = isMac ? ' ' : 0; i < (isMac ? 127 : 256); ++i)
            text += i == '^' ? "" : std::string(1, static_cast<char>(i));
        for (uchar const tabs : {uchar{0}, uchar{1}}) {
            std::stringstream stream;
            ASCIIFile writer(&stream, 0, tabs);
            MyStringList list;
            for (char const* const each : {"red", "", "b=[lue]", ""}) list.Append(each);
            writer.PutTitel("a title");
            writer.PutIntArray("", ints, 2);
            writer.PutShortArray("[a key]", shorts, 2);
            writer.PutRealArray("k", reals, 2, 3);
            writer.PutString("k", text);
            writer.PutString("k", list);
            writer.PutDate("k", 2024, 2, 29, 0, 59, 7);
            std::string content;
            for (char const byte : stream.str()) content += byte == '\n' ? end : std::string(1, byte);
            ASCIIFile reader(Write("file", content), 1, tabs);
            for (auto const& [call, value] : {std::pair<std::string, std::string>("Titel a title", ""),
                                              {"Ints ", "-2147483648 2147483647"},
                                              {"Shorts [a key]", "-32768 32767"},
                                              {"Reals k", "-1234.5 0.001"},
                                              {"String k", (tabs != 0 ? "\t" : "") + text},
                                              {"List k", "7|red||b=[lue]||"},
                                              {"Date k", "2024 2 29 0 59 7 "}})
                EXPECT_EQ(Answer(reader, call), call + ": 1 " + value) << "mode " << int{tabs};
        }
    }
}

using detail::DataLine;
using detail::LineEnd;

std::string RestOf(DataLine& line) { return std::string(line.ScanText('\0', false).text); }

/// What a scan of this kind finds; "none" for nothing.
std::string Scanned(DataLine& line, std::string const& kind) {
    if (kind == "int") {
        int value = 42;
        bool const isFound = line.ScanInt(value);
        EXPECT_TRUE(isFound || value == 42) << "changed";
        return isFound ? std::to_string(value) : "none";
    }
    if (kind == "real") {
        double value = 42;
        bool const isFound = line.ScanReal(value);
        EXPECT_TRUE(isFound || value == 42) << "changed";
        std::array<char, 32> digits{};
        char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
        return isFound ? std::string(digits.data(), end) : "none";
    }
    DataLine::Text const found = line.ScanText('=', kind != "keep");
    return std::string(found.text) + (found.isEnded ? "=" : "");
}

TEST(DataLine, ScansAsTheTableSays) {
    for (auto const& [kind, text, found, rest] : CaseTable<4>("data/scans.tsv")) {
        SCOPED_TRACE(kind + ' ' + text);
        std::istringstream stream(text);
        DataLine line(kind == "mac" ? LineEnd::CarriageReturn : LineEnd::LineFeed);
        line.Read(stream);
        EXPECT_EQ(Scanned(line, kind), found);
        EXPECT_EQ(RestOf(line), rest);
    }
    std::istringstream nines(std::string(400, '9'));
    DataLine line(LineEnd::LineFeed);
    line.Read(nines);
    double huge = 0;
    EXPECT_TRUE(line.ScanReal(huge));
    EXPECT_GT(huge, 1e308);
    line.Rewind();
    EXPECT_TRUE(line.ScanText('\0', false).isEnded) << "a zero is at the end of the line";
    EXPECT_EQ(line.Cursor(), 401);
    EXPECT_FALSE(line.ScanText('\0', false).isEnded) << "once";
}

TEST(DataLine, LinesOfAStream) {
    auto const x = [](std::size_t count) { return std::string(count, 'x'); };
    struct {
        LineEnd end;
        std::string content;
        std::vector<std::string> lines;
    } const rows[] = {
        {LineEnd::LineFeed, "a\n\nb\n", {"a", "", "b", ""}},
        {LineEnd::LineFeed, "a\nb", {"a", "b", ""}},
        {LineEnd::LineFeed, "a\r\n\r\nb\rc\r\r\n", {"a", "", "b\rc\r", ""}},
        {LineEnd::LineFeed, "a\r", {"a\r", ""}},  // not a line end
        {LineEnd::LineFeed, std::string("a\0b\nc", 5), {"a", "c"}},
        {LineEnd::LineFeed, x(1023) + "\nb", {x(1023), "b"}},
        {LineEnd::LineFeed, x(1023) + "\r\nb", {x(1023), "b"}},
        {LineEnd::LineFeed, x(1022) + "\r\nb", {x(1022), "b"}},
        {LineEnd::LineFeed, x(2000) + "\nb", {x(1023), "b"}},
        {LineEnd::LineFeed, x(2000), {x(1023), ""}},
        {LineEnd::CarriageReturn, "a\r\rb\r", {"a", "", "b", ""}},
        {LineEnd::CarriageReturn, "a\r\nb\r", {"a", "\nb", ""}},
        {LineEnd::CarriageReturn, x(1023) + "!" + x(976) + "\rb", {x(1023), x(976), "b"}},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.content);
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
}  // namespace kv::test
