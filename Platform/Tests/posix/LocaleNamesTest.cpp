#include "Platform/posix/LocaleNames.h"

#include <gtest/gtest.h>

using platform::detail::LanguageIdentifierOf;

namespace {

struct Row {
    char const* locale;
    unsigned short identifier;
};

// Every identifier that the suite chooses a language by is some locale's.
TEST(LocaleNames, ReachEveryLanguageOfTheSuite) {
    constexpr Row Rows[] = {
        {"zh", 4},       {"en", 9},       {"no", 20},      {"ar_SA", 1025}, {"zh_TW", 1028}, {"cs_CZ", 1029},
        {"da_DK", 1030}, {"de_DE", 1031}, {"en_US", 1033}, {"es", 1034},    {"fi_FI", 1035}, {"fr_FR", 1036},
        {"hu_HU", 1038}, {"it_IT", 1040}, {"ja_JP", 1041}, {"nl_NL", 1043}, {"nb_NO", 1044}, {"pl_PL", 1045},
        {"pt_BR", 1046}, {"ru_RU", 1049}, {"sv_SE", 1053}, {"tr_TR", 1055}, {"zh_CN", 2052}, {"de_CH", 2055},
        {"en_GB", 2057}, {"es_MX", 2058}, {"fr_BE", 2060}, {"it_CH", 2064}, {"nl_BE", 2067}, {"nn_NO", 2068},
        {"pt_PT", 2070}, {"es_ES", 3082}, {"fr_CA", 3084}, {"de_LU", 4103}, {"fr_CH", 4108},
    };
    for (Row const& row : Rows) EXPECT_EQ(LanguageIdentifierOf(row.locale), row.identifier) << row.locale;
}

TEST(LocaleNames, ReadEveryFormOfAName) {
    constexpr Row Rows[] = {
        {"de_DE.UTF-8", 1031},
        {"de_DE@euro", 1031},
        {"de_DE.ISO-8859-15@euro", 1031},
        {"de", 1031},
        {"de_BE.UTF-8", 1031},  // German in Belgium, which has no identifier
        {"en_NG", 9},
        {"no_NO", 20},
        {"eo", 0},
        {"eo_XX", 0},
        {"C", 0},
        {"C.UTF-8", 0},
        {"POSIX", 0},
        {"", 0},
        {"_DE", 0},
        {"LC_CTYPE=de_DE.UTF-8;LC_NUMERIC=C", 0},
    };
    for (Row const& row : Rows) EXPECT_EQ(LanguageIdentifierOf(row.locale), row.identifier) << row.locale;
}

}  // namespace
