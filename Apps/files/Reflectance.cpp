#include "Apps/files/Reflectance.h"

#include "Apps/files/Numbers.h"

#include <algorithm>
#include <limits>

namespace files {

namespace {

/// Above this a surface gives back half as much again as it gets: kept, but said.
constexpr double UnusualReflectance = 1.5;
/// With fewer values than this share above 2, a lost decimal mark is as likely as percent.
constexpr double LeastShareOfPercent = 0.01;

struct Extreme {
    double value = 0;
    std::size_t line = 0;
    int nm = 0;
};

struct Survey {
    Extreme smallest{std::numeric_limits<double>::max(), 0, 0};
    Extreme largest{std::numeric_limits<double>::lowest(), 0, 0};
    std::size_t negative = 0;
    std::size_t aboveHighest = 0;
    std::size_t count = 0;
};

Survey Look(std::span<RawSpectrum const> spectra, WavelengthGrid const& grid) {
    Survey survey;
    for (RawSpectrum const& spectrum : spectra) {
        for (std::size_t point = 0; point < spectrum.values.size(); ++point) {
            double const value = spectrum.values[point];
            Extreme const here{value, spectrum.line, grid.wavelengths[point]};
            if (value < survey.smallest.value) survey.smallest = here;
            if (value > survey.largest.value) survey.largest = here;
            if (value < 0) ++survey.negative;
            if (value > HighestReflectance) ++survey.aboveHighest;
            ++survey.count;
        }
    }
    return survey;
}

std::string At(Extreme const& extreme) {
    return ToText(extreme.value) + " at " + std::to_string(extreme.nm) + " nm";
}

struct Choice {
    Scale scale;
    std::string reason;
};

Choice Choose(Survey const& survey, std::optional<StatedScale> const& stated, std::string_view file) {
    std::string const largest = "the largest is " + ToText(survey.largest.value);
    if (stated) {
        bool const isDoubtful = stated->scale == Scale::Percent && survey.largest.value <= UnusualReflectance;
        return {stated->scale, "as " + stated->word + " says; " + largest +
                                   (isDoubtful ? ", which looks like a fraction" : "")};
    }
    if (survey.aboveHighest == 0) {
        bool const isZero = survey.smallest.value == 0 && survey.largest.value == 0;
        if (isZero) return {Scale::Fraction, "though all values are 0 and cannot tell"};
        bool const isClear = survey.largest.value <= UnusualReflectance;
        return {Scale::Fraction,
                "by the values: " + largest + (isClear ? "" : ", which percent could be too")};
    }
    if (static_cast<double>(survey.aboveHighest) < LeastShareOfPercent * static_cast<double>(survey.count)) {
        Fail({file, survey.largest.line},
             At(survey.largest) + ", and " + std::to_string(survey.aboveHighest) + " of " +
                 std::to_string(survey.count) + " values above 2",
             "fractions or percent throughout");
    }
    return {Scale::Percent, "by the values: " + largest};
}

}  // namespace

double FindDivisor(std::span<RawSpectrum const> spectra, WavelengthGrid const& grid,
                   std::optional<StatedScale> const& stated, std::string_view file,
                   std::vector<std::string>& notes) {
    Survey const survey = Look(spectra, grid);
    auto const [scale, reason] = Choose(survey, stated, file);
    bool const isPercent = scale == Scale::Percent;
    double const unit = isPercent ? 100 : 1;
    std::string const limits = std::string("reflectance from ") + (isPercent ? "-5 to 200 %" : "-0.05 to 2");
    for (Extreme const& extreme : {survey.smallest, survey.largest}) {
        if (extreme.value >= LowestReflectance * unit && extreme.value <= HighestReflectance * unit) continue;
        Fail({file, extreme.line}, At(extreme),
             limits + " (read as " + (isPercent ? "percent" : "a fraction") + ", " + reason + ")");
    }
    notes.push_back(std::string("reflectance as ") + (isPercent ? "percent, " : "fractions, ") + reason);
    if (survey.negative > 0) {
        notes.push_back(std::to_string(survey.negative) + " values below 0 kept, the smallest " +
                        At(survey.smallest));
    }
    if (survey.largest.value > UnusualReflectance * unit) {
        notes.push_back("values above " + ToText(UnusualReflectance * unit) + " kept, the largest " +
                        At(survey.largest));
    }
    return unit;
}

}  // namespace files
