#include "Apps/Tests/files/TestFiles.h"
#include "Apps/files/Reflectance.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace files {
namespace {

constexpr std::size_t Spectra = 5;  // 180 values, of which two and more are percent

/// Spectra of one value, but for some at the start.
std::vector<RawSpectrum> SpectraOf(double value, std::initializer_list<double> others = {}) {
    std::vector<RawSpectrum> spectra(Spectra);
    std::size_t line = 11;
    for (RawSpectrum& spectrum : spectra) {
        spectrum.values.fill(value);
        spectrum.line = line++;
    }
    std::ranges::copy(others, spectra.front().values.begin());
    return spectra;
}

WavelengthGrid Grid() {
    WavelengthGrid grid;
    for (std::size_t k = 0; k < grid.wavelengths.size(); ++k)
        grid.wavelengths[k] = kv::Wavelength(static_cast<int>(k));
    return grid;
}

/// Returns the scale, the notes, warnings and assumptions; or the refusal.
std::string Verdict(std::vector<RawSpectrum> const& spectra, std::optional<StatedScale> const& stated = {},
                    std::optional<Scale> forced = {}) {
    std::string text;
    std::string const failure = test::FailureOf([&] {
        MeasurementFile file;
        file.path = "file";
        text = FindDivisor(spectra, Grid(), stated, forced, file) == 100 ? "percent" : "fraction";
        for (std::string const& note : file.notes) text += "; " + note;
        for (std::string const& warning : file.warnings) text += "; warning " + warning;
        for (std::string const& assumption : file.assumptions) text += "; assumed " + assumption;
    });
    return failure == "accepted" ? text : failure;
}

TEST(Reflectance, FractionOrPercentIsDecidedAndDoubtIsAWarning) {
    StatedScale const percent{Scale::Percent, "SPECTRAL_PCT"};
    StatedScale const fraction{Scale::Fraction, "SPECTRAL_DEC"};
    EXPECT_EQ(Verdict(SpectraOf(0.5)),
              "fraction; reflectance as fractions, by the values: the largest is 0.5");
    EXPECT_EQ(Verdict(SpectraOf(85)), "percent; reflectance as percent, by the values: the largest is 85");
    EXPECT_EQ(
        Verdict(SpectraOf(0)),
        "fraction; reflectance as fractions, all values are 0; warning reflectance as fractions, although all "
        "values are 0");
    EXPECT_EQ(
        Verdict(SpectraOf(1.8)),
        "fraction; reflectance as fractions, by the values: the largest is 1.8; warning reflectance as fractions, "
        "although the largest is 1.8 (use --scale percent if these are percent)");
    EXPECT_EQ(
        Verdict(SpectraOf(1), percent),
        "percent; reflectance as percent, as SPECTRAL_PCT says; the largest is 1; warning reflectance as percent, "
        "although the largest is 1 (use --scale fraction if these are fractions)");
    EXPECT_EQ(Verdict(SpectraOf(1), percent, Scale::Fraction),
              "fraction; reflectance as fractions, as requested");
    EXPECT_EQ(Verdict(SpectraOf(1), {}, Scale::Percent), "percent; reflectance as percent, as requested");
    EXPECT_EQ(
        Verdict(SpectraOf(85), fraction),
        "file:11: found 85 at 380 nm, expected reflectance from -0.05 to 2 (read as a fraction, as SPECTRAL_DEC "
        "says; the largest is 85)");
}

TEST(Reflectance, ValuesOutsideAreAssumedOrRefused) {
    EXPECT_EQ(
        Verdict(SpectraOf(0.5, {0.1, -0.01, -0.02})),
        "fraction; reflectance as fractions, by the values: the largest is 0.5; assumed 2 values below 0 valid "
        "(smallest -0.02 at 400 nm)");
    EXPECT_EQ(
        Verdict(SpectraOf(50, {160})),
        "percent; reflectance as percent, by the values: the largest is 160; assumed values above 150 valid "
        "(largest 160 at 380 nm)");
    EXPECT_EQ(
        Verdict(SpectraOf(0.5, {-0.06})),
        "file:11: found -0.06 at 380 nm, expected reflectance from -0.05 to 2 (read as a fraction, by the values: "
        "the largest is 0.5)");
    EXPECT_EQ(
        Verdict(SpectraOf(0.5, {0.1, 51})),
        "file:11: found 51 at 390 nm, and 1 of 180 values above 2, expected fractions or percent throughout (or "
        "--scale)");
    EXPECT_EQ(
        Verdict(SpectraOf(50, {201})),
        "file:11: found 201 at 380 nm, expected reflectance from -5 to 200 % (read as percent, by the values: the "
        "largest is 201)");
}

}  // namespace
}  // namespace files
