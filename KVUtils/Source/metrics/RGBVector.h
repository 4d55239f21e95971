// Display colours: red, green and blue of a screen with fixed primaries.
#pragma once

#include "KVUtils/Source/colorimetry/ColorVector.h"

namespace kv {

class LABVector;

/// R, G, B [0, 100], each one of 256 levels. A colour that the display cannot show is clipped channel by
/// channel. Call `CMetry::SetMeasuringConditions` first, which fills the gamma tables: before, a channel is
/// 100, or 0 for a negative value. `SetCMetry` does not fill them.
class RGBVector : public ColorVector {
  public:
    /// With the display's own weights, D65 and 2 degrees, whatever the weights in force.
    explicit RGBVector(Spectrum const& spectrum) noexcept;
    /// By way of `XYZVector`, so against the white of the weights in force; keeps the conditions.
    explicit RGBVector(LABVector const& lab) noexcept;
};

}  // namespace kv
