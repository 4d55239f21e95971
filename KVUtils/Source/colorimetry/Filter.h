// Filter: 36 spectral weights on the system's grid, with their cached sum.
#pragma once

#include "KVUtils/Source/colorimetry/LinAlg.h"
#include "KVUtils/Source/colorimetry/SpectralTable.h"
#include "KVUtils/Source/colorimetry/Spectrum.h"

#include <array>
#include <atomic>
#include <type_traits>

namespace kv {

namespace detail {

/// A flag that several threads may set and read at once, without any order between them. At compile time a
/// copy is set, as a mutable source can't be read there.
class SharedFlag {
  public:
    constexpr explicit SharedFlag(bool isSet) noexcept : value_(isSet) {}
    constexpr SharedFlag(SharedFlag const& other) noexcept
        : value_(std::is_constant_evaluated() || Load(other.value_)) {}
    constexpr SharedFlag& operator=(SharedFlag const& other) noexcept {
        Set(std::is_constant_evaluated() || Load(other.value_));
        return *this;
    }
    ~SharedFlag() = default;

    [[nodiscard]] constexpr bool IsSet() const noexcept {
        return std::is_constant_evaluated() ? value_ : Load(value_);
    }
    constexpr void Set(bool isSet) const noexcept {
        if (std::is_constant_evaluated()) {
            value_ = isSet;
        } else {
            Store(value_, isSet);
        }
    }

  private:
    static bool Load(bool& value) noexcept { return std::atomic_ref(value).load(std::memory_order_relaxed); }
    static void Store(bool& value, bool isSet) noexcept {
        std::atomic_ref(value).store(isSet, std::memory_order_relaxed);
    }

    mutable bool value_;
};

}  // namespace detail

class Filter {
  public:
    /// Weights 0, not defined.
    constexpr Filter() noexcept = default;
    constexpr Filter(Filter const& other) noexcept
        : isSumValid_(other.isSumValid_),
          sum_(other.sum_),
          weights_(other.weights_),
          isDefined_(other.isDefined_) {
        if (std::is_constant_evaluated()) CalculateSumme();
    }
    constexpr Filter& operator=(Filter const& other) noexcept {
        isSumValid_ = other.isSumValid_;
        sum_ = other.sum_;
        weights_ = other.weights_;
        isDefined_ = other.isDefined_;
        if (std::is_constant_evaluated()) CalculateSumme();
        return *this;
    }
    ~Filter() = default;
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
        isSumValid_.Set(true);
    }
    /// The sum of the weights, computed only if a write may have changed it; hence not for constant objects.
    [[nodiscard]] constexpr float FilterSumme() noexcept {
        if (!isSumValid_.IsSet()) CalculateSumme();
        return sum_;
    }

    /// The weights, to write to: the next `FilterSumme` computes the sum again. Writes through a pointer kept
    /// longer than that go unnoticed.
    constexpr operator float*() noexcept {
        isSumValid_.Set(false);
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
        source.isSumValid_.Set(false);
        weights_ = source.weights_;
        CalculateSumme();
    }

    // Set in constant filters too, since `AssignWeights` reads the source's weights as if to write to them.
    // Atomic, since the source may be read by other threads.
    detail::SharedFlag isSumValid_{true};
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
