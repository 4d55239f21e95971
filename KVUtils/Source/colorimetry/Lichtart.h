// Lichtart: the relative spectral power of an illuminant.
#pragma once

#include "KVUtils/Source/colorimetry/Filter.h"
#include "KVUtils/Source/colorimetry/Selectors.h"

namespace kv {

class Lichtart {
  public:
    /// CIE A, C, D50, D65 and F1 to F12 come from the tables of CIE 15; a daylight slot is computed from its
    /// day number by the CIE daylight formula, whatever the colour temperature. Every other type has weights
    /// 0 and a filter that is not defined.
    explicit Lichtart(IllumClass const& illuminant) noexcept;

    [[nodiscard]] IllumClass const& GetIllum() const noexcept { return illuminant_; }
    /// Power over the grid, 100 at 560 nm for the CIE series other than F.
    [[nodiscard]] Filter const& GetFilter() const noexcept { return power_; }

  private:
    IllumClass illuminant_;
    Filter power_;
};

}  // namespace kv
