#include "KVUtils/Source/colorimetry/LCHmgVector.h"

#include "KVUtils/Source/colorimetry/LABVector.h"
#include "KVUtils/Source/colorimetry/detail/MgScale.h"
#include "KVUtils/Source/colorimetry/detail/Polar.h"

namespace kv {

LCHmgVector::LCHmgVector(LABVector const& lab) noexcept : ColorVector(lab) {
    LChVector const lch(lab);
    (*this)[0] = static_cast<float>(detail::LightnessToMg(lch[0]));
    (*this)[1] = static_cast<float>(detail::ChromaToMg(lch[1]));
    (*this)[2] = static_cast<float>(detail::HueToMg(lch[2]));
}

LCHmgVector::LCHmgVector(LABmgVector const& lab) noexcept : ColorVector(lab) {
    detail::ToPolar(lab.getV(), getV());
}

LABmgVector::LABmgVector(LCHmgVector const& lch) noexcept : ColorVector(lch) {
    detail::ToRectangular(lch.getV(), getV());
}

}  // namespace kv
