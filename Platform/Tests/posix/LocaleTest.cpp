#include "Platform/Locale.h"
#include "Platform/Process.h"
#include "Platform/Tests/TemporaryDirectory.h"
#include "Platform/posix/LocaleNames.h"
#include "SV/core/International.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <string>

namespace {

TEST(LocaleNames, Identifiers) {
    struct Row {
        char const* locale;
        unsigned short identifier;
    };
    // clang-format off
    constexpr Row Rows[] = {
        // Every identifier by which the suite selects a language.
        {"zh", 4},       {"en", 9},       {"no", 20},      {"ar_SA", 1025}, {"zh_TW", 1028}, {"cs_CZ", 1029},
        {"da_DK", 1030}, {"de_DE", 1031}, {"en_US", 1033}, {"es", 1034},    {"fi_FI", 1035}, {"fr_FR", 1036},
        {"hu_HU", 1038}, {"it_IT", 1040}, {"ja_JP", 1041}, {"nl_NL", 1043}, {"nb_NO", 1044}, {"pl_PL", 1045},
        {"pt_BR", 1046}, {"ru_RU", 1049}, {"sv_SE", 1053}, {"tr_TR", 1055}, {"zh_CN", 2052}, {"de_CH", 2055},
        {"en_GB", 2057}, {"es_MX", 2058}, {"fr_BE", 2060}, {"it_CH", 2064}, {"nl_BE", 2067}, {"nn_NO", 2068},
        {"pt_PT", 2070}, {"es_ES", 3082}, {"fr_CA", 3084}, {"de_LU", 4103}, {"fr_CH", 4108},
        // Every form of a name, with and without an identifier.
        {"de_DE.UTF-8", 1031}, {"de_DE@euro", 1031}, {"de_DE.ISO-8859-15@euro", 1031}, {"de", 1031},
        {"de_BE.UTF-8", 1031}, {"en_NG", 9}, {"no_NO", 20}, {"eo", 0}, {"eo_XX", 0}, {"C", 0}, {"C.UTF-8", 0},
        {"POSIX", 0}, {"", 0}, {"_DE", 0}, {"LC_CTYPE=de_DE.UTF-8;LC_NUMERIC=C", 0},
    };
    // clang-format on
    for (Row const& row : Rows)
        EXPECT_EQ(platform::detail::LanguageIdentifierOf(row.locale), row.identifier) << row.locale;
}

class Locale : public testing::Test {
  protected:
    void TearDown() override {
        path_.empty() ? ::unsetenv("LOCPATH") : ::setenv("LOCPATH", path_.c_str(), 1);
        std::setlocale(LC_ALL, before_.c_str());
    }
    /// Sets a locale, which is created if the system has none of this name.
    void Set(std::string const& name, std::string const& characterSet) {
        std::string const full = name + '.' + characterSet;
        if (std::setlocale(LC_ALL, full.c_str()) != nullptr) return;
        auto const localedef =
            platform::Process::Start("localedef", {"-i", name, "-f", characterSet, directory_ / full});
        ASSERT_TRUE(localedef && localedef->Wait() == 0) << "localedef cannot create " << full;
        ::setenv("LOCPATH", directory_.Path().c_str(), 1);
        ASSERT_NE(std::setlocale(LC_ALL, full.c_str()), nullptr) << full;
    }

  private:
    tests::TemporaryDirectory directory_;
    std::string before_ = std::setlocale(LC_ALL, nullptr);
    std::string path_ = std::getenv("LOCPATH") == nullptr ? "" : std::getenv("LOCPATH");
};

TEST_F(Locale, German) {
    Set("de_DE", "UTF-8");
    EXPECT_EQ(sv::International::GetLanguage(), 1031);
    EXPECT_EQ(sv::International::GetNumDecimalSep(), ',');
    EXPECT_EQ(sv::International::GetDate(sv::Date(9, 2, 2024)), "09.02.2024");
    EXPECT_EQ(sv::International::GetTime(sv::Time(8, 5, 9, 7), true, true), "08:05:09,07");
    EXPECT_EQ(sv::String(1234567), "1234567") << "numbers in files ignore the locale";
    EXPECT_EQ(platform::ShortDate(2024, 13, 1), "2024-13-1");

    std::setlocale(LC_MESSAGES, "C");
    EXPECT_EQ(sv::International::GetLanguage(), 0) << "the language is that of the messages";
    EXPECT_EQ(sv::International::GetNumDecimalSep(), ',');
    std::setlocale(LC_NUMERIC, "C");
    EXPECT_EQ(sv::International::GetNumDecimalSep(), '.') << "the separator is that of the numbers";
}

TEST_F(Locale, JapaneseIsConvertedFromItsCharacterSet) {
    Set("ja_JP", "EUC-JP");
    EXPECT_EQ(platform::ShortDate(2024, 2, 9), "2024\u5E7402\u670809\u65E5");
}

}  // namespace
