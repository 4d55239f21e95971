#include "KVUtils/Source/frame/Language.h"
#include "KVUtils/Tests/data/CaseTable.h"
#include "KVUtils/Tests/frame/FrameSupport.h"
#include "SV/core/International.h"
#include "SV/core/detail/TextPage.h"

#include <clocale>

namespace kv::test {

namespace {

/// The system has no known language; the test writes win.ini.
class LanguageTest : public FrameTest {
  protected:
    LanguageTest() { std::setlocale(LC_ALL, "C"); }
    ~LanguageTest() override { std::setlocale(LC_ALL, locale_.c_str()); }

    void Texts(std::initializer_list<char const*> names) const {
        for (char const* const name : names) tests::PutBytes(PathOf(name), "");
    }

    /// Creates the service with a configuration of this content; returns the choice stored afterwards.
    std::string ChoiceAfter(std::string_view content, std::string const& fileName) {
        AppConfig* const config = AppConfig::CreateAppConfig(Write("app.ini", content));
        Language::CreateLanguage(config, PathOf(fileName));
        return StoredChoice();
    }
    [[nodiscard]] static std::string StoredChoice() {
        return std::string(AppConfig::ReadKey("Settings", "language").View());
    }

  private:
    std::string locale_ = std::setlocale(LC_ALL, nullptr);
    Windir windir_{PathOf(".")};
};

TEST_F(LanguageTest, TextsAreFoundByTheirStem) {
    Texts({"app1.lng", "app49.lng", "app997.lng", "app91.lng", "app2.lng", "app", "bare34", "my.app.33.lng"});
    for (auto const& [fileName, expected] : {std::pair("app1.lng", "English Deutsch Norwegian "),
                                             {"app49.lng", "English Deutsch Norwegian "},
                                             {"app.lng", "English Deutsch Norwegian "},
                                             {"app997.lng", "English "},  // the stem is "app9": app91.lng
                                             {"bare1", "Espa\xF1ol "},
                                             {"my.app.1.lng", "Fran\xE7\x61is "},
                                             {"none.lng", ""}}) {
        ChoiceAfter("[Settings]\nlanguage=0\n", fileName);
        sv::ListBoxEntries box;
        box.InsertEntry("old");
        Language::InitListBox(box);
        std::string names;
        for (unsigned short i = 0; i < box.GetEntryCount(); ++i)
            names += std::string(box.GetEntry(i).View()) + ' ';
        EXPECT_EQ(names, expected) << fileName;
    }
}

TEST_F(LanguageTest, TheChoiceIsStoredAsAnAbsoluteIndex) {
    if (sv::International::GetLanguage() != 0) GTEST_SKIP() << "the system always has a known language";
    Texts({"app1.lng", "app49.lng", "app90.lng"});
    for (auto const& [content, winIni, code, choice] : CaseTable<4>("frame/languages.tsv")) {
        tests::PutBytes(PathOf("win.ini"), winIni);
        EXPECT_EQ(ChoiceAfter(content, "app1.lng"), choice) << content << winIni;
        EXPECT_EQ(std::to_string(Language::GetCountryCode()), code) << content << winIni;
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
    ChoiceAfter("[Settings]\nlanguage=1\n", "app49.lng");
    constexpr int End = sv::ListBox::End;
    for (auto const& [entry, stored, code, selected] : {std::tuple(0, "1", 49, 0),
                                                        {1, "3", 33, 1},
                                                        {2, "24", 81, 2},
                                                        {3, "25", 1, End},
                                                        {65535, "25", 1, End}}) {
        Language::SetLanguage(static_cast<unsigned short>(entry));
        EXPECT_EQ(StoredChoice(), stored);
        EXPECT_EQ(Language::GetCountryCode(), code);
        EXPECT_EQ(Language::IsJapanese(), code == 81 ? 1 : 0);
        EXPECT_EQ(sv::GetTextPage() == sv::TextPage::Japanese, code == 81);
        sv::ListBoxEntries box;
        Language::InitListBox(box);
        EXPECT_EQ(box.GetSelectEntryPos(), selected) << entry;
    }
}

TEST_F(LanguageTest, CountryCodes) {
    Texts({"app1.lng", "app997.lng"});
    ChoiceAfter("[Settings]\nlanguage=0\n", "app1.lng");
    for (auto const& [code, answer, stored] : {std::tuple(997, 997, "8"),
                                               {86, 1, "8"},    // without texts: current, but not stored
                                               {4711, 1, "8"},  // unknown
                                               {992, 1, "8"},   // an entry without a name
                                               {1, 1, "0"}}) {
        Language::SetLanguageByCountryCode(static_cast<unsigned short>(code));
        EXPECT_EQ(Language::GetCountryCode(), answer) << code;
        EXPECT_EQ(StoredChoice(), stored) << code;
        EXPECT_EQ(Language::IsChinese(), code == 86 ? 1 : 0) << code;
        EXPECT_EQ(sv::GetTextPage() == sv::TextPage::Chinese, code == 86);
    }
}

TEST_F(LanguageTest, WithoutTheServiceTheLanguageIsKeptInMemory) {
    Texts({"app1.lng", "app49.lng"});
    ChoiceAfter("[Settings]\nlanguage=0\n", "app1.lng");
    EndService(Language::Instance());
    Language::SetLanguageByCountryCode(49);
    EXPECT_EQ(StoredChoice(), "0");
    EXPECT_EQ(Language::GetCountryCode(), 49);
    EXPECT_EQ(Language::Instance(), nullptr);
}

}  // namespace

}  // namespace kv::test
