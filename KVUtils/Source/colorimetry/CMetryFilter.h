// CMetryFilter: the X, Y and Z weights of an illuminant and an observer.
#pragma once

#include "KVUtils/Source/colorimetry/Filter.h"
#include "KVUtils/Source/colorimetry/Lichtart.h"
#include "KVUtils/Source/colorimetry/Observer.h"
#include "KVUtils/Source/colorimetry/Rounded.h"
#include "KVUtils/Source/colorimetry/Selectors.h"

#include <array>

namespace kv {

/// Each weight is power times colour-matching value at its wavelength, not scaled; dividing by the sum of the
/// Y weights brings Y of the perfect white to 100.
class CMetryFilter {
  public:
    /// D65 with the 2 degree observer.
    CMetryFilter() noexcept;
    CMetryFilter(Lichtart const& illuminant, Observer const& observer) noexcept;
    /// Copies three filters supplied by the caller: X, Y and Z. They count as the custom illuminant with a
    /// client specific observer.
    explicit CMetryFilter(Filter const* weights) noexcept;

    /// Copies everything and computes the sums again.
    CMetryFilter(CMetryFilter const& other) noexcept;
    /// Copies weights and classes and computes the sums again. Each filter keeps its own defined flag, and
    /// the source computes its sums again at the next query.
    CMetryFilter& operator=(CMetryFilter const& other) noexcept;

    /// 0 is X, 1 is Y, 2 is Z; the index is not checked.
    [[nodiscard]] constexpr Filter const& operator[](unsigned short channel) const noexcept {
        return weights_[channel];
    }
    [[nodiscard]] constexpr Filter& operator[](unsigned short channel) noexcept { return weights_[channel]; }

    /// The sums of weight times sample of the three channels, each rounded to `float`.
    [[nodiscard]] constexpr std::array<float, 3> operator*(Spectrum const& spectrum) const noexcept {
        auto const sums = detail::WeightedSums(weights_, spectrum);
        return {detail::Rounded<float>(sums[0]), detail::Rounded<float>(sums[1]),
                detail::Rounded<float>(sums[2])};
    }

    [[nodiscard]] constexpr ObserverClass const& GetObserver() const noexcept { return observer_; }
    [[nodiscard]] constexpr IllumClass const& GetIllum() const noexcept { return illuminant_; }

  private:
    friend struct StandardFilters;
    constexpr CMetryFilter(std::array<Filter, 3> const& weights, ObserverClass observer,
                           IllumClass illuminant) noexcept
        : weights_(weights), observer_(observer), illuminant_(illuminant) {}

    std::array<Filter, 3> weights_;
    ObserverClass observer_;
    IllumClass illuminant_;
};

/// Two sets of weights that belong together. The library only stores and copies them.
struct CustomIlluminant {
    CMetryFilter first;
    CMetryFilter second;
};

}  // namespace kv
