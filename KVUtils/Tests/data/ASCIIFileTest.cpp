#include "KVUtils/Source/data/ASCIIFile.h"
#include "KVUtils/Source/frame/APPSETTI.h"
#include "KVUtils/Source/frame/KVSingleton.h"
#include "KVUtils/Source/frame/Language.h"
#include "KVUtils/Tests/data/TestFile.h"

#include <cmath>
#include <functional>
#include <sstream>
#include <type_traits>
#include <vector>

namespace kv {
namespace {

static_assert(!std::is_polymorphic_v<ASCIIFile> && std::is_copy_constructible_v<ASCIIFile>);

class ASCIIFileTest : public test::FileTest {
  protected:
    ~ASCIIFileTest() override { Language::SetLanguageByCountryCode(1); }
};

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

TEST_F(ASCIIFileTest, WritesTheseBytes) {
    short const shorts[] = {1, -2, 32767};
    int const ints[] = {-1234567, 0};
    double const reals[] = {1.5, -0.25};
    struct {
        std::function<void(ASCIIFile&)> put;
        char const* plain;
        char const* tabs;
    } const rows[] = {
        {[](ASCIIFile& f) { f.PutBOOL("k", 1); }, "k=1\n", "k=\t1\n"},
        {[](ASCIIFile& f) { f.PutBOOL("k", 255); }, "k=255\n", "k=\t255\n"},
        {[](ASCIIFile& f) { f.PutShort("k", -7); }, "k=-7\n", "k=\t-7\n"},
        {[](ASCIIFile& f) { f.PutInt("a key", 70000); }, "a key=70000\n", "a key=\t70000\n"},
        {[&](ASCIIFile& f) { f.PutShortArray("k", shorts, 3); }, "k=     1     -2  32767 \n",
         "k=\t     1\t    -2\t 32767\t\n"},
        {[&](ASCIIFile& f) { f.PutIntArray("k", ints, 2); }, "k=-1234567      0 \n",
         "k=\t-1234567\t     0\t\n"},
        {[&](ASCIIFile& f) { f.PutIntArray("k", ints, 0); }, "k=\n", "k=\t\n"},
        {[](ASCIIFile& f) { f.PutReal("k", 1.5, -1); }, "k=    1.50000\n", "k=\t    1.50000\n"},
        {[](ASCIIFile& f) { f.PutReal("k", -1.25, 1); }, "k=   -1.3\n", "k=\t   -1.3\n"},
        {[](ASCIIFile& f) { f.PutReal("k", 123456789, 0); }, "k=123456789\n", "k=\t123456789\n"},
        {[](ASCIIFile& f) { f.SetPrecision(2), f.PutReal("k", 1.5); }, "k=    1.50\n", "k=\t    1.50\n"},
        {[&](ASCIIFile& f) { f.PutRealArray("k", reals, 2, 2); }, "k=    1.50    -0.25 \n",
         "k=\t    1.50\t   -0.25\t\n"},
        {[](ASCIIFile& f) { f.PutString("k", "a\tb\n\r\x1F\x7F\xE4^c"); }, "k=a\tb^J^M^_\x7F\xE4^c\n",
         "k=\ta\tb^J^M^_\x7F\xE4^c\n"},
        {[](ASCIIFile& f) { f.PutString("k", ""); }, "k=\n", "k=\t\n"},
        {[](ASCIIFile& f) {
             MyStringList list;
             for (char const* const text : {"red", "", "li\nme"}) list.Append(text);
             f.PutString("k", list);
         },
         "k=red  li^Jme\n", "k=\tred\t\tli^Jme\n"},
        {[](ASCIIFile& f) { f.PutDate("k", 1999, 3, 7, 9, 5, 0); }, "k=07-03-1999 09:05:00\n",
         "k=\t07-03-1999\t 09:05:00\n"},
        {[](ASCIIFile& f) { f.PutDate("k", 5, 12, 31, 23, 59, 10); }, "k=31-12-5 23:59:10\n",
         "k=\t31-12-5\t 23:59:10\n"},
        {[](ASCIIFile& f) { f.PutTitel("A title"); }, "[A title]\n", "[A title]\n"},
    };
    for (auto const& row : rows) {
        for (uchar const tabs : {uchar{0}, uchar{1}}) {
            std::stringstream stream;
            ASCIIFile file(&stream, 0, tabs);
            row.put(file);
            EXPECT_EQ(stream.str(), tabs != 0 ? row.tabs : row.plain);
            EXPECT_EQ(file.GetError(), 0);
        }
    }
}

// What the readers of all forms make of a line: the answer, and the value where there is one.
TEST_F(ASCIIFileTest, ReadsValues) {
    Reader r("b=257\nb=\ns=65537\ni=\t-5 rest\nd= - 1.5;\nis= 1\t2 3 4\nss=1 2\nds=.5 1.5 \n");
    uchar flag = 7;
    EXPECT_EQ(r.file.GetBOOL("b", flag), 1);
    EXPECT_EQ(flag, 1);
    EXPECT_EQ(r.file.GetBOOL("b", flag), 0);
    EXPECT_EQ(flag, 0);
    EXPECT_EQ(r.file.SkipLines(1), 1);
    short number = 7;
    EXPECT_EQ(r.file.GetShort("s", number), 1);
    EXPECT_EQ(number, 1);
    int integer = 0;
    EXPECT_EQ(r.file.GetInt("i", integer), 1);
    EXPECT_EQ(integer, -5);
    double real = 0;
    EXPECT_EQ(r.file.GetReal("d", real), 1);
    EXPECT_EQ(real, -1.5);
    int integers[3] = {};
    EXPECT_EQ(r.file.GetIntArray("is", integers, 3), 1);
    EXPECT_EQ(integers[0] * 100 + integers[1] * 10 + integers[2], 123);
    short shorts[3] = {};
    EXPECT_EQ(r.file.GetShortArray("ss", shorts, 3), 0);
    EXPECT_EQ(r.file.GetShortArray("ss", shorts, 2), 1);
    double reals[2] = {};
    EXPECT_EQ(r.file.GetRealArray("ds", reals, 2), 1);
    EXPECT_EQ(reals[0] + reals[1], 2.0);
}

TEST_F(ASCIIFileTest, EveryFailureStaysOnItsLine) {
    uchar flag = 0;
    short number = 0;
    int integer = 0;
    double real = 0;
    short shorts[2];
    int ints[2];
    double reals[2];
    int date[6];
    sv::String text;
    MyStringList list;
    sv::String const key = "k";
    std::function<uchar(ASCIIFile&)> const gets[] = {
        [&](ASCIIFile& f) { return f.GetBOOL(key, flag); },
        [&](ASCIIFile& f) { return f.GetShort(key, number); },
        [&](ASCIIFile& f) { return f.GetInt(key, integer); },
        [&](ASCIIFile& f) { return f.GetReal(key, real); },
        [&](ASCIIFile& f) { return f.GetShortArray(key, shorts, 2); },
        [&](ASCIIFile& f) { return f.GetIntArray(key, ints, 2); },
        [&](ASCIIFile& f) { return f.GetRealArray(key, reals, 2); },
        [&](ASCIIFile& f) { return f.GetDate(key, date[0], date[1], date[2], date[3], date[4], date[5]); },
        [&](ASCIIFile& f) { return f.GetTitel(key); },
        [&](ASCIIFile& f) { return f.CheckVersion(9); },
        // These fail on the key alone.
        [&](ASCIIFile& f) { return f.GetString(key, text, 0); },
        [&](ASCIIFile& f) { return f.GetString(key, list); },
        [&](ASCIIFile& f) { return f.GetMultilineString(key, text); },
    };
    constexpr std::size_t OfValues = 10;
    for (std::string const line :
         {"other=1 2", "k =1 2", "K=1 2", "k", "k]", "k=x", "k=", "k= x 1", "[other]x", "[k", "=1 2"}) {
        bool const hasKey = line.starts_with("k=");
        for (std::size_t i = 0; i < (hasKey ? OfValues : std::size(gets)); ++i) {
            SCOPED_TRACE(line + ", get " + std::to_string(i));
            Reader r(line + "\nnext\n");
            EXPECT_EQ(gets[i](r.file), 0);
            EXPECT_EQ(gets[i](r.file), 0);
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

TEST_F(ASCIIFileTest, Strings) {
    Reader r("a=\nb=x\ty\nc=one^Jline\nd= behind=it \ne=a^bc\n");
    sv::String text;
    for (auto const& [key, dropTabs, expected] : {std::tuple("a", 1, ""),
                                                  {"b", 1, "xy"},
                                                  {"c", 0, "one\nline"},
                                                  {"d", 0, " behind=it "},
                                                  {"e", 0, "a\"c"}}) {
        EXPECT_EQ(r.file.GetString(key, text, static_cast<uchar>(dropTabs)), 1) << key;
        EXPECT_EQ(text, expected);
    }
    std::stringstream stream;
    ASCIIFile(&stream, 0, 1).PutString("k", "x\ty");
    EXPECT_EQ(ASCIIFile(&stream, 1, 1).GetString("k", text, 0), 1);
    EXPECT_EQ(text, "\tx\ty");  // the writer's TAB is part of it
}

TEST_F(ASCIIFileTest, StringLists) {
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

TEST_F(ASCIIFileTest, MultilineStrings) {
    Reader r("k=first\n\tsecond^J\n\t\tthird\nnext\nk=last\n\tline");
    sv::String text;
    EXPECT_EQ(r.file.GetMultilineString("k", text), 1);
    EXPECT_EQ(text, "first\n\tsecond\n\n\t\tthird");
    EXPECT_EQ(r.Line(), "next");
    EXPECT_EQ(r.file.GetMultilineString("k", text), 1);
    EXPECT_EQ(text, "last\n\tline");
}

TEST_F(ASCIIFileTest, Dates) {
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

TEST_F(ASCIIFileTest, TitlesAndFreeLines) {
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

TEST_F(ASCIIFileTest, EndsOnStreamsThatGiveNothing) {
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

TEST_F(ASCIIFileTest, LineEndsOfFiles) {
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

TEST_F(ASCIIFileTest, LinesEndInCrWhenNoLfComesEarly) {
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

TEST_F(ASCIIFileTest, ValuesOfOverlongLinesAreCut) {
    Reader r("key=" + std::string(2000, 'x') + "\nnext\n");
    sv::String text;
    EXPECT_EQ(r.file.GetString("key", text, 0), 1);
    EXPECT_EQ(text.Len(), 1019U);
    EXPECT_EQ(r.Line(), "next");
    // A line without room for a value, or for "=", has none.
    for (std::size_t const length : {1022U, 1023U}) {
        std::string const key(length, 'k');
        Reader full(key + "=5\nnext\n");
        int value = 0;
        EXPECT_EQ(full.file.GetInt(key, value), 0);
        EXPECT_EQ(full.file.GetString(key, text, 0), length == 1022 ? 1 : 0);
    }
}

TEST_F(ASCIIFileTest, HeadOfAVersionedFile) {
    AppName* const name = AppName::CreateAppName("Desk", "2.7");
    for (uchar const tabs : {uchar{0}, uchar{1}}) {
        std::stringstream stream;
        ASCIIFile writer(&stream, 0, tabs);
        writer.SetVersion(3);
        EXPECT_EQ(writer.GetVersion(), 3);
        EXPECT_EQ(stream.str(), tabs != 0 ? "[File]\nApplication=\tDesk 2.7\nVersion=\t3\n"
                                          : "[File]\nApplication=Desk 2.7\nVersion=3\n");
    }
    KVSingleton::Remove(name);
    delete name;
    for (auto const& [version, highest, isTaken] :
         {std::tuple(1, 99, 0), {2, 2, 1}, {3, 2, 0}, {3, 99, 1}, {0, 0, 0}, {-1, 9, 0}}) {
        Reader r("[File]\nApplication=any\nVersion=" + std::to_string(version) + "\nk=1");
        EXPECT_EQ(r.file.CheckVersion(highest), isTaken) << version;
        EXPECT_EQ(r.file.Version(), version);
        int value = 0;
        EXPECT_EQ(r.file.GetInt("k", value), 1);
    }
}

TEST_F(ASCIIFileTest, PercentDoneCountsWhatWasParsed) {
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

TEST_F(ASCIIFileTest, NamedFiles) {
    std::string const name = PathOf("gr\xFCn.dat");
    {
        ASCIIFile writer(name, 0, 0);
        EXPECT_EQ(writer.GetFileName(), name);
        EXPECT_EQ(writer.Trennzeichen(), " ");
        writer.PutInt("k", 5);
    }
    ASCIIFile reader(name, 1, 1);
    int value = 0;
    EXPECT_EQ(reader.GetInt("k", value), 1);
    EXPECT_EQ(value, 5);
    EXPECT_EQ(reader.Trennzeichen(), "\t");
    EXPECT_GT(reader.GetPercentDone(), 0);
    EXPECT_TRUE(std::filesystem::exists(directory_ / std::filesystem::path(u8"gr\u00FCn.dat")));

    ASCIIFile nowhere(PathOf("none/file"), 0, 0);
    EXPECT_EQ(nowhere.GetError(), 0);
    nowhere.PutInt("k", 1);
    EXPECT_EQ(nowhere.GetError(), 1);
    nowhere.PutInt("k", 1);
    EXPECT_EQ(nowhere.GetError(), 1);
}

#ifndef _WIN32
TEST_F(ASCIIFileTest, NamesInEasternLanguagesAreTakenAsTheyAre) {
    for (int const country : {81, 86}) {
        Language::SetLanguageByCountryCode(static_cast<unsigned short>(country));
        ASCIIFile(PathOf("\xE8\x89\xB2.dat"), 0, 0).PutInt("k", 5);
        EXPECT_EQ(Read(PathOf("\xE8\x89\xB2.dat")), "k=5\n");
    }
}
#endif

TEST_F(ASCIIFileTest, ACopySharesTheStream) {
    Reader r("a=1\nb=2\nc=3\n");
    ASCIIFile copy(r.file);
    int value = 0;
    EXPECT_EQ(copy.GetInt("a", value), 1);
    EXPECT_EQ(r.file.GetInt("a", value), 1);  // has its own line, and the one behind b next
    EXPECT_EQ(copy.GetInt("b", value), 1);
    EXPECT_EQ(r.file.GetInt("c", value), 1);
    EXPECT_EQ(copy.GetInt("c", value), 0);

    std::string const name = PathOf("file");
    auto writer = std::make_unique<ASCIIFile>(name, 0, 0);
    ASCIIFile second = *writer;
    writer.reset();
    second.PutInt("k", 1);
    EXPECT_EQ(second.GetError(), 0);
}

/// One value of each form, from a generator, written and read again.
class RoundTrip {
  public:
    RoundTrip(unsigned seed, bool tabs, bool printable) : random_(seed), tabs_(tabs), printable_(printable) {}

    /// Writes a field into `writer` and returns what checks it when it is read.
    std::function<void(ASCIIFile&)> Put(ASCIIFile& writer) {
        std::string const key = Key();
        switch (Below(9)) {
            case 0:
                return PutNumber<uchar>(writer, key, &ASCIIFile::PutBOOL, &ASCIIFile::GetBOOL);
            case 1:
                return PutNumber<short>(writer, key, &ASCIIFile::PutShort, &ASCIIFile::GetShort);
            case 2:
                return PutNumber<int>(writer, key, &ASCIIFile::PutInt, &ASCIIFile::GetInt);
            case 3:
                return PutNumbers<short>(writer, key, &ASCIIFile::PutShortArray, &ASCIIFile::GetShortArray);
            case 4:
                return PutNumbers<int>(writer, key, &ASCIIFile::PutIntArray, &ASCIIFile::GetIntArray);
            case 5:
                return PutReals(writer, key);
            case 6:
                return PutText(writer, key);
            case 7:
                return PutList(writer, key);
            default:
                return PutDate(writer, key);
        }
    }

  private:
    int Below(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

    std::string Key() {
        std::string key;
        for (int i = Below(12); i >= 0; --i) key += "abcXYZ 09_.,[]\xE4"[Below(printable_ ? 14 : 15)];
        return key;
    }

    /// Any byte but "^", and none of what else the form cannot hold.
    std::string Bytes(int length, std::string_view without) {
        std::string text;
        while (static_cast<int>(text.size()) < length) {
            char const byte = static_cast<char>(printable_ ? ' ' + Below(95) : Below(256));
            if (byte != '^' && without.find(byte) == std::string_view::npos) text += byte;
        }
        return text;
    }

    template <class Value, class Put, class Get>
    std::function<void(ASCIIFile&)> PutNumber(ASCIIFile& writer, std::string const& key, Put put, Get get) {
        auto const value = static_cast<Value>(random_() >> Below(32));
        (writer.*put)(key, value);
        return [=](ASCIIFile& reader) {
            Value found = 0;
            ASSERT_EQ((reader.*get)(key, found), 1);
            ASSERT_EQ(found, value);
        };
    }

    template <class Value, class Put, class Get>
    std::function<void(ASCIIFile&)> PutNumbers(ASCIIFile& writer, std::string const& key, Put put, Get get) {
        std::vector<Value> values(static_cast<std::size_t>(Below(40)));
        for (Value& value : values) value = static_cast<Value>(random_() >> Below(32));
        (writer.*put)(key, values.data(), static_cast<int>(values.size()));
        return [=](ASCIIFile& reader) {
            std::vector<Value> found(values.size());
            ASSERT_EQ((reader.*get)(key, found.data(), static_cast<int>(found.size())), 1);
            ASSERT_EQ(found, values);
        };
    }

    /// Numbers of few enough digits to come back as they were.
    std::function<void(ASCIIFile&)> PutReals(ASCIIFile& writer, std::string const& key) {
        auto const decimals = static_cast<short>(Below(7));
        double const scale = std::pow(10, decimals);
        std::vector<double> values(static_cast<std::size_t>(1 + Below(36)));
        for (double& value : values) value = (static_cast<int>(random_()) >> Below(32)) / scale;
        bool const isOne = values.size() == 1;
        int const count = static_cast<int>(values.size());
        if (isOne)
            writer.PutReal(key, values[0], decimals);
        else
            writer.PutRealArray(key, values.data(), count, decimals);
        return [=](ASCIIFile& reader) {
            std::vector<double> found(values.size());
            ASSERT_EQ(isOne ? reader.GetReal(key, found[0]) : reader.GetRealArray(key, found.data(), count),
                      1);
            ASSERT_EQ(found, values);
        };
    }

    std::function<void(ASCIIFile&)> PutText(ASCIIFile& writer, std::string const& key) {
        std::string const text = Bytes(Below(Below(4) == 0 ? 480 : 20), "");
        writer.PutString(key, text);
        return [=, prefix = std::string(tabs_ ? "\t" : "")](ASCIIFile& reader) {
            sv::String found;
            ASSERT_EQ(reader.GetString(key, found, 0), 1);
            ASSERT_EQ(found.View(), prefix + text);
        };
    }

    /// Not a list of one empty string, which is written like an empty list; nor, with blanks, an empty first
    /// one.
    std::function<void(ASCIIFile&)> PutList(ASCIIFile& writer, std::string const& key) {
        std::string const separator = tabs_ ? "\t" : " ";
        std::vector<std::string> strings{Bytes(1 + Below(8), separator)};
        for (int i = Below(12); i > 0; --i) strings.push_back(Bytes(Below(8), separator));
        MyStringList list;
        for (std::string const& text : strings) list.Append(text);
        writer.PutString(key, list);
        return [=](ASCIIFile& reader) {
            MyStringList found;
            ASSERT_EQ(reader.GetString(key, found), 1);
            ASSERT_EQ(found.Count(), strings.size());
            for (std::size_t i = 0; i < strings.size(); ++i)
                ASSERT_EQ(found[static_cast<int>(i)].View(), strings[i]);
        };
    }

    std::function<void(ASCIIFile&)> PutDate(ASCIIFile& writer, std::string const& key) {
        std::vector<int> const d = {Below(3000), 1 + Below(12), 1 + Below(31),
                                    Below(24),   Below(60),     Below(60)};
        writer.PutDate(key, d[0], d[1], d[2], d[3], d[4], d[5]);
        return [=](ASCIIFile& reader) {
            std::vector<int> f(6);
            ASSERT_EQ(reader.GetDate(key, f[0], f[1], f[2], f[3], f[4], f[5]), 1);
            ASSERT_EQ(f, d);
        };
    }

    std::mt19937 random_;
    bool tabs_;
    bool printable_;  // nothing that a file of lines ended by CR changes
};

TEST_F(ASCIIFileTest, WhatIsPutIsGot) {
    struct {
        char const* end;
        bool printable;
    } const rows[] = {{"\n", false}, {"\r\n", false}, {"\r", true}};
    int values = 0;
    for (auto const& row : rows) {
        for (unsigned seed = 1; seed <= 100; ++seed) {
            SCOPED_TRACE("seed " + std::to_string(seed));
            bool const tabs = seed % 2 == 0;
            RoundTrip roundTrip(seed, tabs, row.printable);
            std::vector<std::function<void(ASCIIFile&)>> checks;
            std::stringstream stream;
            ASCIIFile writer(&stream, 0, tabs ? 1 : 0);
            for (int i = 0; i < 100; ++i) checks.push_back(roundTrip.Put(writer));
            values += static_cast<int>(checks.size());

            std::string content;
            for (char const byte : stream.str()) byte == '\n' ? content += row.end : content += byte;
            ASCIIFile reader(Write("file", content), 1, tabs ? 1 : 0);
            for (auto const& check : checks) {
                check(reader);
                if (HasFatalFailure()) return;
            }
        }
    }
    EXPECT_EQ(values, 30000);
}

// The text is the form of the number: a real that was read is written as the same text.
TEST_F(ASCIIFileTest, RealsComeBackToTheirLastDecimal) {
    std::mt19937_64 random(11);
    for (int i = 0; i < 5000; ++i) {
        auto const decimals = static_cast<short>(random() % 10);
        double const value = std::ldexp(static_cast<double>(static_cast<std::int64_t>(random())),
                                        -static_cast<int>(40 + random() % 40));
        std::stringstream stream;
        ASCIIFile writer(&stream, 0, 0);
        writer.PutReal("k", value, decimals);
        double found = 0;
        ASSERT_EQ(ASCIIFile(&stream, 1, 0).GetReal("k", found), 1);
        ASSERT_NEAR(found, value, 0.5000001 * std::pow(10, -decimals) + std::abs(value) * 1e-15) << value;
    }
}

}  // namespace
}  // namespace kv
