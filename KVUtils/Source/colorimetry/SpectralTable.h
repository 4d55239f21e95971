// The wavelength grid of the whole system, and tables with one row for each of its points.
#pragma once

#include <array>
#include <cstddef>

namespace kv {

/// Every spectrum, filter, illuminant and observer has these 36 points: 380 to 730 nm by 10.
inline constexpr int SpectralPoints = 36;
inline constexpr int FirstWavelength = 380;
inline constexpr int LastWavelength = 730;
inline constexpr int WavelengthStep = 10;

/// The wavelength in nanometres of point k, k in [0, 35].
[[nodiscard]] constexpr int Wavelength(int point) noexcept {
    return FirstWavelength + WavelengthStep * point;
}

static_assert(Wavelength(SpectralPoints - 1) == LastWavelength);

namespace detail {

using SpectralArray = std::array<float, SpectralPoints>;

template <std::size_t Columns>
struct SpectralRow {
    int nm;
    std::array<float, Columns> values;
};

template <std::size_t Columns>
using SpectralTable = std::array<SpectralRow<Columns>, SpectralPoints>;

/// One column of a table as a list over the grid.
template <std::size_t Columns>
[[nodiscard]] constexpr SpectralArray Column(SpectralTable<Columns> const& table,
                                             std::size_t column) noexcept {
    SpectralArray values{};
    for (std::size_t k = 0; k < values.size(); ++k) values[k] = table[k].values[column];
    return values;
}

/// Whether the rows are in grid order.
template <std::size_t Columns>
[[nodiscard]] constexpr bool FollowsGrid(SpectralTable<Columns> const& table) noexcept {
    for (int k = 0; k < SpectralPoints; ++k) {
        if (table[k].nm != Wavelength(k)) return false;
    }
    return true;
}

}  // namespace detail
}  // namespace kv
