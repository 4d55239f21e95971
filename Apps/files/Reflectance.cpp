#include "Apps/files/Reflectance.h"

#include "Apps/files/Numbers.h"
#include "Apps/files/Text.h"

#include <algorithm>
#include <limits>

namespace files {

namespace {

/// More than any fluorescent paper reflects: accepted with a note.
constexpr double UnusualReflectance = 1.5;
/// If fewer values than this share exceed 2, a lost decimal mark is as likely as percent.
constexpr double MinPercentShare = 0.01;

struct Extreme {
    double value = 0;
    std::size_t line = 0;
    int nm = 0;
};

struct ValueRange {
    Extreme smallest{std::numeric_limits<double>::max(), 0, 0};
    Extreme largest{std::numeric_limits<double>::lowest(), 0, 0};
    std::size_t negative = 0;
    std::size_t aboveHighest = 0;
    std::size_t count = 0;
};

ValueRange FindRange(std::span<RawSpectrum const> spectra, WavelengthGrid const& grid) {
    ValueRange range;
    for (RawSpectrum const& spectrum : spectra) {
        for (std::size_t point = 0; point < spectrum.values.size(); ++point) {
            // A held end repeats the value next to it.
            bool const isHeld = point > 0 && grid.wavelengths[point] == grid.wavelengths[point - 1];
            if (isHeld) continue;
            double const value = spectrum.values[point];
            Extreme const here{value, spectrum.line, grid.wavelengths[point]};
            if (value < range.smallest.value) range.smallest = here;
            if (value > range.largest.value) range.largest = here;
            if (value < 0) ++range.negative;
            if (value > HighestReflectance) ++range.aboveHighest;
            ++range.count;
        }
    }
    return range;
}

std::string At(Extreme const& extreme) {
    return ToText(extreme.value) + " at " + std::to_string(extreme.nm) + " nm";
}

struct Choice {
    Scale scale;
    std::string reason;
    std::string doubt = {};  // why it may be wrong
};

Choice Choose(ValueRange const& range, std::optional<StatedScale> const& stated, std::string_view file) {
    std::string const largest = "the largest is " + ToText(range.largest.value);
    if (stated) {
        bool const isDoubtful = stated->scale == Scale::Percent && range.largest.value <= UnusualReflectance;
        return {stated->scale, "as " + stated->word + " says; " + largest,
                isDoubtful ? largest + " (use --scale fraction if these are fractions)" : ""};
    }
    if (range.aboveHighest == 0) {
        if (range.smallest.value == 0 && range.largest.value == 0) {
            return {Scale::Fraction, "all values are 0", "all values are 0"};
        }
        bool const isDoubtful = range.largest.value > UnusualReflectance;
        return {Scale::Fraction, "by the values: " + largest,
                isDoubtful ? largest + " (use --scale percent if these are percent)" : ""};
    }
    if (static_cast<double>(range.aboveHighest) < MinPercentShare * static_cast<double>(range.count)) {
        Fail({file, range.largest.line},
             At(range.largest) + ", and " + std::to_string(range.aboveHighest) + " of " +
                 std::to_string(range.count) + " values above 2",
             "fractions or percent throughout (or --scale)");
    }
    return {Scale::Percent, "by the values: " + largest};
}

}  // namespace

double FindDivisor(std::span<RawSpectrum const> spectra, WavelengthGrid const& grid,
                   std::optional<StatedScale> const& stated, std::optional<Scale> forced,
                   MeasurementFile& file) {
    ValueRange const range = FindRange(spectra, grid);
    auto const [scale, reason, doubt] =
        forced ? Choice{*forced, "as requested"} : Choose(range, stated, file.path);
    bool const isPercent = scale == Scale::Percent;
    double const unit = isPercent ? 100 : 1;
    std::string const limits = std::string("reflectance from ") + (isPercent ? "-5 to 200 %" : "-0.05 to 2");
    for (Extreme const& extreme : {range.smallest, range.largest}) {
        if (extreme.value >= LowestReflectance * unit && extreme.value <= HighestReflectance * unit) continue;
        Fail({file.path, extreme.line}, At(extreme),
             limits + " (read as " + (isPercent ? "percent" : "a fraction") + ", " + reason + ")");
    }
    std::string const read = std::string("reflectance as ") + (isPercent ? "percent, " : "fractions, ");
    file.notes.push_back(read + reason);
    if (!doubt.empty()) file.warnings.push_back(read + "although " + doubt);
    if (range.negative > 0) {
        file.assumptions.push_back(Counted(range.negative, "value") + " below 0 valid (smallest " +
                                   At(range.smallest) + ")");
    }
    if (doubt.empty() && range.largest.value > UnusualReflectance * unit) {
        file.assumptions.push_back("values above " + ToText(UnusualReflectance * unit) + " valid (largest " +
                                   At(range.largest) + ")");
    }
    return unit;
}

}  // namespace files
