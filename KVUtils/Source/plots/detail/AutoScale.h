// The scale of an axis from the data. All share the record's form: 4 subdivisions, no pixel offset, and as
// step the largest power of ten not above the maximum; a maximum of 0 gives a step of 0, a negative one a
// step that is not a number, and neither has ticks. Ranges are widened by 5 percent. "Floored" is: at least
// 0.001.
#pragma once

#include "KVUtils/Source/plots/AxisData.h"
#include "KVUtils/Source/plots/CurveList.h"

namespace kv::detail {

/// From the X or the Y of one curve, widened by 5 percent of its range. What the type does not take from the
/// data is 0 or 1; a maximum from the data is floored.
[[nodiscard]] AxisData AutoScaleX(Curve const& curve, AutoScaleType type) noexcept;
[[nodiscard]] AxisData AutoScaleY(Curve const& curve, AutoScaleType type) noexcept;

/// From the Y of all curves, each end widened by 5 percent of its own value; the maximum is floored. Without
/// curves the minimum is the largest finite `float`: meant, such a plot shows nothing.
[[nodiscard]] AxisData AutoScaleY(CurveList const& curves, AutoScaleType type) noexcept;
/// From both ends of the curve that reaches highest, of equals the first; the others take no part. Without
/// curves the axis runs from 0 to 1.
[[nodiscard]] AxisData AutoScaleY(CurveList const& curves) noexcept;

/// From the floored maximum of all curves, widened by its value, and a given minimum, widened by the range.
[[nodiscard]] AxisData AutoScaleYMax(CurveList const& curves, float minimum) noexcept;
/// From a given range, widened at both ends; not floored.
[[nodiscard]] AxisData ScaleY(float minimum, float maximum) noexcept;

/// The decimals that tell the labels of such an axis apart: one more than the places of its maximum behind
/// the point, at least 0; 0 for a maximum of 0 or none.
[[nodiscard]] int LabelDecimals(AxisData const& axis) noexcept;

}  // namespace kv::detail
