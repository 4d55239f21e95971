#include "KVUtils/Source/data/ASCIIFile.h"
#include "KVUtils/Source/frame/APPSETTI.h"
#include "KVUtils/Source/frame/KVSingleton.h"
#include "KVUtils/Source/frame/Language.h"
#include "KVUtils/Tests/data/TestFile.h"

#include <functional>
#include <sstream>
#include <type_traits>

namespace kv {
namespace {

static_assert(!std::is_polymorphic_v<ASCIIFile> && std::is_copy_constructible_v<ASCIIFile>);

class ASCIIFileWriteTest : public test::FileTest {
  protected:
    ~ASCIIFileWriteTest() override { Language::SetLanguageByCountryCode(1); }
};

TEST_F(ASCIIFileWriteTest, WritesTheseBytes) {
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

TEST_F(ASCIIFileWriteTest, HeadOfAVersionedFile) {
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
}

TEST_F(ASCIIFileWriteTest, NamedFiles) {
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
TEST_F(ASCIIFileWriteTest, NamesInEasternLanguagesAreTakenAsTheyAre) {
    for (int const country : {81, 86}) {
        Language::SetLanguageByCountryCode(static_cast<unsigned short>(country));
        ASCIIFile(PathOf("\xE8\x89\xB2.dat"), 0, 0).PutInt("k", 5);
        EXPECT_EQ(Read(PathOf("\xE8\x89\xB2.dat")), "k=5\n");
    }
}
#endif

TEST_F(ASCIIFileWriteTest, ACopyKeepsTheFileOpen) {
    std::string const name = PathOf("file");
    auto writer = std::make_unique<ASCIIFile>(name, 0, 0);
    ASCIIFile second = *writer;
    writer.reset();
    second.PutInt("k", 1);
    EXPECT_EQ(second.GetError(), 0);
}

}  // namespace
}  // namespace kv
