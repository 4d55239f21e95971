// Builds the filters of a density standard, at compile time for the standard in force at the start.
#pragma once

#include "KVUtils/Source/metrics/DichteFilter.h"
#include "KVUtils/Source/metrics/detail/DensityTables.h"

#include <span>

namespace kv {

struct StandardDensity {
    [[nodiscard]] static constexpr DichteFilter Filters(DStdType standard) noexcept {
        constexpr std::size_t visual = 0;
        constexpr std::size_t firstOfAnsiA = 1;
        constexpr std::size_t firstOfAnsiT = 4;
        constexpr std::size_t firstOfSpi = 7;
        std::array<Filter, 4> filters;
        switch (standard) {
            case DStdType::AnsiA:
                TakeColumns(filters, firstOfAnsiA);
                break;
            case DStdType::AnsiT:
                TakeColumns(filters, firstOfAnsiT);
                break;
            case DStdType::Spi:
                TakeColumns(filters, firstOfSpi);
                break;
            case DStdType::Din:
                PlaceCurves(filters, DinHeights, DinSum);
                break;
            case DStdType::DinNb:
                PlaceCurves(filters, NarrowBandHeights, NarrowBandSum);
                break;
            default:
                break;
        }
        filters[visual] = Filter(Column(detail::DensityTable, visual).data());
        return DichteFilter(filters, standard);
    }

  private:
    /// Relative heights around the centre of a curve, and what divides them when they are placed.
    static constexpr std::array<double, 7> DinHeights = {0.15, 0.4, 0.8, 1, 0.8, 0.4, 0.15};
    static constexpr std::array<double, 1> NarrowBandHeights = {1};
    static constexpr double DinSum = 3.7;
    static constexpr double NarrowBandSum = 1;

    static constexpr void TakeColumns(std::array<Filter, 4>& filters, std::size_t first) noexcept {
        for (std::size_t i = 1; i < filters.size(); ++i) {
            filters[i] = Filter(Column(detail::DensityTable, first + i - 1).data());
        }
    }

    static constexpr void PlaceCurves(std::array<Filter, 4>& filters, std::span<double const> heights,
                                      double sum) noexcept {
        constexpr std::array<int, 3> centres = {620, 530, 430};  // nm: red, green, blue
        for (std::size_t i = 0; i < centres.size(); ++i) {
            detail::SpectralArray weights{};
            auto const centre = static_cast<std::size_t>((centres[i] - FirstWavelength) / WavelengthStep);
            for (std::size_t j = 0; j < heights.size(); ++j) {
                weights[centre + j - heights.size() / 2] = static_cast<float>(heights[j] / sum);
            }
            filters[i + 1] = Filter(weights.data());
        }
    }
};

}  // namespace kv
