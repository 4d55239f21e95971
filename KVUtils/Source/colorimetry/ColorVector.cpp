#include "KVUtils/Source/colorimetry/ColorVector.h"

#include "KVUtils/Source/data/GString.h"

namespace kv {

ColorVector& ColorVector::operator*=(ColorVector const& other) noexcept {
    LinAlg::VxV(getV(), other.getV(), 3);
    return *this;
}

ColorVector& ColorVector::operator/=(ColorVector const& other) noexcept {
    LinAlg::VdivV(getV(), getV(), other.getV(), 3);
    return *this;
}

ColorVector& ColorVector::operator+=(ColorVector const& other) noexcept {
    LinAlg::VAddV(getV(), other.getV(), 3);
    return *this;
}

ColorVector& ColorVector::operator-=(ColorVector const& other) noexcept {
    LinAlg::VSubV(getV(), other.getV(), 3);
    return *this;
}

ColorVector& ColorVector::operator*=(float factor) noexcept {
    LinAlg::KxV(getV(), factor, 3);
    return *this;
}

ColorVector& ColorVector::operator/=(float divisor) noexcept {
    for (float& component : v_) component = static_cast<float>(double{component} / double{divisor});
    return *this;
}

ColorVector::operator sv::String() const {
    auto const number = [this](int component) { return GString((*this)[component], 0, 2); };
    return sv::String("{") + number(0) + ", " + number(1) + ", " + number(2) + '}';
}

}  // namespace kv
