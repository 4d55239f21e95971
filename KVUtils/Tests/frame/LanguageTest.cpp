#include "KVUtils/Source/frame/Language.h"
#include "KVUtils/Tests/frame/FrameSupport.h"
#include "SV/core/International.h"
#include "SV/core/detail/TextPage.h"

#include <clocale>

namespace kv::test {

namespace {

/// The system speaks no known language, and names one in a win.ini of the test's own.
class LanguageTest : public FrameTest {
  protected:
    LanguageTest() { std::setlocale(LC_ALL, "C"); }
    ~LanguageTest() override { std::setlocale(LC_ALL, locale_.c_str()); }

    void Texts(std::initializer_list<char const*> names) const {
        for (char const* const name : names) tests::PutBytes(PathOf(name), "");
    }

    /// Creates the service over a configuration with this content, and returns what is kept there then.
    std::string ChoiceAfter(std::string_view content, std::string const& fileName) {
        AppConfig* const config = AppConfig::CreateAppConfig(Write("app.ini", content));
        Language::CreateLanguage(config, PathOf(fileName));
        return KeptChoice();
    }
    [[nodiscard]] static std::string KeptChoice() {
        return std::string(AppConfig::ReadKey("Settings", "language").View());
    }

  private:
    std::string locale_ = std::setlocale(LC_ALL, nullptr);
    Windir windir_{PathOf(".")};
};

TEST_F(LanguageTest, TextsAreFoundByTheirStem) {
    Texts({"app1.lng", "app49.lng", "app997.lng", "app91.lng", "app2.lng", "app", "bare34", "my.app.33.lng"});
    struct Row {
        char const* fileName;
        std::vector<std::string> names;
    };
    Row const rows[] = {
        {"app1.lng", {"English", "Deutsch", "Norwegian"}},
        {"app49.lng", {"English", "Deutsch", "Norwegian"}},
        {"app.lng", {"English", "Deutsch", "Norwegian"}},
        {"app997.lng", {"English"}},  // the stem "app9" of three digits: app91.lng
        {"bare1", {"Espa\xF1ol"}},
        {"my.app.1.lng",
         {"Fran\xE7"
          "ais"}},
        {"none.lng", {}},
    };
    for (Row const& row : rows) {
        ChoiceAfter("[Settings]\nlanguage=0\n", row.fileName);
        sv::ListBoxEntries box;
        box.InsertEntry("old");
        Language::InitListBox(box);
        std::vector<std::string> names;
        for (unsigned short i = 0; i < box.GetEntryCount(); ++i) names.emplace_back(box.GetEntry(i).View());
        EXPECT_EQ(names, row.names) << row.fileName;
    }
}

TEST_F(LanguageTest, TheChoiceIsKeptAsAnAbsoluteIndex) {
    if (sv::International::GetLanguage() != 0) GTEST_SKIP() << "the system always speaks a known language";
    Texts({"app1.lng", "app49.lng", "app90.lng"});
    struct Row {
        char const* content;
        char const* winIni;
        int code;
        char const* kept;
    };
    static constexpr Row rows[] = {
        {"[Settings]\nlanguage=1\n", "", 49, "1"},
        {"[Settings]\nlanguage=2\n", "", 1, "2"},  // no Spanish texts: English, nothing written
        {"[Settings]\nlanguage=25\n", "", 1, "25"},
        {"[Settings]\nlanguage=65537\n", "", 1, "65537"},  // not taken for 1
        {"[Settings]\nlanguage=99999999999999999999\n", "", 1, "99999999999999999999"},
        {"[Settings]\nlanguage=-1\n", "", 1, "-1"},
        {"[Settings]\nlanguage=1x\n", "", 1, "1x"},
        {"", "[intl]\nsLanguage=deu\n", 49, "1"},
        {"", "[intl]\nsLanguage=DEU\n", 1, "0"},
        {"", "[intl]\nsLanguage=fra\n", 1, "0"},  // no French texts
        {"", "[intl]\nsLanguage=xyz\n", 1, "0"},
        {"", "", 90, "17"},  // an empty name stands for Turkish
        {"[Settings]\nlanguage=\n", "[intl]\nsLanguage=deu\n", 49, "1"},
    };
    for (Row const& row : rows) {
        tests::PutBytes(PathOf("win.ini"), row.winIni);
        EXPECT_EQ(ChoiceAfter(row.content, "app1.lng"), row.kept) << row.content << row.winIni;
        EXPECT_EQ(Language::GetCountryCode(), row.code) << row.content << row.winIni;
    }
}

TEST_F(LanguageTest, TheSystemsIdentifierComesFirst) {
    if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr) GTEST_SKIP() << "no German locale here";
    Texts({"app1.lng", "app49.lng"});
    tests::PutBytes(PathOf("win.ini"), "[intl]\nsLanguage=enu\n");
    EXPECT_EQ(ChoiceAfter("", "app1.lng"), "1");
}

TEST_F(LanguageTest, ListEntries) {
    Texts({"app49.lng", "app33.lng", "app81.lng"});
    struct Row {
        unsigned short entry;
        char const* kept;
        int code;
        unsigned short selected;
    };
    static constexpr Row rows[] = {
        {0, "1", 49, 0},
        {1, "3", 33, 1},
        {2, "24", 81, 2},
        {3, "25", 1, sv::ListBox::End},
        {65535, "25", 1, sv::ListBox::End},
    };
    ChoiceAfter("[Settings]\nlanguage=1\n", "app49.lng");
    for (Row const& row : rows) {
        Language::SetLanguage(row.entry);
        EXPECT_EQ(KeptChoice(), row.kept);
        EXPECT_EQ(Language::GetCountryCode(), row.code);
        EXPECT_EQ(Language::IsJapanese(), row.code == 81 ? 1 : 0);
        EXPECT_EQ(sv::GetTextPage() == sv::TextPage::Japanese, row.code == 81);
        sv::ListBoxEntries box;
        Language::InitListBox(box);
        EXPECT_EQ(box.GetSelectEntryPos(), row.selected) << row.entry;
    }
}

TEST_F(LanguageTest, CountryCodes) {
    Texts({"app1.lng", "app997.lng"});
    ChoiceAfter("[Settings]\nlanguage=0\n", "app1.lng");
    struct Row {
        unsigned short code;
        int answer;
        char const* kept;
        int isChinese;
    };
    static constexpr Row rows[] = {
        {997, 997, "8", 0}, {86, 1, "8", 1},  // no texts: current all the same, and not written
        {4711, 1, "8", 0},                    // unknown
        {992, 1, "8", 0},                     // a slot without a name
        {1, 1, "0", 0},
    };
    for (Row const& row : rows) {
        Language::SetLanguageByCountryCode(row.code);
        EXPECT_EQ(Language::GetCountryCode(), row.answer) << row.code;
        EXPECT_EQ(KeptChoice(), row.kept) << row.code;
        EXPECT_EQ(Language::IsChinese(), row.isChinese) << row.code;
    }
}

TEST_F(LanguageTest, WithoutAServiceTheLanguageIsKeptInMemory) {
    Texts({"app1.lng", "app49.lng"});
    ChoiceAfter("[Settings]\nlanguage=0\n", "app1.lng");
    EndService(Language::Instance());
    Language::SetLanguageByCountryCode(49);
    EXPECT_EQ(KeptChoice(), "0");
    EXPECT_EQ(Language::GetCountryCode(), 49);
    EXPECT_EQ(Language::Instance(), nullptr);
}

}  // namespace

}  // namespace kv::test
