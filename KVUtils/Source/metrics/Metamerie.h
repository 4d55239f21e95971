// Metamerism: how far two colours that match under one illuminant differ under another.
#pragma once

#include "KVUtils/Source/colorimetry/CMetryFilter.h"
#include "KVUtils/Source/colorimetry/LABVector.h"
#include "KVUtils/Source/colorimetry/XYZVector.h"
#include "SV/core/String.h"

namespace kv {

/// A metamerism index with its two illuminants.
class Metamerie {
  public:
    Metamerie(float index, IllumClass const& reference, IllumClass const& test) noexcept
        : index_(index), reference_(reference), test_(test) {}

    /// A CIELAB difference under the test illuminant; 0 for a sample that still matches.
    [[nodiscard]] float GetIndex() const noexcept { return index_; }
    [[nodiscard]] IllumClass const& GetReference() const noexcept { return reference_; }
    [[nodiscard]] IllumClass const& GetTest() const noexcept { return test_; }

    /// " 1.2 (D65->A)": the index in a width of four with one decimal and the locale's separator.
    operator sv::String() const;

  private:
    float index_;
    IllumClass reference_;
    IllumClass test_;
};

/// Compares samples with one standard under two illuminants, with a multiplicative correction of the
/// difference that remains under the reference illuminant (CIE 15, special metamerism index).
class MetamerieRechner {
  public:
    MetamerieRechner(Spectrum const& standard, CMetryFilter const& reference,
                     CMetryFilter const& test) noexcept;
    MetamerieRechner(Spectrum const& standard, IllumClass const& reference, IllumClass const& test,
                     ObserverClass const& observer);

    /// A sample with a tristimulus value of exactly 0 under the reference illuminant is not corrected.
    [[nodiscard]] Metamerie RechneMetamerie(Spectrum const& sample) noexcept;

    /// The weights of the test illuminant, owned by this object.
    [[nodiscard]] CMetryFilter* FilterTestlicht() noexcept { return &test_; }

  private:
    MetamerieRechner(Spectrum const& standard, IllumClass const& reference, IllumClass const& test,
                     Observer const& observer) noexcept;

    CMetryFilter reference_;
    CMetryFilter test_;
    XYZVector standardUnderReference_;
    LABVector standardUnderTest_;
};

}  // namespace kv
