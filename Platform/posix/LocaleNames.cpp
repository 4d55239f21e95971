#include "Platform/posix/LocaleNames.h"

#include <algorithm>
#include <array>

namespace platform::detail {

namespace {

struct LocaleRow {
    std::string_view name;
    unsigned short identifier;
};

// A row without a country applies to all other countries of the language. The identifiers of English, Chinese
// and Norwegian name no country; the bare "es" is Spanish in traditional sort order, which no country has.
constexpr std::array<LocaleRow, 173> LocaleTable = {{
    {"af", 1078},     {"af_ZA", 1078},  {"ar", 1025},     {"ar_SA", 1025},  {"ar_IQ", 2049},
    {"ar_EG", 3073},  {"ar_LY", 4097},  {"ar_DZ", 5121},  {"ar_MA", 6145},  {"ar_TN", 7169},
    {"ar_OM", 8193},  {"ar_YE", 9217},  {"ar_SY", 10241}, {"ar_JO", 11265}, {"ar_LB", 12289},
    {"ar_KW", 13313}, {"ar_AE", 14337}, {"ar_BH", 15361}, {"ar_QA", 16385}, {"be", 1059},
    {"be_BY", 1059},  {"bg", 1026},     {"bg_BG", 1026},  {"ca", 1027},     {"ca_ES", 1027},
    {"cs", 1029},     {"cs_CZ", 1029},  {"da", 1030},     {"da_DK", 1030},  {"de", 1031},
    {"de_DE", 1031},  {"de_CH", 2055},  {"de_AT", 3079},  {"de_LU", 4103},  {"de_LI", 5127},
    {"el", 1032},     {"el_GR", 1032},  {"en", 9},        {"en_US", 1033},  {"en_GB", 2057},
    {"en_AU", 3081},  {"en_CA", 4105},  {"en_NZ", 5129},  {"en_IE", 6153},  {"en_ZA", 7177},
    {"en_JM", 8201},  {"en_BZ", 10249}, {"en_TT", 11273}, {"en_ZW", 12297}, {"en_PH", 13321},
    {"en_HK", 15369}, {"en_IN", 16393}, {"en_MY", 17417}, {"en_SG", 18441}, {"es", 1034},
    {"es_MX", 2058},  {"es_ES", 3082},  {"es_GT", 4106},  {"es_CR", 5130},  {"es_PA", 6154},
    {"es_DO", 7178},  {"es_VE", 8202},  {"es_CO", 9226},  {"es_PE", 10250}, {"es_AR", 11274},
    {"es_EC", 12298}, {"es_CL", 13322}, {"es_UY", 14346}, {"es_PY", 15370}, {"es_BO", 16394},
    {"es_SV", 17418}, {"es_HN", 18442}, {"es_NI", 19466}, {"es_PR", 20490}, {"es_US", 21514},
    {"et", 1061},     {"et_EE", 1061},  {"eu", 1069},     {"eu_ES", 1069},  {"fa", 1065},
    {"fa_IR", 1065},  {"fi", 1035},     {"fi_FI", 1035},  {"fr", 1036},     {"fr_FR", 1036},
    {"fr_BE", 2060},  {"fr_CA", 3084},  {"fr_CH", 4108},  {"fr_LU", 5132},  {"fr_MC", 6156},
    {"ga", 2108},     {"ga_IE", 2108},  {"gl", 1110},     {"gl_ES", 1110},  {"he", 1037},
    {"he_IL", 1037},  {"hi", 1081},     {"hi_IN", 1081},  {"hr", 1050},     {"hr_HR", 1050},
    {"hu", 1038},     {"hu_HU", 1038},  {"hy", 1067},     {"hy_AM", 1067},  {"id", 1057},
    {"id_ID", 1057},  {"is", 1039},     {"is_IS", 1039},  {"it", 1040},     {"it_IT", 1040},
    {"it_CH", 2064},  {"ja", 1041},     {"ja_JP", 1041},  {"ka", 1079},     {"ka_GE", 1079},
    {"kk", 1087},     {"kk_KZ", 1087},  {"ko", 1042},     {"ko_KR", 1042},  {"lb", 1134},
    {"lb_LU", 1134},  {"lt", 1063},     {"lt_LT", 1063},  {"lv", 1062},     {"lv_LV", 1062},
    {"mk", 1071},     {"mk_MK", 1071},  {"ms", 1086},     {"ms_MY", 1086},  {"mt", 1082},
    {"mt_MT", 1082},  {"nb", 1044},     {"nb_NO", 1044},  {"nl", 1043},     {"nl_NL", 1043},
    {"nl_BE", 2067},  {"nn", 2068},     {"nn_NO", 2068},  {"no", 20},       {"pl", 1045},
    {"pl_PL", 1045},  {"pt", 1046},     {"pt_BR", 1046},  {"pt_PT", 2070},  {"ro", 1048},
    {"ro_RO", 1048},  {"ru", 1049},     {"ru_RU", 1049},  {"sk", 1051},     {"sk_SK", 1051},
    {"sl", 1060},     {"sl_SI", 1060},  {"sq", 1052},     {"sq_AL", 1052},  {"sv", 1053},
    {"sv_SE", 1053},  {"sv_FI", 2077},  {"th", 1054},     {"th_TH", 1054},  {"tr", 1055},
    {"tr_TR", 1055},  {"uk", 1058},     {"uk_UA", 1058},  {"ur", 1056},     {"ur_PK", 1056},
    {"vi", 1066},     {"vi_VN", 1066},  {"zh", 4},        {"zh_TW", 1028},  {"zh_CN", 2052},
    {"zh_HK", 3076},  {"zh_SG", 4100},  {"zh_MO", 5124},
}};
// clang-format on

unsigned short Find(std::string_view name) noexcept {
    auto const* const row = std::ranges::find(LocaleTable, name, &LocaleRow::name);
    return row == LocaleTable.end() ? 0 : row->identifier;
}

}  // namespace

unsigned short LanguageIdentifierOf(std::string_view localeName) noexcept {
    std::string_view const name = localeName.substr(0, localeName.find_first_of(".@"));
    unsigned short const exact = Find(name);
    return exact != 0 ? exact : Find(name.substr(0, name.find('_')));
}

}  // namespace platform::detail
