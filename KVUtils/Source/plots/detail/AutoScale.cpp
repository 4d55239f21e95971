#include "KVUtils/Source/plots/detail/AutoScale.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kv::detail {

namespace {

constexpr double Margin = 0.05;
constexpr float LeastMaximum = 0.001F;
constexpr int Subdivisions = 4;

AxisData Axis(float minimum, float maximum) noexcept {
    double const step = std::pow(10.0, std::floor(std::log10(double{maximum})));
    return {minimum, maximum, static_cast<float>(step), Subdivisions};
}

double MarginOf(double length) noexcept { return std::fabs(length) * Margin; }

AxisData OfOneCurve(double lo, double hi, AutoScaleType type) noexcept {
    double const margin = MarginOf(hi - lo);
    float minimum = 0;
    float maximum = 1;
    if (type == AUTOSCALE_MIN || type == AUTOSCALE_BOTH) minimum = static_cast<float>(lo - margin);
    if (type == AUTOSCALE_MAX || type == AUTOSCALE_BOTH)
        maximum = std::max(static_cast<float>(hi + margin), LeastMaximum);
    return Axis(minimum, maximum);
}

float WidenedMaximum(Curve const& curve) noexcept {
    double const hi = curve.GetMaxYPoint().Y();
    return static_cast<float>(hi + MarginOf(hi));
}

float WidenedMinimum(Curve const& curve) noexcept {
    double const lo = curve.GetMinYPoint().Y();
    return static_cast<float>(lo - MarginOf(lo));
}

}  // namespace

AxisData AutoScaleX(Curve const& curve, AutoScaleType type) noexcept {
    return OfOneCurve(curve.GetMinXPoint().X(), curve.GetMaxXPoint().X(), type);
}

AxisData AutoScaleY(Curve const& curve, AutoScaleType type) noexcept {
    return OfOneCurve(curve.GetMinYPoint().Y(), curve.GetMaxYPoint().Y(), type);
}

AxisData AutoScaleY(CurveList const& curves, AutoScaleType type) noexcept {
    float lower = std::numeric_limits<float>::max();
    float upper = std::numeric_limits<float>::min();
    for (unsigned long i = 0; i < curves.Count(); ++i) {
        Curve const& curve = *curves.GetObject(i);
        // An end that the type does not take from the data is that of a curve from 0 to 1.
        float const minimum = type == AUTOSCALE_MIN || type == AUTOSCALE_BOTH ? WidenedMinimum(curve) : 0;
        float const maximum = type == AUTOSCALE_MAX || type == AUTOSCALE_BOTH ? WidenedMaximum(curve) : 1;
        lower = std::min(lower, minimum);
        upper = std::max(upper, maximum);
    }
    return Axis(lower, std::max(upper, LeastMaximum));
}

AxisData AutoScaleY(CurveList const& curves) noexcept {
    Curve const* highest = curves.GetObject(0);
    if (highest == nullptr) return Axis(0, 1);
    for (unsigned long i = 1; i < curves.Count(); ++i) {
        Curve const* const curve = curves.GetObject(i);
        if (curve->GetMaxYPoint().Y() > highest->GetMaxYPoint().Y()) highest = curve;
    }
    return AutoScaleY(*highest, AUTOSCALE_BOTH);
}

AxisData AutoScaleYMax(CurveList const& curves, float minimum) noexcept {
    float maximum = LeastMaximum;
    for (unsigned long i = 0; i < curves.Count(); ++i)
        maximum = std::max(maximum, WidenedMaximum(*curves.GetObject(i)));
    double const margin = MarginOf(double{maximum} - double{minimum});
    return Axis(static_cast<float>(minimum - margin), maximum);
}

AxisData ScaleY(float minimum, float maximum) noexcept {
    double const margin = MarginOf(double{maximum} - double{minimum});
    return Axis(static_cast<float>(minimum - margin), static_cast<float>(maximum + margin));
}

int LabelDecimals(AxisData const& axis) noexcept {
    double const decimals = 1 - std::floor(std::log10(std::fabs(double{axis.GetMaximum()})));
    return std::isfinite(decimals) ? std::max(static_cast<int>(decimals), 0) : 0;
}

}  // namespace kv::detail
