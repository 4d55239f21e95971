#include "Apps/Tests/files/TestFiles.h"
#include "Apps/files/Numbers.h"
#include "Apps/files/Reflectance.h"

#include <gtest/gtest.h>

namespace files {
namespace {

/// Returns five spectra of one value, but for some at the start: two of 180 values are enough for percent.
std::vector<RawSpectrum> SpectraOf(std::string const& value, std::string const& others) {
    std::vector<RawSpectrum> spectra(5);
    std::size_t line = 11;
    for (RawSpectrum& spectrum : spectra) {
        spectrum.values.fill(ToNumber(value).value());
        spectrum.line = line++;
    }
    std::size_t at = 0;
    for (std::string_view const other : Split(others, ' ')) {
        if (!other.empty()) spectra.front().values[at++] = ToNumber(other).value();
    }
    return spectra;
}

std::optional<Scale> ScaleOf(std::string const& word) {
    if (word.empty()) return std::nullopt;
    return word == "percent" ? Scale::Percent : Scale::Fraction;
}

TEST(Reflectance, ScaleDoubtsAssumptionsAndRefusals) {
    WavelengthGrid grid;
    for (int k = 0; k < kv::SpectralPoints; ++k)
        grid.wavelengths[static_cast<std::size_t>(k)] = kv::Wavelength(k);
    for (auto const& row : test::Rows("scales.tsv")) {
        std::optional<StatedScale> stated;
        if (auto const scale = ScaleOf(row[2])) stated = StatedScale{*scale, "NAME"};
        std::string text;
        std::string const failure = test::FailureOf([&] {
            MeasurementFile file;
            file.path = "file";
            double const divisor =
                FindDivisor(SpectraOf(row[0], row[1]), grid, stated, ScaleOf(row[3]), file);
            text = divisor == 100 ? "percent" : "fraction";
            for (std::string const& note : file.notes) text += "; " + note;
            for (std::string const& warning : file.warnings) text += "; warning " + warning;
            for (std::string const& assumption : file.assumptions) text += "; assumed " + assumption;
        });
        EXPECT_EQ(failure == "accepted" ? text : failure, row[4]);
    }
}

}  // namespace
}  // namespace files
