// The scale of an axis from the data. Each has 4 subdivisions, no pixel offset, and as step the largest power
// of ten not above the maximum; a maximum of 0 gives a step of 0, a negative one a step of NaN, and neither
// has ticks. Ranges are widened by 5 percent. "Floored" means: at least 0.001.
#pragma once

#include "KVUtils/Source/plots/AxisData.h"
#include "KVUtils/Source/plots/CurveList.h"

namespace kv::detail {

/// From the X or the Y of one curve, widened by 5 percent of its range. An end that the type does not take
/// from the data is 0 or 1; a maximum from the data is floored.
[[nodiscard]] AxisData AutoScaleX(Curve const& curve, AutoScaleType type) noexcept;
[[nodiscard]] AxisData AutoScaleY(Curve const& curve, AutoScaleType type) noexcept;

/// From the Y of all curves, each end widened by 5 percent of its own value; the maximum is floored.
/// Intentional: without curves the minimum is the largest finite `float`, so that the plot shows nothing.
[[nodiscard]] AxisData AutoScaleY(CurveList const& curves, AutoScaleType type) noexcept;
/// From both ends of the highest curve, of equal ones the first; ignores the others. Without curves the axis
/// runs from 0 to 1.
[[nodiscard]] AxisData AutoScaleY(CurveList const& curves) noexcept;

/// From the floored maximum of all curves, widened by its value, and a given minimum, widened by the range.
[[nodiscard]] AxisData AutoScaleYMax(CurveList const& curves, float minimum) noexcept;
/// From a given range, widened at both ends; not floored.
[[nodiscard]] AxisData ScaleY(float minimum, float maximum) noexcept;

/// The decimals that distinguish the labels of such an axis: one more than the decimal places of its maximum,
/// at least 0; 0 for a maximum of 0 or NaN.
[[nodiscard]] int LabelDecimals(AxisData const& axis) noexcept;

}  // namespace kv::detail
