#include "Apps/Tests/files/TestFiles.h"
#include "Apps/files/Columns.h"

#include <gtest/gtest.h>

namespace files {
namespace {

TEST(Columns, NamesThatHoldAWavelength) {
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

TEST(Columns, ContradictionsAreRefused) {
    auto const refusal = [](std::vector<std::string> const& names) {
        return test::FailureOf([&] { static_cast<void>(FindColumns(names, Dialect::Cgats, {"file", 8})); });
    };
    EXPECT_EQ(
        refusal({"SAMPLE_ID", "LAB_L"}),
        "file:8: found no spectral columns among 2, expected fields such as SPECTRAL_NM380 or SPECTRAL_NM "
        "with SPECTRAL_DEC");
    EXPECT_EQ(
        refusal({"SPECTRAL_NM", "SPECTRAL_NM", "SPECTRAL_DEC"}),
        "file:8: found \"SPECTRAL_NM\" alone in column 1, expected SPECTRAL_DEC or SPECTRAL_PCT behind it");
    EXPECT_EQ(refusal({"SPECTRAL_NM", "SPECTRAL_DEC", "SPECTRAL_NM", "SPECTRAL_PCT"}),
              "file:8: found both fractions and percent in the names \"SPECTRAL_DEC\" and \"SPECTRAL_PCT\", "
              "expected one of them");
    EXPECT_EQ(refusal({"SPECTRAL_NM", "SPECTRAL_DEC", "nm380"}),
              "file:8: found both wavelengths in names and SPECTRAL_NM columns, expected one of them");
}

}  // namespace
}  // namespace files
