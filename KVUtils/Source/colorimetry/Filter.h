// Filter: 36 spectral weights on the system's grid, with their cached sum.
#pragma once

#include "KVUtils/Source/colorimetry/LinAlg.h"
#include "KVUtils/Source/colorimetry/SpectralTable.h"
#include "KVUtils/Source/colorimetry/Spectrum.h"

#include <array>

namespace kv {

class Filter {
  public:
    /// Weights 0, not defined.
    constexpr Filter() noexcept = default;
    /// Copies 36 weights; the filter is defined.
    constexpr explicit Filter(float const* weights) noexcept : isDefined_(1) {
        LinAlg::CopyVector(weights_.data(), weights, SpectralPoints);
        CalculateSumme();
    }

    /// Sets all weights; leaves `isDefined` unchanged.
    constexpr void Init(float value) noexcept {
        weights_.fill(value);
        CalculateSumme();
    }

    /// Computes the sum in `float`, in storage order, rounded after each addition: every value that is
    /// divided by it depends on that.
    constexpr void CalculateSumme() noexcept {
        float sum = 0;
        for (float const weight : weights_) sum += weight;
        sum_ = sum;
        isSumValid_ = 1;
    }
    /// The sum of the weights, computed only if a write may have changed it; hence not for constant objects.
    [[nodiscard]] constexpr float FilterSumme() noexcept {
        if (isSumValid_ == 0) CalculateSumme();
        return sum_;
    }

    /// The weights, to write to: the next `FilterSumme` computes the sum again. Writes through a pointer kept
    /// longer than that go unnoticed.
    constexpr operator float*() noexcept {
        isSumValid_ = 0;
        return weights_.data();
    }
    /// The weights, to read.
    [[nodiscard]] constexpr std::array<float, SpectralPoints> const& Weights() const noexcept {
        return weights_;
    }

    /// Whether the filter was given content. The filter itself does not use it.
    [[nodiscard]] constexpr unsigned char isDefined() const noexcept { return isDefined_; }
    constexpr void Define(unsigned char defined) noexcept { isDefined_ = defined; }

    /// The product of two filters weight by weight, as an illuminant is folded into an observer's curve.
    [[nodiscard]] constexpr Filter FilterXFilter(Filter other) const noexcept {
        Filter product;
        LinAlg::VxV(product.weights_.data(), weights_.data(), other.weights_.data(), SpectralPoints);
        product.isDefined_ = 1;
        product.CalculateSumme();
        return product;
    }

    /// The sum of weight times sample over the grid, rounded to `float`.
    [[nodiscard]] constexpr float operator*(Spectrum const& spectrum) const noexcept {
        return LinAlg::DotProd(weights_.data(), spectrum, SpectralPoints);
    }

  private:
    friend class CMetryFilter;
    /// Copies weights as if through `operator float*` of both sides: computes this sum now and marks the
    /// source's for its next query. Keeps the defined flag.
    constexpr void AssignWeights(Filter const& source) noexcept {
        source.isSumValid_ = 0;
        weights_ = source.weights_;
        CalculateSumme();
    }

    // Mutable, since `AssignWeights` reads the source's weights as if to write to them.
    mutable unsigned char isSumValid_ = 1;
    float sum_ = 0;
    std::array<float, SpectralPoints> weights_{};
    unsigned char isDefined_ = 0;
};

namespace detail {

/// The weighted sums of several filters in one pass. Each channel is added up in grid order, so the results
/// equal those of separate passes to the last bit.
template <std::size_t Channels>
[[nodiscard]] constexpr std::array<double, Channels> WeightedSums(std::array<Filter, Channels> const& filters,
                                                                  Spectrum const& spectrum) noexcept {
    std::array<double, Channels> sums{};
    for (int k = 0; k < SpectralPoints; ++k) {
        for (std::size_t i = 0; i < Channels; ++i) {
            sums[i] += double{filters[i].Weights()[k]} * double{spectrum[k]};
        }
    }
    return sums;
}

}  // namespace detail
}  // namespace kv
