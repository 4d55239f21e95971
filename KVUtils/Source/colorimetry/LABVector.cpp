#include "KVUtils/Source/colorimetry/LABVector.h"

#include "KVUtils/Source/colorimetry/CMetry.h"
#include "KVUtils/Source/colorimetry/LCHmgVector.h"
#include "KVUtils/Source/colorimetry/XYZVector.h"
#include "KVUtils/Source/colorimetry/detail/CieLab.h"
#include "KVUtils/Source/colorimetry/detail/MgScale.h"
#include "KVUtils/Source/colorimetry/detail/Polar.h"

namespace kv {

LABVector::LABVector(Spectrum const& spectrum) noexcept : LABVector(CMetry::LXYZFilter, spectrum) {}

LABVector::LABVector(CMetryFilter& weights, Spectrum const& spectrum) noexcept
    : ColorVector(weights, spectrum) {
    std::array<double, 3> f{};
    for (unsigned short i = 0; i < 3; ++i) {
        double const sum = weights[i].FilterSumme();
        f[i] = detail::RatioToRoot(static_cast<float>((*this)[i] / sum));
    }
    detail::RootsToLab(f, getV());
}

LABVector::LABVector(XYZVector const& xyz) noexcept : LABVector(CMetry::LXYZFilter, xyz) {}

LABVector::LABVector(CMetryFilter& weights, XYZVector const& xyz) noexcept : ColorVector(xyz) {
    double const sumOfY = weights[1].FilterSumme();
    std::array<double, 3> f{};
    for (unsigned short i = 0; i < 3; ++i) {
        double const sum = weights[i].FilterSumme();
        f[i] = detail::RatioToRoot(static_cast<float>(xyz[i] * sumOfY / sum * 0.01));
    }
    detail::RootsToLab(f, getV());
}

LABVector::LABVector(LChVector const& lch) noexcept : ColorVector(lch) {
    detail::ToRectangular(lch.getV(), getV());
}

LChVector::LChVector(Spectrum const& spectrum) noexcept : LChVector(LABVector(spectrum)) {}
LChVector::LChVector(XYZVector const& xyz) noexcept : LChVector(LABVector(xyz)) {}

LChVector::LChVector(LABVector const& lab) noexcept : ColorVector(lab) {
    detail::ToPolar(lab.getV(), getV());
}

LChVector::LChVector(LCHmgVector const& mg) noexcept
    : ColorVector(static_cast<MeasuringCondition const&>(mg)) {
    ProbiereL(mg, 0, 200);
    ProbiereC(mg, 0, 1000);
    ProbiereH(mg, 0, 360);
}

namespace {

/// The x of [lo, hi) whose image is nearest to `target`, by a grid of ten steps refined around the best
/// point. The first of equal ones wins; negative x are skipped. All variables are `float`: results depend on
/// it. `record` may bring x back into its range.
template <class Map, class Record>
float Search(float target, float lo, float hi, Map map, Record record) noexcept {
    constexpr float fineEnough = 0.001F;
    for (;;) {
        auto const step = static_cast<float>((double{hi} - double{lo}) * 0.1);
        float best = 1000.0F;
        float found = 0;
        if (lo < hi) {
            for (float x = lo; x < hi; x += step) {
                if (x < 0) continue;
                auto const diff = static_cast<float>(std::fabs(target - map(double{x})));
                if (diff < best) {
                    best = diff;
                    found = record(x);
                }
            }
        }
        if (!(best > fineEnough && step > fineEnough)) return found;
        hi = found + step;
        lo = found - step;
    }
}

float AsFound(float x) noexcept { return x; }
float WithinCircle(float x) noexcept { return x > 360 ? x - 360 : x; }

}  // namespace

void LChVector::ProbiereL(LCHmgVector const& target, float lo, float hi) noexcept {
    (*this)[0] = Search(target[0], lo, hi, detail::LightnessToMg, AsFound);
}

void LChVector::ProbiereC(LCHmgVector const& target, float lo, float hi) noexcept {
    (*this)[1] = Search(target[1], lo, hi, detail::ChromaToMg, AsFound);
}

void LChVector::ProbiereH(LCHmgVector const& target, float lo, float hi) noexcept {
    (*this)[2] = Search(target[2], lo, hi, detail::HueToMg, WithinCircle);
}

}  // namespace kv
