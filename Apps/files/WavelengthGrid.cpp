#include "Apps/files/WavelengthGrid.h"

#include "Apps/files/Numbers.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace files {

namespace {

constexpr int LatestStart = 400;
constexpr int EarliestEnd = 700;

std::string Range(int first, int last) {
    return std::to_string(first) + " to " + std::to_string(last) + " nm";
}

bool IsUsableStep(double step) noexcept { return step == 10 || step == 5 || step == 1; }

void SortByWavelength(std::vector<SpectralColumn>& columns, Location const& location) {
    for (SpectralColumn const& column : columns) {
        if (column.nm != std::floor(column.nm)) {
            Fail(location, "a wavelength of " + ToText(column.nm) + " nm", "whole nanometres");
        }
    }
    std::ranges::sort(columns, {}, [](SpectralColumn const& c) { return std::pair(c.nm, c.column); });
    auto const twice = std::ranges::adjacent_find(columns, {}, &SpectralColumn::nm);
    if (twice != columns.end()) {
        Fail(location,
             ToText(twice->nm) + " nm twice (columns " + std::to_string(twice->column + 1) + " and " +
                 std::to_string(std::next(twice)->column + 1) + ")",
             "each wavelength once");
    }
}

/// Returns the step of at least two sorted wavelengths.
int EvenStep(std::vector<SpectralColumn> const& columns, Location const& location) {
    std::optional<double> smallest;
    std::optional<double> gapAfter;
    double largest = 0;
    for (std::size_t k = 1; k < columns.size(); ++k) {
        double const step = columns[k].nm - columns[k - 1].nm;
        smallest = std::min(smallest.value_or(step), step);
        largest = std::max(largest, step);
    }
    double const step = smallest.value_or(0);
    for (std::size_t k = columns.size() - 1; k > 0; --k) {
        if (columns[k].nm - columns[k - 1].nm != step) gapAfter = columns[k - 1].nm;
    }
    if (gapAfter && IsUsableStep(step)) {
        Fail(location, "no column for " + ToText(*gapAfter + step) + " nm",
             Range(static_cast<int>(columns.front().nm), static_cast<int>(columns.back().nm)) + " by " +
                 ToText(step) + " without a gap");
    }
    std::string const found =
        gapAfter ? "wavelengths in steps of " + ToText(step) + " to " + ToText(largest) + " nm"
                 : "wavelengths in steps of " + ToText(step) + " nm";
    if (!IsUsableStep(step)) Fail(location, found, "even steps of 10, 5 or 1 nm");
    return static_cast<int>(step);
}

/// Describes how one end of the file's range was fitted; empty if it is the library's.
std::string EndNote(char const* side, int fileEnd, int gridEnd, int heldAt) {
    if (fileEnd == gridEnd) return {};
    bool const isWider = (fileEnd < gridEnd) == (gridEnd == kv::FirstWavelength);
    if (isWider) return std::string(", cut ") + side + " " + std::to_string(gridEnd);
    return std::string(", ") + side + " " + std::to_string(heldAt) + " held at the value there";
}

}  // namespace

WavelengthGrid MakeGrid(std::vector<SpectralColumn> columns, Location const& location) {
    if (columns.size() < 2) {
        Fail(location, columns.empty() ? "no spectral columns" : "one spectral column",
             "400 to 700 nm at least");
    }
    SortByWavelength(columns, location);
    int const step = EvenStep(columns, location);
    int const first = static_cast<int>(columns.front().nm);
    int const last = static_cast<int>(columns.back().nm);
    std::string const range = Range(first, last) + " by " + std::to_string(step);

    int const firstTen = (first + 9) / 10 * 10;
    int const lastTen = last / 10 * 10;
    bool const hasTens = (firstTen - first) % step == 0;
    if (!hasTens || firstTen > LatestStart || lastTen < EarliestEnd) {
        Fail(location, "wavelengths from " + range,
             hasTens ? "400 to 700 nm at least" : "every tenth nanometre (400, 410, ...) among them");
    }

    WavelengthGrid grid;
    for (int point = 0; point < kv::SpectralPoints; ++point) {
        int const nm = std::clamp(kv::Wavelength(point), firstTen, lastTen);
        auto const row = static_cast<std::size_t>((nm - first) / step);
        grid.columns[static_cast<std::size_t>(point)] = columns[row].column;
        grid.wavelengths[static_cast<std::size_t>(point)] = nm;
    }
    std::string const how = (step == kv::WavelengthStep ? "" : ", every tenth nanometre taken") +
                            EndNote("below", first, kv::FirstWavelength, firstTen) +
                            EndNote("above", last, kv::LastWavelength, lastTen);
    grid.note = "wavelengths " + range + (how.empty() ? ", taken as they are" : how);
    std::string const held[] = {"below " + std::to_string(firstTen), "above " + std::to_string(lastTen)};
    bool const isHeld[] = {firstTen > kv::FirstWavelength, lastTen < kv::LastWavelength};
    for (int end = 0; end < 2; ++end) {
        if (isHeld[end]) grid.assumption += (grid.assumption.empty() ? "" : " and ") + held[end];
    }
    if (!grid.assumption.empty()) grid.assumption = "reflectance " + grid.assumption + " nm constant";
    return grid;
}

}  // namespace files
