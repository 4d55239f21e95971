#include "KVUtils/Source/colorimetry/Lichtart.h"

#include "KVUtils/Source/colorimetry/detail/IlluminantTables.h"

#include <optional>

namespace kv {

namespace {

using detail::FluorescentTable;
using detail::IlluminantTable;
using detail::SpectralArray;

static_assert(detail::FollowsGrid(IlluminantTable) && detail::FollowsGrid(FluorescentTable));

enum IlluminantColumn : std::size_t { ColumnA, ColumnC, ColumnD50, ColumnD65, ColumnS0, ColumnS1, ColumnS2 };

/// CIE daylight of n hundreds of kelvin (CIE 15). T is in kelvin of today: the nominal number goes back to an
/// older second radiation constant, so that D65 is 6503.6 K.
SpectralArray Daylight(short n) noexcept {
    double const T = n * 100.0556328233658;
    double const x = T >= 7000.0 ? 0.23704 + 247.48 / T + 1901800.0 / (T * T) - 2006400000.0 / (T * T * T)
                                 : 0.244063 + 99.11 / T + 2967800.0 / (T * T) - 4607000000.0 / (T * T * T);
    double const y = -3.0 * x * x + 2.87 * x - 0.275;
    double const M = 0.0241 + 0.2562 * x - 0.7341 * y;
    double const M1 = static_cast<float>((-1.3515 - 1.7703 * x + 5.9114 * y) / M);
    double const M2 = (0.03 - 31.4424 * x + 30.0717 * y) / M;

    SpectralArray power{};
    for (std::size_t k = 0; k < power.size(); ++k) {
        auto const& s = IlluminantTable[k].values;
        power[k] = static_cast<float>(s[ColumnS0] + M1 * s[ColumnS1] + M2 * s[ColumnS2]);
    }
    return power;
}

/// None for an illuminant that has neither a table nor a formula.
std::optional<SpectralArray> PowerOf(IllumClass const& illuminant) noexcept {
    IllumType const type = illuminant;
    if (IsNumberedDaylight(type)) return Daylight(illuminant);
    if (type >= IllumType::F1 && type <= IllumType::F12) {
        return Column(FluorescentTable,
                      static_cast<std::size_t>(type) - static_cast<std::size_t>(IllumType::F1));
    }
    switch (type) {
        case IllumType::A:
            return Column(IlluminantTable, ColumnA);
        case IllumType::C:
            return Column(IlluminantTable, ColumnC);
        case IllumType::D50:
            return Column(IlluminantTable, ColumnD50);
        case IllumType::D65:
            return Column(IlluminantTable, ColumnD65);
        default:
            return std::nullopt;
    }
}

}  // namespace

Lichtart::Lichtart(IllumClass const& illuminant) noexcept : illuminant_(illuminant) {
    if (std::optional<SpectralArray> const power = PowerOf(illuminant)) power_ = Filter(power->data());
}

}  // namespace kv
