#include "KVUtils/Source/data/ASCIIFile.h"
#include "KVUtils/Tests/data/ASCIIFileReaders.h"
#include "KVUtils/Tests/data/TestFile.h"

#include <sstream>
#include <vector>

namespace kv {
namespace {

using ASCIIFileReadTest = test::FileTest;

/// A reader of these lines.
struct Reader {
    explicit Reader(std::string const& content, bool tabs = false)
        : stream(content), file(&stream, 1, tabs ? 1 : 0) {}

    /// The current line, as far as it is a free one, and on to the next.
    std::string Line() {
        sv::String text;
        return file.GetKeyString(text) != 0 ? std::string(text.View()) : "(no free line)";
    }

    std::stringstream stream;
    ASCIIFile file;
};

TEST_F(ASCIIFileReadTest, ValuesAreCutToTheirFormAndSurplusOnesIgnored) {
    Reader r("b=\nb=257\ns=65537\nss=1 2\nis= 1\t2 3 4\nds=.5 - 1.5 \n");
    uchar flag = 7;
    EXPECT_EQ(r.file.GetBOOL("b", flag), 0);
    EXPECT_EQ(flag, 0) << "stored all the same";
    r.file.SkipLines(1);
    EXPECT_EQ(r.file.GetBOOL("b", flag), 1);
    EXPECT_EQ(flag, 1);
    short shorts[3] = {};
    EXPECT_EQ(r.file.GetShort("s", shorts[0]), 1);
    EXPECT_EQ(shorts[0], 1);
    EXPECT_EQ(r.file.GetShortArray("ss", shorts, 3), 0);
    EXPECT_EQ(r.file.GetShortArray("ss", shorts, 2), 1);
    int ints[3] = {};
    EXPECT_EQ(r.file.GetIntArray("is", ints, 3), 1);
    EXPECT_EQ(ints[0] * 100 + ints[1] * 10 + ints[2], 123);
    double reals[2] = {};
    EXPECT_EQ(r.file.GetRealArray("ds", reals, 2), 1);
    EXPECT_EQ(reals[0] - reals[1], 2.0);
}

TEST_F(ASCIIFileReadTest, EveryFailureStaysOnItsLine) {
    for (std::string const line :
         {"other=1 2", "k =1 2", "K=1 2", "k", "k]", "k=x", "k=", "k= x 1", "[other]x", "[k", "=1 2"}) {
        for (int i = 0; i < (line.starts_with("k=") ? test::ReadersOfForms : test::ReadersOfKeys); ++i) {
            SCOPED_TRACE(line + ", reader " + std::to_string(i));
            Reader r(line + "\nnext\n");
            EXPECT_EQ(test::ReadAs(i, r.file), 0);
            EXPECT_EQ(test::ReadAs(i, r.file), 0);
            EXPECT_EQ(r.file.CheckVersion(9), 0);
            EXPECT_EQ(r.file.GetError(), 0);
            if (line.starts_with('[')) {
                EXPECT_EQ(r.file.SkipToTitel("other"), line == "[other]x" ? 1 : 0);
            } else {
                EXPECT_EQ(r.Line(), line);
                EXPECT_EQ(r.Line(), "next");
            }
        }
    }
}

TEST_F(ASCIIFileReadTest, StringsKeepTheirTabsUnlessToldOtherwise) {
    sv::String text;
    EXPECT_EQ(Reader("k=\tx\ty").file.GetString("k", text, 1), 1);
    EXPECT_EQ(text, "xy");
    EXPECT_EQ(Reader("k=\tx\ty", true).file.GetString("k", text, 0), 1);
    EXPECT_EQ(text, "\tx\ty") << "the one that a writer in tab mode sets too";
    EXPECT_EQ(Reader("k= behind=it ").file.GetString("k", text, 0), 1);
    EXPECT_EQ(text, " behind=it ");
}

TEST_F(ASCIIFileReadTest, StringLists) {
    struct {
        bool tabs;
        char const* line;
        std::vector<char const*> strings;
    } const rows[] = {
        {false, "k=a b c", {"a", "b", "c"}},
        {false, "k= a b", {"a", "b"}},
        {false, "k=a  b ", {"a", "", "b", ""}},
        {false, "k=", {}},
        {false, "k= ", {}},
        {false, "k=a\tb", {"a\tb"}},
        {true, "k=\ta b\tc", {"a b", "c"}},
        {true, "k=a\tb", {"a", "b"}},
        {true, "k=\t\ta", {"", "a"}},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.line);
        Reader r(row.line, row.tabs);
        MyStringList list;
        list.Append("kept");
        ASSERT_EQ(r.file.GetString("k", list), 1);
        ASSERT_EQ(list.Count(), row.strings.size() + 1);
        EXPECT_EQ(list[0], "kept");
        for (std::size_t i = 0; i < row.strings.size(); ++i)
            EXPECT_EQ(list[static_cast<int>(i) + 1], row.strings[i]);
    }
}

TEST_F(ASCIIFileReadTest, MultilineStrings) {
    Reader r("k=first\n\tsecond^J\n\t\tthird\nnext\nk=last\n\tline");
    sv::String text;
    EXPECT_EQ(r.file.GetMultilineString("k", text), 1);
    EXPECT_EQ(text, "first\n\tsecond\n\n\t\tthird");
    EXPECT_EQ(r.Line(), "next");
    EXPECT_EQ(r.file.GetMultilineString("k", text), 1);
    EXPECT_EQ(text, "last\n\tline");
}

TEST_F(ASCIIFileReadTest, Dates) {
    struct {
        char const* value;
        std::vector<int> date;  // year to second; empty for none
    } const rows[] = {
        {"07-03-1999 09:05:10", {1999, 3, 7, 9, 5, 10}},
        {"07-03-1999\t 09:05:10", {1999, 3, 7, 9, 5, 10}},
        {"07-03-1999 09:05", {1999, 3, 7, 9, 5, 0}},
        {"07-03-1999 09:05:", {1999, 3, 7, 9, 5, 0}},
        {"07-03-1999 09:05:x", {1999, 3, 7, 9, 5, 0}},
        {" 7 -- 3 - 1999  9 :: 5 : 1 and more", {1999, 3, 7, 9, 5, 1}},
        {"07-03-1999 09", {}},
        {"07-03-1999", {}},
        {"07.03.1999 09:05:10", {}},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.value);
        Reader r(std::string("when=") + row.value + "\nnext");
        std::vector<int> d(6, 42);
        EXPECT_EQ(r.file.GetDate("when", d[0], d[1], d[2], d[3], d[4], d[5]), row.date.empty() ? 0 : 1);
        if (!row.date.empty()) {
            EXPECT_EQ(d, row.date);
        }
        EXPECT_EQ(r.Line(), row.date.empty() ? std::string("when=") + row.value : "next");
    }
}

TEST_F(ASCIIFileReadTest, TitlesAndFreeLines) {
    Reader r("free\tline\n\n[First] behind\nx^Jy\n[Ne\txt]\n[Last]");
    EXPECT_EQ(r.Line(), "freeline");
    EXPECT_EQ(r.Line(), "(no free line)");
    int value = 0;
    EXPECT_EQ(r.file.GetInt("", value), 0);
    EXPECT_EQ(r.file.SkipLines(-1), 1);
    EXPECT_EQ(r.file.GetTitel("First"), 0);  // still on the blank line
    EXPECT_EQ(r.file.SkipLines(1), 1);
    EXPECT_EQ(r.file.GetTitel("first"), 0);
    EXPECT_EQ(r.file.GetTitel("First"), 1);
    EXPECT_EQ(r.Line(), "x\ny");
    EXPECT_EQ(r.Line(), "(no free line)");
    EXPECT_EQ(r.file.GetTitel("Next"), 1);
    EXPECT_EQ(r.file.SkipToTitel("Last"), 1);  // has no line end
    EXPECT_EQ(r.file.SkipToTitel("Last"), 0);
}

TEST_F(ASCIIFileReadTest, EndsOnStreamsThatGiveNothing) {
    std::stringstream broken("[a]\n");
    broken.setstate(std::ios::badbit);
    EXPECT_EQ(ASCIIFile(&broken, 1, 0).SkipToTitel("a"), 0);
    EXPECT_EQ(ASCIIFile(PathOf("none"), 1, 0).SkipToTitel("a"), 0);
    EXPECT_EQ(ASCIIFile(directory_.string(), 1, 0).SkipToTitel("a"), 0);
    std::stringstream stream("[a]\n");
    ASCIIFile writer(&stream, 0, 0);
    sv::String text;
    EXPECT_EQ(writer.SkipToTitel("a"), 0);
    EXPECT_EQ(writer.GetKeyString(text), 0);
    ASCIIFile reader(&stream, 1, 0);
    reader.PutInt("k", 1);
    EXPECT_EQ(stream.str(), "[a]\n");
}

TEST_F(ASCIIFileReadTest, LineEndsOfFiles) {
    std::string const lines[] = {"[T]", "k=a\xE4^Mb", "last=1"};
    struct {
        char const* end;
        char const* text;
    } const rows[] = {
        {"\n", "a\xE4\rb"}, {"\r\n", "a\xE4\rb"}, {"\r", "a\x89\r\nb"}};  // 0xE4 is "per mille" on a Mac
    for (auto const& row : rows) {
        for (bool const hasLastEnd : {false, true}) {
            std::string const content =
                lines[0] + row.end + lines[1] + row.end + lines[2] + (hasLastEnd ? row.end : "");
            ASCIIFile file(Write("file", content), 1, 0);
            sv::String text;
            int last = 0;
            EXPECT_EQ(file.GetTitel("T"), 1);
            EXPECT_EQ(file.GetString("k", text, 0), 1);
            EXPECT_EQ(text, row.text);
            EXPECT_EQ(file.GetInt("last", last), 1);
            EXPECT_EQ(file.GetKeyString(text), 0);
        }
    }
}

TEST_F(ASCIIFileReadTest, LinesEndInCrWhenNoLfComesEarly) {
    for (std::size_t const before : {1023U, 1024U}) {
        // Lines of 100 characters with their CR, and an LF that is the last byte looked at or the first that
        // is not.
        std::string content;
        while (content.size() < before) content += std::string(99, 'x') + '\r';
        content.resize(before);
        ASCIIFile file(Write("file", content + "\nk=1\r"), 1, 0);
        sv::String text;
        ASSERT_EQ(file.GetKeyString(text), 1);
        EXPECT_EQ(text.Len(), before == 1023 ? 1023U : 99U);
    }
}

TEST_F(ASCIIFileReadTest, ALineWithoutRoomForAValueHasNone) {
    sv::String text;
    for (std::size_t const length : {1022U, 1023U}) {
        std::string const key(length, 'k');
        Reader full(key + "=5\nnext\n");
        int value = 0;
        EXPECT_EQ(full.file.GetInt(key, value), 0);
        EXPECT_EQ(full.file.GetString(key, text, 0), length == 1022 ? 1 : 0);
    }
}

TEST_F(ASCIIFileReadTest, VersionsFromTwoUpToTheHighest) {
    for (auto const& [version, highest, isTaken] :
         {std::tuple(1, 99, 0), {2, 2, 1}, {3, 2, 0}, {3, 99, 1}, {0, 0, 0}, {-1, 9, 0}}) {
        Reader r("[File]\nApplication=any\nVersion=" + std::to_string(version) + "\nk=1");
        EXPECT_EQ(r.file.CheckVersion(highest), isTaken) << version;
        EXPECT_EQ(r.file.Version(), version);
        int value = 0;
        EXPECT_EQ(r.file.GetInt("k", value), 1);
    }
}

TEST_F(ASCIIFileReadTest, PercentDoneCountsWhatWasParsed) {
    ASCIIFile file(Write("file", "k=1\nk=22222\n"), 1, 0);
    int value = 0;
    EXPECT_FLOAT_EQ(file.GetPercentDone(), 1.0F / 12);
    EXPECT_EQ(file.GetInt("k", value), 1);
    EXPECT_FLOAT_EQ(file.GetPercentDone(), 5.0F / 12);
    EXPECT_EQ(file.GetInt("x", value), 0);
    EXPECT_FLOAT_EQ(file.GetPercentDone(), 5.0F / 12);
    EXPECT_EQ(file.SkipLines(1), 1);
    EXPECT_FLOAT_EQ(file.GetPercentDone(), 6.0F / 12);
    EXPECT_EQ(ASCIIFile(Write("empty", ""), 1, 0).GetPercentDone(), -1);
    EXPECT_EQ(ASCIIFile(PathOf("none"), 1, 0).GetPercentDone(), -1);
    EXPECT_LT(Reader("k=1\n").file.GetPercentDone(), 1e-6F);
}

TEST_F(ASCIIFileReadTest, ACopySharesTheStream) {
    Reader r("a=1\nb=2\nc=3\n");
    ASCIIFile copy(r.file);
    int value = 0;
    EXPECT_EQ(copy.GetInt("a", value), 1);
    EXPECT_EQ(r.file.GetInt("a", value), 1);  // has its own line, and the one behind b next
    EXPECT_EQ(copy.GetInt("b", value), 1);
    EXPECT_EQ(r.file.GetInt("c", value), 1);
    EXPECT_EQ(copy.GetInt("c", value), 0);
}

}  // namespace
}  // namespace kv
