#include "KVUtils/Source/colorimetry/XYZVector.h"

#include "KVUtils/Source/colorimetry/CMetry.h"
#include "KVUtils/Source/colorimetry/LABVector.h"
#include "KVUtils/Source/colorimetry/Rounded.h"
#include "KVUtils/Source/colorimetry/detail/CieLab.h"

namespace kv {

XYZVector::XYZVector(Spectrum const& spectrum) noexcept : XYZVector(CMetry::LXYZFilter, spectrum) {}

XYZVector::XYZVector(CMetryFilter& weights, Spectrum const& spectrum) noexcept
    : ColorVector(weights, spectrum) {
    double const sumOfY = weights[1].FilterSumme();
    for (int i = 0; i < 3; ++i) (*this)[i] = detail::Rounded<float>((*this)[i] / sumOfY * 100);
}

XYZVector::XYZVector(LABVector const& lab) noexcept : ColorVector(lab) {
    CMetryFilter& weights = CMetry::LXYZFilter;
    double const sumOfY = weights[1].FilterSumme();
    std::array<double, 3> const f = detail::LabToRoots(lab);
    for (int i = 0; i < 3; ++i) {
        double const sum = weights[static_cast<unsigned short>(i)].FilterSumme();
        auto const white = static_cast<float>(sum * 100 / sumOfY);
        (*this)[i] = static_cast<float>(detail::RootToRatio(f[i], white));
    }
}

xyYVector::xyYVector(Spectrum const& spectrum) noexcept {
    XYZVector const xyz(spectrum);
    double const sum = double{xyz[0]} + double{xyz[1]} + double{xyz[2]};
    (*this)[0] = static_cast<float>(xyz[0] / sum);
    (*this)[1] = static_cast<float>(xyz[1] / sum);
    (*this)[2] = xyz[1];
}

}  // namespace kv
