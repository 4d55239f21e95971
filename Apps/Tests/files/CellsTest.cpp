// What single cells, names of columns and numbers are read as.
#include "Apps/files/Columns.h"
#include "Apps/files/Numbers.h"
#include "Apps/files/Quotes.h"

#include <gtest/gtest.h>

namespace files {
namespace {

TEST(Cells, NumbersAreFiniteAndDecimal) {
    EXPECT_EQ(ToNumber("0.25"), 0.25);
    EXPECT_EQ(ToNumber("+1"), 1);
    EXPECT_EQ(ToNumber("-2.5E-1"), -0.25);
    EXPECT_EQ(ToNumber("0,25", ','), 0.25);
    for (std::string_view const text : {"", "nan", "NaN", "inf", "-inf", "1e400", "0x1A", "1.2.3", "1 2",
                                        "1,2", "+-1", "++1", "#N/A", "12%", "\xEF\xBC\x91"}) {
        EXPECT_FALSE(ToNumber(text)) << text;
    }
    EXPECT_FALSE(ToNumber("1,234.5", ','));
    EXPECT_FALSE(ToNumber(std::string(65, '1')));
    for (std::string_view const text : {"", "-1", "+1", "1.0", "99999999999"})
        EXPECT_FALSE(ToWhole(text)) << text;
    EXPECT_EQ(ToWhole("007"), 7);
}

TEST(Cells, QuotesAreRemovedInEveryLayer) {
    struct Row {
        char const* cell;
        char const* text;
    };
    for (auto const& [cell, text] :
         {Row{"plain", "plain"}, Row{R"("in quotes")", "in quotes"}, Row{R"("""2013-11-21""")", "2013-11-21"},
          Row{R"(""D50"")", "D50"}, Row{R"("5"" tape")", "5\" tape"}, Row{R"("")", ""}, Row{R"(")", "\""},
          Row{R"("  padded ")", "padded"}}) {
        EXPECT_EQ(Unquoted(cell), text) << cell;
    }
    std::string store;
    for (std::string_view const untouched : {"\"5\"", "\"dark skin\"", "\"a\"\t\"b\"", "plain", "\"", ""}) {
        std::string_view line = untouched;
        EXPECT_FALSE(UnwrapLine(line, store)) << untouched;
        EXPECT_EQ(line, untouched);
    }
    std::string_view line = R"("WEIGHTING_FUNCTION ""ILLUMINANT,D50""")";
    ASSERT_TRUE(UnwrapLine(line, store));
    EXPECT_EQ(line, R"(WEIGHTING_FUNCTION "ILLUMINANT,D50")");
}

TEST(Cells, NamesOfColumnsContainAWavelength) {
    for (std::string_view const name : {"SPECTRAL_NM380", "SPECTRAL_380", "SPEC_380", "NM_380", "nm380",
                                        "380", "380 nm", "380.00", "380,0", "R_380", "SPECTRAL_DEC_380"}) {
        auto const spectral = ToSpectralName(name);
        ASSERT_TRUE(spectral) << name;
        EXPECT_EQ(spectral->nm, 380) << name;
    }
    for (std::string_view const name :
         {"", "SampleID", "XYZ_X", "LAB_L", "CMYK_380", "RGB_R", "D_380", "380_390", "5", "99999"}) {
        EXPECT_FALSE(ToSpectralName(name)) << name;
    }
    EXPECT_EQ(ToSpectralName("SPECTRAL_PCT380")->scale, Scale::Percent);
    EXPECT_EQ(ToSpectralName("380 nm [%]")->scale, Scale::Percent);
    EXPECT_EQ(ToSpectralName("SPECTRAL_DEC")->scale, Scale::Fraction);
    EXPECT_FALSE(ToSpectralName("SPECTRAL_DEC")->nm);
}

}  // namespace
}  // namespace files
